// CDmxCommand: any command never crashes. On success the level is 0..100, the text was a
// command as typed, and it is the last valid command. A command with one level operator and
// only digits after it yields channels in range, ascending within each term.
#include "values/DmxCommand.h"

#include <stddef.h>
#include <stdint.h>
#include <string.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    const char* command = (const char*)data + 1;
    CString text(command, (int)strnlen(command, size - 1));
    const CString original = text;

    CUIntArray channels;
    long level = 7;
    BOOL ok = CDmxCommand::Parse(text, channels, &level, data[0] & 1);
    if (text.GetLength() > original.GetLength() ||
        strncmp(text, original, text.GetLength()) != 0)
        __builtin_trap(); // the text is only ever cut short
    if (!ok)
        return 0;
    if (level < 0 || level > 100 || !CDmxCommand::IsCommandText(original) ||
        CDmxCommand::GetLastValidCommand().Compare(original) != 0)
        __builtin_trap();

    int levelAt = original.FindOneOf("*@");
    if (levelAt >= 0 && original.Mid(levelAt + 1).SpanIncluding("0123456789").GetLength() !=
                            original.GetLength() - levelAt - 1)
        return 0;
    for (INT_PTR i = 0; i < channels.GetSize(); ++i)
    {
        if (channels[i] < 1 || channels[i] > 10240)
            __builtin_trap();
    }
    // Within a term the channels rise by one, so a fall only starts a new term: at most as
    // many falls as '+' signs.
    int falls = 0;
    for (INT_PTR i = 1; i < channels.GetSize(); ++i)
        if (channels[i] != channels[i - 1] + 1)
            ++falls;
    int terms = 0;
    for (int i = 0; i < original.GetLength(); ++i)
        terms += original[i] == '+';
    if (falls > terms)
        __builtin_trap();
    return 0;
}
