// Page "Listing": a listing window of KEL_Util (the gallery's own class over WndListingProc)
// with many entries in their own colours; the line below follows the selection.
#pragma once

#include "gallery/GalleryPage.h"
#include "gallery/ListingWnd.h"

class CListingPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CListingPage)
public:
    CListingPage() {}

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnListingSelChange();
    DECLARE_MESSAGE_MAP()

private:
    CStatic m_wndIntro;
    CListingWnd m_wndListing;
    CStatic m_wndSelection;
};
