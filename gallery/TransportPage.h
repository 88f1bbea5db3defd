// Page "Transport buttons": owner-drawn buttons painted by KEL_Util's PaintButtonEx2, a text
// face and the five transport glyphs, and a row that shows the item states.
#pragma once

#include "gallery/GalleryPage.h"
#include "gallery/TransportButton.h"

class CTransportPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CTransportPage)
public:
    CTransportPage() {}

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnButtonClicked(UINT nID);
    DECLARE_MESSAGE_MAP()

private:
    enum
    {
        FACE_COUNT = 6,
        STATE_COUNT = 6
    };
    CStatic m_wndFacesTitle;
    CTransportButton m_aFaces[FACE_COUNT];
    CStatic m_awndFaceNames[FACE_COUNT];
    CStatic m_wndStatesTitle;
    CTransportButton m_aStates[STATE_COUNT];
    CStatic m_awndStateNames[STATE_COUNT];
    CStatic m_wndStatus;
};
