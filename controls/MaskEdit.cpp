#include "controls/MaskEdit.h"

#include <afxdlg.h>
#include <limits.h>

IMPLEMENT_DYNAMIC(CGenericMaskEdit, CStringEdit)
IMPLEMENT_DYNAMIC(CGenericMaskHHMMSSFFEdit, CGenericMaskEdit)

BEGIN_MESSAGE_MAP(CGenericMaskEdit, CStringEdit)
// The parent hears of the change too, after the text has been put right.
ON_CONTROL_REFLECT_EX(EN_CHANGE, OnUpdate)
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

CGenericMaskEdit::CGenericMaskEdit() : m_bDeletePressed(0), m_bBackspacePressed(0) {}

void CGenericMaskEdit::setMask(const char* lpszMask, char chBlank)
{
    m_maskText.SetMask(lpszMask, chBlank);
    ShowDisplayText();
}

void CGenericMaskEdit::setText(const char* lpszText)
{
    m_maskText.SetText(lpszText);
    ShowDisplayText();
}

CString CGenericMaskEdit::getText()
{
    return m_maskText.GetText();
}

void CGenericMaskEdit::ShowDisplayText()
{
    CString strText;
    CStringEdit::GetWindowText(strText);
    if (strText != m_maskText.GetDisplayText())
        CStringEdit::SetWindowText(m_maskText.GetDisplayText());
}

void CGenericMaskEdit::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    m_bDeletePressed = nChar == VK_DELETE;
    m_bBackspacePressed = nChar == VK_BACK;
    CStringEdit::OnKeyDown(nChar, nRepCnt, nFlags);
}

BOOL CGenericMaskEdit::OnUpdate()
{
    CString strText;
    CEdit::GetWindowText(strText);
    if (strText == m_maskText.GetDisplayText())
        return FALSE;
    int nStart = 0, nEnd = 0;
    GetSel(nStart, nEnd);
    // A text that already fits the mask is taken as it stands: the keystroke filter putting
    // back the text from before a refused key, or a program setting the window text.
    CMaskText fitted(m_maskText);
    fitted.SetText(strText);
    if (fitted.GetDisplayText() == strText)
    {
        m_maskText = fitted;
        return FALSE;
    }
    CMaskText::EDIT_KEY key = m_bBackspacePressed ? CMaskText::KEY_BACKSPACE
                              : m_bDeletePressed  ? CMaskText::KEY_DELETE
                                                  : CMaskText::KEY_OTHER;
    int nCaret = m_maskText.ApplyEdit(strText, nStart, key);
    ShowDisplayText();
    SetSel(nCaret, nCaret);
    SendMessage(EM_SCROLLCARET);
    return FALSE;
}

CGenericMaskHHMMSSFFEdit::CGenericMaskHHMMSSFFEdit() : m_lMinValue(0), m_lMaxValue(LONG_MAX)
{
    setMask(CMaskText::TimecodeMask(), CMaskText::TimecodeBlank());
}

int CGenericMaskHHMMSSFFEdit::ValidateAndGet(long& lMilliseconds, CDataExchange* pDX)
{
    CString strText;
    if (pDX != NULL)
        DDX_Text(pDX, GetDlgCtrlID(), strText);
    else
        CStringEdit::GetWindowText(strText);
    long lValue = 0;
    if (!CMaskText::ReadTimecode(strText, lValue))
        return ReportFailure("Invalid Time Format", pDX, FOCUS_SELECT_WHEN_SHOWN);
    if ((m_lMinValue != LONG_MIN && lValue < m_lMinValue) || (m_lMaxValue != LONG_MAX && lValue > m_lMaxValue))
    {
        // The message leaves out the bounds at the 16-bit extremes, not at the long ones the
        // check uses: hosts match these texts, so the defaults 0 and 2147483647 are printed.
        CString strLower, strUpper;
        strLower.Format("%ld", m_lMinValue);
        strUpper.Format("%ld", m_lMaxValue);
        return ReportFailure(FormatRangeMessage(m_lMinValue != SHRT_MIN ? static_cast<LPCTSTR>(strLower) : NULL,
                                                m_lMaxValue != SHRT_MAX ? static_cast<LPCTSTR>(strUpper) : NULL),
                             pDX, FOCUS_SELECT_WHEN_SHOWN);
    }
    lMilliseconds = lValue;
    return TRUE;
}

int CGenericMaskHHMMSSFFEdit::Validate()
{
    long lValue = 0;
    return ValidateAndGet(lValue, NULL);
}

int CGenericMaskHHMMSSFFEdit::DynamicValidate()
{
    // A value on its way up to a positive lower bound is not refused while it is typed.
    long lSavedMin = m_lMinValue;
    if (m_lMinValue > 0)
        m_lMinValue = 0;
    int bValid = Validate();
    m_lMinValue = lSavedMin;
    return bValid;
}

void CGenericMaskHHMMSSFFEdit::SetWindowText(long lMilliseconds)
{
    setText(CMaskText::FormatTimecode(lMilliseconds));
}

long CGenericMaskHHMMSSFFEdit::GetWindowText()
{
    long lValue = 0;
    ValidateAndGet(lValue, NULL);
    return lValue;
}

long CGenericMaskHHMMSSFFEdit::operator=(long lMilliseconds)
{
    SetWindowText(lMilliseconds);
    return lMilliseconds;
}

CGenericMaskHHMMSSFFEdit::operator long()
{
    return GetWindowText();
}
