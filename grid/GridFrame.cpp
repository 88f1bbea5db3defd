// CGridFrame: layout, widths, header sorting, notifications, printing and export of the grid
// window.
#include "grid/GridFrame.h"

#include <algorithm>
#include <vector>

IMPLEMENT_DYNAMIC(CGridFrame, CWnd)

BEGIN_MESSAGE_MAP(CGridFrame, CWnd)
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_MESSAGE(GM_COLUMNWIDTHCHANGED, OnColumnWidthChanged)
ON_MESSAGE(GM_FINDDIALOG, OnFindDialog)
ON_MESSAGE(GM_KEYF8, OnKeyF8)
END_MESSAGE_MAP()

namespace
{
const char kFrameClass[] = "_KELGRID";

bool RegisterFrameClass()
{
    WNDCLASS wc;
    memset(&wc, 0, sizeof(wc));
    wc.style = CS_DBLCLKS;
    wc.lpfnWndProc = ::DefWindowProcA;
    wc.hInstance = AfxGetInstanceHandle();
    wc.hCursor = ::LoadCursor(NULL, IDC_ARROW);
    wc.lpszClassName = kFrameClass;
    return AfxRegisterClass(&wc) != FALSE;
}

// Pixels per inch of the screen, the scale the grid is laid out in.
CSize GetScreenPixelsPerInch()
{
    HDC hScreen = ::GetDC(NULL);
    CSize size(::GetDeviceCaps(hScreen, LOGPIXELSX), ::GetDeviceCaps(hScreen, LOGPIXELSY));
    ::ReleaseDC(NULL, hScreen);
    return size;
}
} // namespace

CGridFrame::CGridFrame() : m_bSyncingWidth(false)
{
}

// ---------------------------------------------------------------------------------------------
// Creation and layout

BOOL CGridFrame::Create(int nRows, int nCols, int bFixedRow, int bFixedCol, DWORD dwStyle, const RECT& rect,
                        CWnd* pParent, UINT nID)
{
    if (pParent == NULL || !RegisterFrameClass() ||
        !CreateEx(0, kFrameClass, "", dwStyle | WS_CLIPCHILDREN, rect, pParent, nID))
        return FALSE;
    CRect rcClient;
    GetClientRect(&rcClient);
    CGridHeader* pHeader = GetGridHeader();
    CGridList* pList = GetGridList();
    if (!pHeader->Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, rcClient.right, 0), this, IDC_GRIDHEADER,
                         CGridHeader::GHS_HORZ) ||
        !pList->Create(nRows, nCols, bFixedRow, bFixedCol, rcClient, this, IDC_GRIDLIST))
    {
        DestroyWindow();
        return FALSE;
    }
    pHeader->SetGridFont(pList->GetFont(), FALSE);
    pHeader->SetScrollParent(pList->GetSafeHwnd());
    pList->AddScrollWnd(pHeader->GetSafeHwnd(), 0);
    RecalcLayout();
    return TRUE;
}

void CGridFrame::UpdateHeaderItems()
{
    CGridHeader* pHeader = GetGridHeader();
    CGridList* pList = GetGridList();
    if (pHeader->GetSafeHwnd() == NULL || pList->GetSafeHwnd() == NULL)
        return;
    const int nCols = pList->GetColCount();
    while (pHeader->GetItemCount() > nCols)
        pHeader->DeleteItem(pHeader->GetItemCount() - 1, true);
    HD_ITEM item;
    memset(&item, 0, sizeof(item));
    while (pHeader->GetItemCount() < nCols)
    {
        item.mask = HDI_FORMAT;
        item.fmt = HDF_CENTER;
        if (pHeader->InsertItem(pHeader->GetItemCount(), &item, true) < 0)
            return;
    }
    const int nHeight = GetHeaderHeight();
    for (int col = 0; col < nCols; ++col)
    {
        item.mask = HDI_WIDTH;
        item.cxy = pList->GetColumnWidth(col);
        pHeader->SetItem(col, &item, true);
        item.mask = CGridHeader::GHDI_CROSSEXTENT;
        item.cxy = nHeight;
        pHeader->SetItem(col, &item, true);
    }
    pHeader->UpdateScrollBars();
    pHeader->Invalidate();
}

int CGridFrame::GetHeaderHeight()
{
    CGridHeader* pHeader = GetGridHeader();
    CDC dc;
    if (!dc.CreateCompatibleDC(NULL))
        return 0;
    CFont* pFont = pHeader->GetGridFont();
    CFont* pOldFont = pFont->GetSafeHandle() != NULL ? dc.SelectObject(pFont) : NULL;
    TEXTMETRIC tm;
    dc.GetTextMetrics(&tm);
    if (pOldFont != NULL)
        dc.SelectObject(pOldFont);
    // The item's text area is its rectangle less 2 pixels a side, less the padding; one more
    // pixel a side leaves room for the pressed item's shift.
    const CRect rcPadding = pHeader->GetItemPadding();
    return tm.tmHeight + 6 + rcPadding.top + rcPadding.bottom;
}

void CGridFrame::RecalcLayout()
{
    CGridHeader* pHeader = GetGridHeader();
    CGridList* pList = GetGridList();
    if (m_hWnd == NULL || pHeader->GetSafeHwnd() == NULL || pList->GetSafeHwnd() == NULL)
        return;
    CRect rcClient;
    GetClientRect(&rcClient);
    const int nHeight = std::min(GetHeaderHeight(), rcClient.Height());
    pHeader->MoveWindow(0, 0, rcClient.Width(), nHeight);
    pList->MoveWindow(0, nHeight, rcClient.Width(), rcClient.Height() - nHeight);
    UpdateHeaderItems();
}

void CGridFrame::SetGridFont(CFont* pFont)
{
    if (pFont == NULL || pFont->GetSafeHandle() == NULL || GetGridList()->GetSafeHwnd() == NULL)
        return;
    GetGridList()->SetFont(pFont);
    GetGridHeader()->SetGridFont(pFont);
    RecalcLayout();
}

void CGridFrame::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    RecalcLayout();
}

void CGridFrame::OnSetFocus(CWnd* pOldWnd)
{
    CWnd::OnSetFocus(pOldWnd);
    if (GetGridList()->GetSafeHwnd() != NULL)
        GetGridList()->SetFocus();
}

// ---------------------------------------------------------------------------------------------
// Columns

BOOL CGridFrame::SetColumnTitle(int col, LPCTSTR lpszTitle)
{
    if (lpszTitle == NULL)
        return FALSE;
    HD_ITEM item;
    memset(&item, 0, sizeof(item));
    item.mask = HDI_TEXT;
    item.pszText = const_cast<LPSTR>(lpszTitle);
    item.cchTextMax = lstrlenA(lpszTitle) + 1;
    return GetGridHeader()->SetItem(col, &item);
}

CString CGridFrame::GetColumnTitle(int col)
{
    // The first call reads the buffer's size, the second the text.
    HD_ITEM item;
    memset(&item, 0, sizeof(item));
    item.mask = HDI_TEXT;
    if (!GetGridHeader()->GetItem(col, &item) || item.cchTextMax <= 1)
        return CString();
    std::vector<char> buffer(static_cast<size_t>(item.cchTextMax), '\0');
    item.pszText = buffer.data();
    GetGridHeader()->GetItem(col, &item);
    return CString(buffer.data());
}

BOOL CGridFrame::SetColumnSortClass(int col, short nSortClass)
{
    if (!GetGridHeader()->SetColSortType(col, nSortClass))
        return FALSE;
    GetGridHeader()->RefreshItem(col);
    return TRUE;
}

// ---------------------------------------------------------------------------------------------
// Widths in step and notifications

LRESULT CGridFrame::OnFindDialog(WPARAM, LPARAM)
{
    CGridList* pList = GetGridList();
    CStringArray arColumnNames;
    for (int col = 0; col < pList->GetColCount(); ++col)
        arColumnNames.Add(GetColumnTitle(col));
    pList->ShowFindDlg(arColumnNames);
    return 0;
}

LRESULT CGridFrame::OnKeyF8(WPARAM wParam, LPARAM lParam)
{
    return GetParent()->GetSafeHwnd() != NULL ? GetParent()->SendMessage(GM_KEYF8, wParam, lParam) : 0;
}

LRESULT CGridFrame::OnColumnWidthChanged(WPARAM wParam, LPARAM lParam)
{
    CGridHeader* pHeader = GetGridHeader();
    const int col = static_cast<int>(wParam);
    if (m_bSyncingWidth || pHeader->GetSafeHwnd() == NULL || col >= pHeader->GetItemCount())
        return 0;
    HD_ITEM item;
    memset(&item, 0, sizeof(item));
    item.mask = HDI_WIDTH;
    item.cxy = static_cast<int>(lParam);
    pHeader->SetItem(col, &item);
    return 0;
}

BOOL CGridFrame::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (CWnd::OnNotify(wParam, lParam, pResult))
        return TRUE;
    NMHDR* pHdr = reinterpret_cast<NMHDR*>(lParam);
    const bool bHeader = pHdr->hwndFrom == GetGridHeader()->GetSafeHwnd();
    if (!bHeader && pHdr->hwndFrom != GetGridList()->GetSafeHwnd())
        return FALSE;
    LRESULT lResult = ForwardNotify(pHdr);
    if (bHeader)
        OnHeaderNotify(reinterpret_cast<NMHEADER*>(pHdr), lResult);
    if (pResult != NULL)
        *pResult = lResult;
    return TRUE;
}

LRESULT CGridFrame::ForwardNotify(NMHDR* pHdr)
{
    HWND hParent = ::GetParent(m_hWnd);
    if (hParent == NULL)
        return 0;
    const NMHDR original = *pHdr;
    pHdr->hwndFrom = m_hWnd;
    pHdr->idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
    LRESULT lResult = ::SendMessageA(hParent, WM_NOTIFY, pHdr->idFrom, reinterpret_cast<LPARAM>(pHdr));
    pHdr->hwndFrom = original.hwndFrom;
    pHdr->idFrom = original.idFrom;
    return lResult;
}

void CGridFrame::OnHeaderNotify(NMHEADER* pHeader, LRESULT& lResult)
{
    CGridList* pList = GetGridList();
    switch (pHeader->hdr.code)
    {
    case HDN_TRACKA:
        // The parent's veto undoes the step in the header; the list follows only what stays.
        if (lResult == 0 && pHeader->pitem != NULL && (pHeader->pitem->mask & HDI_WIDTH) != 0)
        {
            m_bSyncingWidth = true;
            pList->SetColumnWidth(pHeader->iItem, pHeader->pitem->cxy);
            m_bSyncingWidth = false;
        }
        break;
    case HDN_ITEMCLICKA:
        if (pHeader->iButton == 0 && pList->IsSortOnHdr())
            SortOnColumn(pHeader->iItem, ::GetKeyState(VK_CONTROL) < 0);
        break;
    default:
        break;
    }
}

// ---------------------------------------------------------------------------------------------
// Sorting

BOOL CGridFrame::SortOnColumn(int col, bool bAddKey)
{
    CGridHeader* pHeader = GetGridHeader();
    const short nDefault = pHeader->GetDefaultSortType(col);
    // A grid with row headers is never sorted: its header shows no sort either.
    if (nDefault < 0 || GetGridList()->IsFixedCol())
        return FALSE;
    CArray<int, int> cols;
    CArray<short, short> types;
    CArray<int, int> priorities;
    pHeader->GetCurSortTypes(cols, types, priorities);
    int nKey = static_cast<int>(cols.GetSize()) - 1;
    while (nKey >= 0 && cols[nKey] != col)
        --nKey;
    // The other direction of the same class: ascending types are even.
    auto flipped = [&](short nType) {
        short nOther = pHeader->IsValidCurSortType(col, static_cast<short>(nType ^ 1));
        return nOther < 0 ? nDefault : nOther;
    };
    if (!bAddKey || cols.GetSize() == 0)
        pHeader->SetCurSortType(col, cols.GetSize() == 1 && nKey == 0 ? flipped(types[0]) : nDefault);
    else
    {
        if (nKey >= 0)
            types[nKey] = flipped(types[nKey]);
        else
        {
            cols.Add(col);
            types.Add(nDefault);
        }
        std::vector<GridSortCol> keys;
        for (INT_PTR i = 0; i < cols.GetSize(); ++i)
            keys.push_back(GridSortCol(cols[i], types[i]));
        pHeader->SetCurSortTypes(keys.data(), static_cast<int>(keys.size()));
    }
    pHeader->Invalidate();
    SortByHeader();
    return TRUE;
}

void CGridFrame::SortByHeader()
{
    CArray<int, int> cols;
    CArray<short, short> types;
    CArray<int, int> priorities;
    GetGridHeader()->GetCurSortTypes(cols, types, priorities);
    std::vector<GridSortCol> keys;
    for (INT_PTR i = 0; i < cols.GetSize(); ++i)
        keys.push_back(GridSortCol(cols[i], types[i]));
    if (!keys.empty())
        GetGridList()->ListSort(keys.data(), static_cast<int>(keys.size()));
}

// ---------------------------------------------------------------------------------------------
// Printing

CSize CGridFrame::GetPrintPageSize(CDC* pDC, const CRect& rcPage)
{
    const CSize screen = GetScreenPixelsPerInch();
    const int nDeviceX = std::max(1, pDC->GetDeviceCaps(LOGPIXELSX));
    const int nDeviceY = std::max(1, pDC->GetDeviceCaps(LOGPIXELSY));
    return CSize(MulDiv(rcPage.Width(), screen.cx, nDeviceX), MulDiv(rcPage.Height(), screen.cy, nDeviceY));
}

int CGridFrame::GetPrintRowsPerPage(const CSize& sizePage)
{
    CGridList* pList = GetGridList();
    int nFixed = GetGridHeader()->GetItemCount() > 0 ? GetHeaderHeight() : 0;
    if (pList->IsFixedRow())
        nFixed += pList->GetRowHeight();
    return std::max(1, static_cast<int>(sizePage.cy - nFixed) / std::max(1, pList->GetRowHeight()));
}

int CGridFrame::GetPrintPageCount(CDC* pDC, const CRect& rcPage)
{
    if (pDC == NULL || pDC->GetSafeHdc() == NULL || rcPage.IsRectEmpty() || GetGridList()->GetSafeHwnd() == NULL)
        return 0;
    const int nRows = GetGridList()->GetRowCount() - GetGridList()->GetFirstDataRow();
    const int nPerPage = GetPrintRowsPerPage(GetPrintPageSize(pDC, rcPage));
    return std::max(1, (nRows + nPerPage - 1) / nPerPage);
}

BOOL CGridFrame::PrintPage(CDC* pDC, const CRect& rcPage, int nPage)
{
    if (nPage < 0 || nPage >= GetPrintPageCount(pDC, rcPage))
        return FALSE;
    CGridList* pList = GetGridList();
    CGridHeader* pHeader = GetGridHeader();
    const CSize sizePage = GetPrintPageSize(pDC, rcPage);
    const int nPerPage = GetPrintRowsPerPage(sizePage);
    const int nFirstRow = pList->GetFirstDataRow() + nPage * nPerPage;
    const int nLastRow = std::min(nFirstRow + nPerPage, pList->GetRowCount()) - 1;

    // Screen pixels onto the device's, the page's corner as the origin.
    const int nSaved = pDC->SaveDC();
    HDC hDC = pDC->GetSafeHdc();
    const CSize screen = GetScreenPixelsPerInch();
    pDC->SetMapMode(MM_ANISOTROPIC);
    ::SetWindowExtEx(hDC, screen.cx, screen.cy, NULL);
    ::SetViewportExtEx(hDC, pDC->GetDeviceCaps(LOGPIXELSX), pDC->GetDeviceCaps(LOGPIXELSY), NULL);
    pDC->SetViewportOrg(rcPage.left, rcPage.top);
    pDC->IntersectClipRect(0, 0, sizePage.cx, sizePage.cy);
    pList->SetPrinting(true);
    pHeader->SetPrinting(true);
    DrawPrintPage(pDC, sizePage, nFirstRow, nLastRow);
    pHeader->SetPrinting(false);
    pList->SetPrinting(false);
    pDC->RestoreDC(nSaved);
    return TRUE;
}

void CGridFrame::DrawPrintPage(CDC* pDC, const CSize& sizePage, int nFirstRow, int nLastRow)
{
    CGridList* pList = GetGridList();
    CGridHeader* pHeader = GetGridHeader();
    // The columns that fit, the first always.
    std::vector<int> arLeft(1, 0);
    for (int col = 0; col < pList->GetColCount(); ++col)
    {
        const int nRight = arLeft.back() + pList->GetColumnWidth(col);
        if (col > 0 && nRight > sizePage.cx)
            break;
        arLeft.push_back(nRight);
    }
    const int nCols = static_cast<int>(arLeft.size()) - 1;

    int y = 0;
    if (pHeader->GetItemCount() > 0)
    {
        // Each item draws itself where it is on the screen: the window origin moves it here.
        CFont* pOldFont = pHeader->GetGridFont()->GetSafeHandle() != NULL ? pDC->SelectObject(pHeader->GetGridFont())
                                                                          : NULL;
        for (int col = 0; col < nCols && col < pHeader->GetItemCount(); ++col)
        {
            CRect rcItem;
            pHeader->GetItemRect(col, &rcItem);
            pDC->SetWindowOrg(rcItem.left - arLeft[static_cast<size_t>(col)], rcItem.top);
            pHeader->DrawItem(pDC, col);
        }
        pDC->SetWindowOrg(0, 0);
        if (pOldFont != NULL)
            pDC->SelectObject(pOldFont);
        y = GetHeaderHeight();
    }

    std::vector<int> arRows;
    if (pList->IsFixedRow())
        arRows.push_back(0);
    for (int row = nFirstRow; row <= nLastRow; ++row)
        arRows.push_back(row);
    CFont* pOldFont = pList->GetFont() != NULL ? pDC->SelectObject(pList->GetFont()) : NULL;
    const int nRowHeight = pList->GetRowHeight();
    for (int row : arRows)
    {
        for (int col = 0; col < nCols; ++col)
        {
            CRect rcCell(arLeft[static_cast<size_t>(col)], y, arLeft[static_cast<size_t>(col) + 1], y + nRowHeight);
            CRect rcText;
            int nIconSide = -1;
            if (!pList->IsNoGridLines())
                pList->DrawGrid(row, col, rcCell, pDC);
            pList->DrawCell(row, col, pDC, rcCell, rcText, nIconSide);
        }
        y += nRowHeight;
    }
    if (pOldFont != NULL)
        pDC->SelectObject(pOldFont);
}

BOOL CGridFrame::Print(CDC* pDC, LPCTSTR lpszDocName)
{
    if (pDC == NULL || pDC->GetSafeHdc() == NULL)
        return FALSE;
    HDC hDC = pDC->GetSafeHdc();
    const CRect rcPage(0, 0, pDC->GetDeviceCaps(HORZRES), pDC->GetDeviceCaps(VERTRES));
    const int nPages = GetPrintPageCount(pDC, rcPage);
    DOCINFOA info;
    memset(&info, 0, sizeof(info));
    info.cbSize = sizeof(info);
    info.lpszDocName = lpszDocName != NULL ? lpszDocName : "Grid";
    if (nPages == 0 || ::StartDocA(hDC, &info) <= 0)
        return FALSE;
    for (int nPage = 0; nPage < nPages; ++nPage)
    {
        if (::StartPage(hDC) <= 0 || !PrintPage(pDC, rcPage, nPage) || ::EndPage(hDC) <= 0)
        {
            ::AbortDoc(hDC);
            return FALSE;
        }
    }
    return ::EndDoc(hDC) > 0;
}

// ---------------------------------------------------------------------------------------------
// Export

void CGridFrame::AppendField(std::string& text, const char* pszField, char cSeparator)
{
    const char* pszSpecial = cSeparator == ',' ? ",\"\r\n" : "\t\"\r\n";
    if (strpbrk(pszField, pszSpecial) == NULL)
    {
        text += pszField;
        return;
    }
    text += '"';
    for (const char* p = pszField; *p != '\0'; ++p)
    {
        if (*p == '"')
            text += '"';
        text += *p;
    }
    text += '"';
}

bool CGridFrame::CanExport(EXPORTFORMAT format)
{
    return (format == EXPORT_TEXT || format == EXPORT_CSV) && GetGridList()->GetSafeHwnd() != NULL;
}

CString CGridFrame::GetExportText(EXPORTFORMAT format)
{
    CGridList* pList = GetGridList();
    if (!CanExport(format))
        return CString();
    const char cSeparator = format == EXPORT_CSV ? ',' : '\t';
    std::string text;
    const int nTitles = GetGridHeader()->GetItemCount();
    for (int col = 0; col < nTitles; ++col)
    {
        if (col > 0)
            text += cSeparator;
        AppendField(text, GetColumnTitle(col), cSeparator);
    }
    if (nTitles > 0)
        text += "\r\n";
    for (int row = 0; row < pList->GetRowCount(); ++row)
    {
        for (int col = 0; col < pList->GetColCount(); ++col)
        {
            if (col > 0)
                text += cSeparator;
            AppendField(text, pList->GetText(row, col), cSeparator);
        }
        text += "\r\n";
    }
    return CString(text.c_str());
}

BOOL CGridFrame::ExportToFile(LPCTSTR lpszPath, EXPORTFORMAT format)
{
    if (lpszPath == NULL || !CanExport(format))
        return FALSE;
    const CString text = GetExportText(format);
    HANDLE hFile = ::CreateFileA(lpszPath, GENERIC_WRITE, 0, NULL, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, NULL);
    if (hFile == INVALID_HANDLE_VALUE)
        return FALSE;
    DWORD dwWritten = 0;
    const DWORD dwLength = static_cast<DWORD>(text.GetLength());
    BOOL bOk = ::WriteFile(hFile, static_cast<LPCTSTR>(text), dwLength, &dwWritten, NULL) && dwWritten == dwLength;
    return ::CloseHandle(hFile) && bOk;
}

BOOL CGridFrame::ExportToClipboard(EXPORTFORMAT format)
{
    if (!CanExport(format))
        return FALSE;
    const CString text = GetExportText(format);
    const SIZE_T nBytes = static_cast<SIZE_T>(text.GetLength()) + 1;
    HGLOBAL hData = ::GlobalAlloc(GMEM_MOVEABLE, nBytes);
    if (hData == NULL)
        return FALSE;
    memcpy(::GlobalLock(hData), static_cast<LPCTSTR>(text), nBytes);
    ::GlobalUnlock(hData);
    if (!::OpenClipboard(m_hWnd))
    {
        ::GlobalFree(hData);
        return FALSE;
    }
    ::EmptyClipboard();
    const bool bSet = ::SetClipboardData(CF_TEXT, hData) != NULL;
    if (!bSet)
        ::GlobalFree(hData);
    ::CloseClipboard();
    return bSet;
}
