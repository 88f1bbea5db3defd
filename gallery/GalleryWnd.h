// The gallery's main window: the list of pages on the left, the selected page on the right.
#pragma once

#include <afxwin.h>
#include <afxtempl.h>

class CGalleryPage;

// Posted to the main window in snapshot mode: saves every page, then closes the window.
#define WM_GALLERY_SNAPSHOT (WM_APP + 1)

class CGalleryWnd : public CWnd
{
public:
    CGalleryWnd();

    // The window object deletes itself when its window goes, also when creation fails.
    BOOL CreateGallery(BOOL bSnapshot);

protected:
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void PostNcDestroy() override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnDestroy();
    afx_msg void OnPageListSelChange();
    afx_msg LRESULT OnSnapshot(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    BOOL SelectPage(int nPage);
    CRect GetPageRect() const;
    // The page with a window of its own over it (hWndPopup, null for none), its client area and
    // caption placed as they are on the screen.
    BOOL SaveSnapshot(LPCTSTR lpszPath, HWND hWndPopup);
    // Saves the selected page's snapshot and names its file on the standard output.
    BOOL SaveSnapshotAs(const CString& strPath, HWND hWndPopup);
    static void PumpPendingMessages();
    // The page's file name; a further state of the page adds a letter to the number and the
    // state's name: 06-grid.png, 06b-grid-find.png...
    static CString GetSnapshotFileName(int nPage, int nState = 0, LPCTSTR lpszState = NULL);

    CListBox m_wndPageList;
    CFont m_font;
    // Created on first selection; each page deletes itself with its window.
    CArray<CGalleryPage*, CGalleryPage*> m_apPages;
    int m_nCurPage;
    BOOL m_bSnapshot;
    int m_nExitCode;
};
