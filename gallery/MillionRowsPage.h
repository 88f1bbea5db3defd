// Page "Million rows": a grid holding the shared benchmark workload, 1,000,000 rows of 10
// columns, with the caret on the middle row.
#pragma once

#include "gallery/GalleryPage.h"
#include "grid/GridList.h"

class CMillionRowsPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CMillionRowsPage)
public:
    CMillionRowsPage() {}

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    DECLARE_MESSAGE_MAP()

private:
    BOOL FillGrid();

    CStatic m_wndIntro;
    CGridList m_wndGrid;
};
