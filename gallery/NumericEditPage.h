// Page "Numeric edits": KelControls' typed number edits with their ranges. Typing that would
// leave an edit unreadable is refused with a beep; a value out of range is reported when it is
// read, and the page shows the message that reading its failing edit gives.
#pragma once

#include "KelControls.h"
#include "gallery/GalleryPage.h"

class CNumericEditPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CNumericEditPage)
public:
    CNumericEditPage() {}

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()

private:
    // The port edit starts out of range; it tells the page what reading it says.
    class CPortEdit : public CLongEdit
    {
    public:
        using CLongEdit::operator=;
        CString GetReadMessage();
    };

    enum
    {
        EDIT_COUNT = 7
    };
    // The edits' base is what the page needs of each: a window with a label before it.
    CNumericEdit* GetEdit(int i);

    CStatic m_wndIntro;
    CStatic m_awndCaptions[EDIT_COUNT];
    CShortEdit m_editShort;
    CUShortEdit m_editUShort;
    CPortEdit m_editPort;
    CULongEdit m_editULong;
    CDoubleEdit m_editLevel;
    CDoubleEdit m_editUndefined;
    CDoubleEdit m_editInfinite;
    CStatic m_wndMessageCaption;
    CStatic m_wndMessage;
};
