// CMaskText: any mask, text and sequence of edits never crash. The display text keeps the
// mask's length with every literal in place and only acceptable characters at entry
// positions; the caret stays inside the text; GetText and SetText agree.
#include "values/MaskText.h"

#include <stddef.h>
#include <stdint.h>
#include <string.h>

namespace
{
void CheckDisplay(const CMaskText& mask)
{
    const CString& display = mask.GetDisplayText();
    const CString& pattern = mask.GetMask();
    if (display.GetLength() != pattern.GetLength())
        __builtin_trap();
    for (int i = 0; i < pattern.GetLength(); ++i)
    {
        char ch = 0;
        if (!mask.GetReplacementChar(i, display[i], ch) || ch != display[i])
            __builtin_trap(); // a literal moved, or an entry holds a refused character
    }
    CMaskText copy;
    copy.SetMask(pattern, mask.GetBlank());
    copy.SetText(mask.GetText());
    if (copy.GetDisplayText().Compare(display) != 0)
        __builtin_trap();
}
} // namespace

// Input: blank, mask, NUL, text, NUL, then edits of three bytes (key, caret, character).
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    const char* p = (const char*)data + 1;
    const char* end = (const char*)data + size;
    size_t maskLength = strnlen(p, end - p);
    CString pattern(p, (int)maskLength);
    p += maskLength < (size_t)(end - p) ? maskLength + 1 : maskLength;
    size_t textLength = strnlen(p, end - p);
    CString text(p, (int)textLength);
    p += textLength < (size_t)(end - p) ? textLength + 1 : textLength;

    CMaskText mask;
    mask.SetMask(pattern, (char)data[0]);
    CheckDisplay(mask);
    mask.SetText(text);
    CheckDisplay(mask);

    for (; end - p >= 3; p += 3)
    {
        // The edit control's text after the key: the display with one character typed,
        // deleted or backspaced at a caret, or a foreign text.
        CString edit = mask.GetDisplayText();
        int caret = (uint8_t)p[1] % (edit.GetLength() + 2) - 1;
        CMaskText::EDIT_KEY key = (CMaskText::EDIT_KEY)((uint8_t)p[0] % 4 % 3);
        if (p[0] & 0x80)
            edit = text;
        else if (key == CMaskText::KEY_OTHER && caret >= 0 && caret <= edit.GetLength())
            edit.Insert(caret++, p[2] != 0 ? p[2] : 'x');
        else if (caret >= 0 && caret < edit.GetLength())
            edit.Delete(caret);
        int newCaret = mask.ApplyEdit(edit, caret, key);
        if (newCaret < 0 || newCaret > mask.GetMask().GetLength())
            __builtin_trap();
        CheckDisplay(mask);
    }
    return 0;
}
