// CDialog and the modal loop of CWnd.
#include <afxwin.h>

#include <string.h>

namespace
{
// The record messages of dialog initialisation data keep their 16-bit Windows values.
const WORD DLGINIT_LB_ADDSTRING = 0x0401;
const WORD DLGINIT_CB_ADDSTRING = 0x0403;

// Finds a dialog template resource along the resource chain.
LPCDLGTEMPLATE LoadDialogTemplate(LPCTSTR lpszTemplateName, HINSTANCE& hInst)
{
    hInst = AfxFindResourceHandle(lpszTemplateName, RT_DIALOG);
    HRSRC hFound = ::FindResourceA(hInst, lpszTemplateName, RT_DIALOG);
    HGLOBAL hTemplate = hFound != NULL ? ::LoadResource(hInst, hFound) : NULL;
    return hTemplate != NULL ? static_cast<LPCDLGTEMPLATE>(::LockResource(hTemplate)) : NULL;
}

// Walks the records of dialog initialisation data up to the terminating zero, or up to pEnd
// when the data's size is known.
BOOL SendDlgInitRecords(HWND hDlg, const BYTE* p, const BYTE* pEnd)
{
    const size_t nHeader = 2 * sizeof(WORD) + sizeof(DWORD);
    BOOL bSuccess = TRUE;
    for (;;)
    {
        size_t nLeft = pEnd != NULL ? static_cast<size_t>(pEnd - p) : static_cast<size_t>(-1);
        WORD nIDC = 0;
        if (nLeft < sizeof(WORD))
            break;
        memcpy(&nIDC, p, sizeof(WORD));
        if (nIDC == 0 || nLeft < nHeader)
            break;
        WORD nMsg = 0;
        DWORD dwLen = 0;
        memcpy(&nMsg, p + sizeof(WORD), sizeof(WORD));
        memcpy(&dwLen, p + 2 * sizeof(WORD), sizeof(DWORD));
        if (nLeft - nHeader < dwLen)
            break;
        UINT nSend = nMsg == DLGINIT_LB_ADDSTRING ? LB_ADDSTRING : nMsg == DLGINIT_CB_ADDSTRING ? CB_ADDSTRING : 0;
        if (nSend != 0)
        {
            const char* pItem = reinterpret_cast<const char*>(p + nHeader);
            CString strItem(pItem, static_cast<int>(strnlen(pItem, dwLen)));
            if (static_cast<int>(::SendDlgItemMessageA(hDlg, nIDC, nSend, 0, reinterpret_cast<LPARAM>(static_cast<LPCTSTR>(strItem)))) < 0)
                bSuccess = FALSE;
        }
        p += nHeader + dwLen;
    }
    return bSuccess;
}

// The window that owns a modal dialog: the given parent or else the main window, raised to
// its top-level window since a popup cannot be owned by a child. Without a given parent the
// main window's last active popup owns it. hWndTop receives the top-level window above the
// owner, if any, which is disabled as well.
HWND FindModalOwner(CWnd* pParentWnd, HWND& hWndTop)
{
    HWND hWnd = pParentWnd->GetSafeHwnd();
    BOOL bParentGiven = hWnd != NULL;
    if (!bParentGiven)
        hWnd = AfxGetMainWnd()->GetSafeHwnd();
    while (hWnd != NULL && (::GetWindowLongA(hWnd, GWL_STYLE) & WS_CHILD))
        hWnd = ::GetParent(hWnd);
    hWndTop = NULL;
    for (HWND hWndAbove = hWnd; hWndAbove != NULL; hWndAbove = ::GetParent(hWndAbove))
        hWndTop = hWndAbove;
    if (!bParentGiven && hWnd != NULL)
        hWnd = ::GetLastActivePopup(hWnd);
    if (hWndTop == hWnd)
        hWndTop = NULL;
    return hWnd;
}
} // namespace

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, OnOK)
ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

INT_PTR CALLBACK AfxDlgProc(HWND hWnd, UINT message, WPARAM, LPARAM)
{
    if (message != WM_INITDIALOG)
        return FALSE;
    CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
    CDialog* pDlg = DYNAMIC_DOWNCAST(CDialog, pWnd);
    return pDlg != NULL ? pDlg->OnInitDialog() : TRUE;
}

CDialog::CDialog()
    : m_lpszTemplateName(NULL), m_hDialogTemplate(NULL), m_lpDialogTemplate(NULL), m_lpDialogInit(NULL),
      m_pParentWnd(NULL)
{
}

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
    : m_lpszTemplateName(lpszTemplateName), m_hDialogTemplate(NULL), m_lpDialogTemplate(NULL),
      m_lpDialogInit(NULL), m_pParentWnd(pParentWnd)
{
}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : CDialog(MAKEINTRESOURCEA(nIDTemplate), pParentWnd) {}

CDialog::~CDialog()
{
    // Destroyed here rather than by CWnd, while the dialog's own handlers can still run.
    if (m_hWnd != NULL)
        DestroyWindow();
}

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
{
    m_lpszTemplateName = lpszTemplateName;
    HINSTANCE hInst = NULL;
    LPCDLGTEMPLATE lpTemplate = LoadDialogTemplate(lpszTemplateName, hInst);
    return lpTemplate != NULL && CreateIndirect(lpTemplate, pParentWnd, NULL, hInst);
}

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParentWnd)
{
    return Create(MAKEINTRESOURCEA(nIDTemplate), pParentWnd);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void* lpDialogInit)
{
    m_lpszTemplateName = NULL; // no resource name: no initialisation data resource either
    return CreateIndirect(lpDialogTemplate, pParentWnd, lpDialogInit, AfxGetResourceHandle());
}

BOOL CDialog::CreateIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd)
{
    if (hDialogTemplate == NULL)
        return FALSE;
    LPCDLGTEMPLATE lpTemplate = static_cast<LPCDLGTEMPLATE>(::GlobalLock(hDialogTemplate));
    BOOL bResult = CreateIndirect(lpTemplate, pParentWnd);
    ::GlobalUnlock(hDialogTemplate);
    return bResult;
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void* lpDialogInit, HINSTANCE hInst)
{
    m_lpDialogInit = lpDialogInit;
    return CreateDlgIndirect(lpDialogTemplate, pParentWnd != NULL ? pParentWnd : AfxGetMainWnd(), hInst);
}

BOOL CDialog::CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst)
{
    if (lpDialogTemplate == NULL || m_hWnd != NULL)
        return FALSE;
    m_nModalResult = -1;
    // EndDialog clears this; when that happens during OnInitDialog the window is not kept.
    m_bInModalLoop = TRUE;
    AfxHookWindowCreate(this);
    HWND hWnd = ::CreateDialogIndirectParamA(hInst, lpDialogTemplate, pParentWnd->GetSafeHwnd(), AfxDlgProc, 0);
    if (!AfxUnhookWindowCreate())
        PostNcDestroy(); // never attached: the system refused the template
    if (hWnd != NULL && !ContinueModal())
    {
        ::DestroyWindow(hWnd);
        hWnd = NULL;
    }
    return hWnd != NULL;
}

// The template given last is the one DoModal uses.
BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void* lpDialogInit)
{
    m_lpszTemplateName = NULL;
    m_hDialogTemplate = NULL;
    m_lpDialogTemplate = lpDialogTemplate;
    m_lpDialogInit = lpDialogInit;
    m_pParentWnd = pParentWnd;
    return TRUE;
}

BOOL CDialog::InitModalIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd)
{
    m_lpszTemplateName = NULL;
    m_hDialogTemplate = hDialogTemplate;
    m_lpDialogTemplate = NULL;
    m_lpDialogInit = NULL;
    m_pParentWnd = pParentWnd;
    return TRUE;
}

INT_PTR CDialog::DoModal()
{
    if (m_hWnd != NULL)
        return -1; // already made modeless
    HINSTANCE hInst = AfxGetResourceHandle();
    LPCDLGTEMPLATE lpTemplate = m_lpDialogTemplate;
    if (m_lpszTemplateName != NULL)
        lpTemplate = LoadDialogTemplate(m_lpszTemplateName, hInst);
    else if (m_hDialogTemplate != NULL)
        lpTemplate = static_cast<LPCDLGTEMPLATE>(::GlobalLock(m_hDialogTemplate));
    if (lpTemplate == NULL)
        return -1;

    // The owner (and the top-level window above it) stay disabled while the dialog runs.
    HWND hWndTop = NULL;
    HWND hWndOwner = FindModalOwner(m_pParentWnd, hWndTop);
    BOOL bEnableOwner = hWndOwner != NULL && ::IsWindowEnabled(hWndOwner);
    if (bEnableOwner)
        ::EnableWindow(hWndOwner, FALSE);
    BOOL bEnableTop = hWndTop != NULL && ::IsWindowEnabled(hWndTop);
    if (bEnableTop)
        ::EnableWindow(hWndTop, FALSE);

    if (CreateDlgIndirect(lpTemplate, CWnd::FromHandle(hWndOwner), hInst))
    {
        if (ContinueModal())
            RunModalLoop(MLF_SHOWONIDLE | ((GetStyle() & DS_NOIDLEMSG) ? MLF_NOIDLEMSG : 0));
        // Hidden before the owner is enabled, so that the owner is activated, not another window.
        if (m_hWnd != NULL)
            SetWindowPos(NULL, 0, 0, 0, 0,
                         SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    }

    if (bEnableTop && ::IsWindow(hWndTop))
        ::EnableWindow(hWndTop, TRUE);
    if (bEnableOwner)
        ::EnableWindow(hWndOwner, TRUE);
    if (hWndOwner != NULL && ::GetActiveWindow() == m_hWnd)
        ::SetActiveWindow(hWndOwner);
    DestroyWindow();

    if (m_lpszTemplateName == NULL && m_hDialogTemplate != NULL)
        ::GlobalUnlock(m_hDialogTemplate);
    return m_nModalResult;
}

BOOL CDialog::OnInitDialog()
{
    BOOL bDlgInit = m_lpDialogInit != NULL ? ExecuteDlgInit(m_lpDialogInit) : ExecuteDlgInit(m_lpszTemplateName);
    if (!bDlgInit || !UpdateData(FALSE))
    {
        EndDialog(-1);
        return FALSE;
    }
    return TRUE;
}

BOOL CDialog::ExecuteDlgInit(LPCTSTR lpszResourceName)
{
    if (lpszResourceName == NULL)
        return TRUE;
    LPCTSTR lpszType = MAKEINTRESOURCEA(240); // RT_DLGINIT
    HINSTANCE hInst = AfxFindResourceHandle(lpszResourceName, lpszType);
    HRSRC hFound = ::FindResourceA(hInst, lpszResourceName, lpszType);
    if (hFound == NULL)
        return TRUE;
    HGLOBAL hData = ::LoadResource(hInst, hFound);
    const BYTE* pData = hData != NULL ? static_cast<const BYTE*>(::LockResource(hData)) : NULL;
    if (pData == NULL)
        return FALSE;
    return SendDlgInitRecords(m_hWnd, pData, pData + ::SizeofResource(hInst, hFound));
}

BOOL CDialog::ExecuteDlgInit(LPVOID lpResource)
{
    return lpResource == NULL || SendDlgInitRecords(m_hWnd, static_cast<const BYTE*>(lpResource), NULL);
}

void CDialog::OnOK()
{
    // A failed exchange has told the user and put the focus on the offending control.
    if (!UpdateData(TRUE))
        return;
    EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

void CDialog::EndDialog(int nResult)
{
    ASSERT(::IsWindow(m_hWnd));
    EndModalLoop(nResult);
    ::EndDialog(m_hWnd, nResult);
}

void CDialog::GotoDlgCtrl(CWnd* pWndCtrl)
{
    ASSERT(::IsWindow(m_hWnd));
    if (pWndCtrl->GetSafeHwnd() != NULL)
        SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(pWndCtrl->m_hWnd), TRUE);
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    ASSERT(::IsWindow(m_hWnd));
    BOOL bInput = (pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST) ||
                  (pMsg->message >= WM_MOUSEFIRST && pMsg->message <= WM_MOUSELAST);
    return bInput && ::IsDialogMessageA(m_hWnd, pMsg);
}

// ---------------------------------------------------------------------------------------------
// The modal loop of CWnd

int CWnd::RunModalLoop(DWORD dwFlags)
{
    ASSERT(::IsWindow(m_hWnd));
    BOOL bShowIdle = (dwFlags & MLF_SHOWONIDLE) && !(GetStyle() & WS_VISIBLE);
    HWND hWndParent = ::GetParent(m_hWnd);
    BOOL bIdle = TRUE;
    m_bInModalLoop = TRUE;
    MSG msg;
    // A window destroyed meanwhile ends the loop too: nothing could end it any more.
    while (ContinueModal() && m_hWnd != NULL)
    {
        // The queue ran empty: show the window the first time, tell the parent once per idle period.
        if (bIdle && !::PeekMessageA(&msg, NULL, 0, 0, PM_NOREMOVE))
        {
            if (bShowIdle)
            {
                ShowWindow(SW_SHOWNORMAL);
                UpdateWindow();
                bShowIdle = FALSE;
            }
            if (!(dwFlags & MLF_NOIDLEMSG) && hWndParent != NULL)
                ::SendMessageA(hWndParent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
            bIdle = FALSE;
            continue;
        }
        // The message about to be pumped decides whether a new idle period begins.
        BOOL bPeeked = ::PeekMessageA(&msg, NULL, 0, 0, PM_NOREMOVE);
        if (!AfxPumpMessage())
        {
            m_bInModalLoop = FALSE;
            return -1; // WM_QUIT, posted again for the outer loop
        }
        CWinThread* pThread = AfxGetThread();
        if (bPeeked && (pThread == NULL || pThread->IsIdleMessage(&msg)))
            bIdle = TRUE;
    }
    m_bInModalLoop = FALSE;
    return m_nModalResult;
}

BOOL CWnd::ContinueModal()
{
    return m_bInModalLoop;
}

void CWnd::EndModalLoop(int nResult)
{
    m_nModalResult = nResult;
    if (m_bInModalLoop)
    {
        m_bInModalLoop = FALSE;
        PostMessage(WM_NULL); // wakes the loop from its wait for a message
    }
}
