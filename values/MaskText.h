// CMaskText: the text engine of the mask edit. A mask holds entry positions ('#' a digit,
// '?' a letter, 'A' a letter or a digit) and literals, which are shown and kept in place. The
// display text is always as long as the mask; an empty entry position shows the blank
// character. The edit calls these functions from its change notification; they carry no
// window so that the rules can be tested and fuzzed on their own.
//
// Edits arrive as the edit's new text and caret after the edit control applied a keystroke
// or a paste (ApplyEdit):
// - Backspace resets the position at the caret (to the blank, or to the literal) and moves
//   the caret back over the literals before it: with "##:##", backspacing the '3' of "12:3_"
//   shows "12:__" with the caret after the '2'.
// - Delete resets the position at the caret and moves the caret to the first entry position
//   after it.
// - Anything else is read as one character typed just before the caret: it fills the first
//   entry position at or after where it was typed when that position accepts it, and the
//   caret moves to the next entry position. A refused character just disappears. A paste is
//   read the same way, so only its last character counts.
// Letters are the ASCII letters, digits '0' to '9'; the blank is accepted at every entry
// position.
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CMaskText
{
public:
    enum EDIT_KEY
    {
        KEY_OTHER,     // typing or paste
        KEY_DELETE,
        KEY_BACKSPACE
    };

    CMaskText();

    // Stores the mask and the blank and shows every entry position blank. NULL is no mask;
    // a NUL blank, which would end the text, is the underscore.
    void SetMask(LPCTSTR lpszMask, TCHAR chBlank);
    const CString& GetMask() const { return m_strMask; }
    TCHAR GetBlank() const { return m_chBlank; }
    const CString& GetDisplayText() const { return m_strDisplay; }

    // Fills the entry positions from lpszText in order, dropping each character the next
    // position refuses; literals in the text are just characters, so with "##:##" both
    // "1234" and "12:34" show "12:34". Positions left over show the blank. NULL is empty.
    void SetText(LPCTSTR lpszText);
    // The display text at entry positions only.
    CString GetText() const;

    // TRUE at an entry position ('#', '?' or 'A').
    BOOL IsMaskChar(int nPosition) const;
    // Whether ch may stand at nPosition, and what then stands there: ch itself at an entry
    // position, the literal at a literal position. FALSE outside the mask.
    BOOL GetReplacementChar(int nPosition, TCHAR ch, TCHAR& chResult) const;
    // Forward: the first entry position at or after nPosition, or the mask length.
    // Backward: the caret after stepping back over the literals before nPosition; nPosition
    // itself when the character before it is an entry position, 0 when only literals precede.
    int GotoNextEntryChar(int nPosition, BOOL bBackward = FALSE) const;

    // Applies an edit the edit control already made: strEditText and nCaret are its text and
    // caret afterwards, key the key that made it. Returns the caret to set, always inside the
    // display text, which is what the control must show. An unchanged text changes nothing.
    int ApplyEdit(LPCTSTR lpszEditText, int nCaret, EDIT_KEY key);

    // The timecode edit's mask and blank, and its value as text at 29.97 frames per second
    // (hours:minutes:seconds:frames, see CKelTime).
    static LPCTSTR TimecodeMask() { return "##:##:##:##"; }
    static TCHAR TimecodeBlank() { return '0'; }
    static CString FormatTimecode(long lMilliseconds);
    // TRUE when the text is exactly how a value prints, so "1:2:3:4" is refused.
    static BOOL ReadTimecode(LPCTSTR lpszText, long& lMilliseconds);

private:
    void ResetPosition(int nPosition);

    CString m_strMask;
    TCHAR m_chBlank;
    CString m_strDisplay;
};
