// Page "Combo grid": a fixture picker (drop-down list: number, name and kind; typing finds a
// name) and a cue picker (drop-down: the cue's label may be typed, completed from the list). Clicking
// a column title in a drop-down sorts its rows; the status line tells the choices. The snapshot
// state shows the fixture list dropped down, sorted by name.
#pragma once

#include "gallery/GalleryPage.h"

#include "KelControls.h"

class CComboGridPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CComboGridPage)
public:
    CComboGridPage();

    LPCTSTR EnterSnapshotState(int nState, HWND* phWndPopup) override;

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnSelChange();
    DECLARE_MESSAGE_MAP()

private:
    CStatic m_wndIntro;
    CStatic m_wndFixtureCaption;
    CComboGrid m_wndFixture;
    CStatic m_wndCueCaption;
    CComboGrid m_wndCue;
    CStatic m_wndStatus;
};
