#include <afxwin.h>
#include <afxres.h>

#include <type_traits>


namespace
{
// Calls a handler that an entry keeps as AFX_PMSG with its own signature TPmf, and makes its
// result the message's answer: lVoidResult when it returns nothing.
template <class TPmf>
class CHandlerCall;

template <class TTarget, class TResult, class... TArgs>
class CHandlerCall<TResult (TTarget::*)(TArgs...)>
{
public:
    CHandlerCall(TTarget* pTarget, AFX_PMSG pfn, LRESULT lVoidResult)
        : m_pTarget(pTarget), m_pfn(AfxPmsgCast<TResult (TTarget::*)(TArgs...)>(pfn)), m_lVoidResult(lVoidResult)
    {
    }

    LRESULT operator()(TArgs... args) const
    {
        if constexpr (std::is_void<TResult>::value)
        {
            (m_pTarget->*m_pfn)(args...);
            return m_lVoidResult;
        }
        else if constexpr (std::is_pointer<TResult>::value)
            return reinterpret_cast<LRESULT>((m_pTarget->*m_pfn)(args...));
        else
            return static_cast<LRESULT>((m_pTarget->*m_pfn)(args...));
    }

private:
    TTarget* m_pTarget;
    TResult (TTarget::*m_pfn)(TArgs...);
    LRESULT m_lVoidResult;
};

// One case of a dispatch switch, from a row of the signature tables (afxmsg_.h).
#define AFX_SIG_CASE(sig, type, args, lVoidResult)                                                \
    case sig:                                                                                      \
        lResult = CHandlerCall<type>(this, lpEntry->pfn, lVoidResult) args;                        \
        break;

int GetXParam(LPARAM lParam)
{
    return static_cast<short>(LOWORD(lParam));
}

int GetYParam(LPARAM lParam)
{
    return static_cast<short>(HIWORD(lParam));
}

typedef CHandleMap<CWnd, HWND, &CWnd::m_hWnd> CWndMap;

// The message being handled, saved and restored around every call so that nested messages
// (a handler that sends a message) leave Default() of the outer handler intact.
thread_local MSG t_lastSentMsg = {};
thread_local HWND t_hWndLockout = NULL;

// The object to attach to the next window this thread creates, and the hook that attaches it:
// installed for one creation only, and removed as soon as the window is attached, so that a
// window created from that window's own creation messages installs a hook of its own.
thread_local CWnd* t_pWndInit = NULL;
thread_local HHOOK t_hHookCbt = NULL;

void UnhookCbt()
{
    ::UnhookWindowsHookEx(t_hHookCbt);
    t_hHookCbt = NULL;
}

LRESULT CALLBACK AfxCbtFilterHook(int code, WPARAM wParam, LPARAM lParam)
{
    HHOOK hHook = t_hHookCbt;
    if (code == HCBT_CREATEWND && t_pWndInit != NULL)
    {
        // Unhooked before anything else runs, so a window created from here on hooks anew.
        CWnd* pWndInit = t_pWndInit;
        t_pWndInit = NULL;
        UnhookCbt();
        HWND hWnd = reinterpret_cast<HWND>(wParam);
        pWndInit->Attach(hWnd);
        pWndInit->PreSubclassWindow();
        WNDPROC pfnOld = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrA(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
        if (pfnOld != &AfxWndProc)
            pWndInit->m_pfnSuper = pfnOld;
    }
    return ::CallNextHookEx(hHook, code, wParam, lParam);
}

// Messages whose default handling in the parent offers them to the child control first.
bool IsReflectedToChild(UINT message)
{
    switch (message)
    {
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_DELETEITEM:
    case WM_COMPAREITEM:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_PARENTNOTIFY:
        return true;
    default:
        return false;
    }
}

// The owner messages that CWnd's own map does not route: the child control they concern.
HWND ChildOfUnmappedOwnerMessage(UINT message, LPARAM lParam)
{
    switch (message)
    {
    case WM_DELETEITEM:
        return reinterpret_cast<LPDELETEITEMSTRUCT>(lParam)->hwndItem;
    case WM_COMPAREITEM:
        return reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam)->hwndItem;
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
        return reinterpret_cast<HWND>(lParam);
    default:
        return NULL;
    }
}
} // namespace

// ---------------------------------------------------------------------------------------------
// CCmdTarget

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

CCmdTarget::CCmdTarget() {}

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, AfxSig_end, nullptr}};
    static const AFX_MSGMAP messageMap = {NULL, &entries[0]};
    return &messageMap;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

const AFX_MSGMAP_ENTRY* AFXAPI CCmdTarget::FindMessageEntry(const AFX_MSGMAP_ENTRY* lpEntry, UINT nMsg, UINT nCode,
                                                            UINT nID)
{
    for (; lpEntry->nSig != AfxSig_end; ++lpEntry)
    {
        if (lpEntry->nMessage == nMsg && lpEntry->nCode == nCode && nID >= lpEntry->nID && nID <= lpEntry->nLastID)
            return lpEntry;
    }
    return NULL;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, void*)
{
    UINT nMsg = HIWORD(nCode);
    nCode = LOWORD(nCode);
    if (nMsg == 0)
        nMsg = WM_COMMAND;
    for (const AFX_MSGMAP* pMap = GetMessageMap(); pMap != NULL;
         pMap = pMap->pfnGetBaseMap != NULL ? pMap->pfnGetBaseMap() : NULL)
    {
        const AFX_MSGMAP_ENTRY* lpEntry = FindMessageEntry(pMap->lpEntries, nMsg, static_cast<UINT>(nCode), nID);
        if (lpEntry == NULL)
            continue;
        AFX_NOTIFY* pNotify = static_cast<AFX_NOTIFY*>(pExtra);
        LRESULT lResult = FALSE;
        switch (lpEntry->nSig)
        {
            AFX_CMD_SIGNATURES(AFX_SIG_CASE)
        default:
            return FALSE;
        }
        return static_cast<BOOL>(lResult);
    }
    return FALSE;
}

// ---------------------------------------------------------------------------------------------
// CWnd: handle map

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

CWnd::CWnd() : m_hWnd(NULL), m_pfnSuper(NULL), m_nModalResult(0), m_bInModalLoop(FALSE) {}

CWnd::CWnd(HWND hWnd) : m_hWnd(hWnd), m_pfnSuper(NULL), m_nModalResult(0), m_bInModalLoop(FALSE) {}

CWnd::~CWnd()
{
    if (m_hWnd != NULL && FromHandlePermanent(m_hWnd) == this)
        DestroyWindow();
    if (m_hWnd != NULL)
        Detach();
}

CWnd* PASCAL CWnd::FromHandlePermanent(HWND hWnd)
{
    return CWndMap::FromHandlePermanent(hWnd);
}

CWnd* PASCAL CWnd::FromHandle(HWND hWnd)
{
    return CWndMap::FromHandle(hWnd);
}

void PASCAL CWnd::DeleteTempMap()
{
    CWndMap::DeleteTempMap();
}

BOOL CWnd::Attach(HWND hWndNew)
{
    // One permanent object per window: its messages can reach only one.
    return FromHandlePermanent(hWndNew) == NULL && CWndMap::Attach(this, hWndNew);
}

HWND CWnd::Detach()
{
    return CWndMap::Detach(this);
}

// ---------------------------------------------------------------------------------------------
// CWnd: creation and subclassing

void AFXAPI AfxHookWindowCreate(CWnd* pWnd)
{
    if (t_hHookCbt == NULL)
        t_hHookCbt = ::SetWindowsHookExA(WH_CBT, AfxCbtFilterHook, NULL, ::GetCurrentThreadId());
    t_pWndInit = t_hHookCbt != NULL ? pWnd : NULL;
}

BOOL AFXAPI AfxUnhookWindowCreate()
{
    if (t_hHookCbt != NULL)
        UnhookCbt();
    if (t_pWndInit != NULL)
    {
        t_pWndInit = NULL;
        return FALSE; // the window was never created
    }
    return TRUE;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    // A window created without a class gets the layer's plain window class, as in MFC:
    // double clicks, redrawn whole on resizing, the arrow cursor, no background brush.
    static const char s_szWndClass[] = "AfxWnd";
    if (cs.lpszClass != NULL)
        return TRUE;
    WNDCLASSA wc;
    if (!::GetClassInfoA(cs.hInstance, s_szWndClass, &wc))
    {
        ZeroMemory(&wc, sizeof(wc));
        wc.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
        wc.lpfnWndProc = ::DefWindowProcA;
        wc.hInstance = cs.hInstance;
        wc.hCursor = ::LoadCursor(NULL, IDC_ARROW);
        wc.lpszClassName = s_szWndClass;
        if (!::RegisterClassA(&wc))
            return FALSE;
    }
    cs.lpszClass = s_szWndClass;
    return TRUE;
}

void CWnd::PreSubclassWindow() {}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                    int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam)
{
    if (m_hWnd != NULL)
        return FALSE;
    CREATESTRUCTA cs;
    cs.dwExStyle = dwExStyle;
    cs.lpszClass = lpszClassName;
    cs.lpszName = lpszWindowName;
    cs.style = dwStyle;
    cs.x = x;
    cs.y = y;
    cs.cx = nWidth;
    cs.cy = nHeight;
    cs.hwndParent = hWndParent;
    cs.hMenu = nIDorHMenu;
    cs.hInstance = AfxGetInstanceHandle();
    cs.lpCreateParams = lpParam;
    if (!PreCreateWindow(cs))
    {
        PostNcDestroy();
        return FALSE;
    }
    AfxHookWindowCreate(this);
    HWND hWnd = ::CreateWindowExA(cs.dwExStyle, cs.lpszClass, cs.lpszName, cs.style, cs.x, cs.y, cs.cx, cs.cy,
                                  cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
    if (!AfxUnhookWindowCreate())
        PostNcDestroy(); // the hook never ran: the object is not attached
    return hWnd != NULL;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                    CWnd* pParentWnd, UINT nID, LPVOID lpParam)
{
    return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, pParentWnd->GetSafeHwnd(), reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)),
                    lpParam);
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                  UINT nID, LPVOID lpParam)
{
    // A plain CWnd is always a child window, as in MFC.
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID, lpParam);
}

BOOL CWnd::DestroyWindow()
{
    if (m_hWnd == NULL)
        return FALSE;
    bool bPermanent = FromHandlePermanent(m_hWnd) == this;
    BOOL bResult = ::DestroyWindow(m_hWnd);
    // A permanent object was detached by OnNcDestroy and may be deleted by now; a temporary
    // one never sees WM_NCDESTROY.
    if (!bPermanent)
        m_hWnd = NULL;
    return bResult;
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (!Attach(hWnd))
        return FALSE;
    PreSubclassWindow();
    WNDPROC pfnOld = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrA(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    if (m_pfnSuper == NULL && pfnOld != &AfxWndProc)
        m_pfnSuper = pfnOld;
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    HWND hWndControl = ::GetDlgItem(pParent->GetSafeHwnd(), nID);
    return hWndControl != NULL && SubclassWindow(hWndControl);
}

HWND CWnd::UnsubclassWindow()
{
    if (m_hWnd == NULL)
        return NULL;
    if (m_pfnSuper != NULL)
        ::SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
    m_pfnSuper = NULL;
    return Detach();
}

void CWnd::PostNcDestroy() {}

void CWnd::OnNcDestroy()
{
    // Let the window's own procedure see the message, then put it back in place so that the
    // window no longer reaches this object, and detach.
    LONG_PTR pfnBefore = ::GetWindowLongPtrA(m_hWnd, GWLP_WNDPROC);
    Default();
    if (::GetWindowLongPtrA(m_hWnd, GWLP_WNDPROC) == pfnBefore && m_pfnSuper != NULL)
        ::SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
    Detach();
    PostNcDestroy();
}

// ---------------------------------------------------------------------------------------------
// CWnd: message dispatch

HWND AFXAPI AfxSetLockoutNotifyWindow(HWND hWnd)
{
    HWND hWndOld = t_hWndLockout;
    t_hWndLockout = hWnd;
    return hWndOld;
}

LRESULT AFXAPI AfxProcessWndProcException(CException* e, const MSG* pMsg)
{
    if (pMsg->message == WM_CREATE)
        return -1; // the window is not created
    if (pMsg->message == WM_PAINT)
        ::ValidateRect(pMsg->hwnd, NULL); // or it would be painted, and fail, again and again
    if (!e->IsKindOf(RUNTIME_CLASS(CUserException)))
        e->ReportError(MB_ICONSTOP, AFX_IDP_INTERNAL_FAILURE);
    return 0;
}

LRESULT AFXAPI AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    MSG saved = t_lastSentMsg;
    t_lastSentMsg.hwnd = hWnd;
    t_lastSentMsg.message = nMsg;
    t_lastSentMsg.wParam = wParam;
    t_lastSentMsg.lParam = lParam;
    LRESULT lResult;
    // No exception may cross the system's code that called the window procedure.
    try
    {
        lResult = pWnd->WindowProc(nMsg, wParam, lParam);
    }
    catch (CException* e)
    {
        lResult = AfxProcessWndProcException(e, &t_lastSentMsg);
        e->Delete();
    }
    t_lastSentMsg = saved;
    return lResult;
}

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
    if (pWnd == NULL)
        return ::DefWindowProcA(hWnd, nMsg, wParam, lParam);
    return AfxCallWndProc(pWnd, hWnd, nMsg, wParam, lParam);
}

const MSG* PASCAL CWnd::GetCurrentMessage()
{
    t_lastSentMsg.time = ::GetMessageTime();
    DWORD pos = ::GetMessagePos();
    t_lastSentMsg.pt.x = GetXParam(pos);
    t_lastSentMsg.pt.y = GetYParam(pos);
    return &t_lastSentMsg;
}

LRESULT CWnd::Default()
{
    return DefWindowProc(t_lastSentMsg.message, t_lastSentMsg.wParam, t_lastSentMsg.lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_pfnSuper != NULL)
        return ::CallWindowProcA(m_pfnSuper, m_hWnd, message, wParam, lParam);
    return ::DefWindowProcA(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT lResult = 0;
    if (!OnWndMsg(message, wParam, lParam, &lResult))
        lResult = DefWindowProc(message, wParam, lParam);
    return lResult;
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT lResult = 0;
    if (message == WM_COMMAND)
    {
        if (!OnCommand(wParam, lParam))
            return FALSE;
        if (pResult != NULL)
            *pResult = 1;
        return TRUE;
    }
    if (message == WM_NOTIFY)
    {
        NMHDR* pNMHDR = reinterpret_cast<NMHDR*>(lParam);
        if (pNMHDR == NULL || pNMHDR->hwndFrom == NULL || !OnNotify(wParam, lParam, &lResult))
            return FALSE;
        if (pResult != NULL)
            *pResult = lResult;
        return TRUE;
    }

    // The WM_CTLCOLOR* family shares one map entry.
    UINT nLookup = message;
    if (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC)
        nLookup = WM_CTLCOLOR;

    const AFX_MSGMAP_ENTRY* lpEntry = NULL;
    for (const AFX_MSGMAP* pMap = GetMessageMap(); pMap != NULL && lpEntry == NULL;
         pMap = pMap->pfnGetBaseMap != NULL ? pMap->pfnGetBaseMap() : NULL)
    {
        for (const AFX_MSGMAP_ENTRY* p = pMap->lpEntries; p->nSig != AfxSig_end; ++p)
        {
            if (p->nMessage == AFX_REGISTERED_MESSAGE)
            {
                if (message >= 0xC000 && *reinterpret_cast<const UINT*>(p->nSig) == message)
                {
                    lpEntry = p;
                    break;
                }
            }
            else if (p->nMessage == nLookup && p->nCode == 0 && p->nID == 0)
            {
                lpEntry = p;
                break;
            }
        }
    }
    if (lpEntry == NULL)
    {
        // No handler: the control the message concerns may handle it.
        HWND hWndChild = ChildOfUnmappedOwnerMessage(message, lParam);
        if (hWndChild == NULL || !ReflectLastMsg(hWndChild, &lResult))
            return FALSE;
        if (pResult != NULL)
            *pResult = lResult;
        return TRUE;
    }

    UINT_PTR nSig = lpEntry->nMessage == AFX_REGISTERED_MESSAGE ? static_cast<UINT_PTR>(AfxSig_lwl) : lpEntry->nSig;
    CPoint point(GetXParam(lParam), GetYParam(lParam));
    switch (nSig)
    {
        AFX_WM_SIGNATURES(AFX_SIG_CASE)
    default:
        return FALSE;
    }
    if (pResult != NULL)
        *pResult = lResult;
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    UINT nID = LOWORD(wParam);
    HWND hWndCtrl = reinterpret_cast<HWND>(lParam);
    int nCode = HIWORD(wParam);
    if (hWndCtrl == NULL)
        nCode = CN_COMMAND; // a menu item or an accelerator
    else if (t_hWndLockout == m_hWnd)
        return TRUE; // exchanging data: not the user's doing
    else if (ReflectLastMsg(hWndCtrl))
        return TRUE; // the control handled its own notification
    return OnCmdMsg(nID, nCode, NULL, NULL);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult)
{
    NMHDR* pNMHDR = reinterpret_cast<NMHDR*>(lParam);
    if (t_hWndLockout == m_hWnd)
        return TRUE;
    if (ReflectLastMsg(pNMHDR->hwndFrom, pResult))
        return TRUE;
    AFX_NOTIFY notify;
    notify.pResult = pResult;
    notify.pNMHDR = pNMHDR;
    return OnCmdMsg(static_cast<UINT>(pNMHDR->idFrom), MAKELONG(pNMHDR->code, WM_NOTIFY), &notify, NULL);
}

BOOL PASCAL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult)
{
    CWnd* pWnd = CWnd::FromHandlePermanent(hWndChild);
    return pWnd != NULL && pWnd->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult)
{
    return OnChildNotify(t_lastSentMsg.message, t_lastSentMsg.wParam, t_lastSentMsg.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT lResult = 0;
    if (pResult == NULL)
        pResult = &lResult;
    if (IsReflectedToChild(message))
        return CWnd::OnWndMsg(WM_REFLECT_BASE + message, wParam, lParam, pResult);
    switch (message)
    {
    case WM_COMMAND:
        if (CCmdTarget::OnCmdMsg(0, MAKELONG(HIWORD(wParam), WM_REFLECT_BASE + WM_COMMAND), NULL, NULL))
        {
            *pResult = 1;
            return TRUE;
        }
        return FALSE;
    case WM_NOTIFY:
    {
        AFX_NOTIFY notify;
        notify.pResult = pResult;
        notify.pNMHDR = reinterpret_cast<NMHDR*>(lParam);
        return CCmdTarget::OnCmdMsg(0, MAKELONG(notify.pNMHDR->code, WM_REFLECT_BASE + WM_NOTIFY), &notify, NULL);
    }
    case WM_CTLCOLORMSGBOX:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSCROLLBAR:
    case WM_CTLCOLORSTATIC:
    {
        AFX_CTLCOLOR ctl;
        ctl.hWnd = m_hWnd;
        ctl.hDC = reinterpret_cast<HDC>(wParam);
        ctl.nCtlType = message - WM_CTLCOLORMSGBOX;
        // A reflected handler that returns no brush leaves the message to the parent.
        return CWnd::OnWndMsg(WM_REFLECT_BASE + WM_CTLCOLOR, 0, reinterpret_cast<LPARAM>(&ctl), pResult) &&
               *pResult != 0;
    }
    default:
        return FALSE;
    }
}

BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

BOOL PASCAL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    for (HWND hWnd = pMsg->hwnd; hWnd != NULL; hWnd = ::GetParent(hWnd))
    {
        CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
        if (pWnd != NULL && pWnd->PreTranslateMessage(pMsg))
            return TRUE;
        if (hWnd == hWndStop)
            break;
    }
    return FALSE;
}

void CWnd::DoDataExchange(CDataExchange*) {}

void CWnd::CalcWindowRect(LPRECT lpClientRect, UINT)
{
    ::AdjustWindowRectEx(lpClientRect, GetStyle(), FALSE, GetExStyle());
}

// ---------------------------------------------------------------------------------------------
// CWnd: default message handlers

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_CTLCOLOR()
ON_WM_DRAWITEM()
ON_WM_MEASUREITEM()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_PARENTNOTIFY()
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT)
{
    LRESULT lResult;
    if (pWnd->GetSafeHwnd() != NULL && ReflectLastMsg(pWnd->m_hWnd, &lResult))
        return reinterpret_cast<HBRUSH>(lResult);
    return reinterpret_cast<HBRUSH>(Default());
}

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    if (lpDrawItemStruct->CtlType != ODT_MENU && ReflectLastMsg(lpDrawItemStruct->hwndItem))
        return;
    Default();
}

void CWnd::OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    if (lpMeasureItemStruct->CtlType != ODT_MENU && ReflectLastMsg(::GetDlgItem(m_hWnd, nIDCtl)))
        return;
    Default();
}

void CWnd::OnHScroll(UINT, UINT, CScrollBar* pScrollBar)
{
    CWnd* pBar = reinterpret_cast<CWnd*>(pScrollBar);
    if (pBar->GetSafeHwnd() != NULL && ReflectLastMsg(pBar->m_hWnd))
        return;
    Default();
}

void CWnd::OnVScroll(UINT, UINT, CScrollBar* pScrollBar)
{
    CWnd* pBar = reinterpret_cast<CWnd*>(pScrollBar);
    if (pBar->GetSafeHwnd() != NULL && ReflectLastMsg(pBar->m_hWnd))
        return;
    Default();
}

void CWnd::OnParentNotify(UINT message, LPARAM lParam)
{
    if ((LOWORD(message) == WM_CREATE || LOWORD(message) == WM_DESTROY) &&
        ReflectLastMsg(reinterpret_cast<HWND>(lParam)))
        return;
    Default();
}

// The remaining handlers do the window's own processing of the current message.
int CWnd::OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
BOOL CWnd::OnNcCreate(LPCREATESTRUCT) { return static_cast<BOOL>(Default()); }
void CWnd::OnDestroy() { Default(); }
void CWnd::OnClose() { Default(); }
void CWnd::OnPaint() { Default(); }
void CWnd::OnNcPaint() { Default(); }
void CWnd::OnCancelMode() { Default(); }
void CWnd::OnSysColorChange() { Default(); }
void CWnd::OnSize(UINT, int, int) { Default(); }
void CWnd::OnMove(int, int) { Default(); }
void CWnd::OnTimer(UINT_PTR) { Default(); }
void CWnd::OnSetFocus(CWnd*) { Default(); }
void CWnd::OnKillFocus(CWnd*) { Default(); }
void CWnd::OnCaptureChanged(CWnd*) { Default(); }
void CWnd::OnChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnLButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnLButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnRButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnMButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnMButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnMButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnMouseMove(UINT, CPoint) { Default(); }
BOOL CWnd::OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
UINT CWnd::OnGetDlgCode() { return static_cast<UINT>(Default()); }
BOOL CWnd::OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
void CWnd::OnEnable(BOOL) { Default(); }
void CWnd::OnShowWindow(BOOL, UINT) { Default(); }
void CWnd::OnContextMenu(CWnd*, CPoint) { Default(); }
LRESULT CWnd::OnNcHitTest(CPoint) { return Default(); }
void CWnd::OnWindowPosChanged(WINDOWPOS*) { Default(); }
void CWnd::OnWindowPosChanging(WINDOWPOS*) { Default(); }
void CWnd::OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
int CWnd::OnMouseActivate(CWnd*, UINT, UINT) { return static_cast<int>(Default()); }
void CWnd::OnActivate(UINT, CWnd*, BOOL) { Default(); }
void CWnd::OnSettingChange(UINT, LPCTSTR) { Default(); }
void CWnd::OnNcCalcSize(BOOL, NCCALCSIZE_PARAMS*) { Default(); }
void CWnd::OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }

// ---------------------------------------------------------------------------------------------
// CWnd: wrappers that need more than one call

BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass)
{
    if (lpWndClass == NULL || lpWndClass->lpszClassName == NULL)
        return FALSE;
    WNDCLASS wndcls;
    if (::GetClassInfo(lpWndClass->hInstance, lpWndClass->lpszClassName, &wndcls))
        return TRUE;
    return ::RegisterClass(lpWndClass) != 0;
}

void AFXAPI AfxGetWindowText(HWND hWnd, CString& rString, int nMaxLen)
{
    int nLength = ::GetWindowTextLengthA(hWnd);
    if (nLength > nMaxLen)
        nLength = nMaxLen;
    int nCopied = ::GetWindowTextA(hWnd, rString.GetBuffer(nLength), nLength + 1);
    rString.ReleaseBuffer(nCopied);
}

void CWnd::GetWindowText(CString& rString) const
{
    ASSERT(::IsWindow(m_hWnd));
    AfxGetWindowText(m_hWnd, rString);
}

int CWnd::GetDlgItemText(int nID, CString& rString) const
{
    ASSERT(::IsWindow(m_hWnd));
    rString.Empty();
    HWND hWnd = ::GetDlgItem(m_hWnd, nID);
    if (hWnd != NULL)
        AfxGetWindowText(hWnd, rString);
    return rString.GetLength();
}

static BOOL ModifyWindowLong(HWND hWnd, int nIndex, DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    DWORD dwStyle = static_cast<DWORD>(::GetWindowLongPtrA(hWnd, nIndex));
    DWORD dwNewStyle = (dwStyle & ~dwRemove) | dwAdd;
    if (dwStyle == dwNewStyle)
        return FALSE;
    ::SetWindowLongPtrA(hWnd, nIndex, static_cast<LONG_PTR>(dwNewStyle));
    if (nFlags != 0)
        ::SetWindowPos(hWnd, NULL, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
    return TRUE;
}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    ASSERT(::IsWindow(m_hWnd));
    return ModifyWindowLong(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    ASSERT(::IsWindow(m_hWnd));
    return ModifyWindowLong(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

CWnd* CWnd::GetTopLevelParent() const
{
    HWND hWnd = m_hWnd;
    for (HWND hParent; (hParent = ::GetParent(hWnd)) != NULL && (::GetWindowLongPtrA(hWnd, GWL_STYLE) & WS_CHILD);)
        hWnd = hParent;
    return CWnd::FromHandle(hWnd);
}

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

BOOL CWnd::SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags)
{
    ASSERT(::IsWindow(m_hWnd));
    return ::SetWindowPos(m_hWnd, pWndInsertAfter->GetSafeHwnd(), x, y, cx, cy, nFlags);
}

void CWnd::ClientToScreen(LPRECT lpRect) const
{
    ASSERT(::IsWindow(m_hWnd));
    ::MapWindowPoints(m_hWnd, NULL, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::ScreenToClient(LPRECT lpRect) const
{
    ASSERT(::IsWindow(m_hWnd));
    ::MapWindowPoints(NULL, m_hWnd, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::CenterWindow(CWnd* pAlternateOwner)
{
    ASSERT(::IsWindow(m_hWnd));
    HWND hWndCenter = pAlternateOwner != NULL ? pAlternateOwner->m_hWnd : ::GetParent(m_hWnd);
    RECT rcCenter, rcWindow;
    if (hWndCenter == NULL || (GetStyle() & WS_CHILD) == 0)
    {
        ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &rcCenter, 0);
        if (hWndCenter != NULL)
            ::GetWindowRect(hWndCenter, &rcCenter);
    }
    else
    {
        ::GetClientRect(hWndCenter, &rcCenter);
    }
    ::GetWindowRect(m_hWnd, &rcWindow);
    int cx = rcWindow.right - rcWindow.left;
    int cy = rcWindow.bottom - rcWindow.top;
    int x = (rcCenter.left + rcCenter.right - cx) / 2;
    int y = (rcCenter.top + rcCenter.bottom - cy) / 2;
    ::SetWindowPos(m_hWnd, NULL, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask)
{
    ASSERT(::IsWindow(m_hWnd));
    if (lpScrollInfo == NULL)
        return FALSE;
    lpScrollInfo->cbSize = sizeof(SCROLLINFO);
    lpScrollInfo->fMask = nMask;
    return ::GetScrollInfo(m_hWnd, nBar, lpScrollInfo);
}

BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw)
{
    ASSERT(::IsWindow(m_hWnd));
    if (lpScrollInfo == NULL)
        return FALSE;
    lpScrollInfo->cbSize = sizeof(SCROLLINFO);
    ::SetScrollInfo(m_hWnd, nBar, lpScrollInfo, bRedraw);
    return TRUE;
}

int CWnd::GetScrollLimit(int nBar)
{
    SCROLLINFO info;
    if (!GetScrollInfo(nBar, &info, SIF_RANGE | SIF_PAGE))
        return 0;
    int nLimit = info.nMax;
    if (info.nPage > 0)
        nLimit -= static_cast<int>(info.nPage) - 1;
    return nLimit < info.nMin ? info.nMin : nLimit;
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep)
{
    ASSERT(::IsWindow(m_hWnd));
    for (HWND hWndChild = ::GetTopWindow(m_hWnd); hWndChild != NULL; hWndChild = ::GetWindow(hWndChild, GW_HWNDNEXT))
    {
        ::SendMessageA(hWndChild, message, wParam, lParam);
        if (bDeep && ::GetTopWindow(hWndChild) != NULL)
            CWnd::FromHandle(hWndChild)->SendMessageToDescendants(message, wParam, lParam, bDeep);
    }
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType)
{
    if (lpszCaption == NULL)
        lpszCaption = AfxGetAppName();
    return ::MessageBoxA(GetSafeHwnd(), lpszText, lpszCaption, nType);
}

CPoint PASCAL CWnd::GetCaretPos()
{
    CPoint point;
    ::GetCaretPos(&point);
    return point;
}
