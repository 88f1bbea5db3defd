#include "controls/StringComboBox.h"

#include "controls/StringEdit.h"

#include <afxdlg.h>

IMPLEMENT_DYNAMIC(CStringComboBox, CComboBox)

BEGIN_MESSAGE_MAP(CStringComboBox, CComboBox)
ON_WM_CREATE()
ON_WM_CTLCOLOR()
ON_WM_CLOSE()
ON_WM_DESTROY()
END_MESSAGE_MAP()

CStringComboBox::CStringComboBox()
    : m_crText(::GetSysColor(COLOR_WINDOWTEXT)), m_crBack(::GetSysColor(COLOR_WINDOW)), m_pFont(NULL), m_nSel(-1),
      m_pFieldEdit(NULL)
{
    m_brBack.CreateSolidBrush(m_crBack);
}

CStringComboBox::~CStringComboBox()
{
    // The field edit is a child of the combo: the combo goes first, so the edit object never
    // outlives its window's parent attached to nothing.
    if (::IsWindow(m_hWnd))
        DestroyWindow();
    delete m_pFieldEdit;
    delete m_pFont;
}

int CStringComboBox::AddString(LPCTSTR lpszString)
{
    if (!::IsWindow(m_hWnd) || lpszString == NULL)
        return -1;
    return CComboBox::AddString(lpszString);
}

int CStringComboBox::AddString(LPCTSTR lpszString, void* pData)
{
    int nIndex = AddString(lpszString);
    if (nIndex >= 0)
        SetItemDataPtr(nIndex, pData);
    return nIndex;
}

int CStringComboBox::GetCurSel()
{
    return ::IsWindow(m_hWnd) ? CComboBox::GetCurSel() : m_nSel;
}

int CStringComboBox::GetCurSel(CString& strText)
{
    if (::IsWindow(m_hWnd))
        CComboBox::GetWindowText(m_strText);
    strText = m_strText;
    return GetCurSel();
}

int CStringComboBox::GetCurSel(void*& pData)
{
    int nSel = GetCurSel();
    pData = ::IsWindow(m_hWnd) && nSel >= 0 ? GetItemDataPtr(nSel) : NULL;
    return nSel;
}

int CStringComboBox::SetCurSel(int nSelect)
{
    m_nSel = nSelect;
    if (::IsWindow(m_hWnd))
        m_nSel = CComboBox::SetCurSel(nSelect);
    return m_nSel;
}

int CStringComboBox::SetCurSel(void* pData)
{
    if (!::IsWindow(m_hWnd))
        return -1;
    int nCount = GetCount();
    for (int nIndex = 0; nIndex < nCount; ++nIndex)
    {
        if (GetItemDataPtr(nIndex) == pData)
            return SetCurSel(nIndex);
    }
    return -1;
}

BOOL CStringComboBox::GetAt(int nIndex, CString& strText) const
{
    strText.Empty();
    if (!::IsWindow(m_hWnd) || nIndex < 0 || nIndex >= GetCount())
        return FALSE;
    GetLBText(nIndex, strText);
    return TRUE;
}

CString CStringComboBox::GetAt(int nIndex) const
{
    CString strText;
    GetAt(nIndex, strText);
    return strText;
}

void CStringComboBox::GetWindowText(CString& strText) const
{
    if (::IsWindow(m_hWnd))
        CComboBox::GetWindowText(strText);
    else
        strText = m_strText;
}

int CStringComboBox::GetWindowText(LPTSTR lpszBuffer, int nMaxCount)
{
    return GetCachedText(m_hWnd, m_strText, lpszBuffer, nMaxCount);
}

void CStringComboBox::SetWindowText(LPCTSTR lpszText)
{
    SetCachedText(m_hWnd, m_strText, lpszText);
}

CStringComboBox& CStringComboBox::operator=(LPCTSTR lpszText)
{
    SetWindowText(lpszText);
    return *this;
}

CStringComboBox& CStringComboBox::operator=(const CString& strText)
{
    SetWindowText(strText);
    return *this;
}

CStringComboBox& CStringComboBox::operator=(int nSelect)
{
    SetCurSel(nSelect);
    return *this;
}

CStringComboBox::operator CString()
{
    CString strText;
    GetCurSel(strText);
    return strText;
}

CStringComboBox::operator int()
{
    return GetCurSel();
}

void CStringComboBox::SetFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC)
{
    delete m_pFont;
    m_pFont = new CFont;
    m_pFont->CreatePointFont(nPointSize, lpszFaceName, pDC);
    if (::IsWindow(m_hWnd))
        SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_pFont->GetSafeHandle()), TRUE);
}

BOOL CStringComboBox::GetValidationText(int nIndex, CDataExchange* pDX, CString& strText)
{
    int nCount = ::IsWindow(m_hWnd) ? GetCount() : 0;
    if (nIndex != -1 && (nIndex < 0 || nIndex > nCount))
        return FALSE;
    // An exchange that loads the dialog must not write into the combo: the combo's own text.
    if (pDX != NULL && pDX->m_bSaveAndValidate)
        DDX_CBString(pDX, GetDlgCtrlID(), strText);
    else
        GetWindowText(strText);
    if (nIndex != -1)
        GetAt(nIndex, strText);
    return TRUE;
}

CStringEdit* CStringComboBox::CreateFieldEdit()
{
    return NULL;
}

void CStringComboBox::AttachFieldEdit()
{
    HWND hWndField = ::GetWindow(m_hWnd, GW_CHILD);
    if (hWndField == NULL || (m_pFieldEdit != NULL && m_pFieldEdit->m_hWnd != NULL))
        return;
    // A combo subclassed again (a dialog opened once more) gets a fresh edit with today's bounds.
    delete m_pFieldEdit;
    m_pFieldEdit = CreateFieldEdit();
    if (m_pFieldEdit == NULL)
        return;
    m_pFieldEdit->SetTextColor(m_crText);
    m_pFieldEdit->SetBkColor(m_crBack);
    m_pFieldEdit->SetDynamicErrChecking(m_bDynamicErrChecking);
    m_pFieldEdit->SubclassWindow(hWndField);
}

void CStringComboBox::PreSubclassWindow()
{
    CComboBox::PreSubclassWindow();
    CWnd* pParent = GetParent();
    if (pParent != NULL && pParent->IsKindOf(RUNTIME_CLASS(CDialog)))
        CComboBox::SetCurSel(m_nSel);
    // A combo made by Create is attached before its edit field exists: OnCreate attaches that.
    AttachFieldEdit();
}

int CStringComboBox::OnCreate(LPCREATESTRUCT)
{
    int nResult = static_cast<int>(Default());
    if (nResult != -1)
        AttachFieldEdit();
    return nResult;
}

HBRUSH CStringComboBox::ColorEditField(HDC hDC)
{
    if (m_pFieldEdit != NULL)
    {
        m_pFieldEdit->SetTextColor(m_crText);
        m_pFieldEdit->SetBkColor(m_crBack);
    }
    ::SetTextColor(hDC, m_crText);
    ::SetBkColor(hDC, m_crBack);
    m_brBack.DeleteObject();
    m_brBack.CreateSolidBrush(m_crBack);
    return static_cast<HBRUSH>(m_brBack.GetSafeHandle());
}

BOOL CStringComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_CTLCOLOREDIT)
        return CComboBox::OnChildNotify(message, wParam, lParam, pResult);
    HBRUSH hBrush = ColorEditField(reinterpret_cast<HDC>(wParam));
    if (pResult != NULL)
        *pResult = reinterpret_cast<LRESULT>(hBrush);
    return TRUE;
}

HBRUSH CStringComboBox::OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor)
{
    // The system combo passes its edit field's colour request on to the parent naming the
    // edit, so no parent ever reflects it to the combo: the combo answers it here as it would
    // the reflected one.
    if (nCtlColor == CTLCOLOR_EDIT && pWnd != NULL && ::GetParent(pWnd->m_hWnd) == m_hWnd)
    {
        LRESULT lResult = 0;
        OnChildNotify(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(pDC->GetSafeHdc()),
                      reinterpret_cast<LPARAM>(pWnd->m_hWnd), &lResult);
        return reinterpret_cast<HBRUSH>(lResult);
    }
    return CComboBox::OnCtlColor(pDC, pWnd, nCtlColor);
}

void CStringComboBox::CacheWindowState()
{
    if (!::IsWindow(m_hWnd))
        return;
    CComboBox::GetWindowText(m_strText);
    m_nSel = CComboBox::GetCurSel();
}

void CStringComboBox::OnClose()
{
    CacheWindowState();
    Default();
}

void CStringComboBox::OnDestroy()
{
    CacheWindowState();
    Default();
}
