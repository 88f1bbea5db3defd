#include "gallery/ProgressPage.h"

namespace
{
const UINT IDC_RUN = 100;
const UINT IDC_MODAL = 101;
const int STEP_COUNT = 100;
const DWORD STEP_MILLISECONDS = 40;
const int INTRO_LINES = 3;
const int RUN_WIDTH = 120;
const int MODAL_WIDTH = 260;

// Shows cue nStep of the job in the window.
void ShowStep(CProgressWnd& wnd, int nStep)
{
    wnd.SetText(_T("Saving the show...\nCue %d of %d\nSHOW%03d.CUE"), nStep, STEP_COUNT, nStep);
    wnd.SetPos(nStep);
}
} // namespace

IMPLEMENT_DYNCREATE(CProgressPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CProgressPage, CGalleryPage)
ON_WM_CREATE()
ON_BN_CLICKED(IDC_RUN, OnRun)
END_MESSAGE_MAP()

int CProgressPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    const CRect rectNone(0, 0, 0, 0);
    if (!CreateLabel(m_wndIntro, _T("Run saves a show of a hundred cues under a progress window: text lines, a bar ")
                                 _T("and Cancel.\nThe job calls PeekAndPump after every cue, so the application ")
                                 _T("keeps answering; Cancel or Escape stops it.\nModal: the main window is ")
                                 _T("disabled while the job runs.")) ||
        !m_wndRun.Create(_T("Run the job"), WS_CHILD | WS_VISIBLE | WS_TABSTOP, rectNone, this, IDC_RUN) ||
        !m_wndModal.Create(_T("Modal (disable the main window)"), WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX,
                           rectNone, this, IDC_MODAL) ||
        !CreateLabel(m_wndStatus, _T("No job run yet.")))
        return -1;
    UseFont(m_wndRun);
    UseFont(m_wndModal);
    return 0;
}

void CProgressPage::LayoutControls(int cx, int)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    m_wndRun.MoveWindow(MARGIN, y, RUN_WIDTH, EDIT_HEIGHT);
    m_wndModal.MoveWindow(MARGIN + RUN_WIDTH + 2 * GAP, y, MODAL_WIDTH, EDIT_HEIGHT);
    y += EDIT_HEIGHT + 2 * GAP;
    m_wndStatus.MoveWindow(MARGIN, y, cx - 2 * MARGIN, LINE_HEIGHT);
}

void CProgressPage::OnRun()
{
    // The window lives on this stack frame and the page is only touched while its window is
    // there: a modeless job lets the user close the gallery, and the page with it, between steps.
    const HWND hWndPage = m_hWnd;
    CProgressWnd wnd;
    BOOL bCreated = m_wndModal.GetCheck() == BST_CHECKED ? wnd.GoModal(_T("Saving"), TRUE)
                                                         : wnd.Create(GetTopLevelParent(), _T("Saving"), TRUE);
    if (!bCreated)
    {
        m_wndStatus.SetWindowText(_T("The progress window could not be created."));
        return;
    }
    m_wndRun.EnableWindow(FALSE);
    wnd.SetRange(0, STEP_COUNT, 1);
    int nStep = 0;
    while (nStep < STEP_COUNT && wnd.PeekAndPump(TRUE) && ::IsWindow(hWndPage))
    {
        ShowStep(wnd, ++nStep);
        ::Sleep(STEP_MILLISECONDS); // the work of one cue
    }
    if (!::IsWindow(hWndPage))
        return;
    CString strStatus;
    if (wnd.Cancelled())
        strStatus.Format(_T("Cancelled after %d of %d cues."), nStep, STEP_COUNT);
    else
        strStatus.Format(_T("Saved all %d cues."), nStep);
    wnd.DestroyWindow();
    m_wndStatus.SetWindowText(strStatus);
    m_wndRun.EnableWindow(TRUE);
}

LPCTSTR CProgressPage::EnterSnapshotState(int nState, HWND* phWndPopup)
{
    *phWndPopup = NULL;
    m_wndProgress.DestroyWindow();
    if (nState != 1 || !m_wndProgress.Create(GetTopLevelParent(), _T("Saving"), TRUE))
        return NULL;
    m_wndProgress.SetRange(0, STEP_COUNT, 1);
    ShowStep(m_wndProgress, 62);
    *phWndPopup = m_wndProgress.GetSafeHwnd();
    return _T("running");
}
