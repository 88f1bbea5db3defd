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
    BOOL SaveSnapshot(LPCTSTR lpszPath);
    static void PumpPendingMessages();
    static CString GetSnapshotFileName(int nPage);

    CListBox m_wndPageList;
    CFont m_font;
    // Created on first selection; each page deletes itself with its window.
    CArray<CGalleryPage*, CGalleryPage*> m_apPages;
    int m_nCurPage;
    BOOL m_bSnapshot;
    int m_nExitCode;
};
