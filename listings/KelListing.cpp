#include "listings/KelListing.h"

#include "frame/KelControlsFrame.h"
#include "listings/ListContent.h"

#include <string.h>

IMPLEMENT_DYNAMIC(CKelListing, CWnd)

BEGIN_MESSAGE_MAP(CKelListing, CWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_WM_ENABLE()
ON_MESSAGE(WM_SETFONT, OnSetFontMessage)
ON_MESSAGE(WM_GETFONT, OnGetFontMessage)
ON_WM_DESTROY()
END_MESSAGE_MAP()

CKelListing::CKelListing()
    : m_hList(NULL), m_dwListStyle(LBS_NOTIFY | WS_VSCROLL), m_pFont(NULL), m_nCachedSel(-1), m_bInCreate(false)
{
}

CKelListing::~CKelListing()
{
    if (::IsWindow(m_hWnd))
        DestroyWindow();
    delete m_pFont;
}

BOOL CKelListing::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID, DWORD dwListStyle)
{
    m_dwListStyle = dwListStyle;
    // The layer's plain class: double clicks, no background brush (the list covers the window).
    m_bInCreate = true;
    BOOL bCreated = CWnd::Create(NULL, NULL, dwStyle, rect, pParentWnd, nID);
    m_bInCreate = false;
    return bCreated;
}

BOOL CKelListing::CreateInnerList()
{
    KEL_Util_Running();
    CRect rect;
    GetClientRect(&rect);
    m_hList = ::CreateWindowExA(0, EVENT_LIST_CLASS, "", WS_CHILD | WS_VISIBLE | m_dwListStyle, 0, 0, rect.Width(),
                                rect.Height(), m_hWnd, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(KEL_LISTING_INNER_ID)),
                                CKelControlsModule::GetInstanceHandle(), NULL);
    if (m_hList != NULL && m_pFont != NULL)
        ::SendMessageA(m_hList, WM_SETFONT, reinterpret_cast<WPARAM>(m_pFont->GetSafeHandle()), FALSE);
    return m_hList != NULL;
}

int CKelListing::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CWnd::OnCreate(lpCreateStruct) == -1 || !CreateInnerList())
        return -1;
    return 0;
}

void CKelListing::PreSubclassWindow()
{
    CWnd::PreSubclassWindow();
    // Create's window has no list yet: OnCreate makes it.
    if (m_bInCreate)
        return;
    if (CListContent::IsListing(m_hWnd))
        m_hList = m_hWnd;
    else if (!CreateInnerList())
        return;
    CWnd* pParent = GetParent();
    if (pParent != NULL && pParent->IsKindOf(RUNTIME_CLASS(CDialog)))
        SendToList(LB_SETCURSEL, static_cast<WPARAM>(m_nCachedSel));
}

BOOL CKelListing::OnCommand(WPARAM wParam, LPARAM lParam)
{
    if (!HasInnerList() || reinterpret_cast<HWND>(lParam) != m_hList)
        return CWnd::OnCommand(wParam, lParam);
    ::SendMessageA(::GetParent(m_hWnd), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), HIWORD(wParam)),
                   reinterpret_cast<LPARAM>(m_hWnd));
    return TRUE;
}

void CKelListing::OnSize(UINT nType, int cx, int cy)
{
    if (HasInnerList())
        ::MoveWindow(m_hList, 0, 0, cx, cy, TRUE);
    else
        CWnd::OnSize(nType, cx, cy);
}

void CKelListing::OnSetFocus(CWnd* pOldWnd)
{
    if (HasInnerList())
        ::SetFocus(m_hList);
    else
        CWnd::OnSetFocus(pOldWnd);
}

void CKelListing::OnEnable(BOOL bEnable)
{
    if (HasInnerList())
        ::EnableWindow(m_hList, bEnable);
    else
        CWnd::OnEnable(bEnable);
}

LRESULT CKelListing::OnSetFontMessage(WPARAM wParam, LPARAM lParam)
{
    return HasInnerList() ? ::SendMessageA(m_hList, WM_SETFONT, wParam, lParam) : Default();
}

LRESULT CKelListing::OnGetFontMessage(WPARAM wParam, LPARAM lParam)
{
    return HasInnerList() ? ::SendMessageA(m_hList, WM_GETFONT, wParam, lParam) : Default();
}

void CKelListing::OnDestroy()
{
    m_nCachedSel = SendToList(LB_GETCURSEL);
    Default();
    m_hList = NULL;
}

int CKelListing::SendToList(UINT nMsg, WPARAM wParam, LPARAM lParam) const
{
    return ::IsWindow(m_hList) ? static_cast<int>(::SendMessageA(m_hList, nMsg, wParam, lParam)) : LB_ERR;
}

int CKelListing::AddString(const char* pszText, COLORREF crText, COLORREF crBack)
{
    return InsertString(-1, pszText, crText, crBack);
}

int CKelListing::InsertString(int nIndex, const char* pszText, COLORREF crText, COLORREF crBack)
{
    if (!::IsWindow(m_hList))
        return LB_ERR;
    int nNew = static_cast<int>(ListingOnInsertString(m_hList, nIndex, pszText));
    if (nNew >= 0 && (crText != KEL_NO_COLOR || crBack != KEL_NO_COLOR))
    {
        // A colour not given stays the default the entry received.
        KEL_LISTING_COLORS colors = {KEL_NO_COLOR, KEL_NO_COLOR};
        SendToList(KLM_GETITEMCOLORS, static_cast<WPARAM>(nNew), reinterpret_cast<LPARAM>(&colors));
        SetItemColors(nNew, crText != KEL_NO_COLOR ? crText : colors.crText, crBack != KEL_NO_COLOR ? crBack : colors.crBack);
    }
    return nNew;
}

int CKelListing::DeleteString(int nIndex)
{
    return SendToList(LB_DELETESTRING, static_cast<WPARAM>(nIndex));
}

void CKelListing::ResetContent()
{
    SendToList(LB_RESETCONTENT);
}

int CKelListing::GetCount() const
{
    return SendToList(LB_GETCOUNT);
}

int CKelListing::GetCurSel() const
{
    return ::IsWindow(m_hList) ? SendToList(LB_GETCURSEL) : m_nCachedSel;
}

int CKelListing::SetCurSel(int nSelect)
{
    m_nCachedSel = nSelect;
    return ::IsWindow(m_hList) ? SendToList(LB_SETCURSEL, static_cast<WPARAM>(nSelect)) : nSelect;
}

int CKelListing::GetTopIndex() const
{
    return SendToList(LB_GETTOPINDEX);
}

int CKelListing::SetTopIndex(int nIndex)
{
    return SendToList(LB_SETTOPINDEX, static_cast<WPARAM>(nIndex));
}

int CKelListing::GetAt(int nIndex, CString& strText) const
{
    int nLength = SendToList(LB_GETTEXTLEN, static_cast<WPARAM>(nIndex));
    if (nLength < 0)
        return 0;
    LRESULT lResult = ListingOnGetText(m_hList, nIndex, strText.GetBuffer(nLength + 1));
    strText.ReleaseBuffer(lResult >= 0 ? static_cast<int>(lResult) : 0);
    return lResult >= 0 ? 1 : 0;
}

int CKelListing::GetAt(int nIndex, CString& strText, COLORREF* pcrText, COLORREF* pcrBack) const
{
    int nLength = SendToList(LB_GETTEXTLEN, static_cast<WPARAM>(nIndex));
    if (nLength < 0)
        return 0;
    LRESULT lResult =
        ListingOnGetTextAndColors(m_hList, nIndex, strText.GetBuffer(nLength + 1), nLength + 1, pcrText, pcrBack);
    strText.ReleaseBuffer(lResult >= 0 ? static_cast<int>(lResult) : 0);
    return lResult >= 0 ? 1 : 0;
}

int CKelListing::Find(int nStart, const char* pszText, bool bExact) const
{
    int nCount = GetCount();
    if (pszText == NULL || nCount <= 0)
        return LB_ERR;
    // The listing answers no search of its own.
    size_t nPrefix = strlen(pszText);
    int nFirst = nStart < 0 ? 0 : (nStart + 1) % nCount;
    CString strEntry;
    for (int i = 0; i < nCount; ++i)
    {
        int nIndex = (nFirst + i) % nCount;
        if (GetAt(nIndex, strEntry) &&
            (bExact ? _stricmp(strEntry, pszText) == 0 : _strnicmp(strEntry, pszText, nPrefix) == 0))
            return nIndex;
    }
    return LB_ERR;
}

int CKelListing::FindString(int nStart, const char* pszPrefix) const
{
    return Find(nStart, pszPrefix, false);
}

int CKelListing::FindStringExact(int nStart, const char* pszText) const
{
    return Find(nStart, pszText, true);
}

int CKelListing::SetItemColors(int nIndex, COLORREF crText, COLORREF crBack)
{
    KEL_LISTING_COLORS colors = {crText, crBack};
    return SendToList(KLM_SETITEMCOLORS, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(&colors)) == 0;
}

int CKelListing::GetItemColors(int nIndex, COLORREF& crText, COLORREF& crBack) const
{
    KEL_LISTING_COLORS colors;
    if (SendToList(KLM_GETITEMCOLORS, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(&colors)) != 0)
        return 0;
    crText = colors.crText;
    crBack = colors.crBack;
    return 1;
}

int CKelListing::SetDefaultColors(COLORREF crText, COLORREF crBack)
{
    KEL_LISTING_COLORS colors = {crText, crBack};
    return SendToList(KLM_SETDEFAULTCOLORS, 0, reinterpret_cast<LPARAM>(&colors)) == 0;
}

int CKelListing::SetSelColors(COLORREF crText, COLORREF crBack)
{
    KEL_LISTING_COLORS colors = {crText, crBack};
    return SendToList(KLM_SETSELCOLORS, 0, reinterpret_cast<LPARAM>(&colors)) == 0;
}

void CKelListing::SetFont(int nPointSize, const char* pszFaceName, CDC* pDC)
{
    delete m_pFont;
    m_pFont = new CFont;
    m_pFont->CreatePointFont(nPointSize, pszFaceName, pDC);
    SendToList(WM_SETFONT, reinterpret_cast<WPARAM>(m_pFont->GetSafeHandle()), TRUE);
}

int CKelListing::ValidateAndGet(int& nIndex, CDataExchange* pDX)
{
    nIndex = GetCurSel();
    if (nIndex >= 0)
        return TRUE;
    // The leading blank is part of the message hosts know.
    CString strMessage;
    strMessage.Format(" A %s must be selected!", static_cast<LPCTSTR>(m_strControlName));
    return ReportFailure(strMessage, pDX, FOCUS_WHEN_SHOWN);
}
