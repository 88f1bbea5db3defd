// CDmxCommand: the lighting command of the command-list edit, a list of DMX channels and a
// level in percent such as "1-10+15*50". The edit calls these functions; they carry no window
// so that the grammar can be tested and fuzzed on its own.
//
// Grammar, read left to right:
// - Channels are decimal numbers 1..10240, a level is 0..100.
// - "A-B" is the range A..B in ascending order; a range written downward adds nothing and is
//   not an error. '+' joins terms. '*' or '@' (the same) ends the channels; the number after
//   it, at the end of the text, is the level.
// - Every operator and the end of the text need digits before them; any other character fails.
// - Without a level the command fails, unless AUTO_FULL is given: then the level is 100.
// - A range in the level ("1*2-3") fails. A second level operator or a '+' after the level
//   add the number before them as one more channel, unchecked; nothing gives them a meaning.
#pragma once

#include <afx.h>
#include <afxcoll.h>

class AFX_EXT_CLASS CDmxCommand
{
public:
    enum
    {
        MIN_CHANNEL = 1,
        MAX_CHANNEL = 10240,
        MAX_LEVEL = 100,
        AUTO_FULL = 1 // flag: a command without a level means level 100
    };

    // Parses strText into aChannels and *plLevel (-1 until a level is read; plLevel may be
    // NULL). On failure aChannels keeps the channels appended before the fault.
    // strText is the scan buffer: each operator passed is overwritten by a terminator, so the
    // caller's string is left holding only its text before the first operator ("1-5*50"
    // becomes "1"). Callers that need the text afterwards pass a copy.
    // A command that parses becomes the last valid command.
    static BOOL Parse(CString& strText, CUIntArray& aChannels, long* plLevel, long lFlags);

    // The full text of the most recent command Parse accepted, shared by every edit.
    static const CString& GetLastValidCommand();

    // The typing check: TRUE when every character may belong to a command.
    static BOOL IsCommandText(LPCTSTR lpszText);

    // Level recall: a text of exactly "*" or "@" with a last valid command is replaced by that
    // command, with the selection from just after its first level operator to its end, so
    // the user types only a new level. FALSE when the text stays as typed.
    static BOOL RecallLevel(LPCTSTR lpszText, const CString& strLastValid,
                            CString& strNewText, int& nSelStart, int& nSelEnd);
};
