// CGridHeader: creation, style, items, fonts and padding.
#include "grid/GridHeader.h"

#include <string.h>

#include <algorithm>
#include <new>
#include <stdexcept>

IMPLEMENT_DYNAMIC(CGridHeader, CWnd)

BEGIN_MESSAGE_MAP(CGridHeader, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_DESTROY()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_WM_RBUTTONDBLCLK()
ON_WM_MBUTTONDOWN()
ON_WM_MBUTTONUP()
ON_WM_MBUTTONDBLCLK()
ON_WM_CAPTURECHANGED()
ON_WM_KILLFOCUS()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
END_MESSAGE_MAP()

namespace
{
const char kHeaderClass[] = "_GRIDHEADER";
const UINT kHeaderClassStyle = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;
const WORD kNone = 0xFFFF;
const short kNoSort = static_cast<short>(0xFFFF);

// The class has no cursor of its own: the header sets the sizing cursors itself.
bool RegisterHeaderClass()
{
    HINSTANCE hInstance = AfxGetInstanceHandle();
    WNDCLASSA wc;
    if (::GetClassInfoA(hInstance, kHeaderClass, &wc))
    {
        if (wc.style == kHeaderClassStyle)
            return true;
        ::UnregisterClassA(kHeaderClass, hInstance);
    }
    memset(&wc, 0, sizeof(wc));
    wc.style = kHeaderClassStyle;
    wc.lpfnWndProc = ::DefWindowProcA;
    wc.hInstance = hInstance;
    wc.lpszClassName = kHeaderClass;
    return ::RegisterClassA(&wc) != 0 || ::GetClassInfoA(hInstance, kHeaderClass, &wc);
}

// HDF_LEFT, HDF_RIGHT and HDF_CENTER against DrawText's left, right and centre.
WORD AlignmentFromFormat(int fmt)
{
    switch (fmt & HDF_JUSTIFYMASK)
    {
    case HDF_LEFT:
        return 0;
    case HDF_CENTER:
        return 1;
    case HDF_RIGHT:
        return 2;
    default:
        return kNone;
    }
}

int FormatFromAlignment(WORD wAlign)
{
    switch (wAlign)
    {
    case 0:
        return HDF_LEFT;
    case 1:
        return HDF_CENTER;
    case 2:
        return HDF_RIGHT;
    default:
        return -1;
    }
}
} // namespace

CGridHeader::HdrItem::HdrItem()
    : pszText(NULL), nTextSize(0), wFormat(kNone), wAlign(kNone), nWidth(0), nHeight(0), nColSortType(0),
      nCurSortType(kNoSort), nSortPriority(-1), nState(GHDR_NORMAL)
{
}

CGridHeader::CGridHeader() : m_dwGridHdrStyle(GHS_HORZ)
{
    InitAllData(GHS_HORZ);
}

CGridHeader::~CGridHeader()
{
    FreeAllItems();
}

// ---------------------------------------------------------------------------------------------
// Creation and style

BOOL CGridHeader::Create(DWORD dwStyle, const CRect& rect, CWnd* pParent, UINT nID, DWORD dwGridHdrStyle)
{
    if (!RegisterHeaderClass() || !InitAllData(dwGridHdrStyle))
        return FALSE;
    if (!CreateEx(0, kHeaderClass, "", dwStyle, rect, pParent, nID))
        return FALSE;
    ShowScrollBar(SB_HORZ, FALSE);
    ShowScrollBar(SB_VERT, FALSE);
    return TRUE;
}

BOOL CGridHeader::InitAllData(DWORD dwGridHdrStyle)
{
    if (!IsValidGridHdrStyles(dwGridHdrStyle, true))
        return FALSE;
    m_dwGridHdrStyle = dwGridHdrStyle;
    FreeAllItems();
    m_nTotalHeight = 0;
    m_nTotalWidth = 0;
    m_rcItemPadding.SetRect(1, 0, 1, 0);
    std::fill(m_nPressedItem, m_nPressedItem + 3, -1);
    m_bMouseCaptured = false;
    m_hSavedCursor = NULL;
    m_bCursorSaved = false;
    m_clrBackground = ::GetSysColor(COLOR_WINDOW);
    m_hWndScrollParent = NULL;
    m_nHorzLineStep = 6;
    m_nLastParentPos = -1;
    m_nTrackItem = -1;
    m_ptTrackStart = CPoint(0, 0);
    m_nTrackStartExtent = 0;
    m_bAutoTrack = false;
    m_nAutoTrackOffset = 0;
    m_nTrackEdgeOffset = 0;
    m_bPrinting = false;
    if (m_hWnd != NULL)
    {
        if (::GetCapture() == m_hWnd)
            ::ReleaseCapture();
        SCROLLINFO si = {sizeof(si), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 0, 0, 0, 0};
        SetScrollInfo(SB_HORZ, &si, FALSE);
        SetScrollInfo(SB_VERT, &si, FALSE);
        ShowScrollBar(SB_BOTH, FALSE);
        Invalidate();
    }
    return TRUE;
}

BOOL CGridHeader::GridModifyStyle(DWORD dwRemove, DWORD dwAdd)
{
    if (!IsValidGridHdrStyles(dwRemove, false) || !IsValidGridHdrStyles(dwAdd, false))
        return FALSE;
    if (dwRemove != dwAdd)
        m_dwGridHdrStyle = (m_dwGridHdrStyle & ~dwRemove) | dwAdd;
    return TRUE;
}

BOOL CGridHeader::IsValidGridHdrStyles(DWORD dwStyle, bool bRequired)
{
    if ((dwStyle & ~DWORD(GHS_VERT | GHS_HORZ | GHS_NOMOUSETRACK)) != 0)
        return FALSE;
    DWORD dwOrientation = dwStyle & (GHS_VERT | GHS_HORZ);
    return bRequired ? dwOrientation == GHS_VERT || dwOrientation == GHS_HORZ : dwOrientation == 0;
}

void CGridHeader::OnDestroy()
{
    FreeAllItems();
    CWnd::OnDestroy();
}

void CGridHeader::FreeAllItems()
{
    for (HdrItem& item : m_arItems)
        delete[] item.pszText;
    m_arItems.clear();
    m_nTotalHeight = 0;
    m_nTotalWidth = 0;
}

// ---------------------------------------------------------------------------------------------
// Items

CGridHeader::HdrItem& CGridHeader::GetHdrItem(int nIndex)
{
    return const_cast<HdrItem&>(static_cast<const CGridHeader*>(this)->GetHdrItem(nIndex));
}

const CGridHeader::HdrItem& CGridHeader::GetHdrItem(int nIndex) const
{
    if (!IsItem(nIndex))
        throw std::out_of_range("invalid vector<T> subscript");
    return m_arItems[static_cast<size_t>(nIndex)];
}

void CGridHeader::SetExtent(HdrItem& item, int nExtent)
{
    SetSize(item, IsStyleVert() != FALSE, nExtent);
}

void CGridHeader::SetCrossExtent(HdrItem& item, int nExtent)
{
    SetSize(item, !IsStyleVert(), nExtent);
}

void CGridHeader::SetSize(HdrItem& item, bool bHeight, int nSize)
{
    int& rnItem = bHeight ? item.nHeight : item.nWidth;
    (bHeight ? m_nTotalHeight : m_nTotalWidth) += nSize - rnItem;
    rnItem = nSize;
}

int CGridHeader::InsertItem(int nIndex, HD_ITEM* pItem, bool bNoUpdate)
{
    if (nIndex < 0 || pItem == NULL)
        return -1;
    nIndex = std::min(nIndex, GetItemCount());
    m_arItems.insert(m_arItems.begin() + nIndex, HdrItem());
    if (!SetItem(nIndex, pItem, true))
    {
        DeleteItem(nIndex, true);
        return -1;
    }
    if (!bNoUpdate && m_hWnd != NULL)
    {
        UpdateScrollInfo();
        InvalidateFrom(nIndex);
    }
    return nIndex;
}

BOOL CGridHeader::DeleteItem(int nIndex, bool bNoUpdate)
{
    if (!IsItem(nIndex))
        return FALSE;
    if (!bNoUpdate && m_hWnd != NULL)
        InvalidateFrom(nIndex);
    HdrItem& item = GetHdrItem(nIndex);
    m_nTotalWidth -= item.nWidth;
    m_nTotalHeight -= item.nHeight;
    delete[] item.pszText;
    m_arItems.erase(m_arItems.begin() + nIndex);
    for (int& nPressed : m_nPressedItem)
        if (nPressed >= nIndex)
            nPressed = nPressed == nIndex ? -1 : nPressed - 1;
    if (!bNoUpdate && m_hWnd != NULL)
        UpdateScrollInfo();
    return TRUE;
}

BOOL CGridHeader::SetItem(int nIndex, HD_ITEM* pItem, bool bNoUpdate)
{
    if (!IsItem(nIndex) || pItem == NULL)
        return FALSE;
    HdrItem& item = GetHdrItem(nIndex);
    BOOL bHandled = FALSE;
    bool bExtentChanged = false;
    char* pszText = NULL;
    if ((pItem->mask & HDI_TEXT) != 0 && pItem->cchTextMax > 0 &&
        (pszText = new (std::nothrow) char[static_cast<size_t>(pItem->cchTextMax)]()) != NULL)
    {
        delete[] item.pszText;
        item.pszText = pszText;
        item.nTextSize = pItem->cchTextMax;
        if (pItem->pszText != NULL && pItem->pszText != LPSTR_TEXTCALLBACKA)
            strncpy(item.pszText, pItem->pszText, static_cast<size_t>(pItem->cchTextMax - 1));
        bHandled = TRUE;
    }
    if ((pItem->mask & HDI_FORMAT) != 0)
    {
        item.wAlign = AlignmentFromFormat(pItem->fmt);
        item.wFormat = item.wAlign == kNone ? kNone : static_cast<WORD>(pItem->fmt);
        bHandled = TRUE;
    }
    if ((pItem->mask & GHDI_ALIGNMENT) != 0)
    {
        item.wAlign = AlignmentFromFormat(pItem->fmt);
        bHandled = TRUE;
    }
    if ((pItem->mask & HDI_WIDTH) != 0 && pItem->cxy >= 0)
    {
        SetExtent(item, pItem->cxy);
        bExtentChanged = true;
        bHandled = TRUE;
    }
    if ((pItem->mask & GHDI_CROSSEXTENT) != 0)
    {
        if (pItem->cxy >= 0)
            SetCrossExtent(item, pItem->cxy);
        bHandled = TRUE;
    }
    if (bHandled && !bNoUpdate && m_hWnd != NULL)
    {
        if (bExtentChanged)
        {
            UpdateScrollInfo();
            InvalidateFrom(nIndex);
        }
        else
        {
            CRect rcItem;
            GetItemRect(nIndex, &rcItem);
            InvalidateRect(&rcItem);
        }
    }
    return bHandled;
}

BOOL CGridHeader::GetItem(int nIndex, HD_ITEM* pItem) const
{
    if (!IsItem(nIndex) || pItem == NULL)
        return FALSE;
    const HdrItem& item = GetHdrItem(nIndex);
    BOOL bHandled = FALSE;
    if ((pItem->mask & HDI_TEXT) != 0)
    {
        if (pItem->pszText != NULL && pItem->cchTextMax > item.nTextSize)
            strcpy(pItem->pszText, item.pszText != NULL ? item.pszText : "");
        pItem->cchTextMax = item.nTextSize + 1;
        bHandled = TRUE;
    }
    if ((pItem->mask & HDI_FORMAT) != 0)
    {
        pItem->fmt = item.wFormat == kNone ? -1 : item.wFormat;
        bHandled = TRUE;
    }
    if ((pItem->mask & GHDI_ALIGNMENT) != 0)
    {
        pItem->fmt = FormatFromAlignment(item.wAlign);
        bHandled = TRUE;
    }
    if ((pItem->mask & HDI_WIDTH) != 0)
    {
        pItem->cxy = GetExtent(item);
        bHandled = TRUE;
    }
    if ((pItem->mask & GHDI_CROSSEXTENT) != 0)
    {
        pItem->cxy = IsStyleVert() ? item.nWidth : item.nHeight;
        bHandled = TRUE;
    }
    return bHandled;
}

int CGridHeader::GetAverageHeight() const
{
    return m_arItems.empty() ? 0 : m_nTotalHeight / GetItemCount();
}

BOOL CGridHeader::GetItemRect(int nIndex, RECT* pRect, bool bAllowEnd) const
{
    if (pRect == NULL || m_hWnd == NULL || nIndex < 0 || nIndex > GetItemCount() ||
        (nIndex == GetItemCount() && !bAllowEnd))
        return FALSE;
    CRect rc;
    GetClientRect(&rc);
    const bool bFiller = nIndex == GetItemCount();
    if (IsStyleVert())
    {
        const int nAverage = GetAverageHeight();
        if (bFiller)
            rc.top += m_nTotalHeight - GetScrollPosition() * nAverage;
        else
        {
            const HdrItem& item = GetHdrItem(nIndex);
            rc.top += (nIndex - GetScrollPosition()) * nAverage;
            rc.bottom = rc.top + item.nHeight;
            rc.right = rc.left + item.nWidth;
        }
    }
    else
    {
        rc.left -= GetScrollPosition();
        if (bFiller)
            rc.left += m_nTotalWidth;
        else
        {
            for (int i = 0; i < nIndex; ++i)
                rc.left += m_arItems[static_cast<size_t>(i)].nWidth;
            const HdrItem& item = GetHdrItem(nIndex);
            rc.right = rc.left + item.nWidth;
            rc.bottom = rc.top + item.nHeight;
        }
    }
    *pRect = rc;
    return TRUE;
}

void CGridHeader::RefreshItem(int nIndex)
{
    CRect rc;
    if (!GetItemRect(nIndex, &rc, true))
        return;
    // Items and the filler cover their rectangles: nothing to erase first.
    InvalidateRect(&rc, FALSE);
    UpdateWindow();
}

void CGridHeader::InvalidateFrom(int nIndex)
{
    CRect rcFrom;
    CRect rcClient;
    GetClientRect(&rcClient);
    if (!GetItemRect(nIndex, &rcFrom, true))
        return;
    if (IsStyleVert())
        rcClient.top = std::max(rcClient.top, rcFrom.top);
    else
        rcClient.left = std::max(rcClient.left, rcFrom.left);
    InvalidateRect(&rcClient);
}

int CGridHeader::HitTest(CPoint point) const
{
    if (m_hWnd == NULL)
        return -1;
    CRect rcWindow;
    GetWindowRect(&rcWindow);
    ScreenToClient(&rcWindow);
    if (!rcWindow.PtInRect(point))
        return -1;
    const int nCount = GetItemCount();
    if (IsStyleVert())
    {
        const int nFirst = GetScrollPosition();
        if (nFirst >= nCount)
            return nFirst == nCount ? nCount : -1;
        int nBottom = 0;
        for (int i = nFirst; i < nCount; ++i)
        {
            nBottom += m_arItems[static_cast<size_t>(i)].nHeight;
            if (nBottom > point.y)
                return i;
        }
        return nCount;
    }
    const int x = point.x + GetScrollPosition();
    int nRight = 0;
    for (int i = 0; i < nCount; ++i)
    {
        nRight += m_arItems[static_cast<size_t>(i)].nWidth;
        if (nRight > x)
            return i;
    }
    return nCount;
}

int CGridHeader::GetState(int nIndex) const
{
    return IsItem(nIndex) ? GetHdrItem(nIndex).nState : -1;
}

BOOL CGridHeader::SetState(int nIndex, int nState)
{
    if (!IsItem(nIndex) || (nState != GHDR_NORMAL && nState != GHDR_PRESSED))
        return FALSE;
    GetHdrItem(nIndex).nState = nState;
    return TRUE;
}

// ---------------------------------------------------------------------------------------------
// Fonts and padding

void CGridHeader::SetGridFont(CFont* pFont, BOOL bRedraw)
{
    LOGFONT lf;
    if (pFont == NULL || pFont->GetSafeHandle() == NULL || pFont->GetLogFont(&lf) == 0)
        return;
    m_fontGrid.DeleteObject();
    m_fontGrid.CreateFontIndirect(&lf);
    CDC dc;
    dc.CreateCompatibleDC(NULL);
    CFont* pOldFont = dc.SelectObject(&m_fontGrid);
    int nWidth = 0;
    if (dc.GetCharWidth('n', 'n', &nWidth) && nWidth > 0)
        m_nHorzLineStep = nWidth;
    dc.SelectObject(pOldFont);
    if (bRedraw && m_hWnd != NULL)
        Invalidate();
}

BOOL CGridHeader::SetItemPadding(const CRect& rcPadding)
{
    if (rcPadding.right < rcPadding.left || rcPadding.bottom < rcPadding.top)
        return FALSE;
    m_rcItemPadding = rcPadding;
    return TRUE;
}
