// Page "Listing": a listing (CKelListing) of channels in their gel colours and a list box with
// coloured entries (CKelListBox, several entries selectable), sorted by the buttons through
// SortList; the line below follows the selections.
#pragma once

#include "gallery/GalleryPage.h"
#include "listings/KelListBox.h"
#include "listings/KelListing.h"

class CListingPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CListingPage)
public:
    CListingPage() {}

    // State 1, "sorted": both lists sorted by level, highest first.
    LPCTSTR EnterSnapshotState(int nState, HWND* phWndPopup) override;

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnSelChange();
    afx_msg void OnSortAsText();
    afx_msg void OnSortByLevel();
    DECLARE_MESSAGE_MAP()

private:
    void SortBoth(int nType);

    CStatic m_wndIntro;
    CKelListing m_wndListing;
    CKelListBox m_wndListBox;
    CButton m_wndSortAsText;
    CButton m_wndSortByLevel;
    CStatic m_wndSelection;
};
