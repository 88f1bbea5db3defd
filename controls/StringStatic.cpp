#include "controls/StringStatic.h"

#include <afxdlg.h>

IMPLEMENT_DYNAMIC(CStringStatic, CStatic)

BEGIN_MESSAGE_MAP(CStringStatic, CStatic)
ON_WM_CREATE()
ON_WM_CLOSE()
ON_WM_DESTROY()
END_MESSAGE_MAP()

CStringStatic::CStringStatic() : m_crText(::GetSysColor(COLOR_WINDOWTEXT)), m_crBack(CLR_NONE), m_pFont(NULL), m_bTextSet(0)
{
}

CStringStatic::~CStringStatic()
{
    delete m_pFont;
}

void CStringStatic::ShowText(const CString& strText)
{
    m_strText = strText;
    m_bTextSet = 1;
    if (::IsWindow(m_hWnd))
        CStatic::SetWindowText(m_strText);
}

void CStringStatic::SetWindowText(LPCTSTR lpszText)
{
    ShowText(lpszText != NULL ? lpszText : "");
    ReadBackText(m_strText);
}

void CStringStatic::ReadBackText(const CString&) {}

void CStringStatic::GetWindowText(CString& strText) const
{
    if (::IsWindow(m_hWnd))
        CStatic::GetWindowText(strText);
    else
        strText = m_strText;
}

CString CStringStatic::GetWindowText() const
{
    CString strText;
    GetWindowText(strText);
    return strText;
}

CStringStatic& CStringStatic::operator=(LPCTSTR lpszText)
{
    SetWindowText(lpszText);
    return *this;
}

CStringStatic& CStringStatic::operator=(const CString& strText)
{
    SetWindowText(strText);
    return *this;
}

CStringStatic::operator LPCTSTR()
{
    GetWindowText(m_strText);
    return m_strText;
}

void CStringStatic::SetTextColor(COLORREF crText)
{
    m_crText = crText;
    if (::IsWindow(m_hWnd))
        Invalidate();
}

void CStringStatic::SetBkColor(COLORREF crBack)
{
    m_crBack = crBack;
    m_brBack.DeleteObject();
    if (crBack != CLR_NONE)
        m_brBack.CreateSolidBrush(crBack);
    if (::IsWindow(m_hWnd))
        Invalidate();
}

void CStringStatic::SetFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC)
{
    delete m_pFont;
    m_pFont = new CFont;
    m_pFont->CreatePointFont(nPointSize, lpszFaceName, pDC);
    if (::IsWindow(m_hWnd))
        SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_pFont->GetSafeHandle()), TRUE);
}

void CStringStatic::SetAffixes(LPCTSTR lpszPrefix, LPCTSTR lpszSuffix)
{
    m_strPrefix = lpszPrefix != NULL ? lpszPrefix : "";
    m_strSuffix = lpszSuffix != NULL ? lpszSuffix : "";
}

CString CStringStatic::StripAffixes(const CString& strText) const
{
    CString strCore = strText;
    if (!m_strPrefix.IsEmpty() && strCore.Left(m_strPrefix.GetLength()) == m_strPrefix)
        strCore = strCore.Mid(m_strPrefix.GetLength());
    if (!m_strSuffix.IsEmpty() && strCore.Right(m_strSuffix.GetLength()) == m_strSuffix)
        strCore = strCore.Left(strCore.GetLength() - m_strSuffix.GetLength());
    strCore.TrimLeft();
    strCore.TrimRight();
    return strCore;
}

void CStringStatic::AdoptWindowText()
{
    if (m_bTextSet)
    {
        CStatic::SetWindowText(m_strText);
        return;
    }
    CStatic::GetWindowText(m_strText);
    ReadBackText(m_strText);
}

void CStringStatic::PreSubclassWindow()
{
    CStatic::PreSubclassWindow();
    CWnd* pParent = GetParent();
    if (pParent != NULL && pParent->IsKindOf(RUNTIME_CLASS(CDialog)))
        AdoptWindowText();
}

int CStringStatic::OnCreate(LPCREATESTRUCT)
{
    int nResult = static_cast<int>(Default());
    if (nResult != -1)
        AdoptWindowText();
    return nResult;
}

BOOL CStringStatic::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_CTLCOLORSTATIC)
        return CStatic::OnChildNotify(message, wParam, lParam, pResult);
    HDC hDC = reinterpret_cast<HDC>(wParam);
    ::SetTextColor(hDC, m_crText);
    ::SetBkMode(hDC, TRANSPARENT);
    HBRUSH hBrush;
    if (m_crBack != CLR_NONE)
    {
        ::SetBkColor(hDC, m_crBack);
        hBrush = static_cast<HBRUSH>(m_brBack.GetSafeHandle());
    }
    else
    {
        // The system's own brush: shared, never deleted.
        ::SetBkColor(hDC, ::GetSysColor(COLOR_BTNFACE));
        hBrush = ::GetSysColorBrush(COLOR_BTNFACE);
    }
    if (pResult != NULL)
        *pResult = reinterpret_cast<LRESULT>(hBrush);
    return TRUE;
}

void CStringStatic::CacheWindowText()
{
    if (::IsWindow(m_hWnd))
        CStatic::GetWindowText(m_strText);
}

void CStringStatic::OnClose()
{
    CacheWindowText();
    Default();
}

void CStringStatic::OnDestroy()
{
    CacheWindowText();
    Default();
}
