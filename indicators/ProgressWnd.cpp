#include "indicators/ProgressWnd.h"

#include <stdarg.h>
#include <stdio.h>

namespace
{
const int MARGIN = 10;
const int TEXT_BOTTOM = 120; // the text area before it is measured
const int TEXT_BUFFER_SIZE = 512;
const LPCTSTR PROFILE_SECTION = _T("Settings");
const LPCTSTR CLASS_NAME = _T("KelProgressWnd");

// The window class: the application-starting cursor says that the program is busy but still
// answers; the class brush paints the background in the button-face colour.
BOOL RegisterProgressClass()
{
    WNDCLASS wc;
    memset(&wc, 0, sizeof(wc));
    wc.style = CS_OWNDC | CS_HREDRAW | CS_VREDRAW;
    wc.lpfnWndProc = ::DefWindowProc;
    wc.hInstance = ::GetModuleHandle(NULL);
    wc.hCursor = ::LoadCursor(NULL, IDC_APPSTARTING);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    wc.lpszClassName = CLASS_NAME;
    return AfxRegisterClass(&wc);
}

CWnd* GetLiveMainWnd()
{
    CWnd* pMainWnd = AfxGetMainWnd();
    return pMainWnd != NULL && ::IsWindow(pMainWnd->m_hWnd) ? pMainWnd : NULL;
}
} // namespace

IMPLEMENT_DYNAMIC(CProgressWnd, CWnd)

BEGIN_MESSAGE_MAP(CProgressWnd, CWnd)
ON_BN_CLICKED(IDC_CANCEL, OnCancel)
ON_WM_CLOSE()
END_MESSAGE_MAP()

CProgressWnd::CProgressWnd()
{
    CommonConstruct();
}

CProgressWnd::CProgressWnd(CWnd* pParent, LPCTSTR lpszTitle, BOOL bSmooth)
{
    CommonConstruct();
    Create(pParent, lpszTitle, bSmooth);
}

CProgressWnd::~CProgressWnd()
{
    DestroyWindow();
}

void CProgressWnd::CommonConstruct()
{
    m_bCancelled = FALSE;
    m_bModal = FALSE;
    m_bPersistSettings = TRUE;
    m_nPos = 0;
    m_nStep = 1;
    m_nUpper = 100;
    m_nLower = 0;
    m_nTextLines = 4;
    m_strTitle = _T("Progress");
    m_strCancelLabel = _T(" Cancel ");
}

BOOL CProgressWnd::Create(CWnd* pParent, LPCTSTR lpszTitle, BOOL bSmooth)
{
    if (::IsWindow(m_hWnd))
        return FALSE;
    m_strTitle = lpszTitle != NULL ? lpszTitle : _T("");
    if (!RegisterProgressClass())
        return FALSE;

    NONCLIENTMETRICS ncm;
    memset(&ncm, 0, sizeof(ncm));
    ncm.cbSize = sizeof(ncm);
    m_font.DeleteObject();
    if (::SystemParametersInfo(SPI_GETNONCLIENTMETRICS, sizeof(ncm), &ncm, 0))
        m_font.CreateFontIndirect(&ncm.lfMessageFont);

    CWnd* pOwner = pParent != NULL ? pParent : GetLiveMainWnd();
    if (!CreateEx(WS_EX_DLGMODALFRAME, CLASS_NAME, m_strTitle, WS_POPUP | WS_CAPTION, 0, 0, DEFAULT_WIDTH,
                  DEFAULT_HEIGHT, pOwner->GetSafeHwnd(), NULL))
        return FALSE;
    const CRect rectNone(0, 0, 0, 0);
    if (!m_wndText.Create(_T(""), WS_CHILD | WS_VISIBLE | SS_LEFTNOWORDWRAP | SS_NOPREFIX, rectNone, this, IDC_TEXT) ||
        !m_wndProgress.Create(WS_CHILD | WS_VISIBLE | (bSmooth ? PBS_SMOOTH : 0), rectNone, this, IDC_PROGRESS) ||
        !m_wndCancel.Create(m_strCancelLabel, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, rectNone, this,
                            IDC_CANCEL))
    {
        DestroyWindow();
        return FALSE;
    }
    m_wndText.SetFont(&m_font, FALSE);
    m_wndCancel.SetFont(&m_font, FALSE);
    // What was set before the window existed.
    m_wndProgress.SetRange32(m_nLower, m_nUpper);
    m_wndProgress.SetStep(m_nStep);
    m_wndProgress.SetPos(m_nPos);

    SetWindowSize(m_nTextLines, DEFAULT_WIDTH);
    if (m_bPersistSettings)
        GetPreviousSettings();
    else
        CenterWindow();
    // Not activated: the window that started the work keeps the keyboard, and Escape is read
    // from the thread's queue whichever window it is typed into.
    ShowWindow(SW_SHOWNOACTIVATE);
    UpdateWindow();
    return TRUE;
}

BOOL CProgressWnd::GoModal(LPCTSTR lpszTitle, BOOL bSmooth)
{
    CWnd* pMainWnd = GetLiveMainWnd();
    if (!::IsWindow(m_hWnd) && !Create(pMainWnd, lpszTitle, bSmooth))
        return FALSE;
    if (pMainWnd != NULL && pMainWnd != this)
        pMainWnd->EnableWindow(FALSE);
    EnableWindow(TRUE);
    m_bModal = TRUE;
    return TRUE;
}

void CProgressWnd::SetWindowSize(int nTextLines, int nWidth)
{
    m_nTextLines = nTextLines;
    if (!::IsWindow(m_hWnd) || nTextLines < 1)
        return;

    CRect rectText(MARGIN, MARGIN, nWidth - 2 * MARGIN, TEXT_BOTTOM);
    CString strLines = _T("M");
    for (int i = 1; i < nTextLines; ++i)
        strLines += _T("\nM");
    CDC* pDC = GetDC();
    CFont* pOldFont = pDC->SelectObject(&m_font);
    CRect rectMeasured = rectText;
    pDC->DrawText(strLines, &rectMeasured, DT_CALCRECT | DT_NOCLIP | DT_NOPREFIX);
    rectText.bottom = rectMeasured.bottom;
    CSize sizeButton = pDC->GetTextExtent(m_strCancelLabel + _T("  "));
    pDC->SelectObject(pOldFont);
    ReleaseDC(pDC);
    sizeButton.cx += 4 * ::GetSystemMetrics(SM_CXEDGE);
    sizeButton.cy += 4 * ::GetSystemMetrics(SM_CYEDGE);

    CRect rectCancel(rectText.right - sizeButton.cx, rectText.bottom + MARGIN, rectText.right,
                     rectText.bottom + MARGIN + sizeButton.cy);
    CRect rectBar(rectText.left, rectCancel.top, rectCancel.left - MARGIN, rectCancel.bottom);

    CRect rectWindow(0, 0, rectText.right + MARGIN, rectCancel.bottom + MARGIN);
    CalcWindowRect(&rectWindow);
    SetWindowPos(NULL, 0, 0, rectWindow.Width(), rectWindow.Height(), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    m_wndText.MoveWindow(&rectText);
    m_wndProgress.MoveWindow(&rectBar);
    m_wndCancel.MoveWindow(&rectCancel);
}

void CProgressWnd::GetPreviousSettings()
{
    if (!::IsWindow(m_hWnd))
        return;
    int x = -1, y = -1;
    CWinApp* pApp = AfxGetApp();
    if (pApp != NULL)
    {
        x = static_cast<int>(pApp->GetProfileInt(PROFILE_SECTION, _T("X"), -1));
        y = static_cast<int>(pApp->GetProfileInt(PROFILE_SECTION, _T("Y"), -1));
    }
    if (x >= 0 && x < ::GetSystemMetrics(SM_CXSCREEN) && y >= 0 && y < ::GetSystemMetrics(SM_CYSCREEN))
        SetWindowPos(NULL, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    else
        CenterWindow();
}

void CProgressWnd::SaveCurrentSettings()
{
    CWinApp* pApp = AfxGetApp();
    if (!::IsWindow(m_hWnd) || pApp == NULL)
        return;
    CRect rect;
    GetWindowRect(&rect);
    pApp->WriteProfileInt(PROFILE_SECTION, _T("X"), rect.left);
    pApp->WriteProfileInt(PROFILE_SECTION, _T("Y"), rect.top);
}

void CProgressWnd::SetRange(int nLower, int nUpper, int nStep)
{
    m_nLower = nLower;
    m_nUpper = nUpper;
    m_nStep = nStep;
    if (!::IsWindow(m_hWnd))
        return;
    m_wndProgress.SetRange32(nLower, nUpper);
    m_wndProgress.SetStep(nStep);
}

int CProgressWnd::SetPos(int nPos)
{
    if (!::IsWindow(m_hWnd))
        return m_nPos;
    Show();
    m_nPos = nPos;
    SetWindowText(m_strTitle);
    return m_wndProgress.SetPos(nPos);
}

int CProgressWnd::OffsetPos(int nPos)
{
    return SetPos(m_nPos + nPos);
}

int CProgressWnd::StepIt()
{
    return SetPos(m_nPos + m_nStep);
}

int CProgressWnd::SetStep(int nStep)
{
    int nPrevious = m_nStep;
    m_nStep = nStep;
    if (::IsWindow(m_hWnd))
        nPrevious = m_wndProgress.SetStep(nStep);
    return nPrevious;
}

int CProgressWnd::GetPos() const
{
    return ::IsWindow(m_hWnd) ? m_wndProgress.GetPos() : m_nPos;
}

void CProgressWnd::SetText(LPCTSTR lpszFormat, ...)
{
    if (!::IsWindow(m_hWnd) || lpszFormat == NULL)
        return;
    TCHAR szText[TEXT_BUFFER_SIZE];
    va_list args;
    va_start(args, lpszFormat);
    vsnprintf(szText, TEXT_BUFFER_SIZE, lpszFormat, args);
    va_end(args);
    m_wndText.SetWindowText(szText);
}

void CProgressWnd::SetTitleText(LPCTSTR lpszTitle)
{
    m_strTitle = lpszTitle != NULL ? lpszTitle : _T("");
    if (::IsWindow(m_hWnd))
        SetWindowText(m_strTitle);
}

void CProgressWnd::Clear()
{
    m_nPos = 0;
    m_bCancelled = FALSE;
    if (!::IsWindow(m_hWnd))
        return;
    m_wndText.SetWindowText(_T(""));
    m_wndProgress.SetPos(0);
    RedrawWindow(NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void CProgressWnd::Hide()
{
    if (::IsWindow(m_hWnd) && IsWindowVisible())
        ShowWindow(SW_HIDE);
}

void CProgressWnd::Show()
{
    if (!::IsWindow(m_hWnd) || IsWindowVisible())
        return;
    ShowWindow(SW_SHOWNOACTIVATE);
    SetWindowPos(NULL, 0, 0, 0, 0, SWP_FRAMECHANGED | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    RedrawWindow(NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void CProgressWnd::HideCancel()
{
    if (::IsWindow(m_hWnd))
        m_wndCancel.ShowWindow(SW_HIDE);
}

void CProgressWnd::ShowCancel()
{
    if (::IsWindow(m_hWnd))
        m_wndCancel.ShowWindow(SW_SHOW);
}

void CProgressWnd::OnCancel()
{
    m_bCancelled = TRUE;
    Hide();
    if (m_bModal)
        SendMessage(WM_CLOSE);
    CWnd* pMainWnd = GetLiveMainWnd();
    if (pMainWnd != NULL)
        pMainWnd->SetForegroundWindow();
}

void CProgressWnd::OnClose()
{
    // Through the class's DestroyWindow, so that modal mode gives the main window back.
    DestroyWindow();
}

BOOL CProgressWnd::PeekAndPump(BOOL bCancelOnEscape)
{
    if (m_bModal && ::IsWindow(m_hWnd) && ::GetFocus() != m_hWnd)
        SetFocus();
    MSG msg;
    while (!m_bCancelled && ::PeekMessage(&msg, NULL, 0, 0, PM_NOREMOVE))
    {
        if (bCancelOnEscape && msg.message == WM_CHAR && msg.wParam == VK_ESCAPE)
            OnCancel();
        if (m_bModal && msg.message == WM_LBUTTONUP && ::IsWindow(m_wndCancel.m_hWnd))
        {
            // The main window is disabled, so the click would never reach the button itself.
            POINT point = {static_cast<short>(LOWORD(msg.lParam)), static_cast<short>(HIWORD(msg.lParam))};
            ::ClientToScreen(msg.hwnd, &point);
            CRect rectCancel;
            m_wndCancel.GetWindowRect(&rectCancel);
            if (rectCancel.PtInRect(point))
                OnCancel();
        }
        CWinThread* pThread = AfxGetThread();
        if (pThread == NULL)
        {
            if (!AfxPumpMessage()) // posts the quit message again itself
                return FALSE;
        }
        else if (!pThread->PumpMessage())
        {
            ::PostQuitMessage(static_cast<int>(pThread->m_msgCur.wParam));
            return FALSE;
        }
    }
    return !m_bCancelled;
}

BOOL CProgressWnd::DestroyWindow()
{
    if (!::IsWindow(m_hWnd))
        return FALSE;
    if (m_bPersistSettings)
        SaveCurrentSettings();
    if (m_bModal)
    {
        m_bModal = FALSE;
        CWnd* pMainWnd = GetLiveMainWnd();
        if (pMainWnd != NULL)
            pMainWnd->EnableWindow(TRUE);
    }
    return CWnd::DestroyWindow();
}
