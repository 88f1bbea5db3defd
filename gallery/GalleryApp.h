// KelGallery: a host application of KelControls that shows its controls, one page per family.
//
// "KelGallery" runs live; "KelGallery --snapshot FOLDER" shows every page in turn, saves each
// as a PNG file in FOLDER, prints the files' paths and exits (non-zero when a page failed).
#pragma once

#include <afxwin.h>

class CGalleryApp : public CWinApp
{
public:
    CGalleryApp();

    BOOL InitInstance() override;
    int ExitInstance() override;

    BOOL IsSnapshotMode() const { return !m_strSnapshotFolder.IsEmpty(); }
    const CString& GetSnapshotFolder() const { return m_strSnapshotFolder; }
    // A failure: on stderr in snapshot mode, where nobody could close a message box, else in one.
    void ReportError(LPCTSTR lpszText);

private:
    BOOL ParseCommandLine();

    CString m_strSnapshotFolder; // empty when running live
    CDynLinkLibrary* m_pKelControlsLink;
    BOOL m_bStartFailed;
};

CGalleryApp* GetGalleryApp();

// Registers a window class of the gallery under its instance, once: TRUE when the class is
// (or already was) registered. The arrow is the cursor; pfnWndProc is the class's own
// procedure, which the window object's message map comes before.
BOOL RegisterGalleryClass(LPCTSTR lpszClassName, UINT nClassStyle, HBRUSH hbrBackground,
                          WNDPROC pfnWndProc = ::DefWindowProcA);
