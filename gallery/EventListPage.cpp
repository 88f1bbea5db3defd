#include "gallery/EventListPage.h"

namespace
{
const UINT IDC_CUE_LIST = 100;
const UINT IDC_RUNNING_ORDER = 101;

struct CUE_ENTRY
{
    LPCTSTR lpszText;
    COLORREF crText;
    COLORREF crBack;
};

const CUE_ENTRY s_aCueList[] = {
    {_T("Cue 1    House to half"), RGB(255, 255, 255), RGB(0, 0, 128)},
    {_T("Cue 2    Preshow wash"), RGB(255, 255, 0), RGB(0, 0, 0)},
    {_T("Cue 3    Curtain up, full stage"), RGB(0, 0, 0), RGB(255, 200, 0)},
    {_T("Cue 4    Special on the chair"), RGB(0, 255, 0), RGB(0, 0, 0)},
    {_T("Cue 5    Blackout"), RGB(255, 255, 255), RGB(160, 0, 0)},
};

const CUE_ENTRY s_aRunningOrder[] = {
    {_T("Cue 10   Act two opening"), RGB(0, 255, 255), RGB(0, 0, 0)},
    {_T("Cue 11   Sunset crossfade"), RGB(0, 0, 0), RGB(255, 140, 64)},
    {_T("Cue 12   Storm lightning chase"), RGB(255, 255, 255), RGB(80, 0, 140)},
};

const COLORREF DEFAULT_TEXT = RGB(192, 192, 192);
const COLORREF DEFAULT_BACK = RGB(0, 0, 0);
const int INTRO_LINES = 2;
const int LIST_WIDTH = 260;
const int LIST_HEIGHT = 220;

BOOL FillEventList(CKelListing& list, const CUE_ENTRY* pEntries, int nCount)
{
    list.SetDefaultColors(DEFAULT_TEXT, DEFAULT_BACK);
    for (int i = 0; i < nCount; ++i)
    {
        if (list.AddString(pEntries[i].lpszText, pEntries[i].crText, pEntries[i].crBack) < 0)
            return FALSE;
    }
    return TRUE;
}
} // namespace

IMPLEMENT_DYNCREATE(CEventListPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CEventListPage, CGalleryPage)
ON_WM_CREATE()
ON_CONTROL(ELN_DROPPED, IDC_CUE_LIST, OnDroppedInCueList)
ON_CONTROL(ELN_DROPPED, IDC_RUNNING_ORDER, OnDroppedInRunningOrder)
END_MESSAGE_MAP()

int CEventListPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    const DWORD dwStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP;
    if (!CreateLabel(m_wndIntro, _T("Two event lists of KelControls. Drag a cue to the other list, or within its ")
                                 _T("list, to move it; hold Ctrl while dropping to copy it.")) ||
        !CreateLabel(m_wndCueListTitle, _T("Cue list")) || !CreateLabel(m_wndRunningOrderTitle, _T("Running order")) ||
        !m_wndCueList.Create(dwStyle, CRect(0, 0, 0, 0), this, IDC_CUE_LIST) ||
        !m_wndRunningOrder.Create(dwStyle, CRect(0, 0, 0, 0), this, IDC_RUNNING_ORDER) ||
        !CreateLabel(m_wndStatus, _T("No cue dropped yet.")))
        return -1;
    UseFont(m_wndCueList);
    UseFont(m_wndRunningOrder);
    if (!FillEventList(m_wndCueList, s_aCueList, sizeof(s_aCueList) / sizeof(s_aCueList[0])) ||
        !FillEventList(m_wndRunningOrder, s_aRunningOrder, sizeof(s_aRunningOrder) / sizeof(s_aRunningOrder[0])))
        return -1;
    m_wndCueList.SetCurSel(2);
    return 0;
}

void CEventListPage::LayoutControls(int cx, int cy)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    const int xRight = MARGIN + LIST_WIDTH + 2 * MARGIN;
    m_wndCueListTitle.MoveWindow(MARGIN, y, LIST_WIDTH, LINE_HEIGHT);
    m_wndRunningOrderTitle.MoveWindow(xRight, y, LIST_WIDTH, LINE_HEIGHT);
    y += LINE_HEIGHT + 2;
    m_wndCueList.MoveWindow(MARGIN, y, LIST_WIDTH, LIST_HEIGHT);
    m_wndRunningOrder.MoveWindow(xRight, y, LIST_WIDTH, LIST_HEIGHT);
    y += LIST_HEIGHT + 2 * GAP;
    m_wndStatus.MoveWindow(MARGIN, y, cx - 2 * MARGIN, LINE_HEIGHT);
}

void CEventListPage::OnDroppedInCueList()
{
    ShowDroppedEntry(_T("the cue list"));
}

void CEventListPage::OnDroppedInRunningOrder()
{
    ShowDroppedEntry(_T("the running order"));
}

void CEventListPage::ShowDroppedEntry(LPCTSTR lpszListName)
{
    char szEntry[256];
    if (GetDragDropEntry(szEntry, sizeof(szEntry)) < 0)
        return;
    CString strStatus;
    strStatus.Format(_T("Last dropped: \"%s\" into %s."), szEntry, lpszListName);
    m_wndStatus.SetWindowText(strStatus);
}
