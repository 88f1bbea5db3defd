// Page "Transport buttons": KelControls' buttons. Owner-drawn CKelButtons whose faces the
// companion paints (the five transport keywords and a text face, on their own colours, pressed
// and disabled), check boxes in colours of their own, and a radio group read as one value
// (CRadioButton), with the message for an empty choice.
#pragma once

#include "controls/KelButton.h"
#include "gallery/GalleryPage.h"

class CTransportPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CTransportPage)
public:
    CTransportPage() {}

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnFaceClicked(UINT nID);
    afx_msg void OnModeClicked(UINT nID);
    afx_msg void OnClearMode();
    afx_msg void OnValidateMode();
    DECLARE_MESSAGE_MAP()

private:
    enum
    {
        FACE_COUNT = 12,
        CHECK_COUNT = 3,
        MODE_COUNT = 3
    };
    void ShowMode();

    CStatic m_wndFacesTitle;
    CKelButton m_aFaces[FACE_COUNT];
    CStatic m_awndFaceNames[FACE_COUNT];
    CStatic m_wndChecksTitle;
    CKelButton m_aChecks[CHECK_COUNT];
    CStatic m_wndModeTitle;
    CRadioButton m_wndMode; // the first button stands for the group
    CButton m_awndOtherModes[MODE_COUNT - 1];
    CStatic m_wndModeValue;
    CButton m_wndClearMode;
    CButton m_wndValidateMode;
    CStatic m_wndStatus;
};
