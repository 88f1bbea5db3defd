#include "gallery/EditTipPage.h"

#include "frame/EditTip.h"

namespace
{
const struct
{
    LPCTSTR lpszCaption;
    LPCTSTR lpszText;
    DWORD dwStyle;
    BOOL bScrollToEnd;
} s_aEdits[] = {
    {_T("Long text:"), _T("Channels 1 thru 24 at 75 percent, 101 thru 148 at full"), 0, FALSE},
    {_T("Long text:"), _T("Cue 12: full stage wash, fade up 3.5 s, delay 0.5 s, follow-on to cue 13"), 0, FALSE},
    {_T("Read-only long text:"), _T("Scroller frame 7 on channels 201 > 236, then frame 2 after 4 s"), ES_READONLY,
     FALSE},
    // Its first character is scrolled out to the left, so the tip shows however short the rest.
    {_T("Scrolled to its end:"), _T("Followspot 2 picks up the soloist downstage left at 40 percent"), 0, TRUE},
    {_T("Short text that fits:"), _T("Cue 3"), 0, FALSE},
};

const UINT IDC_FIRST_EDIT = 100;
const int CAPTION_WIDTH = 140;
const int EDIT_WIDTH = 170; // narrow on purpose: most texts do not fit
const int INTRO_LINES = 3;

// What the edit's tooltip shows: its whole text, when the library's fit test says that it does
// not fit; empty when it fits.
CString GetTipText(CEdit& edit)
{
    CString strText;
    if (!EditTextFits(edit.m_hWnd))
        edit.GetWindowText(strText);
    return strText;
}
} // namespace

IMPLEMENT_DYNCREATE(CEditTipPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CEditTipPage, CGalleryPage)
ON_WM_CREATE()
END_MESSAGE_MAP()

int CEditTipPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    CString strIntro = _T("Every edit control of a program that loads KelControls gets a tooltip: when its text ")
                       _T("does not fit, resting the mouse on the edit shows the whole text. These are plain ")
                       _T("\"edit\" controls.");
    if (m_bSnapshot)
        strIntro += _T(" Below each edit: what its tooltip shows, by the library's own fit test.");
    if (!CreateLabel(m_wndIntro, strIntro))
        return -1;
    for (int i = 0; i < EDIT_COUNT; ++i)
    {
        if (!CreateLabel(m_awndCaptions[i], s_aEdits[i].lpszCaption) ||
            !m_aEdits[i].Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL | s_aEdits[i].dwStyle,
                                CRect(0, 0, 0, 0), this, IDC_FIRST_EDIT + i))
            return -1;
        UseFont(m_aEdits[i]);
        m_aEdits[i].SetWindowText(s_aEdits[i].lpszText);
        if (m_bSnapshot && !CreateLabel(m_awndTips[i], NULL, SS_LEFTNOWORDWRAP))
            return -1;
    }
    return 0;
}

void CEditTipPage::LayoutControls(int cx, int cy)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    const int xEdit = MARGIN + CAPTION_WIDTH + GAP;
    for (int i = 0; i < EDIT_COUNT; ++i)
    {
        m_awndCaptions[i].MoveWindow(MARGIN, y + (EDIT_HEIGHT - LINE_HEIGHT) / 2, CAPTION_WIDTH, LINE_HEIGHT);
        m_aEdits[i].MoveWindow(xEdit, y, EDIT_WIDTH, EDIT_HEIGHT);
        y += EDIT_HEIGHT;
        if (s_aEdits[i].bScrollToEnd)
        {
            int nLength = m_aEdits[i].GetWindowTextLength();
            m_aEdits[i].SetSel(nLength, nLength);
            m_aEdits[i].SendMessage(EM_SCROLLCARET);
        }
        if (m_bSnapshot)
        {
            // The tip depends on the edit's width, so it is asked for once the edit is placed.
            CString strTip = GetTipText(m_aEdits[i]);
            m_awndTips[i].SetWindowText(strTip.IsEmpty() ? CString(_T("No tooltip: the text fits."))
                                                         : _T("Tooltip: ") + strTip);
            m_awndTips[i].MoveWindow(xEdit, y + 2, cx - xEdit - MARGIN, LINE_HEIGHT);
            y += LINE_HEIGHT + 2;
        }
        y += 2 * GAP;
    }
}
