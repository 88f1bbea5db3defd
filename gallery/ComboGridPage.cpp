#include "gallery/ComboGridPage.h"

#include <stdlib.h>

namespace
{
const UINT IDC_FIXTURE = 1;
const UINT IDC_CUE = 2;
const int CAPTION_WIDTH = 150;
const int COMBO_WIDTH = 220;
const int INTRO_LINES = 2;

const struct
{
    const char* pszNumber;
    const char* pszName;
    const char* pszKind;
} s_aFixtures[] = {
    {"12", "Spot left", "Moving head"}, {"3", "Wash front", "LED wash"}, {"7", "Beam centre", "Moving head"},
    {"1", "Par 1", "Par can"},          {"21", "Fresnel 2", "Fresnel"},  {"5", "Cyc top", "LED batten"},
    {"9", "Profile FOH", "Profile"},    {"2", "Par 2", "Par can"},       {"15", "Strobe", "Strobe"},
    {"4", "Wash back", "LED wash"},
};

const struct
{
    const char* pszNumber;
    const char* pszTime;
    const char* pszLabel;
} s_aCues[] = {
    {"1", "00:05.0", "House to half"}, {"2", "00:03.0", "Preset"}, {"3", "00:08.0", "Opening"},
    {"4", "00:02.5", "Scene 1"},       {"5", "00:00.0", "Blackout"},
};
} // namespace

IMPLEMENT_DYNCREATE(CComboGridPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CComboGridPage, CGalleryPage)
ON_WM_CREATE()
ON_CBN_SELCHANGE(IDC_FIXTURE, OnSelChange)
ON_CBN_SELCHANGE(IDC_CUE, OnSelChange)
END_MESSAGE_MAP()

CComboGridPage::CComboGridPage() {}

int CComboGridPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    if (!CreateLabel(m_wndIntro, _T("A combo box whose drop-down is a grid under a header. Click a title to sort ")
                                 _T("(again for descending); the chosen row stays chosen. Type a name to find it.")) ||
        !CreateLabel(m_wndFixtureCaption, _T("Fixture (drop-down list):")) ||
        !m_wndFixture.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | CBS_DROPDOWNLIST, CRect(0, 0, COMBO_WIDTH, 200), this,
                             IDC_FIXTURE) ||
        !CreateLabel(m_wndCueCaption, _T("Cue (drop-down, typed):")) ||
        !m_wndCue.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | CBS_DROPDOWN | CBS_AUTOHSCROLL,
                         CRect(0, 0, COMBO_WIDTH, 200), this, IDC_CUE) ||
        !CreateLabel(m_wndStatus, NULL))
        return -1;
    UseFont(m_wndFixture);
    UseFont(m_wndCue);

    m_wndFixture.SetColumnCount(3);
    m_wndFixture.SetColumn(0, "No", 40, 1, 1);
    m_wndFixture.SetColumn(1, "Name", 110);
    m_wndFixture.SetColumn(2, "Kind", 100);
    for (const auto& fixture : s_aFixtures)
    {
        int nRow = m_wndFixture.AddRow(fixture.pszNumber, static_cast<DWORD>(atoi(fixture.pszNumber)));
        m_wndFixture.SetItemText(nRow, 1, fixture.pszName);
        m_wndFixture.SetItemText(nRow, 2, fixture.pszKind);
    }
    m_wndFixture.SetRowColors(6, RGB(128, 0, 0), 0xFFFFFFFF);
    m_wndFixture.SetTextColumn(1);
    m_wndFixture.SetKeyColumn(1);
    m_wndFixture.SetControlName("Fixture");
    m_wndFixture.SetCurSelByData(7);

    m_wndCue.SetColumnCount(3);
    m_wndCue.SetColumn(0, "Cue", 40, 1, 1);
    m_wndCue.SetColumn(1, "Time", 70, 1, 2);
    m_wndCue.SetColumn(2, "Label", 120);
    for (const auto& cue : s_aCues)
    {
        int nRow = m_wndCue.AddRow(cue.pszNumber, static_cast<DWORD>(atoi(cue.pszNumber)));
        m_wndCue.SetItemText(nRow, 1, cue.pszTime);
        m_wndCue.SetItemText(nRow, 2, cue.pszLabel);
    }
    m_wndCue.SetTextColumn(2);
    m_wndCue.SetAutoComplete(1);
    m_wndCue.SetCurSel(1);
    OnSelChange();
    return 0;
}

void CComboGridPage::LayoutControls(int cx, int)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    const int xCombo = MARGIN + CAPTION_WIDTH + GAP;
    CWnd* const aRows[][2] = {{&m_wndFixtureCaption, &m_wndFixture}, {&m_wndCueCaption, &m_wndCue}};
    for (CWnd* const* pRow : aRows)
    {
        pRow[0]->MoveWindow(MARGIN, y + 3, CAPTION_WIDTH, LINE_HEIGHT);
        pRow[1]->MoveWindow(xCombo, y, COMBO_WIDTH, 200);
        y += EDIT_HEIGHT + GAP;
    }
    m_wndStatus.MoveWindow(MARGIN, y + GAP, cx - 2 * MARGIN, LINE_HEIGHT);
}

void CComboGridPage::OnSelChange()
{
    CString strStatus;
    strStatus.Format(_T("Fixture number %d, cue %d (\"%s\")"), static_cast<int>(m_wndFixture.GetCurSelData()),
                     static_cast<int>(m_wndCue.GetCurSelData()), static_cast<LPCTSTR>(m_wndCue.GetWindowText()));
    m_wndStatus.SetWindowText(strStatus);
}

LPCTSTR CComboGridPage::EnterSnapshotState(int nState, HWND* phWndPopup)
{
    *phWndPopup = NULL;
    m_wndFixture.ShowDropDown(FALSE);
    if (nState != 1)
        return NULL;
    // The fixtures dropped down and sorted by name with a click on its title, as a user would.
    if (!m_wndFixture.ShowDropDown(TRUE))
        return NULL;
    CGridHeader* pHeader = m_wndFixture.GetHeader();
    CRect rcItem;
    pHeader->GetItemRect(1, &rcItem);
    const LPARAM lPoint = MAKELPARAM(rcItem.CenterPoint().x, rcItem.CenterPoint().y);
    pHeader->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, lPoint);
    pHeader->SendMessage(WM_LBUTTONUP, 0, lPoint);
    *phWndPopup = pHeader->GetParent()->GetSafeHwnd();
    return _T("sorted");
}
