// Page "Progress window": runs a job of a hundred steps under a CProgressWnd, modeless or modal,
// that Cancel or Escape stops; the status line tells how far it came. The snapshot shows the
// window over the page half-way through a job.
#pragma once

#include "gallery/GalleryPage.h"
#include "indicators/ProgressWnd.h"

class CProgressPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CProgressPage)
public:
    CProgressPage() {}

    LPCTSTR EnterSnapshotState(int nState, HWND* phWndPopup) override;

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnRun();
    DECLARE_MESSAGE_MAP()

private:
    CStatic m_wndIntro;
    CButton m_wndRun;
    CButton m_wndModal;
    CStatic m_wndStatus;
    CProgressWnd m_wndProgress; // the snapshot's
};
