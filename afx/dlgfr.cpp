// The common dialog base and the find and replace dialog.
#include <afxdlgs.h>

#include <string.h>

namespace
{
// Where m_fr lies in the object, for GetNotifier; the same for every object.
ptrdiff_t s_nFindReplaceOffset = 0;

// The common dialog library calls this from its own dialog procedure; the object was attached
// to the window when it was created.
UINT_PTR CALLBACK AfxCommDlgHook(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
        return static_cast<UINT_PTR>(AfxDlgProc(hWnd, message, wParam, lParam));
    return 0;
}

void CopyText(LPTSTR lpszBuffer, WORD wBufferLen, LPCTSTR lpszText)
{
    if (lpszBuffer != NULL && lpszText != NULL && wBufferLen > 0)
        lstrcpynA(lpszBuffer, lpszText, wBufferLen);
}
} // namespace

IMPLEMENT_DYNAMIC(CCommonDialog, CDialog)

CCommonDialog::CCommonDialog(CWnd* pParentWnd) : CDialog(static_cast<UINT>(0), pParentWnd) {}

void CCommonDialog::OnOK()
{
    if (!UpdateData(TRUE))
        return;
    Default();
}

void CCommonDialog::OnCancel()
{
    Default();
}

IMPLEMENT_DYNAMIC(CFindReplaceDialog, CCommonDialog)

const UINT CFindReplaceDialog::m_nFindReplaceMsg = ::RegisterWindowMessageA(FINDMSGSTRINGA);

CFindReplaceDialog::CFindReplaceDialog() : CCommonDialog(NULL)
{
    s_nFindReplaceOffset = reinterpret_cast<BYTE*>(&m_fr) - reinterpret_cast<BYTE*>(this);
    memset(&m_fr, 0, sizeof(m_fr));
    m_szFindWhat[0] = '\0';
    m_szReplaceWith[0] = '\0';
    m_fr.lStructSize = sizeof(m_fr);
    m_fr.Flags = FR_ENABLEHOOK;
    m_fr.lpfnHook = AfxCommDlgHook;
    m_fr.lpstrFindWhat = m_szFindWhat;
    m_fr.wFindWhatLen = sizeof(m_szFindWhat);
    m_fr.lpstrReplaceWith = m_szReplaceWith;
    m_fr.wReplaceWithLen = sizeof(m_szReplaceWith);
}

BOOL CFindReplaceDialog::Create(BOOL bFindDialogOnly, LPCTSTR lpszFindWhat, LPCTSTR lpszReplaceWith, DWORD dwFlags,
                                CWnd* pParentWnd)
{
    m_fr.Flags |= dwFlags;
    m_fr.hwndOwner = pParentWnd != NULL ? pParentWnd->m_hWnd : AfxGetMainWnd()->GetSafeHwnd();
    CopyText(m_fr.lpstrFindWhat, m_fr.wFindWhatLen, lpszFindWhat);
    CopyText(m_fr.lpstrReplaceWith, m_fr.wReplaceWithLen, lpszReplaceWith);
    AfxHookWindowCreate(this);
    HWND hWnd = bFindDialogOnly ? ::FindTextA(&m_fr) : ::ReplaceTextA(&m_fr);
    if (!AfxUnhookWindowCreate())
        PostNcDestroy(); // never attached: nothing else will delete the object
    return hWnd != NULL;
}

CFindReplaceDialog* PASCAL CFindReplaceDialog::GetNotifier(LPARAM lParam)
{
    if (lParam == 0)
        return NULL;
    return reinterpret_cast<CFindReplaceDialog*>(reinterpret_cast<BYTE*>(lParam) - s_nFindReplaceOffset);
}

void CFindReplaceDialog::PostNcDestroy()
{
    delete this;
}
