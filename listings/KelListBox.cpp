#include "listings/KelListBox.h"

#include "listings/ListContent.h"

#include <vector>

IMPLEMENT_DYNAMIC(CKelListBox, CListBox)

BEGIN_MESSAGE_MAP(CKelListBox, CListBox)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_MESSAGE(WM_SETFONT, OnSetFontMessage)
ON_MESSAGE(KLM_SETITEMCOLORS, OnSetItemColors)
ON_MESSAGE(KLM_GETITEMCOLORS, OnGetItemColors)
ON_MESSAGE(KLM_SETDEFAULTCOLORS, OnSetDefaultColors)
ON_MESSAGE(KLM_SETSELCOLORS, OnSetSelColors)
ON_MESSAGE(KLBM_SORT, OnSort)
END_MESSAGE_MAP()

namespace
{
const int TEXT_MARGIN = 2;
} // namespace

CKelListBox::CKelListBox()
    : m_crText(::GetSysColor(COLOR_WINDOWTEXT)), m_crBack(::GetSysColor(COLOR_WINDOW)),
      m_crSelText(::GetSysColor(COLOR_HIGHLIGHTTEXT)), m_crSelBack(::GetSysColor(COLOR_HIGHLIGHT)), m_pFont(NULL),
      m_nCachedSel(-1)
{
}

CKelListBox::~CKelListBox()
{
    if (::IsWindow(m_hWnd))
        DestroyWindow();
    delete m_pFont;
}

BOOL CKelListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    dwStyle = (dwStyle & ~static_cast<DWORD>(LBS_OWNERDRAWVARIABLE)) | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS;
    return CListBox::Create(dwStyle, rect, pParentWnd, nID);
}

bool CKelListBox::HasColors() const
{
    DWORD dwStyle = static_cast<DWORD>(::GetWindowLongA(m_hWnd, GWL_STYLE));
    return (dwStyle & (LBS_OWNERDRAWFIXED | LBS_HASSTRINGS)) == (LBS_OWNERDRAWFIXED | LBS_HASSTRINGS);
}

bool CKelListBox::IsMultipleSel() const
{
    return (::GetWindowLongA(m_hWnd, GWL_STYLE) & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
}

CKelListBox::CEntry* CKelListBox::GetEntry(int nIndex, bool bCreate) const
{
    if (!::IsWindow(m_hWnd) || !HasColors() || nIndex < 0 || nIndex >= CListBox::GetCount())
        return NULL;
    CEntry* pEntry = reinterpret_cast<CEntry*>(CListBox::GetItemData(nIndex));
    if (pEntry == NULL && bCreate)
    {
        pEntry = new CEntry{KEL_NO_COLOR, KEL_NO_COLOR, 0};
        ::SendMessageA(m_hWnd, LB_SETITEMDATA, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(pEntry));
    }
    return pEntry;
}

void CKelListBox::FitItemHeight()
{
    if (!HasColors())
        return;
    HDC hDC = ::GetDC(m_hWnd);
    HFONT hFont = reinterpret_cast<HFONT>(::SendMessageA(m_hWnd, WM_GETFONT, 0, 0));
    HGDIOBJ hOld = hFont != NULL ? ::SelectObject(hDC, hFont) : NULL;
    TEXTMETRICA tm;
    if (::GetTextMetricsA(hDC, &tm))
        CListBox::SetItemHeight(0, static_cast<UINT>(tm.tmHeight + 2));
    if (hOld != NULL)
        ::SelectObject(hDC, hOld);
    ::ReleaseDC(m_hWnd, hDC);
}

void CKelListBox::ApplyCachedSelection()
{
    if (!IsMultipleSel())
    {
        CListBox::SetCurSel(m_nCachedSel);
        return;
    }
    for (INT_PTR i = 0; i < m_arCachedSel.GetSize(); ++i)
        SetSel(static_cast<int>(m_arCachedSel[i]), TRUE);
}

void CKelListBox::PreSubclassWindow()
{
    CListBox::PreSubclassWindow();
    // A dialog's list box was measured before it was subclassed: its height is set here.
    FitItemHeight();
    CWnd* pParent = GetParent();
    if (pParent != NULL && pParent->IsKindOf(RUNTIME_CLASS(CDialog)))
        ApplyCachedSelection();
}

int CKelListBox::OnCreate(LPCREATESTRUCT)
{
    int nResult = static_cast<int>(Default());
    if (nResult != -1)
        FitItemHeight();
    return nResult;
}

// Any font, however given, sets the entries' height.
LRESULT CKelListBox::OnSetFontMessage(WPARAM, LPARAM)
{
    LRESULT lResult = Default();
    FitItemHeight();
    return lResult;
}

void CKelListBox::OnDestroy()
{
    if (IsMultipleSel())
    {
        m_arCachedSel.RemoveAll();
        int nCount = CListBox::GetCount();
        for (int i = 0; i < nCount; ++i)
            if (GetSel(i) > 0)
                m_arCachedSel.Add(static_cast<UINT>(i));
    }
    m_nCachedSel = CListBox::GetCurSel();
    // Nothing is left for an owner that does not reflect WM_DELETEITEM.
    if (HasColors())
    {
        int nCount = CListBox::GetCount();
        for (int i = 0; i < nCount; ++i)
        {
            delete reinterpret_cast<CEntry*>(CListBox::GetItemData(i));
            CListBox::SetItemData(i, 0);
        }
    }
    Default();
}

void CKelListBox::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    HDC hDC = lpDrawItemStruct->hDC;
    RECT rcItem = lpDrawItemStruct->rcItem;
    UINT nState = lpDrawItemStruct->itemState;
    // An empty list with the focus shows only the focus rectangle.
    if (lpDrawItemStruct->itemID == static_cast<UINT>(-1))
    {
        if (nState & ODS_FOCUS)
            ::DrawFocusRect(hDC, &rcItem);
        return;
    }
    const CEntry* pEntry = HasColors() ? reinterpret_cast<const CEntry*>(lpDrawItemStruct->itemData) : NULL;
    COLORREF crText = m_crText;
    COLORREF crBack = m_crBack;
    if (nState & ODS_SELECTED)
    {
        crText = m_crSelText;
        crBack = m_crSelBack;
    }
    else if (pEntry != NULL)
    {
        crText = pEntry->m_crText != KEL_NO_COLOR ? pEntry->m_crText : m_crText;
        crBack = pEntry->m_crBack != KEL_NO_COLOR ? pEntry->m_crBack : m_crBack;
    }
    if (!IsWindowEnabled())
        crText = ::GetSysColor(COLOR_GRAYTEXT);
    int nSaved = ::SaveDC(hDC);
    ::SetBkColor(hDC, crBack);
    ::ExtTextOutA(hDC, 0, 0, ETO_OPAQUE, &rcItem, NULL, 0, NULL);
    CString strText;
    GetText(static_cast<int>(lpDrawItemStruct->itemID), strText);
    RECT rcText = rcItem;
    rcText.left += TEXT_MARGIN;
    ::SetBkMode(hDC, TRANSPARENT);
    ::SetTextColor(hDC, crText);
    ::DrawTextA(hDC, strText, -1, &rcText, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    ::RestoreDC(hDC, nSaved);
    if (nState & ODS_FOCUS)
        ::DrawFocusRect(hDC, &rcItem);
}

void CKelListBox::DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct)
{
    if (HasColors())
        delete reinterpret_cast<CEntry*>(lpDeleteItemStruct->itemData);
}

LRESULT CKelListBox::OnSetItemColors(WPARAM wParam, LPARAM lParam)
{
    const KEL_LISTING_COLORS* pColors = reinterpret_cast<const KEL_LISTING_COLORS*>(lParam);
    int nIndex = static_cast<int>(wParam);
    CEntry* pEntry = pColors != NULL ? GetEntry(nIndex, true) : NULL;
    if (pEntry == NULL)
        return LB_ERR;
    pEntry->m_crText = pColors->crText;
    pEntry->m_crBack = pColors->crBack;
    RECT rcItem;
    if (CListBox::GetItemRect(nIndex, &rcItem) != LB_ERR)
        InvalidateRect(&rcItem, FALSE);
    return 0;
}

LRESULT CKelListBox::OnGetItemColors(WPARAM wParam, LPARAM lParam)
{
    KEL_LISTING_COLORS* pColors = reinterpret_cast<KEL_LISTING_COLORS*>(lParam);
    int nIndex = static_cast<int>(wParam);
    if (pColors == NULL || !HasColors() || nIndex < 0 || nIndex >= CListBox::GetCount())
        return LB_ERR;
    const CEntry* pEntry = GetEntry(nIndex, false);
    pColors->crText = pEntry != NULL ? pEntry->m_crText : KEL_NO_COLOR;
    pColors->crBack = pEntry != NULL ? pEntry->m_crBack : KEL_NO_COLOR;
    return 0;
}

LRESULT CKelListBox::OnSetDefaultColors(WPARAM, LPARAM lParam)
{
    const KEL_LISTING_COLORS* pColors = reinterpret_cast<const KEL_LISTING_COLORS*>(lParam);
    if (pColors == NULL || !HasColors())
        return LB_ERR;
    m_crText = pColors->crText;
    m_crBack = pColors->crBack;
    Invalidate(FALSE);
    return 0;
}

LRESULT CKelListBox::OnSetSelColors(WPARAM, LPARAM lParam)
{
    const KEL_LISTING_COLORS* pColors = reinterpret_cast<const KEL_LISTING_COLORS*>(lParam);
    if (pColors == NULL || !HasColors())
        return LB_ERR;
    m_crSelText = pColors->crText;
    m_crSelBack = pColors->crBack;
    Invalidate(FALSE);
    return 0;
}

// The records travel as item data: the sort takes the data away before it empties the list, so
// DeleteItem sees none of them.
LRESULT CKelListBox::OnSort(WPARAM wParam, LPARAM)
{
    return CListContent::Sort(m_hWnd, static_cast<int>(wParam));
}

int CKelListBox::AddString(const char* pszText, COLORREF crText, COLORREF crBack)
{
    return InsertString(-1, pszText, crText, crBack);
}

int CKelListBox::InsertString(int nIndex, const char* pszText, COLORREF crText, COLORREF crBack)
{
    if (!::IsWindow(m_hWnd))
        return LB_ERR;
    // LB_ADDSTRING to append, so that a sorted list box places the entry.
    int nNew = nIndex == -1 ? CListBox::AddString(pszText) : CListBox::InsertString(nIndex, pszText);
    if (nNew >= 0 && (crText != KEL_NO_COLOR || crBack != KEL_NO_COLOR))
        SetItemColors(nNew, crText, crBack);
    return nNew;
}

int CKelListBox::SetItemColors(int nIndex, COLORREF crText, COLORREF crBack)
{
    KEL_LISTING_COLORS colors = {crText, crBack};
    return ::IsWindow(m_hWnd) && OnSetItemColors(static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(&colors)) == 0;
}

int CKelListBox::GetItemColors(int nIndex, COLORREF& crText, COLORREF& crBack) const
{
    KEL_LISTING_COLORS colors;
    if (!::IsWindow(m_hWnd) ||
        ::SendMessageA(m_hWnd, KLM_GETITEMCOLORS, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(&colors)) != 0)
        return 0;
    crText = colors.crText;
    crBack = colors.crBack;
    return 1;
}

int CKelListBox::SetDefaultColors(COLORREF crText, COLORREF crBack)
{
    KEL_LISTING_COLORS colors = {crText, crBack};
    return ::IsWindow(m_hWnd) && OnSetDefaultColors(0, reinterpret_cast<LPARAM>(&colors)) == 0;
}

int CKelListBox::SetSelColors(COLORREF crText, COLORREF crBack)
{
    KEL_LISTING_COLORS colors = {crText, crBack};
    return ::IsWindow(m_hWnd) && OnSetSelColors(0, reinterpret_cast<LPARAM>(&colors)) == 0;
}

int CKelListBox::SetItemData(int nIndex, DWORD dwData)
{
    if (!::IsWindow(m_hWnd))
        return LB_ERR;
    if (!HasColors())
        return CListBox::SetItemData(nIndex, dwData);
    CEntry* pEntry = GetEntry(nIndex, true);
    if (pEntry == NULL)
        return LB_ERR;
    pEntry->m_dwData = dwData;
    return TRUE; // as the list box answers
}

DWORD CKelListBox::GetItemData(int nIndex) const
{
    if (!::IsWindow(m_hWnd))
        return static_cast<DWORD>(LB_ERR);
    if (!HasColors())
        return static_cast<DWORD>(CListBox::GetItemData(nIndex));
    const CEntry* pEntry = GetEntry(nIndex, false);
    return pEntry != NULL ? pEntry->m_dwData : 0;
}

int CKelListBox::GetCurSel() const
{
    return ::IsWindow(m_hWnd) ? CListBox::GetCurSel() : m_nCachedSel;
}

int CKelListBox::SetCurSel(int nSelect)
{
    m_nCachedSel = nSelect;
    return ::IsWindow(m_hWnd) ? CListBox::SetCurSel(nSelect) : nSelect;
}

void CKelListBox::SetFont(int nPointSize, const char* pszFaceName, CDC* pDC)
{
    delete m_pFont;
    m_pFont = new CFont;
    m_pFont->CreatePointFont(nPointSize, pszFaceName, pDC);
    if (::IsWindow(m_hWnd))
        SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_pFont->GetSafeHandle()), TRUE);
}

int CKelListBox::ReportNothingSelected(CDataExchange* pDX)
{
    // The leading blank is part of the message hosts know.
    CString strMessage;
    strMessage.Format(" A %s must be selected!", static_cast<LPCTSTR>(m_strControlName));
    return ReportFailure(strMessage, pDX, FOCUS_WHEN_SHOWN);
}

int CKelListBox::ValidateAndGet(int& nIndex, CDataExchange* pDX)
{
    nIndex = GetCurSel();
    if (::IsWindow(m_hWnd) && IsMultipleSel() && GetSelItems(1, &nIndex) != 1)
        nIndex = -1;
    return nIndex >= 0 ? TRUE : ReportNothingSelected(pDX);
}

int CKelListBox::ValidateAndGet(CUIntArray& selected, CDataExchange* pDX)
{
    selected.RemoveAll();
    int nCount = ::IsWindow(m_hWnd) ? GetSelCount() : 0;
    if (nCount <= 0)
        return ReportNothingSelected(pDX);
    std::vector<int> indexes(static_cast<size_t>(nCount));
    nCount = GetSelItems(nCount, indexes.data());
    for (int i = 0; i < nCount; ++i)
        selected.Add(static_cast<UINT>(indexes[static_cast<size_t>(i)]));
    return TRUE;
}
