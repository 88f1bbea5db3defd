// Page "Date, time and masks": the date edit, the three time edits over KEL_Util's entry
// windows, a mask edit and the timecode edit. The line below them reads the values back as
// the text edits change; "Check values" reads them as a dialog would, with the messages.
#pragma once

#include "controls/DateEdit.h"
#include "controls/MaskEdit.h"
#include "controls/TimeEdit.h"
#include "gallery/GalleryPage.h"

class CDateTimePage : public CGalleryPage
{
    DECLARE_DYNCREATE(CDateTimePage)
public:
    CDateTimePage() {}

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnTextChanged();
    afx_msg void OnCheckValues();
    DECLARE_MESSAGE_MAP()

private:
    enum { ROW_COUNT = 6 };
    // Reads every value; with bShowErrors a value that does not read shows its message box.
    void ShowValues(BOOL bShowErrors);

    CStatic m_wndIntro;
    CStatic m_awndCaptions[ROW_COUNT];
    CStatic m_awndNotes[ROW_COUNT];
    CDateEdit m_wndDate;
    CTimeEdit m_wndTime;
    CMsTimeEdit m_wndMsTime;
    CHourTimeEdit m_wndHourTime;
    CGenericMaskEdit m_wndMask;
    CGenericMaskHHMMSSFFEdit m_wndTimecode;
    CStatic m_wndValues;
    CButton m_wndCheck;
};
