#include "gallery/ComboBoxPage.h"

namespace
{
enum
{
    IDC_TEXT = 1001,
    IDC_LEVEL,
    IDC_FADE,
    IDC_DATE,
    IDC_GELS,
    IDC_CHECK
};

const long GEL_COMBO_ID = 1;
const int INTRO_LINES = 3;
const int CAPTION_WIDTH = 260;
const int COMBO_WIDTH = 220;
const int DROPPED_HEIGHT = 160;

// The gel list the page supplies: a number and a colour name, the number as item data.
const struct
{
    int nNumber;
    LPCTSTR lpszName;
} s_aGels[] = {
    {101, _T("Yellow")},          {102, _T("Light Amber")},     {103, _T("Straw")},
    {104, _T("Deep Amber")},      {105, _T("Orange")},          {106, _T("Primary Red")},
    {110, _T("Middle Rose")},     {115, _T("Peacock Blue")},    {117, _T("Steel Blue")},
    {119, _T("Dark Blue")},       {121, _T("Leaf Green")},      {124, _T("Dark Green")},
    {126, _T("Mauve")},           {132, _T("Medium Blue")},     {139, _T("Primary Green")},
    {147, _T("Apricot")},         {151, _T("Gold Tint")},       {152, _T("Pale Gold")},
    {201, _T("Full Blue Correction")}, {204, _T("Full Orange Correction")},
};
} // namespace

IMPLEMENT_DYNCREATE(CComboBoxPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CComboBoxPage, CGalleryPage)
ON_WM_CREATE()
ON_MESSAGE(CComboBoxAutoComplete::WM_NEW_RECORD, OnNewRecord)
ON_MESSAGE(CComboBoxAutoComplete::WM_LOAD_LIST, OnLoadList)
ON_MESSAGE(CComboBoxAutoComplete::WM_EDIT_KEY, OnEditKey)
ON_BN_CLICKED(IDC_CHECK, OnCheckValues)
END_MESSAGE_MAP()

CComboBoxPage::CComboBoxPage() : m_wndGels(this, GEL_COMBO_ID, TRUE), m_nNextGel(900) {}

BOOL CComboBoxPage::CreateRow(CStatic& caption, LPCTSTR lpszCaption, CComboBox& combo, UINT nID)
{
    if (!CreateLabel(caption, lpszCaption) ||
        !combo.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL,
                      CRect(0, 0, COMBO_WIDTH, DROPPED_HEIGHT), this, nID))
        return FALSE;
    UseFont(combo);
    return TRUE;
}

int CComboBoxPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    // Bounds and settings before the windows: the field edits take them when they are created.
    m_wndLevel.SetMinMaxValues(0, 100);
    m_wndFade.SetMinMaxValues(0.0, 10.0);
    m_wndFade.SetDecimalPlaces(1);
    m_wndDate.SetMinMaxValues(CKelDate(2026, 1, 1), CKelDate(2026, 12, 31));
    m_wndDate.SetDateSeperator('-');
    if (!CreateLabel(m_wndIntro, _T("Typed combo boxes filter typing as their edits do and validate the text or a ")
                                 _T("chosen item with the same messages. The gel combo asks the page for its list ")
                                 _T("when first needed and completes as you type; Enter on a new name adds it, F5 ")
                                 _T("picks the item named.")) ||
        !CreateRow(m_wndTextCaption, _T("Text (CStringComboBox), coloured:"), m_wndText, IDC_TEXT) ||
        !CreateRow(m_wndLevelCaption, _T("Level 0..100 (CShortComboBox):"), m_wndLevel, IDC_LEVEL) ||
        !CreateRow(m_wndFadeCaption, _T("Fade 0..10 s (CDoubleComboBox):"), m_wndFade, IDC_FADE) ||
        !CreateRow(m_wndDateCaption, _T("Show date in 2026 (CDateComboBox):"), m_wndDate, IDC_DATE) ||
        !CreateRow(m_wndGelCaption, _T("Gel (CComboBoxAutoComplete):"), m_wndGels, IDC_GELS) ||
        !m_wndCheck.Create(_T("Check values"), WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, CRect(0, 0, 0, 0),
                           this, IDC_CHECK) ||
        !CreateLabel(m_wndStatus, NULL))
        return -1;
    UseFont(m_wndCheck);

    static const LPCTSTR s_aCues[] = {_T("House lights"), _T("Preset"), _T("Scene 1"), _T("Scene 2"), _T("Blackout")};
    for (LPCTSTR lpszCue : s_aCues)
        m_wndText.AddString(lpszCue);
    m_wndText.SetTextColor(RGB(0, 0, 128));
    m_wndText.SetBkColor(RGB(255, 250, 220));
    m_wndText.SetCurSel(2);

    for (short nLevel = 0; nLevel <= 100; nLevel += 25)
        m_wndLevel += nLevel;
    m_wndLevel = static_cast<short>(50);
    for (double dFade : {0.5, 1.0, 2.5, 5.0})
        m_wndFade += dFade;
    m_wndFade = 2.5;
    m_wndDate += CKelDate(2026, 3, 14);
    m_wndDate += CKelDate(2026, 11, 27);
    m_wndDate = "11-27-2026";
    for (CStringComboBox* pCombo : {static_cast<CStringComboBox*>(&m_wndLevel),
                                    static_cast<CStringComboBox*>(&m_wndFade), static_cast<CStringComboBox*>(&m_wndDate)})
        pCombo->SetControlName(); // the caption in front of it

    // What a user sees after typing "pr": the list asked for and completed to the first match.
    MSG msg = {::GetWindow(m_wndGels.m_hWnd, GW_CHILD), WM_KEYDOWN, 'P', 0, 0, {0, 0}};
    m_wndGels.PreTranslateMessage(&msg);
    ::SendMessage(msg.hwnd, WM_CHAR, 'p', 1);
    ::SendMessage(msg.hwnd, WM_CHAR, 'r', 1);
    return 0;
}

void CComboBoxPage::LayoutControls(int cx, int)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    const int xCombo = MARGIN + CAPTION_WIDTH + GAP;
    CWnd* const aRows[][2] = {{&m_wndTextCaption, &m_wndText},   {&m_wndLevelCaption, &m_wndLevel},
                              {&m_wndFadeCaption, &m_wndFade},   {&m_wndDateCaption, &m_wndDate},
                              {&m_wndGelCaption, &m_wndGels}};
    for (CWnd* const* pRow : aRows)
    {
        pRow[0]->MoveWindow(MARGIN, y + (EDIT_HEIGHT - LINE_HEIGHT) / 2, CAPTION_WIDTH, LINE_HEIGHT);
        pRow[1]->MoveWindow(xCombo, y, COMBO_WIDTH, DROPPED_HEIGHT);
        y += EDIT_HEIGHT + 2 * GAP;
    }
    m_wndCheck.MoveWindow(xCombo, y, 120, EDIT_HEIGHT + 2);
    y += EDIT_HEIGHT + 3 * GAP;
    m_wndStatus.MoveWindow(MARGIN, y, cx - 2 * MARGIN, 2 * LINE_HEIGHT);
}

void CComboBoxPage::SetStatus(LPCTSTR lpszStatus)
{
    m_wndStatus.SetWindowText(lpszStatus);
}

LRESULT CComboBoxPage::OnLoadList(WPARAM, LPARAM lParam)
{
    CComboBoxAutoComplete* pCombo = reinterpret_cast<CNewComboBoxRecord*>(lParam)->m_pCombo;
    CString strGel;
    for (const auto& gel : s_aGels)
    {
        strGel.Format(_T("%s %d"), gel.lpszName, gel.nNumber);
        pCombo->SetItemData(pCombo->AddString(strGel), static_cast<DWORD_PTR>(gel.nNumber));
    }
    strGel.Format(_T("WM_USER + 301: the page loaded %d gels into the combo."), pCombo->GetCount());
    SetStatus(strGel);
    return 0;
}

LRESULT CComboBoxPage::OnNewRecord(WPARAM, LPARAM lParam)
{
    CNewComboBoxRecord* pRecord = reinterpret_cast<CNewComboBoxRecord*>(lParam);
    int nIndex = pRecord->m_pCombo->AddString(pRecord->m_strText);
    pRecord->m_pCombo->SetItemData(nIndex, static_cast<DWORD_PTR>(m_nNextGel));
    pRecord->m_pCombo->SetCurSel(nIndex);
    pRecord->m_lRecordID = m_nNextGel++;
    CString strStatus;
    strStatus.Format(_T("WM_USER + 300: \"%s\" is new; the page added it as gel %ld."),
                     static_cast<LPCTSTR>(pRecord->m_strText), pRecord->m_lRecordID);
    SetStatus(strStatus);
    return 1;
}

LRESULT CComboBoxPage::OnEditKey(WPARAM, LPARAM lParam)
{
    CString strStatus;
    if (static_cast<int>(lParam) >= 0)
    {
        CString strItem;
        m_wndGels.GetLBText(static_cast<int>(lParam), strItem);
        strStatus.Format(_T("WM_USER + 302: the edit key on \"%s\" (item %d)."), static_cast<LPCTSTR>(strItem),
                         static_cast<int>(lParam));
    }
    else
        strStatus = _T("WM_USER + 302: the edit key, no item chosen.");
    SetStatus(strStatus);
    return 0;
}

void CComboBoxPage::OnCheckValues()
{
    // Each failure shows its box and takes the focus to its combo; the first one stops the check.
    short nLevel = 0;
    double dFade = 0.0;
    CKelDate date(0);
    if (m_wndLevel.GetValue(nLevel) && m_wndFade.GetValue(dFade) && m_wndDate.GetValue(date))
    {
        CString strStatus;
        strStatus.Format(_T("Valid: level %d, fade %s s, show date %s."), nLevel,
                         static_cast<LPCTSTR>(CDouble::Format(dFade, 1, 1, 0)),
                         static_cast<LPCTSTR>(CKelDate::FmtMMsDDsYYYY(date.JulianValue(), '-')));
        SetStatus(strStatus);
    }
}

LPCTSTR CComboBoxPage::EnterSnapshotState(int nState, HWND* phWndPopup)
{
    *phWndPopup = NULL;
    m_wndGels.ShowDropDown(FALSE);
    if (nState != 1)
        return NULL;
    // The gel list dropped down under the completed text.
    m_wndGels.ShowDropDown(TRUE);
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    if (!::GetComboBoxInfo(m_wndGels.m_hWnd, &info))
        return NULL;
    *phWndPopup = info.hwndList;
    return _T("dropped");
}
