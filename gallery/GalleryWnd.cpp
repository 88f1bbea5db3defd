#include "gallery/GalleryWnd.h"

#include <stdio.h>
#include <stdlib.h>

#include "capture/WindowImage.h"
#include "gallery/CalendarPage.h"
#include "gallery/ComboBoxPage.h"
#include "gallery/DateTimePage.h"
#include "gallery/DmxCommandPage.h"
#include "gallery/EditTipPage.h"
#include "gallery/EventListPage.h"
#include "gallery/GalleryApp.h"
#include "gallery/ComboGridPage.h"
#include "gallery/GridPage.h"
#include "gallery/ListingPage.h"
#include "gallery/MillionRowsPage.h"
#include "gallery/NumericEditPage.h"
#include "gallery/ProgressPage.h"
#include "gallery/StaticsPage.h"
#include "gallery/TransportPage.h"

namespace
{
// The pages, in the order of the list. A new page is a CGalleryPage class with
// DECLARE_DYNCREATE and one line here.
const struct
{
    LPCTSTR lpszName; // in the list, in the caption and, lower-cased, in the snapshot's file name
    CRuntimeClass* pClass;
} s_aPages[] = {
    {_T("Edit tooltip"), RUNTIME_CLASS(CEditTipPage)},
    {_T("Event list"), RUNTIME_CLASS(CEventListPage)},
    {_T("Listing"), RUNTIME_CLASS(CListingPage)},
    {_T("Transport buttons"), RUNTIME_CLASS(CTransportPage)},
    {_T("Numeric edits"), RUNTIME_CLASS(CNumericEditPage)},
    {_T("Combo boxes"), RUNTIME_CLASS(CComboBoxPage)},
    {_T("Date, time and masks"), RUNTIME_CLASS(CDateTimePage)},
    {_T("Command edit"), RUNTIME_CLASS(CDmxCommandPage)},
    {_T("Statics and colours"), RUNTIME_CLASS(CStaticsPage)},
    {_T("Grid"), RUNTIME_CLASS(CGridPage)},
    {_T("Combo grid"), RUNTIME_CLASS(CComboGridPage)},
    {_T("Million rows"), RUNTIME_CLASS(CMillionRowsPage)},
    {_T("Progress window"), RUNTIME_CLASS(CProgressPage)},
    {_T("Calendar"), RUNTIME_CLASS(CCalendarPage)},
};
const int PAGE_COUNT = static_cast<int>(sizeof(s_aPages) / sizeof(s_aPages[0]));

const TCHAR GALLERY_CLASS[] = _T("KelGalleryWnd");
const DWORD GALLERY_STYLE = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
const int CLIENT_WIDTH = 900; // the snapshot's size
const int CLIENT_HEIGHT = 600;
const int MARGIN = 8;
const int PAGE_LIST_WIDTH = 170;

const UINT IDC_PAGE_LIST = 100;
const UINT IDC_FIRST_PAGE = 200;
} // namespace

BEGIN_MESSAGE_MAP(CGalleryWnd, CWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_DESTROY()
ON_LBN_SELCHANGE(IDC_PAGE_LIST, OnPageListSelChange)
ON_MESSAGE(WM_GALLERY_SNAPSHOT, OnSnapshot)
END_MESSAGE_MAP()

CGalleryWnd::CGalleryWnd() : m_nCurPage(-1), m_bSnapshot(FALSE), m_nExitCode(EXIT_SUCCESS) {}

BOOL CGalleryWnd::CreateGallery(BOOL bSnapshot)
{
    m_bSnapshot = bSnapshot;
    CRect rect(0, 0, CLIENT_WIDTH, CLIENT_HEIGHT);
    ::AdjustWindowRectEx(&rect, GALLERY_STYLE, FALSE, 0);
    // A fixed place on the screen in snapshot mode: the capture reads only what is on it.
    int x = bSnapshot ? 0 : CW_USEDEFAULT;
    return CreateEx(0, GALLERY_CLASS, AfxGetAppName(), GALLERY_STYLE, x, 0, rect.Width(), rect.Height(), NULL, NULL);
}

BOOL CGalleryWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    return RegisterGalleryClass(GALLERY_CLASS, CS_HREDRAW | CS_VREDRAW,
                                reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1)));
}

void CGalleryWnd::PostNcDestroy()
{
    CWinApp* pApp = AfxGetApp();
    if (pApp->m_pMainWnd == this)
        pApp->m_pMainWnd = NULL;
    delete this;
}

int CGalleryWnd::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CWnd::OnCreate(lpCreateStruct) == -1)
        return -1;
    // The system's dialog face at nine points rather than its eight, easier to read.
    LOGFONT logFont;
    ::GetObject(::GetStockObject(DEFAULT_GUI_FONT), sizeof(logFont), &logFont);
    logFont.lfHeight = 90;
    if (!m_font.CreatePointFontIndirect(&logFont))
        return -1;
    if (!m_wndPageList.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                              CRect(0, 0, 0, 0), this, IDC_PAGE_LIST))
        return -1;
    m_wndPageList.SetFont(&m_font);
    for (int nPage = 0; nPage < PAGE_COUNT; ++nPage)
        m_wndPageList.AddString(s_aPages[nPage].lpszName);
    m_apPages.SetSize(PAGE_COUNT); // all null until first shown
    if (!m_bSnapshot)
        SelectPage(0);
    return 0;
}

CRect CGalleryWnd::GetPageRect() const
{
    CRect rect;
    GetClientRect(&rect);
    rect.left += MARGIN + PAGE_LIST_WIDTH + MARGIN;
    return rect;
}

void CGalleryWnd::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    m_wndPageList.MoveWindow(MARGIN, MARGIN, PAGE_LIST_WIDTH, cy - 2 * MARGIN > 0 ? cy - 2 * MARGIN : 0);
    CRect rectPage = GetPageRect();
    for (int nPage = 0; nPage < m_apPages.GetSize(); ++nPage)
    {
        if (m_apPages[nPage] != NULL)
            m_apPages[nPage]->MoveWindow(&rectPage);
    }
}

void CGalleryWnd::OnDestroy()
{
    CWnd::OnDestroy();
    ::PostQuitMessage(m_nExitCode);
}

void CGalleryWnd::OnPageListSelChange()
{
    int nPage = m_wndPageList.GetCurSel();
    if (nPage >= 0 && nPage < PAGE_COUNT)
        SelectPage(nPage);
}

BOOL CGalleryWnd::SelectPage(int nPage)
{
    m_wndPageList.SetCurSel(nPage);
    if (m_nCurPage >= 0)
        m_apPages[m_nCurPage]->ShowWindow(SW_HIDE);
    m_nCurPage = -1;
    SetWindowText(CString(AfxGetAppName()) + _T(" - ") + s_aPages[nPage].lpszName);

    CGalleryPage* pPage = m_apPages[nPage];
    if (pPage == NULL)
    {
        // Every class of the table is a CGalleryPage with DECLARE_DYNCREATE.
        pPage = static_cast<CGalleryPage*>(s_aPages[nPage].pClass->CreateObject());
        if (pPage == NULL || !pPage->CreatePage(this, GetPageRect(), IDC_FIRST_PAGE + nPage, &m_font, m_bSnapshot))
        {
            CString strError;
            strError.Format(_T("The page \"%s\" could not be created."), s_aPages[nPage].lpszName);
            GetGalleryApp()->ReportError(strError);
            return FALSE;
        }
        m_apPages[nPage] = pPage;
    }
    pPage->ShowWindow(SW_SHOW);
    m_nCurPage = nPage;
    return TRUE;
}

CString CGalleryWnd::GetSnapshotFileName(int nPage, int nState, LPCTSTR lpszState)
{
    CString strName = s_aPages[nPage].lpszName;
    if (nState > 0)
        strName = strName + _T('-') + lpszState;
    strName.MakeLower();
    strName.Remove(_T(','));
    strName.Replace(_T(' '), _T('-'));
    CString strNumber;
    strNumber.Format(_T("%02d"), nPage + 1);
    if (nState > 0)
        strNumber += static_cast<TCHAR>(_T('a') + nState);
    return strNumber + _T('-') + strName + _T(".png");
}

void CGalleryWnd::PumpPendingMessages()
{
    // Under Wine the X server's answers arrive a little later, so keep dispatching for a while.
    const DWORD dwEnd = ::GetTickCount() + 300;
    do
    {
        MSG msg;
        while (::PeekMessage(&msg, NULL, 0, 0, PM_REMOVE))
        {
            if (msg.message == WM_QUIT)
            {
                ::PostQuitMessage(static_cast<int>(msg.wParam));
                return;
            }
            ::TranslateMessage(&msg);
            ::DispatchMessage(&msg);
        }
        ::Sleep(10);
    } while (static_cast<LONG>(::GetTickCount() - dwEnd) < 0);
}

BOOL CGalleryWnd::SaveSnapshot(LPCTSTR lpszPath, HWND hWndPopup)
{
    RedrawWindow(NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    if (hWndPopup != NULL)
        ::RedrawWindow(hWndPopup, NULL, NULL, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    PumpPendingMessages();
    CWindowImage image;
    if (!image.Capture(m_hWnd))
        return FALSE;
    if (hWndPopup != NULL)
    {
        // A top-level window paints on a surface of its own, which the capture of the main
        // window does not hold: its client area is copied in, and its caption and frame, which
        // belong to a window manager that the virtual display lacks, are drawn around it.
        CWindowImage popup;
        if (!popup.Capture(hWndPopup))
            return FALSE;
        CRect rcWindow, rcClient;
        ::GetWindowRect(hWndPopup, &rcWindow);
        ::GetClientRect(hWndPopup, &rcClient);
        ::ClientToScreen(hWndPopup, &rcClient.TopLeft());
        ::ClientToScreen(hWndPopup, &rcClient.BottomRight());
        ScreenToClient(&rcWindow);
        ScreenToClient(&rcClient);
        CDC* pDC = CDC::FromHandle(image.GetDC());
        CRect rcFrame(rcWindow);
        pDC->DrawEdge(&rcFrame, EDGE_RAISED, BF_RECT | BF_ADJUST);
        pDC->FillSolidRect(&rcFrame, ::GetSysColor(COLOR_BTNFACE));
        CRect rcCaption(rcFrame.left, rcFrame.top, rcFrame.right, rcClient.top);
        ::DrawCaption(hWndPopup, pDC->GetSafeHdc(), &rcCaption, DC_ACTIVE | DC_TEXT | DC_GRADIENT);
        pDC->BitBlt(rcClient.left, rcClient.top, popup.GetWidth(), popup.GetHeight(), CDC::FromHandle(popup.GetDC()),
                    0, 0, SRCCOPY);
    }
    return image.SavePng(lpszPath);
}

BOOL CGalleryWnd::SaveSnapshotAs(const CString& strPath, HWND hWndPopup)
{
    if (!SaveSnapshot(strPath, hWndPopup))
    {
        GetGalleryApp()->ReportError(_T("Could not save ") + strPath);
        return FALSE;
    }
    printf("%s\n", static_cast<LPCTSTR>(strPath));
    fflush(stdout);
    return TRUE;
}

LRESULT CGalleryWnd::OnSnapshot(WPARAM, LPARAM)
{
    CGalleryApp* pApp = GetGalleryApp();
    CString strFolder = pApp->GetSnapshotFolder();
    ::CreateDirectory(strFolder, NULL); // it may be there already; writing the files tells
    if (strFolder.Right(1) != _T("/") && strFolder.Right(1) != _T("\\"))
        strFolder += _T('/');

    m_nExitCode = EXIT_SUCCESS;
    for (int nPage = 0; nPage < PAGE_COUNT; ++nPage)
    {
        if (!SelectPage(nPage))
        {
            m_nExitCode = EXIT_FAILURE;
            continue;
        }
        if (!SaveSnapshotAs(strFolder + GetSnapshotFileName(nPage), NULL))
            m_nExitCode = EXIT_FAILURE;
        HWND hWndPopup = NULL;
        for (int nState = 1; LPCTSTR lpszState = m_apPages[nPage]->EnterSnapshotState(nState, &hWndPopup); ++nState)
        {
            if (!SaveSnapshotAs(strFolder + GetSnapshotFileName(nPage, nState, lpszState), hWndPopup))
                m_nExitCode = EXIT_FAILURE;
        }
    }
    DestroyWindow();
    return 0;
}
