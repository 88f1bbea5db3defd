// Page "Statics and colours": typed statics beside typed edits, each showing the edit's value as
// it prints it (with its prefix or suffix) as soon as the edit reads; then the colour combo with
// a swatch static that follows it, the colour button with one that follows it, and a swatch
// with no colour.
#pragma once

#include "KelControls.h"
#include "gallery/GalleryPage.h"

class CStaticsPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CStaticsPage)
public:
    CStaticsPage() {}

    LPCTSTR EnterSnapshotState(int nState, HWND* phWndPopup) override;

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    // Each static shows its edit's value, or nothing while the edit does not read.
    afx_msg void OnEditChange();
    afx_msg void OnColorSelChange();
    afx_msg void OnColorChanged(NMHDR* pHeader, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()

private:
    enum
    {
        ROW_COUNT = 5,
        COLOR_ROW_COUNT = 3
    };
    CStringEdit* GetEdit(int i);
    CStringStatic* GetStatic(int i);

    CStatic m_wndIntro;
    CStatic m_awndCaptions[ROW_COUNT];
    CLongEdit m_editLevel;
    CDoubleEdit m_editFade;
    CDateEdit m_editShow;
    CLongEdit m_editCue;
    CShortEdit m_editChannel;
    CLongStatic m_wndLevel;
    CDoubleStatic m_wndFade;
    CDateStatic m_wndShow;
    CTimeStatic m_wndCue;
    CShortStatic m_wndChannel;

    CStatic m_awndColorCaptions[COLOR_ROW_COUNT];
    CColorComboBox m_wndColors;
    CColorStatic m_wndComboSwatch;
    CColorButton m_btnColor;
    CColorStatic m_wndButtonSwatch;
    CColorStatic m_wndNoColor;
};
