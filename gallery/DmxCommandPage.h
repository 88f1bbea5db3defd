// Page "Command edit": a command-list edit whose channels and level show live below it as the
// command is typed.
#pragma once

#include "controls/DmxCommandEdit.h"
#include "gallery/GalleryPage.h"

class CDmxCommandPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CDmxCommandPage)
public:
    CDmxCommandPage() {}

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnCommandChanged();
    afx_msg void OnAutoFull();
    DECLARE_MESSAGE_MAP()

private:
    CStatic m_wndIntro;
    CStatic m_wndCaption;
    CDmxCommandEdit m_wndCommand;
    CButton m_wndAutoFull;
    CStatic m_wndParsed;
};
