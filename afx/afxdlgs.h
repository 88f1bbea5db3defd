// The common dialogs: CCommonDialog and the modeless find and replace dialog, as in MFC.
#pragma once

#include <afxwin.h>

#include <commdlg.h>

// A dialog of the system's common dialog library. The library's own dialog procedure handles
// OK and Cancel, so they go to the window's default processing instead of ending the dialog.
class AFX_CORE_CLASS CCommonDialog : public CDialog
{
    DECLARE_DYNAMIC(CCommonDialog)
public:
    explicit CCommonDialog(CWnd* pParentWnd);

protected:
    void OnOK() override;
    void OnCancel() override;
};

// The find (or find and replace) dialog. It lives on the heap and deletes itself when its
// window is destroyed. Its owner receives the registered message m_nFindReplaceMsg (the
// system's FINDMSGSTRING) with the address of m_fr in lParam; GetNotifier turns that back into
// the dialog, whose members then tell what the user asked for:
//
//   ON_REGISTERED_MESSAGE(CFindReplaceDialog::m_nFindReplaceMsg, OnFindReplace)
//
// A custom template is used by setting FR_ENABLETEMPLATE with m_fr.hInstance and
// m_fr.lpTemplateName (or FR_ENABLETEMPLATEHANDLE with a template in m_fr.hInstance) before
// Create.
class AFX_CORE_CLASS CFindReplaceDialog : public CCommonDialog
{
    DECLARE_DYNAMIC(CFindReplaceDialog)
public:
    CFindReplaceDialog();

    // The texts are cut to the buffers of m_fr (128 characters with the terminator). A null
    // parent stands for the main window; without an owner there is no dialog. On failure the
    // object has already deleted itself.
    BOOL Create(BOOL bFindDialogOnly, LPCTSTR lpszFindWhat, LPCTSTR lpszReplaceWith = NULL, DWORD dwFlags = FR_DOWN,
                CWnd* pParentWnd = NULL);

    FINDREPLACE m_fr;
    static const UINT m_nFindReplaceMsg;

    // The dialog whose m_fr is at lParam of a find-replace message (NULL for a null lParam).
    static CFindReplaceDialog* PASCAL GetNotifier(LPARAM lParam);

    CString GetFindString() const { return m_fr.lpstrFindWhat; }
    CString GetReplaceString() const { return m_fr.lpstrReplaceWith; }
    BOOL SearchDown() const { return (m_fr.Flags & FR_DOWN) != 0; }
    BOOL FindNext() const { return (m_fr.Flags & FR_FINDNEXT) != 0; }
    BOOL MatchCase() const { return (m_fr.Flags & FR_MATCHCASE) != 0; }
    BOOL MatchWholeWord() const { return (m_fr.Flags & FR_WHOLEWORD) != 0; }
    BOOL ReplaceCurrent() const { return (m_fr.Flags & FR_REPLACE) != 0; }
    BOOL ReplaceAll() const { return (m_fr.Flags & FR_REPLACEALL) != 0; }
    BOOL IsTerminating() const { return (m_fr.Flags & FR_DIALOGTERM) != 0; }

protected:
    void PostNcDestroy() override;

    TCHAR m_szFindWhat[128];
    TCHAR m_szReplaceWith[128];
};
