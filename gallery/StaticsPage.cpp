#include "gallery/StaticsPage.h"

namespace
{
const LPCTSTR s_apszCaptions[] = {_T("Level (0 to 100)"), _T("Fade time"), _T("Show date"), _T("Cue (milliseconds)"),
                                  _T("Channel")};
const LPCTSTR s_apszColorCaptions[] = {_T("Gel colour"), _T("Wash colour"), _T("No colour")};

const UINT IDC_FIRST_EDIT = 100;
const UINT IDC_FIRST_STATIC = 120;
const UINT IDC_COLORS = 140;
const UINT IDC_COLOR_BUTTON = 141;
const UINT IDC_FIRST_SWATCH = 142;
const int INTRO_LINES = 3;
const int CAPTION_WIDTH = 150;
const int EDIT_WIDTH = 140;
const int STATIC_WIDTH = 220;
const int COLOR_WIDTH = 160;
const int SWATCH_WIDTH = 140;
} // namespace

IMPLEMENT_DYNCREATE(CStaticsPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CStaticsPage, CGalleryPage)
ON_WM_CREATE()
ON_EN_CHANGE(IDC_FIRST_EDIT, OnEditChange)
ON_EN_CHANGE(IDC_FIRST_EDIT + 1, OnEditChange)
ON_EN_CHANGE(IDC_FIRST_EDIT + 2, OnEditChange)
ON_EN_CHANGE(IDC_FIRST_EDIT + 3, OnEditChange)
ON_EN_CHANGE(IDC_FIRST_EDIT + 4, OnEditChange)
ON_CBN_SELCHANGE(IDC_COLORS, OnColorSelChange)
ON_NOTIFY(CLRN_COLORCHANGED, IDC_COLOR_BUTTON, OnColorChanged)
END_MESSAGE_MAP()

CStringEdit* CStaticsPage::GetEdit(int i)
{
    CStringEdit* apEdits[ROW_COUNT] = {&m_editLevel, &m_editFade, &m_editShow, &m_editCue, &m_editChannel};
    return apEdits[i];
}

CStringStatic* CStaticsPage::GetStatic(int i)
{
    CStringStatic* apStatics[ROW_COUNT] = {&m_wndLevel, &m_wndFade, &m_wndShow, &m_wndCue, &m_wndChannel};
    return apStatics[i];
}

int CStaticsPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    if (!CreateLabel(m_wndIntro, _T("Typed statics show the value of the edit beside them as they print it, with ")
                                 _T("a prefix or suffix, and nothing while the edit does not read. The colour ")
                                 _T("combo and button open the colour dialog; the swatches follow them.")))
        return -1;

    m_editLevel.SetMinMaxValues(0, 100);
    m_wndLevel.SetAffixes(NULL, _T("%"));
    m_wndFade.SetDecimalPlaces(1);
    m_wndFade.SetAffixes(NULL, _T(" s"));
    m_wndShow.SetDateStyle(6);
    m_wndCue.SetTimeStyle(CKelTime::TIME_HHMMSSFF);
    m_wndCue.SetAffixes(_T("TC "), NULL);
    m_wndChannel.SetAffixes(_T("Ch "), NULL);
    for (int i = 0; i < ROW_COUNT; ++i)
    {
        GetEdit(i)->SetDisplayErrMsg(0); // the static shows whether it reads
        if (!CreateLabel(m_awndCaptions[i], s_apszCaptions[i]) ||
            !GetEdit(i)->Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, CRect(0, 0, 0, 0),
                                this, IDC_FIRST_EDIT + i) ||
            !GetStatic(i)->Create(_T(""), WS_CHILD | WS_VISIBLE | SS_LEFT, CRect(0, 0, 0, 0), this, IDC_FIRST_STATIC + i))
            return -1;
        UseFont(*GetEdit(i));
        UseFont(*GetStatic(i));
    }
    GetStatic(0)->SetTextColor(RGB(0, 0, 160));
    GetStatic(2)->SetBkColor(RGB(255, 255, 200));
    m_editLevel = 75L;
    m_editFade = 2.5;
    m_editShow = CKelDate(2003, 9, 5);
    m_editCue = 3723000L;
    m_editChannel = static_cast<short>(512);

    for (int i = 0; i < COLOR_ROW_COUNT; ++i)
        if (!CreateLabel(m_awndColorCaptions[i], s_apszColorCaptions[i]))
            return -1;
    m_wndColors.SetSelectedColor(RGB(0, 0, 128));
    m_wndComboSwatch.SetTextMode(CColorStatic::TEXT_HEX);
    m_wndComboSwatch.SetColor(RGB(0, 0, 128));
    m_btnColor.SetColor(RGB(255, 128, 0));
    m_wndButtonSwatch.SetTextMode(CColorStatic::TEXT_RGB);
    m_wndButtonSwatch.SetColor(RGB(255, 128, 0));
    if (!m_wndColors.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP, CRect(0, 0, COLOR_WIDTH, 300), this,
                            IDC_COLORS) ||
        !m_btnColor.Create(_T("Wash"), WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(0, 0, 0, 0), this, IDC_COLOR_BUTTON) ||
        !m_wndComboSwatch.Create(_T(""), WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), this, IDC_FIRST_SWATCH) ||
        !m_wndButtonSwatch.Create(_T(""), WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), this, IDC_FIRST_SWATCH + 1) ||
        !m_wndNoColor.Create(_T(""), WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), this, IDC_FIRST_SWATCH + 2))
        return -1;
    UseFont(m_wndColors);
    UseFont(m_wndComboSwatch);
    UseFont(m_wndButtonSwatch);
    return 0;
}

void CStaticsPage::OnEditChange()
{
    LONG nLevel = 0, nCue = 0;
    double dFade = 0;
    CKelDate show(0);
    short nChannel = 0;
    if (m_editLevel.GetValue(nLevel))
        m_wndLevel = nLevel;
    else
        m_wndLevel.ClearValue();
    if (m_editFade.GetValue(dFade))
        m_wndFade = dFade;
    else
        m_wndFade.ClearValue();
    if (m_editShow.GetValue(show))
        m_wndShow = show;
    else
        m_wndShow.ClearValue();
    if (m_editCue.GetValue(nCue))
        m_wndCue = CKelTime(static_cast<long>(nCue));
    else
        m_wndCue.ClearValue();
    if (m_editChannel.GetValue(nChannel))
        m_wndChannel = nChannel;
    else
        m_wndChannel.ClearValue();
}

void CStaticsPage::OnColorSelChange()
{
    m_wndComboSwatch.SetColor(m_wndColors.GetSelectedColor());
}

void CStaticsPage::OnColorChanged(NMHDR* pHeader, LRESULT*)
{
    m_wndButtonSwatch.SetColor(reinterpret_cast<NMKELCOLOR*>(pHeader)->crNewColor);
}

void CStaticsPage::LayoutControls(int cx, int)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    const int xEdit = MARGIN + CAPTION_WIDTH + GAP;
    const int xStatic = xEdit + EDIT_WIDTH + 2 * GAP;
    for (int i = 0; i < ROW_COUNT; ++i)
    {
        const int yText = y + (EDIT_HEIGHT - LINE_HEIGHT) / 2;
        m_awndCaptions[i].MoveWindow(MARGIN, yText, CAPTION_WIDTH, LINE_HEIGHT);
        GetEdit(i)->MoveWindow(xEdit, y, EDIT_WIDTH, EDIT_HEIGHT);
        GetStatic(i)->MoveWindow(xStatic, yText, STATIC_WIDTH, LINE_HEIGHT);
        y += EDIT_HEIGHT + GAP;
    }
    y += 2 * GAP;
    const int yColors = y;
    CColorStatic* apSwatches[COLOR_ROW_COUNT] = {&m_wndComboSwatch, &m_wndButtonSwatch, &m_wndNoColor};
    for (int i = 0; i < COLOR_ROW_COUNT; ++i)
    {
        m_awndColorCaptions[i].MoveWindow(MARGIN, y + (EDIT_HEIGHT - LINE_HEIGHT) / 2, CAPTION_WIDTH, LINE_HEIGHT);
        apSwatches[i]->MoveWindow(xEdit + COLOR_WIDTH + 2 * GAP, y, SWATCH_WIDTH, EDIT_HEIGHT);
        y += EDIT_HEIGHT + GAP;
    }
    // The combo's height is that of its dropped list.
    m_wndColors.MoveWindow(xEdit, yColors, COLOR_WIDTH, 300);
    m_btnColor.MoveWindow(xEdit, yColors + EDIT_HEIGHT + GAP, 3 * EDIT_HEIGHT, EDIT_HEIGHT);
}

LPCTSTR CStaticsPage::EnterSnapshotState(int nState, HWND* phWndPopup)
{
    *phWndPopup = NULL;
    m_wndColors.ShowDropDown(FALSE);
    if (nState != 1)
        return NULL;
    // The colour list dropped down, its swatches beside the names.
    m_wndColors.ShowDropDown(TRUE);
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    if (!::GetComboBoxInfo(m_wndColors.m_hWnd, &info))
        return NULL;
    *phWndPopup = info.hwndList;
    return _T("colours");
}
