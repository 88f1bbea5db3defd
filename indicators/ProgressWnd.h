// CProgressWnd: a small floating window with a few lines of status text, a progress bar and a
// Cancel button, for long work done on the user-interface thread. The caller drives it (SetPos,
// StepIt, SetText), calls PeekAndPump now and then so that the application keeps answering and
// the user can cancel, and polls Cancelled(). Cancel is the button, Escape (when PeekAndPump is
// asked to watch for it) or, in modal mode, a click on the button while the main window is
// disabled.
//
// Modal mode (GoModal) disables the application's main window until DestroyWindow.
//
// The window's position is kept in the application's profile (section "Settings", keys "X" and
// "Y") through the application object's profile functions. A program without an application
// object (AfxGetApp() null) has no profile: the window is centred and nothing is saved.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

class AFX_EXT_CLASS CProgressWnd : public CWnd
{
    DECLARE_DYNAMIC(CProgressWnd)
public:
    CProgressWnd();
    // Creates the window at once (see Create).
    CProgressWnd(CWnd* pParent, LPCTSTR lpszTitle, BOOL bSmooth = FALSE);
    ~CProgressWnd() override;

    // Creates the window, owned by pParent or else by the application's main window, places it
    // (see GetPreviousSettings) and shows it without activating it.
    BOOL Create(CWnd* pParent, LPCTSTR lpszTitle, BOOL bSmooth = FALSE);
    // Creates the window if needed, owned by the main window, and disables the main window
    // until DestroyWindow.
    BOOL GoModal(LPCTSTR lpszTitle = _T("Progress"), BOOL bSmooth = FALSE);

    void SetRange(int nLower, int nUpper, int nStep = 1);
    // Shows a hidden window, puts the title back in the caption and moves the bar; returns the
    // bar's previous position. Without a window it changes nothing and returns the stored
    // position.
    int SetPos(int nPos);
    int OffsetPos(int nPos);
    int StepIt();
    // Returns the previous step.
    int SetStep(int nStep);
    int GetPos() const;

    // printf-style; the text is cut at 511 characters.
    void SetText(LPCTSTR lpszFormat, ...);
    void SetTitleText(LPCTSTR lpszTitle);
    // Empties the text, puts the bar back to 0 and forgets a cancel.
    void Clear();
    void Hide();
    // Shows a hidden window without activating it.
    void Show();
    void HideCancel();
    void ShowCancel();
    BOOL Cancelled() const { return m_bCancelled; }

    // Lets the application handle the messages waiting in the thread's queue, and watches them
    // for a cancel: Escape typed anywhere in the thread when bCancelOnEscape is set, and in
    // modal mode a click released over the Cancel button. Returns FALSE once cancelled, and
    // when the application is ending (the quit message is posted again for the caller's loop).
    BOOL PeekAndPump(BOOL bCancelOnEscape = TRUE);

    // Saves the position (when kept in the profile) and enables the main window again in modal
    // mode before the window goes.
    BOOL DestroyWindow() override;

    // Room for nTextLines lines of text in the window's font, the bar beside the Cancel button
    // under them, in a window about nWidth wide.
    void SetWindowSize(int nTextLines, int nWidth = DEFAULT_WIDTH);
    // Moves the window to the position kept in the profile, or centres it when there is none or
    // it lies off the screen.
    void GetPreviousSettings();
    void SaveCurrentSettings();

    enum
    {
        DEFAULT_WIDTH = 390,
        DEFAULT_HEIGHT = 130,
        IDC_CANCEL = 10,
        IDC_TEXT = 11,
        IDC_PROGRESS = 12
    };

protected:
    afx_msg void OnCancel();
    afx_msg void OnClose();
    DECLARE_MESSAGE_MAP()

    BOOL m_bCancelled;
    BOOL m_bModal;
    BOOL m_bPersistSettings;
    int m_nPos;
    int m_nStep;
    int m_nUpper;
    int m_nLower;
    int m_nTextLines;
    CStatic m_wndText;
    CProgressCtrl m_wndProgress;
    CButton m_wndCancel;
    CString m_strTitle;
    CString m_strCancelLabel;
    CFont m_font;

private:
    void CommonConstruct();
};
