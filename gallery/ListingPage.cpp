#include "gallery/ListingPage.h"

namespace
{
const UINT IDC_LISTING = 100;

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

const int INTRO_LINES = 2;
const int LISTING_WIDTH = 320;
} // namespace

IMPLEMENT_DYNCREATE(CListingPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CListingPage, CGalleryPage)
ON_WM_CREATE()
ON_LBN_SELCHANGE(IDC_LISTING, OnListingSelChange)
END_MESSAGE_MAP()

int CListingPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    if (!CreateLabel(m_wndIntro, _T("A listing window of KEL_Util: every entry has its own colours. Select with ")
                                 _T("the mouse, the arrow and page keys, or by typing the start of an entry.")) ||
        !m_wndListing.CreateListing(WS_VISIBLE | WS_BORDER | WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY, CRect(0, 0, 0, 0),
                                    this, IDC_LISTING) ||
        !CreateLabel(m_wndSelection, NULL))
        return -1;
    UseFont(m_wndListing);
    // Placed before the selection is made: selecting scrolls the listing to show the entry,
    // which a listing of no height yet would do needlessly.
    LayoutControls(lpCreateStruct->cx, lpCreateStruct->cy);
    for (int nChannel = 1; nChannel <= CHANNEL_COUNT; ++nChannel)
    {
        int nGel = (nChannel - 1) % GEL_COUNT;
        CString strEntry;
        strEntry.Format(_T("Channel %d   %s   at %d%%"), nChannel, s_aGels[nGel].lpszName, nChannel * 37 % 101);
        if (m_wndListing.AddEntry(strEntry, s_aGels[nGel].crText, s_aGels[nGel].crBack) < 0)
            return -1;
    }
    m_wndListing.SetCurSel(FIRST_SELECTION);
    OnListingSelChange();
    return 0;
}

void CListingPage::LayoutControls(int cx, int cy)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    int nListingHeight = cy - y - GAP - LINE_HEIGHT - MARGIN;
    m_wndListing.MoveWindow(MARGIN, y, LISTING_WIDTH, nListingHeight > 0 ? nListingHeight : 0);
    m_wndSelection.MoveWindow(MARGIN, cy - MARGIN - LINE_HEIGHT, cx - 2 * MARGIN, LINE_HEIGHT);
}

void CListingPage::OnListingSelChange()
{
    int nSelection = m_wndListing.GetCurSel();
    m_wndSelection.SetWindowText(nSelection < 0 ? CString(_T("Nothing selected."))
                                                : _T("Selected: ") + m_wndListing.GetText(nSelection));
}
