// CBoolSearch: any expression and text never crash. For an accepted expression E the answer
// for a text is stable, "NOT (E)" gives the opposite answer and "(E) OR (E)" the same one.
#include "values/BoolSearch.h"

#include <stddef.h>
#include <stdint.h>
#include <string.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    // Flags, then the expression, a NUL, and the text.
    const char* rest = (const char*)data + 1;
    size_t restSize = size - 1;
    size_t expressionLength = strnlen(rest, restSize);
    CString expression(rest, (int)expressionLength);
    CString text;
    if (expressionLength < restSize)
    {
        const char* textStart = rest + expressionLength + 1;
        size_t textSize = restSize - expressionLength - 1;
        text = CString(textStart, (int)strnlen(textStart, textSize));
    }

    CBoolSearch search;
    search.SetMatchCase(data[0] & 1);
    search.SetTextSearchIsContains((data[0] & 2) != 0);
    if (search.Search(text))
        __builtin_trap(); // nothing to search with yet
    if (!search.InitSearch(expression))
    {
        if (search.Search(text))
            __builtin_trap();
        return 0;
    }
    BOOL found = search.Search(text);
    if (search.Search(text) != found || search.Search(NULL))
        __builtin_trap();

    CBoolSearch negated;
    negated.SetMatchCase(data[0] & 1);
    negated.SetTextSearchIsContains((data[0] & 2) != 0);
    if (!negated.InitSearch("NOT (" + expression + ")") || negated.Search(text) == found)
        __builtin_trap();
    CString doubled = "(" + expression + ") OR (" + expression + ")";
    if (!negated.InitSearch(doubled) || negated.Search(text) != found)
        __builtin_trap();
    return 0;
}
