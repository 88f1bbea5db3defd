// A host of the installed SDK: the library loads with the program, an edit created under a
// parent is the library's, and text typed into it reads back through the value types. Exits
// 0 when every check holds; otherwise names the first that failed and exits 1.
#include <afxwin.h>

#include <stdio.h>

#include "KelControls.h"
#include "frame/EditTip.h"
#include "kelutil/KEL_Util.h"

class CPackageHostApp : public CWinApp
{
public:
    BOOL InitInstance() override;
    int ExitInstance() override;

private:
    int m_nExitCode = 1;
};

CPackageHostApp theApp;

namespace
{
// Types the text over the edit's whole content, as a user would, and answers what it holds.
CString Retype(CEdit& edit, const char* pszText)
{
    edit.SetSel(0, -1);
    for (const char* p = pszText; *p != '\0'; ++p)
        edit.SendMessage(WM_CHAR, static_cast<BYTE>(*p), 1);
    CString text;
    edit.GetWindowText(text);
    return text;
}

// The first check that failed, or NULL.
const char* FirstFailure()
{
    if (!KEL_Util_Running())
        return "KEL_Util.dll did not answer";

    CWnd parent;
    CEdit edit;
    if (!parent.CreateEx(0, "STATIC", "", WS_POPUP, CRect(0, 0, 300, 60), NULL, 0) ||
        !edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(10, 10, 290, 34), &parent, 100))
        return "the edit could not be created";
    // Loading the library replaced the process's "edit" class with its own.
    HINSTANCE hClassModule = reinterpret_cast<HINSTANCE>(::GetClassLongPtr(edit.m_hWnd, GCLP_HMODULE));
    if (hClassModule == NULL || hClassModule != CKelControlsModule::GetInstanceHandle())
        return "the edit is not the library's";
    // The tooltip's test of the library judges the host's edit.
    Retype(edit, "a text far longer than an edit of this width can show at once, by far");
    if (EditTextFits(edit.m_hWnd))
        return "an overflowing text was said to fit";

    CKelDate date(0);
    CString message;
    if (!date.ValidateAndSet(Retype(edit, "12/31/99"), &message) || date.GetYear() != 1999 ||
        date.GetMonth() != 12 || date.GetDay() != 31)
        return "the typed date did not read back as 31 December 1999";

    LONG nValue = 0;
    if (CLong::ValidateAndGet(Retype(edit, "2147483648"), nValue, &message) || message.IsEmpty())
        return "a number past the range of CLong was taken";
    if (!CLong::ValidateAndGet(Retype(edit, "-42"), nValue, &message) || nValue != -42)
        return "the typed number did not read back as -42";
    if (!EditTextFits(edit.m_hWnd))
        return "a short text was said not to fit";
    return NULL;
}
} // namespace

BOOL CPackageHostApp::InitInstance()
{
    const char* pszFailure = FirstFailure();
    if (pszFailure != NULL)
        fprintf(stderr, "failed: %s\n", pszFailure);
    else
        printf("passed: the library loaded; its edit measured typed text and gave back a date and numbers\n");
    m_nExitCode = pszFailure != NULL ? 1 : 0;
    // Nothing to run: the checks are the program.
    return FALSE;
}

int CPackageHostApp::ExitInstance()
{
    CWinApp::ExitInstance();
    return m_nExitCode;
}
