// Page "Event list": two of KelControls' event lists (as listings) side by side. Entries are dragged from
// one list to the other (moved, or copied while Ctrl is held); the status line shows the entry
// last dropped, as the receiving list reports it.
#pragma once

#include "gallery/GalleryPage.h"
#include "listings/KelListing.h"

class CEventListPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CEventListPage)
public:
    CEventListPage() {}

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDroppedInCueList();
    afx_msg void OnDroppedInRunningOrder();
    DECLARE_MESSAGE_MAP()

private:
    void ShowDroppedEntry(LPCTSTR lpszListName);

    CStatic m_wndIntro;
    CStatic m_wndCueListTitle;
    CStatic m_wndRunningOrderTitle;
    CKelListing m_wndCueList;
    CKelListing m_wndRunningOrder;
    CStatic m_wndStatus;
};
