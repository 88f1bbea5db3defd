#include "gallery/ListingPage.h"

namespace
{
const UINT IDC_LISTING = 100;
const UINT IDC_LISTBOX = 101;
const UINT IDC_SORT_TEXT = 102;
const UINT IDC_SORT_LEVEL = 103;

// Gel colours: the entry's name, text and background.
const struct
{
    LPCTSTR lpszName;
    COLORREF crText;
    COLORREF crBack;
} s_aGels[] = {
    {_T("Red"), RGB(255, 255, 255), RGB(192, 0, 0)},
    {_T("Amber"), RGB(0, 0, 0), RGB(255, 191, 0)},
    {_T("Green"), RGB(255, 255, 255), RGB(0, 128, 0)},
    {_T("Blue"), RGB(255, 255, 255), RGB(0, 64, 192)},
    {_T("Lavender"), RGB(0, 0, 0), RGB(200, 170, 255)},
    {_T("Open white"), RGB(0, 0, 0), RGB(255, 255, 255)},
    {_T("Steel"), RGB(255, 255, 255), RGB(70, 90, 110)},
};
const int GEL_COUNT = static_cast<int>(sizeof(s_aGels) / sizeof(s_aGels[0]));
const int CHANNEL_COUNT = 60;
const int FIRST_SELECTION = 4;

// The list box: levels first, so that a sort by number orders them by level.
const struct
{
    LPCTSTR lpszText;
    COLORREF crText; // KEL_NO_COLOR: the list's own
    COLORREF crBack;
} s_aFixtures[] = {
    {_T("75  Spot 1, stage left"), KEL_NO_COLOR, KEL_NO_COLOR},
    {_T("100  Follow spot"), RGB(255, 255, 255), RGB(160, 0, 0)},
    {_T("40  Cyc lights, blue"), RGB(255, 255, 255), RGB(0, 64, 192)},
    {_T("0  Houselights"), RGB(128, 128, 128), KEL_NO_COLOR},
    {_T("55  Wash, amber"), RGB(0, 0, 0), RGB(255, 191, 0)},
    {_T("20  Spot 2, stage right"), KEL_NO_COLOR, KEL_NO_COLOR},
    {_T("85  Special on the chair"), RGB(0, 96, 0), RGB(210, 255, 210)},
    {_T("10  Running lights"), KEL_NO_COLOR, KEL_NO_COLOR},
};

const int INTRO_LINES = 2;
const int LIST_WIDTH = 300;
const int BUTTON_WIDTH = 130;
} // namespace

IMPLEMENT_DYNCREATE(CListingPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CListingPage, CGalleryPage)
ON_WM_CREATE()
ON_LBN_SELCHANGE(IDC_LISTING, OnSelChange)
ON_LBN_SELCHANGE(IDC_LISTBOX, OnSelChange)
ON_BN_CLICKED(IDC_SORT_TEXT, OnSortAsText)
ON_BN_CLICKED(IDC_SORT_LEVEL, OnSortByLevel)
END_MESSAGE_MAP()

int CListingPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    const DWORD dwButton = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON;
    if (!CreateLabel(m_wndIntro, _T("Left, a listing: every channel in its gel's colours. Right, a list box with ")
                                 _T("coloured entries and several selectable (Ctrl+click). The buttons sort both.")) ||
        !m_wndListing.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP, CRect(0, 0, 0, 0), this, IDC_LISTING) ||
        !m_wndListBox.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY | LBS_EXTENDEDSEL,
                             CRect(0, 0, 0, 0), this, IDC_LISTBOX) ||
        !m_wndSortAsText.Create(_T("Sort as text"), dwButton, CRect(0, 0, 0, 0), this, IDC_SORT_TEXT) ||
        !m_wndSortByLevel.Create(_T("Sort by level"), dwButton, CRect(0, 0, 0, 0), this, IDC_SORT_LEVEL) ||
        !CreateLabel(m_wndSelection, NULL))
        return -1;
    for (CWnd* pWnd : {static_cast<CWnd*>(&m_wndListing), static_cast<CWnd*>(&m_wndListBox),
                       static_cast<CWnd*>(&m_wndSortAsText), static_cast<CWnd*>(&m_wndSortByLevel)})
        UseFont(*pWnd);
    // Placed before the selection is made: selecting scrolls the listing to show the entry,
    // which a listing of no height yet would do needlessly.
    LayoutControls(lpCreateStruct->cx, lpCreateStruct->cy);
    for (int nChannel = 1; nChannel <= CHANNEL_COUNT; ++nChannel)
    {
        int nGel = (nChannel - 1) % GEL_COUNT;
        CString strEntry;
        strEntry.Format(_T("%d%%   Channel %d   %s"), nChannel * 37 % 101, nChannel, s_aGels[nGel].lpszName);
        if (m_wndListing.AddString(strEntry, s_aGels[nGel].crText, s_aGels[nGel].crBack) < 0)
            return -1;
    }
    for (const auto& fixture : s_aFixtures)
        if (m_wndListBox.AddString(fixture.lpszText, fixture.crText, fixture.crBack) < 0)
            return -1;
    m_wndListing.SetCurSel(FIRST_SELECTION);
    m_wndListBox.SetSel(2);
    m_wndListBox.SetSel(6);
    OnSelChange();
    return 0;
}

void CListingPage::LayoutControls(int cx, int cy)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    int nListHeight = cy - y - 2 * GAP - EDIT_HEIGHT - LINE_HEIGHT - MARGIN;
    if (nListHeight < 0)
        nListHeight = 0;
    m_wndListing.MoveWindow(MARGIN, y, LIST_WIDTH, nListHeight);
    m_wndListBox.MoveWindow(MARGIN + LIST_WIDTH + GAP, y, LIST_WIDTH, nListHeight);
    y += nListHeight + GAP;
    m_wndSortAsText.MoveWindow(MARGIN, y, BUTTON_WIDTH, EDIT_HEIGHT);
    m_wndSortByLevel.MoveWindow(MARGIN + BUTTON_WIDTH + GAP, y, BUTTON_WIDTH, EDIT_HEIGHT);
    m_wndSelection.MoveWindow(MARGIN, cy - MARGIN - LINE_HEIGHT, cx - 2 * MARGIN, LINE_HEIGHT);
}

void CListingPage::OnSelChange()
{
    CString strChannel;
    int nSelection = m_wndListing.GetCurSel();
    if (nSelection < 0 || !m_wndListing.GetAt(nSelection, strChannel))
        strChannel = _T("no channel");
    CString strText;
    strText.Format(_T("Selected: %s; %d of the fixtures."), static_cast<LPCTSTR>(strChannel), m_wndListBox.GetSelCount());
    m_wndSelection.SetWindowText(strText);
}

void CListingPage::SortBoth(int nType)
{
    m_wndListing.Sort(nType);
    m_wndListBox.Sort(nType);
    OnSelChange();
}

void CListingPage::OnSortAsText()
{
    SortBoth(0);
}

void CListingPage::OnSortByLevel()
{
    SortBoth(3);
}

LPCTSTR CListingPage::EnterSnapshotState(int nState, HWND* phWndPopup)
{
    *phWndPopup = NULL;
    if (nState != 1)
        return NULL;
    OnSortByLevel();
    return _T("sorted");
}
