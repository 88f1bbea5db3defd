// Page "Grid": a live grid window as a cue sheet, with column titles that sort (a click sorts by
// one column, Ctrl+click adds a key and the titles show the priorities), column and cell text
// formats, cell colours, images before and after the text, the two predefined edit icons, a
// selection and a pending cut.
#pragma once

#include "gallery/GalleryPage.h"
#include "grid/TGrid.h"

class CGridPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CGridPage)
public:
    CGridPage() {}

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()

private:
    BOOL CreateImages();
    void FillGrid();

    CStatic m_wndIntro;
    CGrid m_wndGrid;
    CImageList m_images;
};
