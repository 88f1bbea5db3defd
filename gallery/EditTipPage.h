// Page "Edit tooltip": KelControls gives every edit control in the process a tooltip with its
// whole text when the text does not fit. The page's edits are plain "edit" controls.
#pragma once

#include "gallery/GalleryPage.h"

class CEditTipPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CEditTipPage)
public:
    CEditTipPage() {}

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()

private:
    enum
    {
        EDIT_COUNT = 5
    };
    CStatic m_wndIntro;
    CStatic m_awndCaptions[EDIT_COUNT];
    CEdit m_aEdits[EDIT_COUNT];
    // Snapshot mode only: what each edit's tooltip shows, which a still picture cannot hover.
    CStatic m_awndTips[EDIT_COUNT];
};
