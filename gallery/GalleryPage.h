// A page of the gallery: a child window beside the page list that shows one family of
// controls. A page creates its controls in OnCreate and places them in LayoutControls, which
// runs whenever the page's size changes.
#pragma once

#include <afxwin.h>

class CGalleryPage : public CWnd
{
    DECLARE_DYNAMIC(CGalleryPage)
public:
    CGalleryPage();

    // bSnapshot: the page is shown for a snapshot, so it shows statically what a user would
    // only see by moving the mouse. The object deletes itself when its window goes, also when
    // creation fails.
    BOOL CreatePage(CWnd* pParentWnd, const RECT& rect, UINT nID, CFont* pFont, BOOL bSnapshot);
    // Snapshot mode: states of the page beyond the one it opens in, each saved as a picture of its
    // own. For nState 1, 2... the page takes on that state and returns its name (for the file),
    // setting *phWndPopup to a window of its own that the state shows over the page, or null; past
    // the last state it closes what the states opened and returns null.
    virtual LPCTSTR EnterSnapshotState(int nState, HWND* phWndPopup);

protected:
    static const int MARGIN = 16;
    static const int GAP = 8;
    static const int LINE_HEIGHT = 18; // one line of text in the page's font
    static const int EDIT_HEIGHT = 24;

    virtual void LayoutControls(int cx, int cy) = 0;
    // A static text in the page's font; the layout places it.
    BOOL CreateLabel(CStatic& label, LPCTSTR lpszText, DWORD dwStyle = SS_LEFT);
    // Places a page's introduction of nLines lines at the top; returns where the rest begins.
    int PlaceIntro(CStatic& intro, int cx, int nLines);
    // Gives a control created by the page the page's font.
    void UseFont(CWnd& wnd) { wnd.SetFont(m_pFont, FALSE); }

    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void PostNcDestroy() override;
    afx_msg void OnSize(UINT nType, int cx, int cy);
    DECLARE_MESSAGE_MAP()

    CFont* m_pFont;
    BOOL m_bSnapshot;
};
