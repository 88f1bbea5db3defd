#include "calendar/KelCalendar.h"

#include "frame/KelControlsFrame.h"

#include <afxmenu.h>

#include <algorithm>
#include <math.h>
#include <stdio.h>

namespace
{
const UINT kClassStyle = CS_GLOBALCLASS | CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
const char* const kWeekdayNames[7] = {"Su", "Mo", "Tu", "We", "Th", "Fr", "Sa"};
const COLORREF kNone = 0xFFFFFFFF;
const int kMenuFirstMonth = 1; // month menu commands are the month numbers
const UINT_PTR kTipTool = 1;

// The first and last days a calendar may show: the Gregorian correction of the day numbers lies
// before the first.
double FirstCalendarDay()
{
    return CKelDate::JulianValue(static_cast<short>(1601), static_cast<short>(1), static_cast<short>(1));
}

double LastCalendarDay()
{
    return CKelDate::JulianValue(static_cast<short>(9999), static_cast<short>(12), static_cast<short>(31));
}

// 0 = Sunday.
int DayOfWeek(double dDay)
{
    return static_cast<int>((static_cast<long long>(dDay) + 1) % 7);
}

// Month index counted from year 0, for comparing and moving months.
int MonthIndex(short nYear, short nMonth)
{
    return nYear * 12 + nMonth - 1;
}

int MonthIndex(double dDay)
{
    return MonthIndex(CKelDate::GetYear(dDay), CKelDate::GetMonth(dDay));
}

bool IsWholeValidDay(double dDay)
{
    return dDay == floor(dDay) && CKelDate(dDay).IsValid() != 0;
}

CString LongMonthName(short nMonth)
{
    const double dFirst = CKelDate::JulianValue(static_cast<short>(2000), nMonth, static_cast<short>(1));
    CString text = CKelDate::FmtMonthYYYY(dFirst);
    int nComma = text.Find(',');
    return nComma >= 0 ? text.Left(nComma) : text;
}

COLORREF DefaultColor(int nIndex)
{
    static const int kSysColors[CKelCalendar::COLOR_COUNT] = {COLOR_WINDOW,     COLOR_WINDOWTEXT, COLOR_ACTIVECAPTION,
                                                               COLOR_CAPTIONTEXT, COLOR_GRAYTEXT, COLOR_HIGHLIGHT,
                                                               COLOR_HIGHLIGHTTEXT, -1};
    return kSysColors[nIndex] < 0 ? RGB(255, 0, 0) : ::GetSysColor(kSysColors[nIndex]);
}

void DrawLine(CDC* pDC, int x1, int y1, int x2, int y2)
{
    pDC->MoveTo(x1, y1);
    pDC->LineTo(x2, y2);
}
} // namespace

bool CKelCalendar::CDayItem::IsEmpty() const
{
    return crText == kNone && crBack == kNone && dwMarkers == 0 && strText.IsEmpty() && dwData == 0xFFFFFFFF;
}

IMPLEMENT_DYNAMIC(CKelCalendar, CWnd)

BEGIN_MESSAGE_MAP(CKelCalendar, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_RBUTTONUP()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_TIMER()
ON_WM_CAPTURECHANGED()
ON_WM_KEYDOWN()
ON_WM_GETDLGCODE()
ON_WM_MOUSEACTIVATE()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_DESTROY()
ON_MESSAGE(WM_SETFONT, OnSetFont)
ON_MESSAGE(WM_GETFONT, OnGetFont)
END_MESSAGE_MAP()

CKelCalendar::CKelCalendar()
    : m_dwCalStyle(0), m_nFirstDayOfWeek(0), m_dSelStart(0), m_dSelEnd(0), m_dAnchor(0), m_dFocus(0),
      m_dMin(FirstCalendarDay()), m_dMax(LastCalendarDay()), m_nMaxSelCount(7), m_dToday(0), m_hFont(NULL),
      m_hBoldSource(NULL), m_nTextHeight(0), m_dTipDay(0), m_dPressDay(0), m_nPressedPart(HT_NOWHERE),
      m_bSelecting(false), m_bPopup(false), m_pNotifyWnd(NULL)
{
    std::fill(m_colors, m_colors + COLOR_COUNT, kNone);
    const double dToday = GetToday();
    m_nViewYear = CKelDate::GetYear(dToday);
    m_nViewMonth = CKelDate::GetMonth(dToday);
}

CKelCalendar::~CKelCalendar()
{
    DestroyWindow();
}

BOOL CKelCalendar::RegisterWndClass()
{
    WNDCLASS wc;
    memset(&wc, 0, sizeof(wc));
    wc.style = kClassStyle;
    wc.lpfnWndProc = ::DefWindowProcA;
    wc.hInstance = CKelControlsModule::GetInstanceHandle();
    wc.hCursor = ::LoadCursor(NULL, IDC_ARROW);
    wc.lpszClassName = GetClassName();
    return AfxRegisterClass(&wc);
}

BOOL CKelCalendar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, DWORD dwCalStyle)
{
    if (::IsWindow(m_hWnd) || !RegisterWndClass())
        return FALSE;
    m_dwCalStyle = dwCalStyle;
    m_bPopup = false;
    if (!CreateEx(0, GetClassName(), "", dwStyle, rect, pParent, nID))
        return FALSE;
    InitWindow();
    return TRUE;
}

BOOL CKelCalendar::CreatePopup(DWORD dwExStyle, DWORD dwStyle, CWnd* pOwner, DWORD dwCalStyle)
{
    if (::IsWindow(m_hWnd) || !RegisterWndClass())
        return FALSE;
    m_dwCalStyle = dwCalStyle;
    m_bPopup = true;
    if (!CreateEx(dwExStyle, GetClassName(), "", dwStyle | WS_POPUP, 0, 0, 0, 0, pOwner->GetSafeHwnd(), NULL))
        return FALSE;
    InitWindow();
    return TRUE;
}

void CKelCalendar::PreSubclassWindow()
{
    CWnd::PreSubclassWindow();
    if (::IsWindow(m_hWnd))
        InitWindow();
}

void CKelCalendar::InitWindow()
{
    MeasureFont();
    if (m_tip.m_hWnd == NULL && m_tip.Create(this, TTS_ALWAYSTIP | TTS_NOPREFIX))
    {
        // One tool over any client size, named by an id rather than by the window: the tooltip
        // then asks the calendar itself for the text, not its parent.
        const CRect rcTool(0, 0, 0x7FFF, 0x7FFF);
        m_tip.AddTool(this, LPSTR_TEXTCALLBACKA, rcTool, kTipTool);
        m_tip.SetMaxTipWidth(300);
    }
}

// ---- styles, selection, range ----

BOOL CKelCalendar::ModifyCalStyle(DWORD dwRemove, DWORD dwAdd)
{
    m_dwCalStyle = (m_dwCalStyle & ~dwRemove) | dwAdd;
    if (!(m_dwCalStyle & KCS_MULTISELECT))
        m_dSelEnd = m_dSelStart;
    if (::IsWindow(m_hWnd))
        Invalidate(FALSE);
    return TRUE;
}

int CKelCalendar::SetCurSel(double dDay)
{
    if (!IsWholeValidDay(dDay) || !IsSelectable(dDay))
        return 0;
    m_dSelStart = m_dSelEnd = m_dAnchor = m_dFocus = dDay;
    if (!ShowDay(dDay) && ::IsWindow(m_hWnd))
        Invalidate(FALSE);
    return 1;
}

int CKelCalendar::SetCurSel(const CKelDate& date)
{
    return date.IsValid() ? SetCurSel(date.JulianValue()) : 0;
}

int CKelCalendar::GetCurSel(CKelDate& date) const
{
    if (m_dSelStart == 0)
        return 0;
    date = m_dSelStart;
    return 1;
}

int CKelCalendar::SetSelRange(double dFirst, double dLast)
{
    if (!(m_dwCalStyle & KCS_MULTISELECT))
        return 0;
    if (dFirst > dLast)
        std::swap(dFirst, dLast);
    if (!IsWholeValidDay(dFirst) || !IsWholeValidDay(dLast) || !IsSelectable(dFirst) || !IsSelectable(dLast) ||
        dLast - dFirst + 1 > m_nMaxSelCount)
        return 0;
    m_dSelStart = m_dAnchor = dFirst;
    m_dSelEnd = m_dFocus = dLast;
    if (!ShowDay(dFirst) && ::IsWindow(m_hWnd))
        Invalidate(FALSE);
    return 1;
}

int CKelCalendar::GetSelRange(double& dFirst, double& dLast) const
{
    dFirst = m_dSelStart;
    dLast = m_dSelEnd;
    return m_dSelStart != 0;
}

void CKelCalendar::ClearSel()
{
    m_dSelStart = m_dSelEnd = m_dAnchor = m_dFocus = 0;
    if (::IsWindow(m_hWnd))
        Invalidate(FALSE);
}

int CKelCalendar::SetRange(double dMin, double dMax)
{
    if (!(dMin <= dMax))
        return 0;
    dMin = std::max(ceil(dMin), FirstCalendarDay());
    dMax = std::min(floor(dMax), LastCalendarDay());
    if (dMin > dMax)
        return 0;
    m_dMin = dMin;
    m_dMax = dMax;
    if (m_dSelStart != 0 && (m_dSelStart < dMin || m_dSelEnd > dMax))
        m_dSelStart = m_dSelEnd = m_dAnchor = m_dFocus = 0;
    if (!MoveView(m_nViewYear, m_nViewMonth) && ::IsWindow(m_hWnd))
        Invalidate(FALSE);
    return 1;
}

void CKelCalendar::GetRange(double& dMin, double& dMax) const
{
    dMin = m_dMin;
    dMax = m_dMax;
}

int CKelCalendar::SetMaxSelCount(int nMax)
{
    if (nMax < 1 || nMax > 366)
        return 0;
    m_nMaxSelCount = nMax;
    return 1;
}

int CKelCalendar::SetFirstDayOfWeek(int nDay)
{
    if (nDay < 0 || nDay > 6)
        return 0;
    m_nFirstDayOfWeek = nDay;
    if (::IsWindow(m_hWnd))
        Invalidate(FALSE);
    return 1;
}

int CKelCalendar::SetToday(double dDay)
{
    if (dDay != 0 && !IsWholeValidDay(dDay))
        return 0;
    m_dToday = dDay;
    if (::IsWindow(m_hWnd))
        Invalidate(FALSE);
    return 1;
}

double CKelCalendar::GetToday() const
{
    if (m_dToday != 0)
        return m_dToday;
    return CKelDate(1).JulianValue();
}

int CKelCalendar::SetViewMonth(short nYear, short nMonth)
{
    if (nMonth < 1 || nMonth > 12 || !IsMonthInRange(nYear, nMonth))
        return 0;
    MoveView(nYear, nMonth);
    return 1;
}

void CKelCalendar::GetViewMonth(short& nYear, short& nMonth) const
{
    nYear = m_nViewYear;
    nMonth = m_nViewMonth;
}

int CKelCalendar::SetColor(int nIndex, COLORREF cr)
{
    if (nIndex < 0 || nIndex >= COLOR_COUNT)
        return 0;
    m_colors[nIndex] = cr;
    if (::IsWindow(m_hWnd))
        Invalidate(FALSE);
    return 1;
}

COLORREF CKelCalendar::GetColor(int nIndex) const
{
    if (nIndex < 0 || nIndex >= COLOR_COUNT)
        return kNone;
    return m_colors[nIndex] != kNone ? m_colors[nIndex] : DefaultColor(nIndex);
}

// ---- day items ----

const CKelCalendar::CDayItem* CKelCalendar::FindItem(double dDay) const
{
    auto it = std::lower_bound(m_items.begin(), m_items.end(), dDay,
                               [](const CDayItem& item, double d) { return item.dDay < d; });
    return it != m_items.end() && it->dDay == dDay ? &*it : NULL;
}

CKelCalendar::CDayItem* CKelCalendar::WriteItem(double dDay)
{
    if (!IsWholeValidDay(dDay))
        return NULL;
    auto it = std::lower_bound(m_items.begin(), m_items.end(), dDay,
                               [](const CDayItem& item, double d) { return item.dDay < d; });
    if (it == m_items.end() || it->dDay != dDay)
        it = m_items.insert(it, CDayItem(dDay));
    return &*it;
}

void CKelCalendar::ItemChanged(double dDay)
{
    const CDayItem* pItem = FindItem(dDay);
    if (pItem != NULL && pItem->IsEmpty())
        m_items.erase(m_items.begin() + (pItem - m_items.data()));
    InvalidateDay(dDay);
}

void CKelCalendar::InvalidateDay(double dDay)
{
    if (!::IsWindow(m_hWnd))
        return;
    const double dCell = dDay - GetFirstShownDay();
    if (dCell >= 0 && dCell < 42)
    {
        CRect rect = GetCellRect(static_cast<int>(dCell));
        InvalidateRect(rect, FALSE);
    }
}

int CKelCalendar::SetDayItem(const CDayItem& item)
{
    CDayItem* pItem = WriteItem(item.dDay);
    if (pItem == NULL)
        return 0;
    *pItem = item;
    ItemChanged(item.dDay);
    return 1;
}

int CKelCalendar::GetDayItem(double dDay, CDayItem& item) const
{
    const CDayItem* pItem = FindItem(dDay);
    if (pItem == NULL)
        return 0;
    item = *pItem;
    return 1;
}

int CKelCalendar::SetDayColors(double dDay, COLORREF crText, COLORREF crBack)
{
    CDayItem* pItem = WriteItem(dDay);
    if (pItem == NULL)
        return 0;
    pItem->crText = crText;
    pItem->crBack = crBack;
    ItemChanged(dDay);
    return 1;
}

int CKelCalendar::SetDayMarkers(double dDay, DWORD dwMarkers)
{
    CDayItem* pItem = WriteItem(dDay);
    if (pItem == NULL)
        return 0;
    pItem->dwMarkers = dwMarkers;
    ItemChanged(dDay);
    return 1;
}

int CKelCalendar::SetDayText(double dDay, const char* pszText)
{
    CDayItem* pItem = WriteItem(dDay);
    if (pItem == NULL)
        return 0;
    pItem->strText = pszText != NULL ? pszText : "";
    ItemChanged(dDay);
    return 1;
}

int CKelCalendar::SetDayData(double dDay, DWORD dwData)
{
    CDayItem* pItem = WriteItem(dDay);
    if (pItem == NULL)
        return 0;
    pItem->dwData = dwData;
    ItemChanged(dDay);
    return 1;
}

DWORD CKelCalendar::GetDayData(double dDay) const
{
    const CDayItem* pItem = FindItem(dDay);
    return pItem != NULL ? pItem->dwData : 0xFFFFFFFF;
}

int CKelCalendar::DeleteDayItem(double dDay)
{
    const CDayItem* pItem = FindItem(dDay);
    if (pItem == NULL)
        return 0;
    m_items.erase(m_items.begin() + (pItem - m_items.data()));
    InvalidateDay(dDay);
    return 1;
}

void CKelCalendar::DeleteAllDayItems()
{
    m_items.clear();
    if (::IsWindow(m_hWnd))
        Invalidate(FALSE);
}

// ---- layout ----

void CKelCalendar::MeasureFont()
{
    CDC dc;
    dc.Attach(::GetDC(NULL));
    CFont* pOld = dc.SelectObject(GetNormalFont());
    TEXTMETRIC tm;
    dc.GetTextMetrics(&tm);
    m_nTextHeight = tm.tmHeight;
    dc.SelectObject(pOld);
    ::ReleaseDC(NULL, dc.Detach());
}

CFont* CKelCalendar::GetNormalFont() const
{
    return CFont::FromHandle(m_hFont != NULL ? m_hFont : static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT)));
}

CFont* CKelCalendar::GetBoldFont() const
{
    HFONT hSource = static_cast<HFONT>(GetNormalFont()->GetSafeHandle());
    if (m_fontBold.GetSafeHandle() == NULL || m_hBoldSource != hSource)
    {
        LOGFONT lf;
        ::GetObject(hSource, sizeof(lf), &lf);
        lf.lfWeight = FW_BOLD;
        m_fontBold.DeleteObject();
        m_fontBold.CreateFontIndirect(&lf);
        m_hBoldSource = hSource;
    }
    return &m_fontBold;
}

void CKelCalendar::GetLayout(CLayout& layout) const
{
    const int h = m_nTextHeight > 0 ? m_nTextHeight : 13;
    layout.nTextHeight = h;
    layout.nTitleHeight = h + 8;
    layout.nWeekdayHeight = h + 4;
    layout.nFooterHeight = (m_dwCalStyle & KCS_NOTODAY) ? 0 : h + 6;
    if (::IsWindow(m_hWnd))
        GetClientRect(layout.rcClient);
    else
        layout.rcClient.SetRectEmpty();
    layout.rcDays.SetRect(0, layout.nTitleHeight + layout.nWeekdayHeight, layout.rcClient.right,
                          layout.rcClient.bottom - layout.nFooterHeight);
}

CRect CKelCalendar::CellRect(const CLayout& layout, int nCell)
{
    const int nCol = nCell % 7, nRow = nCell / 7;
    const int w = layout.rcDays.Width(), hDays = layout.rcDays.Height();
    return CRect(nCol * w / 7, layout.rcDays.top + nRow * hDays / 6, (nCol + 1) * w / 7,
                 layout.rcDays.top + (nRow + 1) * hDays / 6);
}

CRect CKelCalendar::GetCellRect(int nCell) const
{
    if (nCell < 0 || nCell >= 42)
        return CRect(0, 0, 0, 0);
    CLayout layout;
    GetLayout(layout);
    return CellRect(layout, nCell);
}

double CKelCalendar::GetFirstShownDay() const
{
    const double f = FirstOfMonth(m_nViewYear, m_nViewMonth);
    return f - (DayOfWeek(f) - m_nFirstDayOfWeek + 7) % 7;
}

CRect CKelCalendar::GetTitleTextRect(const CLayout& layout)
{
    CClientDC dc(this);
    CFont* pOld = dc.SelectObject(GetBoldFont());
    const CSize size = dc.GetTextExtent(GetTitleText());
    dc.SelectObject(pOld);
    const int cx = layout.rcClient.Width() / 2;
    return CRect(cx - size.cx / 2, 0, cx + (size.cx + 1) / 2, layout.nTitleHeight);
}

CString CKelCalendar::GetTitleText() const
{
    CString text;
    text.Format("%s %d", static_cast<LPCSTR>(LongMonthName(m_nViewMonth)), m_nViewYear);
    return text;
}

void CKelCalendar::GetMinReqRect(CRect& rect) const
{
    CLayout layout;
    GetLayout(layout);
    CDC dc;
    dc.Attach(::GetDC(NULL));
    CFont* pOld = dc.SelectObject(GetNormalFont());
    const int nCell = std::max(dc.GetTextExtent("00").cx, dc.GetTextExtent("We").cx) + 8;
    dc.SelectObject(GetBoldFont());
    int nTitle = 0;
    for (short nMonth = 1; nMonth <= 12; ++nMonth)
        nTitle = std::max(nTitle, static_cast<int>(dc.GetTextExtent(LongMonthName(nMonth) + " 0000").cx));
    dc.SelectObject(pOld);
    ::ReleaseDC(NULL, dc.Detach());
    rect.SetRect(0, 0, std::max(7 * nCell, nTitle + 2 * layout.nTitleHeight),
                 layout.nTitleHeight + layout.nWeekdayHeight + 6 * (layout.nTextHeight + 4) + layout.nFooterHeight);
}

int CKelCalendar::HitTest(CPoint point, double& dDay) const
{
    CLayout layout;
    GetLayout(layout);
    if (!layout.rcClient.PtInRect(point))
        return HT_NOWHERE;
    if (point.y < layout.nTitleHeight)
    {
        if (point.x < layout.nTitleHeight)
            return HT_PREVBUTTON;
        if (point.x >= layout.rcClient.right - layout.nTitleHeight)
            return HT_NEXTBUTTON;
        return HT_TITLE;
    }
    if (point.y < layout.rcDays.top)
        return HT_WEEKDAYS;
    if (point.y >= layout.rcDays.bottom)
        return layout.nFooterHeight > 0 ? HT_TODAYFOOTER : HT_NOWHERE;
    const int w = layout.rcDays.Width(), hDays = layout.rcDays.Height();
    if (w <= 0 || hDays <= 0)
        return HT_NOWHERE;
    // The largest column whose left edge (i * w / 7) is at or before x; rows likewise.
    const int nCol = (7 * (point.x + 1) - 1) / w;
    const int nRow = (6 * (point.y - layout.rcDays.top + 1) - 1) / hDays;
    dDay = GetFirstShownDay() + nRow * 7 + nCol;
    return MonthIndex(dDay) == MonthIndex(m_nViewYear, m_nViewMonth) ? HT_DAY : HT_TRAILINGDAY;
}

// ---- drawing ----

void CKelCalendar::OnPaint()
{
    CPaintDC dc(this);
    CRect rcClient;
    GetClientRect(rcClient);
    if (rcClient.IsRectEmpty())
        return;
    CDC memDC;
    memDC.CreateCompatibleDC(&dc);
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(&dc, rcClient.Width(), rcClient.Height());
    CBitmap* pOldBitmap = memDC.SelectObject(&bitmap);
    Draw(&memDC);
    dc.BitBlt(0, 0, rcClient.Width(), rcClient.Height(), &memDC, 0, 0, SRCCOPY);
    memDC.SelectObject(pOldBitmap);
}

BOOL CKelCalendar::OnEraseBkgnd(CDC*)
{
    return TRUE; // the paint covers every pixel
}

void CKelCalendar::Draw(CDC* pDC)
{
    CLayout layout;
    GetLayout(layout);
    const int nSaved = pDC->SaveDC();
    pDC->SetBkMode(TRANSPARENT);
    pDC->FillSolidRect(layout.rcClient, GetColor(KCC_BACK));
    DrawTitle(pDC, layout);
    DrawWeekdays(pDC, layout);
    const double dFirst = GetFirstShownDay(), dToday = GetToday();
    for (int nCell = 0; nCell < 42; ++nCell)
        DrawDay(pDC, layout, nCell, dFirst + nCell, dToday);
    if (layout.nFooterHeight > 0)
        DrawFooter(pDC, layout, dToday);
    pDC->RestoreDC(nSaved);
}

void CKelCalendar::DrawTitle(CDC* pDC, const CLayout& layout)
{
    const CRect rcTitle(0, 0, layout.rcClient.right, layout.nTitleHeight);
    pDC->FillSolidRect(rcTitle, GetColor(KCC_TITLEBACK));
    pDC->SelectObject(GetBoldFont());
    pDC->SetTextColor(GetColor(KCC_TITLETEXT));
    CRect rcText = rcTitle;
    pDC->DrawText(GetTitleText(), rcText, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);

    const int nMonth = MonthIndex(m_nViewYear, m_nViewMonth);
    const int nHalf = std::max(2, layout.nTitleHeight / 6);
    for (int nPart = HT_PREVBUTTON; nPart <= HT_NEXTBUTTON; ++nPart)
    {
        const bool bPrev = nPart == HT_PREVBUTTON;
        const bool bEnabled = bPrev ? nMonth > MonthIndex(m_dMin) : nMonth < MonthIndex(m_dMax);
        const int nShift = m_nPressedPart == nPart ? 1 : 0;
        const int cx = (bPrev ? layout.nTitleHeight / 2 : layout.rcClient.right - layout.nTitleHeight / 2) + nShift;
        const int cy = layout.nTitleHeight / 2 + nShift;
        const int nTip = bPrev ? -nHalf : nHalf;
        const POINT points[3] = {{cx + nTip, cy}, {cx - nTip, cy - nHalf}, {cx - nTip, cy + nHalf}};
        const COLORREF cr = GetColor(bEnabled ? KCC_TITLETEXT : KCC_TRAILINGTEXT);
        CBrush brush(cr);
        CPen pen(PS_SOLID, 1, cr);
        pDC->SelectObject(&brush);
        pDC->SelectObject(&pen);
        pDC->Polygon(points, 3);
        pDC->SelectStockObject(NULL_BRUSH);
        pDC->SelectStockObject(BLACK_PEN);
    }
}

void CKelCalendar::DrawWeekdays(CDC* pDC, const CLayout& layout)
{
    pDC->SelectObject(GetNormalFont());
    pDC->SetTextColor(GetColor(KCC_TEXT));
    const int nTop = layout.nTitleHeight, nBottom = layout.rcDays.top;
    for (int nCol = 0; nCol < 7; ++nCol)
    {
        CRect rect = CellRect(layout, nCol);
        rect.top = nTop;
        rect.bottom = nBottom - 1;
        pDC->DrawText(kWeekdayNames[(m_nFirstDayOfWeek + nCol) % 7], -1, rect,
                      DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }
    pDC->FillSolidRect(0, nBottom - 1, layout.rcClient.right, 1, GetColor(KCC_TEXT));
}

bool CKelCalendar::IsTextShownInCell(const CLayout& layout) const
{
    return layout.rcDays.Height() / 6 >= 2 * layout.nTextHeight + 4;
}

void CKelCalendar::DrawDay(CDC* pDC, const CLayout& layout, int nCell, double dDay, double dToday)
{
    const CRect rcCell = CellRect(layout, nCell);
    const bool bTrailing = MonthIndex(dDay) != MonthIndex(m_nViewYear, m_nViewMonth);
    if (bTrailing && (m_dwCalStyle & KCS_NOTRAILINGDAYS))
        return;
    COLORREF crBack = GetColor(KCC_BACK);
    COLORREF crText = GetColor(bTrailing ? KCC_TRAILINGTEXT : KCC_TEXT);
    const CDayItem* pItem = FindItem(dDay);
    if (!IsSelectable(dDay))
        crText = GetColor(KCC_TRAILINGTEXT);
    else if (IsSelected(dDay))
    {
        crBack = GetColor(KCC_SELBACK);
        crText = GetColor(KCC_SELTEXT);
    }
    else if (pItem != NULL)
    {
        if (pItem->crBack != kNone)
            crBack = pItem->crBack;
        if (pItem->crText != kNone)
            crText = pItem->crText;
    }
    if (crBack != GetColor(KCC_BACK))
        pDC->FillSolidRect(rcCell, crBack);

    const DWORD dwMarkers = pItem != NULL ? pItem->dwMarkers : 0;
    pDC->SelectObject((dwMarkers & KCM_BOLD) ? GetBoldFont() : GetNormalFont());
    pDC->SetTextColor(crText);
    char szNumber[4];
    const int nLength = sprintf(szNumber, "%d", CKelDate::GetDay(dDay));
    const CSize size = pDC->GetTextExtent(szNumber, nLength);
    const int h = layout.nTextHeight;
    CPoint ptNumber;
    if (IsTextShownInCell(layout))
    {
        ptNumber = CPoint(rcCell.left + 2, rcCell.top + 2);
        if (pItem != NULL && !pItem->strText.IsEmpty())
        {
            CRect rcText(rcCell.left + 2, ptNumber.y + h, rcCell.right - 2, rcCell.bottom - 2);
            pDC->SelectObject(GetNormalFont());
            pDC->DrawText(pItem->strText, rcText, DT_WORDBREAK | DT_END_ELLIPSIS | DT_NOPREFIX);
            pDC->SelectObject((dwMarkers & KCM_BOLD) ? GetBoldFont() : GetNormalFont());
        }
    }
    else
        ptNumber = CPoint(rcCell.left + (rcCell.Width() - size.cx) / 2, rcCell.top + (rcCell.Height() - h) / 2);
    pDC->TextOut(ptNumber.x, ptNumber.y, szNumber, nLength);

    if (dwMarkers & (KCM_DOT | KCM_FRAME | KCM_UNDERLINE | KCM_CROSS))
    {
        CPen pen(PS_SOLID, 1, crText);
        CBrush brush(crText);
        CPen* pOldPen = pDC->SelectObject(&pen);
        CBrush* pOldBrush = pDC->SelectObject(&brush);
        if (dwMarkers & KCM_UNDERLINE)
            pDC->FillSolidRect(ptNumber.x, ptNumber.y + h, size.cx, 1, crText);
        if (dwMarkers & KCM_DOT)
        {
            const int d = std::max(4, h / 3);
            pDC->Ellipse(rcCell.right - 2 - d, rcCell.bottom - 2 - d, rcCell.right - 2, rcCell.bottom - 2);
        }
        if (dwMarkers & KCM_FRAME)
            pDC->FrameRect(rcCell, &brush);
        if (dwMarkers & KCM_CROSS)
        {
            DrawLine(pDC, rcCell.left, rcCell.top, rcCell.right, rcCell.bottom);
            DrawLine(pDC, rcCell.right - 1, rcCell.top, rcCell.left - 1, rcCell.bottom);
        }
        pDC->SelectObject(pOldPen);
        pDC->SelectObject(pOldBrush);
    }
    if (dDay == dToday && !(m_dwCalStyle & KCS_NOTODAYFRAME))
    {
        CBrush brush(GetColor(KCC_TODAY));
        CRect rcToday = rcCell;
        rcToday.DeflateRect(1, 1);
        pDC->FrameRect(rcToday, &brush);
    }
    if (dDay == m_dFocus && ::IsWindow(m_hWnd) && ::GetFocus() == m_hWnd)
    {
        CRect rcFocus = rcCell;
        rcFocus.DeflateRect(2, 2);
        pDC->SetTextColor(crText);
        pDC->SetBkColor(crBack);
        pDC->DrawFocusRect(rcFocus);
    }
}

void CKelCalendar::DrawFooter(CDC* pDC, const CLayout& layout, double dToday)
{
    pDC->SelectObject(GetNormalFont());
    pDC->SetTextColor(GetColor(KCC_TEXT));
    CRect rect(4, layout.rcDays.bottom, layout.rcClient.right, layout.rcClient.bottom);
    pDC->DrawText("Today: " + CKelDate::FmtMMsDDsYYYY(dToday, '/'), rect,
                  DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

// ---- the view and the selection ----

bool CKelCalendar::IsSelectable(double dDay) const
{
    return dDay >= m_dMin && dDay <= m_dMax;
}

bool CKelCalendar::IsSelected(double dDay) const
{
    return m_dSelStart != 0 && dDay >= m_dSelStart && dDay <= m_dSelEnd;
}

double CKelCalendar::ClampDay(double dDay) const
{
    return std::min(std::max(dDay, m_dMin), m_dMax);
}

double CKelCalendar::FirstOfMonth(short nYear, short nMonth) const
{
    return CKelDate::JulianValue(nYear, nMonth, static_cast<short>(1));
}

bool CKelCalendar::IsMonthInRange(short nYear, short nMonth) const
{
    const int nIndex = MonthIndex(nYear, nMonth);
    return nIndex >= MonthIndex(m_dMin) && nIndex <= MonthIndex(m_dMax);
}

bool CKelCalendar::MoveView(short nYear, short nMonth, bool bNotify)
{
    const int nIndex = std::min(std::max(MonthIndex(nYear, nMonth), MonthIndex(m_dMin)), MonthIndex(m_dMax));
    const short nNewYear = static_cast<short>(nIndex / 12), nNewMonth = static_cast<short>(nIndex % 12 + 1);
    if (nNewYear == m_nViewYear && nNewMonth == m_nViewMonth)
        return false;
    m_nViewYear = nNewYear;
    m_nViewMonth = nNewMonth;
    if (::IsWindow(m_hWnd))
    {
        Invalidate(FALSE);
        if (bNotify)
            Notify(CALN_VIEWCHANGE, 0);
    }
    return true;
}

bool CKelCalendar::MoveViewBy(int nMonths)
{
    const int nIndex = MonthIndex(m_nViewYear, m_nViewMonth) + nMonths;
    if (nIndex < MonthIndex(m_dMin) || nIndex > MonthIndex(m_dMax))
        return false;
    return MoveView(static_cast<short>(nIndex / 12), static_cast<short>(nIndex % 12 + 1));
}

bool CKelCalendar::ShowDay(double dDay)
{
    return MoveView(CKelDate::GetYear(dDay), CKelDate::GetMonth(dDay));
}

bool CKelCalendar::SelectTo(double dDay, bool bExtend)
{
    const double dOldStart = m_dSelStart, dOldEnd = m_dSelEnd;
    if (bExtend && (m_dwCalStyle & KCS_MULTISELECT) && m_dAnchor != 0)
    {
        // Cut at the maximum: the far end moves toward the anchor.
        const double dSpan = m_nMaxSelCount - 1;
        m_dFocus = dDay >= m_dAnchor ? std::min(dDay, m_dAnchor + dSpan) : std::max(dDay, m_dAnchor - dSpan);
        m_dSelStart = std::min(m_dAnchor, m_dFocus);
        m_dSelEnd = std::max(m_dAnchor, m_dFocus);
    }
    else
        m_dSelStart = m_dSelEnd = m_dAnchor = m_dFocus = dDay;
    Invalidate(FALSE);
    return m_dSelStart != dOldStart || m_dSelEnd != dOldEnd;
}

void CKelCalendar::Notify(UINT nCode, double dDay, CPoint ptScreen)
{
    CWnd* pTarget = m_pNotifyWnd != NULL ? m_pNotifyWnd : GetParent();
    if (pTarget == NULL || !::IsWindow(pTarget->m_hWnd))
        return;
    NMKELCALENDAR nm;
    memset(&nm, 0, sizeof(nm));
    nm.hdr.hwndFrom = m_hWnd;
    nm.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
    nm.hdr.code = nCode;
    nm.dDay = dDay;
    nm.dSelStart = m_dSelStart;
    nm.dSelEnd = m_dSelEnd;
    nm.nViewYear = m_nViewYear;
    nm.nViewMonth = m_nViewMonth;
    nm.ptScreen = ptScreen;
    pTarget->SendMessage(WM_NOTIFY, nm.hdr.idFrom, reinterpret_cast<LPARAM>(&nm));
}

// ---- mouse ----

LRESULT CKelCalendar::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message >= WM_MOUSEFIRST && message <= WM_MBUTTONUP && m_tip.m_hWnd != NULL)
    {
        MSG msg = {m_hWnd, message, wParam, lParam, static_cast<DWORD>(::GetMessageTime()), {0, 0}};
        ::GetCursorPos(&msg.pt);
        m_tip.RelayEvent(&msg);
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

int CKelCalendar::OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message)
{
    if (m_bPopup)
        return MA_NOACTIVATE;
    return CWnd::OnMouseActivate(pDesktopWnd, nHitTest, message);
}

void CKelCalendar::OnLButtonDown(UINT nFlags, CPoint point)
{
    if (!m_bPopup && ::GetFocus() != m_hWnd)
        SetFocus();
    double dDay = 0;
    CPoint ptScreen = point;
    ClientToScreen(&ptScreen);
    const int nPart = HitTest(point, dDay);
    switch (nPart)
    {
    case HT_PREVBUTTON:
    case HT_NEXTBUTTON:
        PressButton(nPart);
        break;
    case HT_TITLE:
    {
        CLayout layout;
        GetLayout(layout);
        if (GetTitleTextRect(layout).PtInRect(point))
            ShowMonthMenu();
        break;
    }
    case HT_TRAILINGDAY:
        if ((m_dwCalStyle & KCS_NOTRAILINGDAYS) || !IsSelectable(dDay))
            break;
        ShowDay(dDay);
        // then as a day of the shown month
        [[fallthrough]];
    case HT_DAY:
        if (!IsSelectable(dDay))
            break;
        m_bSelecting = true;
        m_dPressDay = dDay;
        SetCapture();
        if (SelectTo(dDay, (nFlags & MK_SHIFT) != 0))
            Notify(CALN_SELCHANGE, dDay, ptScreen);
        break;
    case HT_TODAYFOOTER:
    {
        const double dToday = GetToday();
        if (!IsSelectable(dToday))
            break;
        SelectTo(dToday, false);
        ShowDay(dToday);
        Notify(CALN_SELCHANGE, dToday, ptScreen);
        Notify(CALN_SELECT, dToday, ptScreen);
        break;
    }
    default:
        break;
    }
}

void CKelCalendar::PressButton(int nPart)
{
    m_nPressedPart = nPart;
    SetCapture();
    MoveViewBy(nPart == HT_PREVBUTTON ? -1 : 1);
    if (::IsWindow(m_hWnd) && m_nPressedPart == nPart)
    {
        SetTimer(REPEAT_TIMER, REPEAT_FIRST_MS);
        Invalidate(FALSE);
    }
}

void CKelCalendar::StopRepeat()
{
    if (m_nPressedPart == HT_NOWHERE)
        return;
    m_nPressedPart = HT_NOWHERE;
    KillTimer(REPEAT_TIMER);
    Invalidate(FALSE);
}

void CKelCalendar::OnTimer(UINT_PTR nIDEvent)
{
    if (nIDEvent != REPEAT_TIMER)
    {
        CWnd::OnTimer(nIDEvent);
        return;
    }
    if (m_nPressedPart == HT_NOWHERE)
    {
        KillTimer(REPEAT_TIMER);
        return;
    }
    const int nPart = m_nPressedPart;
    MoveViewBy(nPart == HT_PREVBUTTON ? -1 : 1);
    if (::IsWindow(m_hWnd) && m_nPressedPart == nPart)
        SetTimer(REPEAT_TIMER, REPEAT_NEXT_MS);
}

void CKelCalendar::OnMouseMove(UINT nFlags, CPoint point)
{
    double dDay = 0;
    const int nPart = HitTest(point, dDay);
    if (m_nPressedPart != HT_NOWHERE && nPart != m_nPressedPart)
        StopRepeat();
    if (m_bSelecting && (nFlags & MK_LBUTTON) && (m_dwCalStyle & KCS_MULTISELECT) && nPart == HT_DAY &&
        IsSelectable(dDay) && SelectTo(dDay, true))
    {
        m_dPressDay = dDay;
        CPoint ptScreen = point;
        ClientToScreen(&ptScreen);
        Notify(CALN_SELCHANGE, dDay, ptScreen);
    }
    UpdateTip(nPart == HT_DAY || nPart == HT_TRAILINGDAY ? dDay : 0);
}

void CKelCalendar::OnLButtonUp(UINT, CPoint point)
{
    const bool bSelecting = m_bSelecting;
    m_bSelecting = false;
    StopRepeat();
    if (GetCapture() == this)
        ::ReleaseCapture();
    double dDay = 0;
    // A press on an adjacent month's day moved the view under the mouse: the choice is the day
    // pressed or dragged to, not the one now under the mouse.
    if (bSelecting && HitTest(point, dDay) == HT_DAY && IsSelectable(dDay))
    {
        CPoint ptScreen = point;
        ClientToScreen(&ptScreen);
        Notify(CALN_SELECT, m_dPressDay, ptScreen);
    }
}

void CKelCalendar::OnCaptureChanged(CWnd* pWnd)
{
    if (pWnd != this)
    {
        m_bSelecting = false;
        StopRepeat();
    }
    CWnd::OnCaptureChanged(pWnd);
}

void CKelCalendar::OnLButtonDblClk(UINT nFlags, CPoint point)
{
    OnLButtonDown(nFlags, point);
    double dDay = 0;
    if (::IsWindow(m_hWnd) && HitTest(point, dDay) == HT_DAY && IsSelectable(dDay))
    {
        CPoint ptScreen = point;
        ClientToScreen(&ptScreen);
        Notify(CALN_DAYDBLCLK, dDay, ptScreen);
    }
}

void CKelCalendar::OnRButtonUp(UINT, CPoint point)
{
    double dDay = 0;
    const int nPart = HitTest(point, dDay);
    if ((nPart != HT_DAY && nPart != HT_TRAILINGDAY) || !IsSelectable(dDay) ||
        (nPart == HT_TRAILINGDAY && (m_dwCalStyle & KCS_NOTRAILINGDAYS)))
        return;
    CPoint ptScreen = point;
    ClientToScreen(&ptScreen);
    if (!IsSelected(dDay))
    {
        ShowDay(dDay);
        if (SelectTo(dDay, false))
            Notify(CALN_SELCHANGE, dDay, ptScreen);
    }
    if (::IsWindow(m_hWnd))
        Notify(CALN_DAYRCLICK, dDay, ptScreen);
}

BOOL CKelCalendar::OnMouseWheel(UINT, short zDelta, CPoint)
{
    const int nNotches = zDelta / WHEEL_DELTA;
    if (nNotches != 0)
        MoveViewBy(-nNotches);
    return TRUE;
}

void CKelCalendar::ShowMonthMenu()
{
    CMenu menu;
    if (!menu.CreatePopupMenu())
        return;
    for (short nMonth = 1; nMonth <= 12; ++nMonth)
        menu.AppendMenu(MF_STRING | (nMonth == m_nViewMonth ? MF_CHECKED : 0), kMenuFirstMonth - 1 + nMonth,
                        LongMonthName(nMonth));
    CLayout layout;
    GetLayout(layout);
    CRect rcText = GetTitleTextRect(layout);
    ClientToScreen(rcText);
    const int nCommand = menu.TrackPopupMenu(TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_NONOTIFY,
                                             rcText.left, rcText.bottom, this);
    if (nCommand >= kMenuFirstMonth && nCommand < kMenuFirstMonth + 12 && ::IsWindow(m_hWnd))
        MoveView(m_nViewYear, static_cast<short>(nCommand - kMenuFirstMonth + 1));
}

// ---- tooltip ----

void CKelCalendar::UpdateTip(double dDay)
{
    if (dDay == m_dTipDay || m_tip.m_hWnd == NULL)
        return;
    m_dTipDay = dDay;
    m_tip.SendMessage(TTM_UPDATE);
}

CString CKelCalendar::GetTipText(double dDay)
{
    const CDayItem* pItem = FindItem(dDay);
    if (pItem == NULL || pItem->strText.IsEmpty())
        return CString();
    CLayout layout;
    GetLayout(layout);
    if (!IsTextShownInCell(layout))
        return pItem->strText;
    // Shown in the cell: the tip only when the text is cut there.
    const double dCell = dDay - GetFirstShownDay();
    if (dCell < 0 || dCell >= 42)
        return CString();
    const CRect rcCell = CellRect(layout, static_cast<int>(dCell));
    CRect rcText(0, 0, rcCell.Width() - 4, 0);
    const int nRoom = rcCell.Height() - 4 - layout.nTextHeight;
    CClientDC dc(this);
    CFont* pOld = dc.SelectObject(GetNormalFont());
    dc.DrawText(pItem->strText, rcText, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    dc.SelectObject(pOld);
    return rcText.Height() > nRoom || rcText.Width() > rcCell.Width() - 4 ? pItem->strText : CString();
}

BOOL CKelCalendar::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    NMHDR* pHdr = reinterpret_cast<NMHDR*>(lParam);
    if (pHdr != NULL && m_tip.m_hWnd != NULL && pHdr->hwndFrom == m_tip.m_hWnd && pHdr->code == TTN_GETDISPINFOA)
    {
        NMTTDISPINFOA* pInfo = reinterpret_cast<NMTTDISPINFOA*>(lParam);
        m_strTip = GetTipText(m_dTipDay);
        pInfo->hinst = NULL;
        pInfo->lpszText = const_cast<LPSTR>(static_cast<LPCSTR>(m_strTip));
        *pResult = 0;
        return TRUE;
    }
    return CWnd::OnNotify(wParam, lParam, pResult);
}

// ---- keys and focus ----

UINT CKelCalendar::OnGetDlgCode()
{
    UINT nCode = DLGC_WANTARROWS | DLGC_WANTCHARS;
    const MSG* pMsg = GetCurrentMessage();
    const MSG* pKey = pMsg != NULL ? reinterpret_cast<const MSG*>(pMsg->lParam) : NULL;
    if (pKey != NULL && pKey->message == WM_KEYDOWN && pKey->wParam == VK_RETURN)
        nCode |= DLGC_WANTMESSAGE;
    return nCode;
}

void CKelCalendar::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    const double dFrom = m_dFocus != 0 ? m_dFocus : m_dSelStart != 0 ? m_dSelStart : GetToday();
    const bool bCtrl = ::GetKeyState(VK_CONTROL) < 0;
    double dTo;
    switch (nChar)
    {
    case VK_LEFT:
        dTo = dFrom - 1;
        break;
    case VK_RIGHT:
        dTo = dFrom + 1;
        break;
    case VK_UP:
        dTo = dFrom - 7;
        break;
    case VK_DOWN:
        dTo = dFrom + 7;
        break;
    case VK_PRIOR:
    case VK_NEXT:
        dTo = CKelDate::Increment(dFrom, bCtrl ? 'Y' : 'M', nChar == VK_PRIOR ? -1 : 1);
        break;
    case VK_HOME:
        dTo = dFrom - CKelDate::GetDay(dFrom) + 1;
        break;
    case VK_END:
        dTo = dFrom - CKelDate::GetDay(dFrom) + CKelDate::DaysInMonth(dFrom);
        break;
    case VK_RETURN:
    case VK_SPACE:
        if (m_dSelStart != 0)
            Notify(CALN_SELECT, m_dFocus != 0 ? m_dFocus : m_dSelStart);
        return;
    default:
        CWnd::OnKeyDown(nChar, nRepCnt, nFlags);
        return;
    }
    dTo = ClampDay(dTo);
    const bool bChanged = SelectTo(dTo, ::GetKeyState(VK_SHIFT) < 0);
    ShowDay(m_dFocus);
    if (bChanged && ::IsWindow(m_hWnd))
        Notify(CALN_SELCHANGE, m_dFocus);
}

void CKelCalendar::OnSetFocus(CWnd* pOldWnd)
{
    CWnd::OnSetFocus(pOldWnd);
    InvalidateDay(m_dFocus);
}

void CKelCalendar::OnKillFocus(CWnd* pNewWnd)
{
    CWnd::OnKillFocus(pNewWnd);
    InvalidateDay(m_dFocus);
}

void CKelCalendar::OnDestroy()
{
    StopRepeat();
    m_tip.DestroyWindow();
    m_dTipDay = 0;
    CWnd::OnDestroy();
}

LRESULT CKelCalendar::OnSetFont(WPARAM wParam, LPARAM lParam)
{
    m_hFont = reinterpret_cast<HFONT>(wParam);
    MeasureFont();
    if (LOWORD(lParam) != 0)
        Invalidate(FALSE);
    return 0;
}

LRESULT CKelCalendar::OnGetFont(WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(m_hFont);
}
