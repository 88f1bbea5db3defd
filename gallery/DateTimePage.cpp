#include "gallery/DateTimePage.h"

namespace
{
enum
{
    IDC_DATE = 100,
    IDC_TIME,
    IDC_MS_TIME,
    IDC_HOUR_TIME,
    IDC_MASK,
    IDC_TIMECODE,
    IDC_CHECK
};

const struct
{
    LPCTSTR lpszCaption;
    LPCTSTR lpszNote;
} s_aRows[] = {
    {_T("Date:"), _T("CDateEdit: month/day/year; only digits, / - and \\ can be typed")},
    {_T("Time:"), _T("CTimeEdit: hours, minutes, seconds, kept in whole seconds")},
    {_T("With ms:"), _T("CMsTimeEdit: and milliseconds")},
    {_T("Hours:"), _T("CHourTimeEdit: no digits once past the minutes")},
    {_T("Phone:"), _T("CGenericMaskEdit: (###) ###-####, the literals stay")},
    {_T("Timecode:"), _T("CGenericMaskHHMMSSFFEdit: frames at 29.97/s")},
};

const LONG SAMPLE_TIME_MS = ((1 * 60 + 23) * 60 + 45) * 1000 + 600;     // 01:23:45, the 0.6 s cut off
const LONG SAMPLE_MS_TIME_MS = ((12 * 60 + 34) * 60 + 56) * 1000 + 789; // 12:34:56.789
const LONG SAMPLE_HOUR_TIME_MS = 2 * 3600 * 1000;                       // 02:00:00
const LONG SAMPLE_TIMECODE_MS = ((1 * 60 + 2) * 60 + 3) * 1000 + 500;   // 01:02:03:14

const int INTRO_LINES = 2;
const int CAPTION_WIDTH = 80;
const int CONTROL_WIDTH = 150;
const int VALUE_LINES = 3;
const int BUTTON_WIDTH = 110;
} // namespace

IMPLEMENT_DYNCREATE(CDateTimePage, CGalleryPage)

BEGIN_MESSAGE_MAP(CDateTimePage, CGalleryPage)
ON_WM_CREATE()
ON_EN_CHANGE(IDC_DATE, OnTextChanged)
ON_EN_CHANGE(IDC_MASK, OnTextChanged)
ON_EN_CHANGE(IDC_TIMECODE, OnTextChanged)
ON_BN_CLICKED(IDC_CHECK, OnCheckValues)
END_MESSAGE_MAP()

int CDateTimePage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    if (!CreateLabel(m_wndIntro, _T("Typed edits for dates, times and fixed patterns. A refused keystroke beeps and ")
                                 _T("leaves the text as it was. The time edits host KEL_Util's entry windows: click a ")
                                 _T("field and type digits, or step it with the arrow keys.")))
        return -1;
    for (int i = 0; i < ROW_COUNT; ++i)
        if (!CreateLabel(m_awndCaptions[i], s_aRows[i].lpszCaption) || !CreateLabel(m_awndNotes[i], s_aRows[i].lpszNote))
            return -1;
    const DWORD dwEditStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL;
    const CRect rectNone(0, 0, 0, 0);
    // The entry windows take the size the time edits are created with; they draw no edge, so
    // the hosts carry the border the edits have.
    const CRect rectTime(0, 0, CONTROL_WIDTH, EDIT_HEIGHT);
    const DWORD dwTimeStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP;
    if (!m_wndDate.Create(dwEditStyle, rectNone, this, IDC_DATE) ||
        !m_wndTime.Create(NULL, NULL, dwTimeStyle, rectTime, this, IDC_TIME) ||
        !m_wndMsTime.Create(NULL, NULL, dwTimeStyle, rectTime, this, IDC_MS_TIME) ||
        !m_wndHourTime.Create(NULL, NULL, dwTimeStyle, rectTime, this, IDC_HOUR_TIME) ||
        !m_wndMask.Create(dwEditStyle, rectNone, this, IDC_MASK) ||
        !m_wndTimecode.Create(dwEditStyle, rectNone, this, IDC_TIMECODE) || !CreateLabel(m_wndValues, NULL) ||
        !m_wndCheck.Create(_T("Check values"), WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, rectNone, this,
                           IDC_CHECK))
        return -1;
    UseFont(m_wndDate);
    UseFont(m_wndMask);
    UseFont(m_wndTimecode);
    UseFont(m_wndCheck);
    m_wndTime.SetFont(m_pFont, FALSE);
    m_wndMsTime.SetFont(m_pFont, FALSE);
    m_wndHourTime.SetFont(m_pFont, FALSE);

    m_wndDate.SetControlName(_T("Date"));
    m_wndMask.SetControlName(_T("Phone"));
    m_wndTimecode.SetControlName(_T("Timecode"));
    CKelDate date(2003, 9, 5);
    m_wndDate = date;
    m_wndTime = SAMPLE_TIME_MS;
    m_wndMsTime = SAMPLE_MS_TIME_MS;
    m_wndHourTime = SAMPLE_HOUR_TIME_MS;
    m_wndMask.setMask(_T("(###) ###-####"));
    m_wndMask.setText(_T("2125550147"));
    m_wndTimecode = SAMPLE_TIMECODE_MS;
    ShowValues(FALSE);
    return 0;
}

void CDateTimePage::LayoutControls(int cx, int)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    const int xControl = MARGIN + CAPTION_WIDTH + GAP;
    const int xNote = xControl + CONTROL_WIDTH + 2 * GAP;
    CWnd* apControls[ROW_COUNT] = {&m_wndDate, &m_wndTime, &m_wndMsTime, &m_wndHourTime, &m_wndMask, &m_wndTimecode};
    for (int i = 0; i < ROW_COUNT; ++i)
    {
        const int yText = y + (EDIT_HEIGHT - LINE_HEIGHT) / 2;
        m_awndCaptions[i].MoveWindow(MARGIN, yText, CAPTION_WIDTH, LINE_HEIGHT);
        apControls[i]->MoveWindow(xControl, y, CONTROL_WIDTH, EDIT_HEIGHT);
        m_awndNotes[i].MoveWindow(xNote, yText, cx - xNote - MARGIN > 0 ? cx - xNote - MARGIN : 0, LINE_HEIGHT);
        y += EDIT_HEIGHT + GAP;
    }
    y += GAP;
    m_wndCheck.MoveWindow(MARGIN, y, BUTTON_WIDTH, EDIT_HEIGHT);
    y += EDIT_HEIGHT + GAP;
    m_wndValues.MoveWindow(MARGIN, y, cx - 2 * MARGIN, VALUE_LINES * LINE_HEIGHT);
}

void CDateTimePage::OnTextChanged()
{
    ShowValues(FALSE);
}

void CDateTimePage::OnCheckValues()
{
    ShowValues(TRUE);
}

void CDateTimePage::ShowValues(BOOL bShowErrors)
{
    CControl* apEdits[] = {&m_wndDate, &m_wndMask, &m_wndTimecode};
    for (CControl* pEdit : apEdits)
        pEdit->SetDisplayErrMsg(bShowErrors);

    CString strDate = _T("not a date");
    CKelDate date(0);
    if (m_wndDate.GetValue(date))
        strDate.Format(_T("%04d-%02d-%02d, day number %.0f"), date.GetYear(), date.GetMonth(), date.GetDay(),
                       date.JulianValue());
    CString strTimecode = _T("not a timecode");
    long lTimecode = 0;
    if (m_wndTimecode.ValidateAndGet(lTimecode, NULL))
        strTimecode.Format(_T("%ld ms"), lTimecode);
    CString strValues;
    strValues.Format(_T("Date: %s.   Mask text: \"%s\".   Timecode: %s.\r\n")
                     _T("Times in milliseconds: %ld, %ld and %ld (read when a text above changes)."),
                     static_cast<LPCTSTR>(strDate), static_cast<LPCTSTR>(m_wndMask.getText()),
                     static_cast<LPCTSTR>(strTimecode), static_cast<long>(m_wndTime), static_cast<long>(m_wndMsTime),
                     static_cast<long>(m_wndHourTime));
    m_wndValues.SetWindowText(strValues);

    for (CControl* pEdit : apEdits)
        pEdit->SetDisplayErrMsg(TRUE);
}
