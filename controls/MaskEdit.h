// CGenericMaskEdit: an edit that shows a fixed pattern. The mask's '#' positions take a digit,
// '?' a letter, 'A' a letter or a digit; every other character of the mask is a literal that
// stays where it is whatever the user types, deletes or pastes. The rules live in CMaskText:
// after each change the edit made, the control hands the new text and caret to it and shows
// what it answers.
//
// CGenericMaskHHMMSSFFEdit: the timecode edit, hours:minutes:seconds:frames at 29.97 frames
// per second, holding milliseconds as a long.
#pragma once

#include "controls/StringEdit.h"
#include "values/MaskText.h"

class AFX_EXT_CLASS CGenericMaskEdit : public CStringEdit
{
    DECLARE_DYNAMIC(CGenericMaskEdit)
public:
    CGenericMaskEdit();

    // Shows every entry position blank.
    void setMask(const char* lpszMask, char chBlank = '_');
    // Fills the entry positions from the text, dropping what a position refuses.
    void setText(const char* lpszText);
    // The characters at entry positions, the literals left out.
    CString getText();
    void SetWindowText(const char* lpszText) { setText(lpszText); }

protected:
    int isMaskChar(int nPosition) { return m_maskText.IsMaskChar(nPosition); }
    int getReplacementChar(int nPosition, char ch, char& chResult)
    {
        return m_maskText.GetReplacementChar(nPosition, ch, chResult);
    }
    // Backward while the last key was Backspace, else forward (see CMaskText).
    int gotoNextEntryChar(int nPosition) { return m_maskText.GotoNextEntryChar(nPosition, m_bBackspacePressed); }

    afx_msg BOOL OnUpdate();
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    DECLARE_MESSAGE_MAP()

    // Puts the display text in the window when it differs.
    void ShowDisplayText();

    CMaskText m_maskText;
    // The last key pressed: the edit's change notification does not say how the text changed.
    BYTE m_bDeletePressed;
    BYTE m_bBackspacePressed;
};

class AFX_EXT_CLASS CGenericMaskHHMMSSFFEdit : public CGenericMaskEdit
{
    DECLARE_DYNAMIC(CGenericMaskHHMMSSFFEdit)
public:
    CGenericMaskHHMMSSFFEdit();

    // A text that does not print back the same ("1:2:3:4") is "Invalid Time Format".
    int ValidateAndGet(long& lMilliseconds, CDataExchange* pDX);
    int Validate() override;
    int DynamicValidate() override;
    using CGenericMaskEdit::SetWindowText;
    void SetWindowText(long lMilliseconds);
    // 0 when the text is not a valid timecode.
    long GetWindowText();
    long operator=(long lMilliseconds);
    operator long();

protected:
    long m_lMinValue;
    long m_lMaxValue;
};
