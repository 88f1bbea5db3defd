#include "controls/StringEdit.h"

#include <afxdlg.h>

IMPLEMENT_DYNAMIC(CStringEdit, CEdit)

BEGIN_MESSAGE_MAP(CStringEdit, CEdit)
ON_WM_CHAR()
ON_WM_KEYDOWN()
ON_WM_KEYUP()
ON_MESSAGE(WM_PASTE, OnPaste)
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_CLOSE()
ON_WM_DESTROY()
END_MESSAGE_MAP()

CStringEdit::CStringEdit()
    : m_crText(::GetSysColor(COLOR_WINDOWTEXT)), m_crBack(::GetSysColor(COLOR_WINDOW)), m_pFont(NULL)
{
    m_brBack.CreateSolidBrush(m_crBack);
}

CStringEdit::~CStringEdit()
{
    delete m_pFont;
}

int CStringEdit::Validate()
{
    return TRUE;
}

int CStringEdit::DynamicValidate()
{
    return Validate();
}

void CStringEdit::ReadWindowText(CString& strText) const
{
    const int nUsualLength = 63;
    int nCopied = ::GetWindowTextA(m_hWnd, strText.GetBuffer(nUsualLength), nUsualLength + 1);
    strText.ReleaseBuffer(nCopied);
    if (nCopied >= nUsualLength)
        CEdit::GetWindowText(strText); // perhaps longer: read it whole
}

void CStringEdit::GetWindowText(CString& strText) const
{
    if (::IsWindow(m_hWnd))
        ReadWindowText(strText);
    else
        strText = m_strText;
}

CString CStringEdit::GetWindowText()
{
    if (::IsWindow(m_hWnd))
        ReadWindowText(m_strText);
    return m_strText;
}

int CStringEdit::GetWindowText(LPTSTR lpszBuffer, int nMaxCount)
{
    return GetCachedText(m_hWnd, m_strText, lpszBuffer, nMaxCount);
}

void CStringEdit::SetWindowText(LPCTSTR lpszText)
{
    SetCachedText(m_hWnd, m_strText, lpszText);
}

CStringEdit& CStringEdit::operator=(LPCTSTR lpszText)
{
    SetWindowText(lpszText);
    return *this;
}

CStringEdit& CStringEdit::operator=(const CString& strText)
{
    SetWindowText(strText);
    return *this;
}

CStringEdit::operator LPCTSTR()
{
    GetWindowText();
    return m_strText;
}

void CStringEdit::SetFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC)
{
    delete m_pFont;
    m_pFont = new CFont;
    m_pFont->CreatePointFont(nPointSize, lpszFaceName, pDC);
    if (::IsWindow(m_hWnd))
        SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_pFont->GetSafeHandle()), TRUE);
}

void CStringEdit::PreSubclassWindow()
{
    CEdit::PreSubclassWindow();
    CWnd* pParent = GetParent();
    if (pParent != NULL && pParent->IsKindOf(RUNTIME_CLASS(CDialog)))
        CEdit::SetWindowText(m_strText);
}

BOOL CStringEdit::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_CTLCOLOREDIT)
        return CEdit::OnChildNotify(message, wParam, lParam, pResult);
    HDC hDC = reinterpret_cast<HDC>(wParam);
    ::SetTextColor(hDC, m_crText);
    ::SetBkColor(hDC, m_crBack);
    m_brBack.DeleteObject();
    m_brBack.CreateSolidBrush(m_crBack);
    if (pResult != NULL)
        *pResult = reinterpret_cast<LRESULT>(m_brBack.GetSafeHandle());
    return TRUE;
}

LRESULT CStringEdit::FilterChange(FILTER_KIND kind)
{
    CString strBefore;
    ReadWindowText(strBefore);
    DWORD dwSelStart = 0, dwSelEnd = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&dwSelStart), reinterpret_cast<LPARAM>(&dwSelEnd));
    SendMessage(WM_SETREDRAW, FALSE);

    LRESULT lResult = Default();

    CString strAfter;
    ReadWindowText(strAfter);
    BOOL bCheck = !strAfter.IsEmpty() && (kind == FILTER_CHAR || strAfter != strBefore);
    if (bCheck)
    {
        CControlQuietScope quiet(m_bDisplayErrMsg);
        if (!DynamicValidate())
        {
            ::MessageBeep(MB_ICONEXCLAMATION);
            CEdit::SetWindowText(strBefore);
            SendMessage(EM_SETSEL, dwSelStart, dwSelEnd);
            SendMessage(EM_SCROLLCARET);
        }
    }
    SendMessage(WM_SETREDRAW, TRUE);
    Invalidate(TRUE);
    return kind == FILTER_PASTE ? 1 : lResult;
}

void CStringEdit::OnChar(UINT, UINT, UINT)
{
    if (!m_bDynamicErrChecking)
        Default();
    else
        FilterChange(FILTER_CHAR);
}

void CStringEdit::OnKeyDown(UINT, UINT, UINT)
{
    FilterChange(FILTER_KEY);
}

void CStringEdit::OnKeyUp(UINT, UINT, UINT)
{
    Default();
}

LRESULT CStringEdit::OnPaste(WPARAM, LPARAM)
{
    return FilterChange(FILTER_PASTE);
}

void CStringEdit::OnSetFocus(CWnd* pOldWnd)
{
    Default();
    CallSetFocusProc(pOldWnd);
}

void CStringEdit::OnKillFocus(CWnd* pNewWnd)
{
    Default();
    CallKillFocusProc(pNewWnd);
}

void CStringEdit::CacheWindowText()
{
    if (::IsWindow(m_hWnd))
        ReadWindowText(m_strText);
}

void CStringEdit::OnClose()
{
    CacheWindowText();
    Default();
}

void CStringEdit::OnDestroy()
{
    CacheWindowText();
    Default();
}
