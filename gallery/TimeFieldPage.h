// Page "Time fields": KEL_Util's time-entry windows "TimeClass" (hours, minutes, seconds) and
// "MsTimeClass" (with milliseconds), created as KelControls' time edit creates them; the line
// below shows their values read back from the windows.
#pragma once

#include "gallery/GalleryPage.h"

class CTimeFieldPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CTimeFieldPage)
public:
    CTimeFieldPage() {}

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnTimeChanged();
    DECLARE_MESSAGE_MAP()

private:
    CStatic m_wndIntro;
    CStatic m_wndTimeCaption;
    CWnd m_wndTime;
    CStatic m_wndMsTimeCaption;
    CWnd m_wndMsTime;
    CStatic m_wndValues;
};
