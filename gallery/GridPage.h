// Page "Grid": a live grid window as a cue sheet, with column titles that sort (a click sorts by
// one column, Ctrl+click adds a key and the titles show the priorities), column and cell text
// formats, cell colours, images before and after the text, the two predefined edit icons, a
// selection and a pending cut. Typing finds a row by the caret column's text, Ctrl+F or F3 opens
// the find dialog; a double click or Enter edits a cell in place (a double click on a colour
// chooses a gel from a list), and typing in a note edits it.
#pragma once

#include "gallery/GalleryPage.h"
#include "grid/TGrid.h"

class CGridPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CGridPage)
public:
    CGridPage() {}

    LPCTSTR EnterSnapshotState(int nState, HWND* phWndPopup) override;

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnGridEditBegin(NMHDR* pHdr, LRESULT* pResult);
    afx_msg void OnGridEditEnd(NMHDR* pHdr, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()

private:
    BOOL CreateImages();
    BOOL CreateGelList();
    void FillGrid();
    void SetGelColours(int row, int nCue);

    CStatic m_wndIntro;
    CGrid m_wndGrid;
    CImageList m_images;
    CComboBox m_wndGels; // never shown: the entries of the grid's combo box
};
