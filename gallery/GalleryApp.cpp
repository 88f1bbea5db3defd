#include "gallery/GalleryApp.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "gallery/GalleryWnd.h"
#include "frame/KelControlsFrame.h"

namespace
{
CGalleryApp theApp;
} // namespace

CGalleryApp* GetGalleryApp()
{
    return &theApp;
}

BOOL RegisterGalleryClass(LPCTSTR lpszClassName, UINT nClassStyle, HBRUSH hbrBackground, WNDPROC pfnWndProc)
{
    WNDCLASS wc;
    HINSTANCE hInstance = AfxGetInstanceHandle();
    if (::GetClassInfo(hInstance, lpszClassName, &wc))
        return TRUE;
    memset(&wc, 0, sizeof(wc));
    wc.style = nClassStyle;
    wc.lpfnWndProc = pfnWndProc;
    wc.hInstance = hInstance;
    wc.hCursor = ::LoadCursor(NULL, IDC_ARROW);
    wc.hbrBackground = hbrBackground;
    wc.lpszClassName = lpszClassName;
    return ::RegisterClass(&wc) != 0;
}

CGalleryApp::CGalleryApp() : CWinApp(_T("KelControls Gallery")), m_pKelControlsLink(NULL), m_bStartFailed(FALSE) {}

BOOL CGalleryApp::ParseCommandLine()
{
    for (int i = 1; i < __argc; ++i)
    {
        if (strcmp(__argv[i], "--snapshot") == 0 && i + 1 < __argc && __argv[i + 1][0] != '\0')
        {
            m_strSnapshotFolder = __argv[++i];
            continue;
        }
        // Whatever the mode was meant to be, a batch caller must not wait on a message box.
        fprintf(stderr, "usage: KelGallery [--snapshot FOLDER]\n");
        return FALSE;
    }
    return TRUE;
}

void CGalleryApp::ReportError(LPCTSTR lpszText)
{
    if (IsSnapshotMode())
        fprintf(stderr, "KelGallery: %s\n", lpszText);
    else
        AfxMessageBox(lpszText, MB_ICONSTOP);
}

BOOL CGalleryApp::InitInstance()
{
    m_bStartFailed = TRUE;
    if (!ParseCommandLine())
        return FALSE;

    INITCOMMONCONTROLSEX icc = {sizeof(icc), ICC_WIN95_CLASSES};
    ::InitCommonControlsEx(&icc); // the edit tooltips are common controls

    // The event lists show the hand while an entry is moved and the cross while it is copied.
    KelControlsInit init = {LoadStandardCursor(IDC_HAND), LoadStandardCursor(IDC_CROSS), 0, 0};
    if (!InitKelControlsInterface(0, &init))
    {
        ReportError(_T("KelControls could not register its event list window class."));
        return FALSE;
    }
    m_pKelControlsLink = LinkNewDynLinkLibraryToKelControls(0);

    CGalleryWnd* pWnd = new CGalleryWnd;
    if (!pWnd->CreateGallery(IsSnapshotMode()))
    {
        ReportError(_T("The gallery window could not be created."));
        return FALSE; // the window object deleted itself
    }
    m_pMainWnd = pWnd;
    if (IsSnapshotMode())
    {
        pWnd->ShowWindow(SW_SHOW);
        pWnd->PostMessage(WM_GALLERY_SNAPSHOT);
    }
    else
    {
        pWnd->ShowWindow(m_nCmdShow);
    }
    pWnd->UpdateWindow();
    m_bStartFailed = FALSE;
    return TRUE;
}

int CGalleryApp::ExitInstance()
{
    delete m_pKelControlsLink;
    m_pKelControlsLink = NULL;
    int nExitCode = CWinApp::ExitInstance();
    return m_bStartFailed ? EXIT_FAILURE : nExitCode;
}
