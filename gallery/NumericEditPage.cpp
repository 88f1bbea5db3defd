#include "gallery/NumericEditPage.h"

#include <float.h>
#include <limits.h>

namespace
{
// Each label names its edit in the edit's messages.
const LPCTSTR s_apszCaptions[] = {
    _T("Short (-100 to 100)"), _T("Unsigned short"),           _T("Port"),
    _T("Unsigned long"),       _T("Level (0 to 100, 2 places)"), _T("Double without a value"),
    _T("Double at infinity"),
};

const UINT IDC_FIRST_EDIT = 100;
const int INTRO_LINES = 3;
const int CAPTION_WIDTH = 200;
const int EDIT_WIDTH = 150;
const int MESSAGE_LINES = 3;
} // namespace

IMPLEMENT_DYNCREATE(CNumericEditPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CNumericEditPage, CGalleryPage)
ON_WM_CREATE()
END_MESSAGE_MAP()

CString CNumericEditPage::CPortEdit::GetReadMessage()
{
    // Read quietly: the page shows the message itself instead of the box.
    LONG nPort = 0;
    {
        CControlQuietScope quiet(m_bDisplayErrMsg);
        if (GetValue(nPort))
            return _T("The port reads as valid.");
    }
    return FormatRangeMessage(CLong::Format(m_nMinValue), NULL);
}

CNumericEdit* CNumericEditPage::GetEdit(int i)
{
    CNumericEdit* apEdits[EDIT_COUNT] = {&m_editShort, &m_editUShort, &m_editPort,     &m_editULong,
                                         &m_editLevel, &m_editUndefined, &m_editInfinite};
    return apEdits[i];
}

int CNumericEditPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    if (!CreateLabel(m_wndIntro, _T("Typed number edits. A keystroke, Delete or paste that would leave the text ")
                                 _T("unreadable is refused with a beep and the text comes back; the range is ")
                                 _T("checked when the value is read, and a failure names the field."))
        || !CreateLabel(m_wndMessageCaption, _T("Reading the port gives this message:")) ||
        !CreateLabel(m_wndMessage, NULL))
        return -1;
    for (int i = 0; i < EDIT_COUNT; ++i)
    {
        if (!CreateLabel(m_awndCaptions[i], s_apszCaptions[i]) ||
            !GetEdit(i)->Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, CRect(0, 0, 0, 0),
                                this, IDC_FIRST_EDIT + i))
            return -1;
        UseFont(*GetEdit(i));
        GetEdit(i)->SetControlName();
    }
    m_editShort.SetMinMaxValues(-100, 100);
    m_editShort = static_cast<short>(42);
    m_editUShort = static_cast<WORD>(65535);
    m_editPort.SetMinMaxValues(1, LONG_MAX);
    m_editPort = 0L;
    m_editULong = 4000000000UL;
    m_editLevel.SetMinMaxValues(0.0, 100.0);
    m_editLevel = 75.5;
    m_editUndefined = DBL_MIN;
    m_editInfinite = DBL_MAX;
    m_wndMessage.SetWindowText(m_editPort.GetReadMessage());
    return 0;
}

void CNumericEditPage::LayoutControls(int cx, int)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    const int xEdit = MARGIN + CAPTION_WIDTH + GAP;
    for (int i = 0; i < EDIT_COUNT; ++i)
    {
        m_awndCaptions[i].MoveWindow(MARGIN, y + (EDIT_HEIGHT - LINE_HEIGHT) / 2, CAPTION_WIDTH, LINE_HEIGHT);
        GetEdit(i)->MoveWindow(xEdit, y, EDIT_WIDTH, EDIT_HEIGHT);
        y += EDIT_HEIGHT + GAP;
    }
    y += GAP;
    m_wndMessageCaption.MoveWindow(MARGIN, y, cx - 2 * MARGIN, LINE_HEIGHT);
    m_wndMessage.MoveWindow(MARGIN + GAP, y + LINE_HEIGHT + GAP / 2, cx - 2 * MARGIN - GAP, MESSAGE_LINES * LINE_HEIGHT);
}
