#include "gallery/TimeFieldPage.h"

#include "kelutil/KEL_Util.h"

namespace
{
// The inner window of KelControls' time edit: its identifier, and its style, whose bits past
// TFS_CENTER the fields ignore.
const UINT IDC_TIME_FIELD = 1001;
const DWORD TIME_FIELD_STYLE = WS_CHILD | WS_VISIBLE | 0x8401;

const LONG SAMPLE_SECONDS = 1 * 3600 + 23 * 60 + 45;         // 01:23:45
const LONG SAMPLE_MS = ((12 * 60 + 34) * 60 + 56) * 1000 + 789; // 12:34:56.789

const int INTRO_LINES = 3;
const int CAPTION_WIDTH = 240;
const int FIELD_WIDTH = 140;

CString FormatMs(LONG nMs, BOOL bWithMs)
{
    CString strTime;
    strTime.Format(_T("%02ld:%02ld:%02ld"), nMs / 3600000, nMs / 60000 % 60, nMs / 1000 % 60);
    if (bWithMs)
    {
        CString strMs;
        strMs.Format(_T(".%03ld"), nMs % 1000);
        strTime += strMs;
    }
    return strTime;
}
} // namespace

IMPLEMENT_DYNCREATE(CTimeFieldPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CTimeFieldPage, CGalleryPage)
ON_WM_CREATE()
// Both fields have the time edit's identifier, so one entry serves them.
ON_EN_CHANGE(IDC_TIME_FIELD, OnTimeChanged)
END_MESSAGE_MAP()

int CTimeFieldPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    if (!CreateLabel(m_wndIntro, _T("The time fields of KEL_Util. Click a field and type digits, or step it with ")
                                 _T("the arrow keys; Left and Right move between hours, minutes, seconds and ")
                                 _T("milliseconds. The line below reads the values back from the windows.")) ||
        !CreateLabel(m_wndTimeCaption, _T("Hours, minutes, seconds (\"TimeClass\"):")) ||
        !CreateLabel(m_wndMsTimeCaption, _T("With milliseconds (\"MsTimeClass\"):")) || !CreateLabel(m_wndValues, NULL))
        return -1;
    // Makes sure KEL_Util is loaded and its classes are registered, as the time edit does.
    KEL_Util_Running();
    const CRect rectNone(0, 0, 0, 0);
    // The fields draw no edge of their own: the client edge makes them look like the edits.
    if (!m_wndTime.CreateEx(WS_EX_CLIENTEDGE, _T(KEL_TIMECLASS), NULL, TIME_FIELD_STYLE, rectNone, this,
                            IDC_TIME_FIELD) ||
        !m_wndMsTime.CreateEx(WS_EX_CLIENTEDGE, _T(KEL_MSTIMECLASS), NULL, TIME_FIELD_STYLE, rectNone, this,
                              IDC_TIME_FIELD))
        return -1;
    UseFont(m_wndTime);
    UseFont(m_wndMsTime);
    m_wndTime.SendMessage(WM_USER, 0, SAMPLE_SECONDS);
    m_wndMsTime.SendMessage(WM_USER, 0, SAMPLE_MS);
    OnTimeChanged();
    return 0;
}

void CTimeFieldPage::LayoutControls(int cx, int cy)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    const int xField = MARGIN + CAPTION_WIDTH + GAP;
    m_wndTimeCaption.MoveWindow(MARGIN, y + (EDIT_HEIGHT - LINE_HEIGHT) / 2, CAPTION_WIDTH, LINE_HEIGHT);
    m_wndTime.MoveWindow(xField, y, FIELD_WIDTH, EDIT_HEIGHT);
    y += EDIT_HEIGHT + 2 * GAP;
    m_wndMsTimeCaption.MoveWindow(MARGIN, y + (EDIT_HEIGHT - LINE_HEIGHT) / 2, CAPTION_WIDTH, LINE_HEIGHT);
    m_wndMsTime.MoveWindow(xField, y, FIELD_WIDTH, EDIT_HEIGHT);
    y += EDIT_HEIGHT + 3 * GAP;
    m_wndValues.MoveWindow(MARGIN, y, cx - 2 * MARGIN, 2 * LINE_HEIGHT);
}

void CTimeFieldPage::OnTimeChanged()
{
    // WM_USER + 1 answers the value in the field's own unit: seconds, or milliseconds.
    LONG nSeconds = static_cast<LONG>(m_wndTime.SendMessage(WM_USER + 1));
    LONG nMs = static_cast<LONG>(m_wndMsTime.SendMessage(WM_USER + 1));
    CString strValues;
    strValues.Format(_T("Read back with WM_USER + 1:\r\n\"TimeClass\" %ld s (%s),   \"MsTimeClass\" %ld ms (%s)"),
                     nSeconds, static_cast<LPCTSTR>(FormatMs(nSeconds * 1000, FALSE)), nMs,
                     static_cast<LPCTSTR>(FormatMs(nMs, TRUE)));
    m_wndValues.SetWindowText(strValues);
}
