// Message maps: the entry layout, the handler signatures and the ON_ macros, as in MFC.
// An entry names a message (or WM_COMMAND/WM_NOTIFY with a code and a control-id range),
// a signature and a member function; CWnd::OnWndMsg and CCmdTarget::OnCmdMsg dispatch them.
#pragma once

#include <string.h>

#include <afxplatform.h>

class CCmdTarget;
class CWnd;
class CDC;
class CMenu;
class CScrollBar;
class CPoint;

#define afx_msg

typedef void (CCmdTarget::*AFX_PMSG)(void);

struct AFX_MSGMAP_ENTRY
{
    UINT nMessage;
    UINT nCode;
    UINT nID;
    UINT nLastID;
    UINT_PTR nSig; // a signature, or for ON_REGISTERED_MESSAGE the address of the message number
    AFX_PMSG pfn;
};

struct AFX_MSGMAP
{
    const AFX_MSGMAP* (*pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// Reflected messages come back to the control as WM_REFLECT_BASE + the message.
#define WM_REFLECT_BASE 0xBC00
// MFC's name for the whole WM_CTLCOLOR* family in message maps.
#ifndef WM_CTLCOLOR
#define WM_CTLCOLOR 0x0019
#endif
#define AFX_REGISTERED_MESSAGE 0xC000

// Notification codes of command entries: CN_COMMAND for menu and accelerator commands.
#define CN_COMMAND 0

// The handler signatures, one row each: the AfxSig value, the handler's member-pointer type,
// the arguments cracked from the message, and what the message answers when the handler
// returns nothing (a handler's own result is the answer otherwise). The enum, the handler type
// that each ON_ macro checks, and the dispatch of CWnd::OnWndMsg and CCmdTarget::OnCmdMsg are
// all made from these rows: a new signature is one row, a new handler one ON_ macro.
//
// Window messages: the arguments may use message, wParam, lParam and point (lParam's signed
// coordinates).
#define AFX_WM_SIGNATURES(SIG)                                                                    \
    SIG(AfxSig_vv, void (CWnd::*)(), (), 0)                                                        \
    SIG(AfxSig_bv, BOOL (CWnd::*)(), (), 0)                                                        \
    SIG(AfxSig_lwl, LRESULT (CWnd::*)(WPARAM, LPARAM), (wParam, lParam), 0)                        \
    SIG(AfxSig_is, int (CWnd::*)(LPCREATESTRUCT), (reinterpret_cast<LPCREATESTRUCT>(lParam)), 0)   \
    SIG(AfxSig_bs, BOOL (CWnd::*)(LPCREATESTRUCT), (reinterpret_cast<LPCREATESTRUCT>(lParam)), 0)  \
    SIG(AfxSig_vW, void (CWnd::*)(CWnd*), (CWnd::FromHandle(reinterpret_cast<HWND>(wParam))), 0)  \
    SIG(AfxSig_vwii, void (CWnd::*)(UINT, int, int),                                               \
        (static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam)), 0)                            \
    SIG(AfxSig_vii, void (CWnd::*)(int, int), (point.x, point.y), 0)                               \
    SIG(AfxSig_vt, void (CWnd::*)(UINT_PTR), (static_cast<UINT_PTR>(wParam)), 0)                   \
    SIG(AfxSig_vwww, void (CWnd::*)(UINT, UINT, UINT),                                             \
        (static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam)), 0)                            \
    SIG(AfxSig_vwp, void (CWnd::*)(UINT, CPoint), (static_cast<UINT>(wParam), point), 0)           \
    SIG(AfxSig_bwsp, BOOL (CWnd::*)(UINT, short, CPoint),                                          \
        (LOWORD(wParam), static_cast<short>(HIWORD(wParam)), point), 0)                            \
    SIG(AfxSig_vwwS, void (CWnd::*)(UINT, UINT, CScrollBar*),                                      \
        (LOWORD(wParam), HIWORD(wParam),                                                           \
         reinterpret_cast<CScrollBar*>(CWnd::FromHandle(reinterpret_cast<HWND>(lParam)))), 0)      \
    SIG(AfxSig_wv, UINT (CWnd::*)(), (), 0)                                                        \
    SIG(AfxSig_hDWw, HBRUSH (CWnd::*)(CDC*, CWnd*, UINT),                                          \
        (CDC::FromHandle(reinterpret_cast<HDC>(wParam)), CWnd::FromHandle(reinterpret_cast<HWND>(lParam)), \
         message - WM_CTLCOLORMSGBOX), 0)                                                          \
    SIG(AfxSig_hDw, HBRUSH (CWnd::*)(CDC*, UINT), /* a reflected WM_CTLCOLOR */                    \
        (CDC::FromHandle(reinterpret_cast<AFX_CTLCOLOR*>(lParam)->hDC),                            \
         reinterpret_cast<AFX_CTLCOLOR*>(lParam)->nCtlType), 0)                                    \
    SIG(AfxSig_bD, BOOL (CWnd::*)(CDC*), (CDC::FromHandle(reinterpret_cast<HDC>(wParam))), 0)      \
    SIG(AfxSig_bWww, BOOL (CWnd::*)(CWnd*, UINT, UINT),                                            \
        (CWnd::FromHandle(reinterpret_cast<HWND>(wParam)), LOWORD(lParam), HIWORD(lParam)), 0)     \
    SIG(AfxSig_vDRAW, void (CWnd::*)(int, LPDRAWITEMSTRUCT),                                       \
        (static_cast<int>(wParam), reinterpret_cast<LPDRAWITEMSTRUCT>(lParam)), TRUE)              \
    SIG(AfxSig_vMEASURE, void (CWnd::*)(int, LPMEASUREITEMSTRUCT),                                 \
        (static_cast<int>(wParam), reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam)), TRUE)           \
    SIG(AfxSig_vb, void (CWnd::*)(BOOL), (static_cast<BOOL>(wParam)), 0)                           \
    SIG(AfxSig_vbw, void (CWnd::*)(BOOL, UINT), (static_cast<BOOL>(wParam), static_cast<UINT>(lParam)), 0) \
    SIG(AfxSig_vWp, void (CWnd::*)(CWnd*, CPoint), (CWnd::FromHandle(reinterpret_cast<HWND>(wParam)), point), 0) \
    SIG(AfxSig_lp, LRESULT (CWnd::*)(CPoint), (point), 0)                                          \
    SIG(AfxSig_vPOS, void (CWnd::*)(WINDOWPOS*), (reinterpret_cast<WINDOWPOS*>(lParam)), 0)        \
    SIG(AfxSig_vMMI, void (CWnd::*)(MINMAXINFO*), (reinterpret_cast<MINMAXINFO*>(lParam)), 0)      \
    SIG(AfxSig_iWww, int (CWnd::*)(CWnd*, UINT, UINT),                                             \
        (CWnd::FromHandle(reinterpret_cast<HWND>(wParam)), LOWORD(lParam), HIWORD(lParam)), 0)     \
    SIG(AfxSig_vwWb, void (CWnd::*)(UINT, CWnd*, BOOL),                                            \
        (LOWORD(wParam), CWnd::FromHandle(reinterpret_cast<HWND>(lParam)), HIWORD(wParam)), 0)     \
    SIG(AfxSig_vws, void (CWnd::*)(UINT, LPCTSTR), (static_cast<UINT>(wParam), reinterpret_cast<LPCTSTR>(lParam)), 0) \
    SIG(AfxSig_vbNCCS, void (CWnd::*)(BOOL, NCCALCSIZE_PARAMS*),                                   \
        (static_cast<BOOL>(wParam), reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)), 0)              \
    SIG(AfxSig_vwl, void (CWnd::*)(UINT, LPARAM), (static_cast<UINT>(wParam), lParam), 0)          \
    SIG(AfxSig_vMwb, void (CWnd::*)(CMenu*, UINT, BOOL),                                           \
        (CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)), LOWORD(lParam), HIWORD(lParam)), 0)

// Command and notification entries: the arguments may use nID and pNotify (an AFX_NOTIFY);
// a handler that returns nothing has handled the command.
#define AFX_CMD_SIGNATURES(SIG)                                                                   \
    SIG(AfxSigCmd_v, void (CCmdTarget::*)(), (), TRUE)                                             \
    SIG(AfxSigCmd_b, BOOL (CCmdTarget::*)(), (), TRUE)                                             \
    SIG(AfxSigCmd_RANGE, void (CCmdTarget::*)(UINT), (nID), TRUE)                                  \
    SIG(AfxSigNotify_v, void (CCmdTarget::*)(NMHDR*, LRESULT*), (pNotify->pNMHDR, pNotify->pResult), TRUE) \
    SIG(AfxSigNotify_b, BOOL (CCmdTarget::*)(NMHDR*, LRESULT*), (pNotify->pNMHDR, pNotify->pResult), TRUE) \
    SIG(AfxSigNotify_RANGE, void (CCmdTarget::*)(UINT, NMHDR*, LRESULT*),                          \
        (nID, pNotify->pNMHDR, pNotify->pResult), TRUE)

#define AFX_SIG_ENUM(sig, type, args, lVoidResult) sig,
enum AfxSig
{
    AfxSig_end = 0,
    AFX_WM_SIGNATURES(AFX_SIG_ENUM)
    AFX_CMD_SIGNATURES(AFX_SIG_ENUM)
};
#undef AFX_SIG_ENUM

// The handler type of each signature, which the ON_ macros check a handler against.
template <AfxSig nSig>
struct CAfxSigHandler;
#define AFX_SIG_HANDLER(sig, type, args, lVoidResult)                                             \
    template <>                                                                                    \
    struct CAfxSigHandler<sig>                                                                     \
    {                                                                                              \
        using PMSG = type;                                                                         \
    };
AFX_WM_SIGNATURES(AFX_SIG_HANDLER)
AFX_CMD_SIGNATURES(AFX_SIG_HANDLER)
#undef AFX_SIG_HANDLER

#define DECLARE_MESSAGE_MAP()                                                                     \
protected:                                                                                         \
    static const AFX_MSGMAP* GetThisMessageMap();                                                  \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                    \
    const AFX_MSGMAP* theClass::GetMessageMap() const { return GetThisMessageMap(); }              \
    const AFX_MSGMAP* theClass::GetThisMessageMap()                                                \
    {                                                                                              \
        typedef theClass ThisClass;                                                                \
        typedef baseClass TheBaseClass;                                                            \
        (void)sizeof(ThisClass);                                                                   \
        static const AFX_MSGMAP_ENTRY _messageEntries[] = {
#define END_MESSAGE_MAP()                                                                         \
    {0, 0, 0, 0, AfxSig_end, (AFX_PMSG)0}                                                          \
    }                                                                                              \
    ;                                                                                              \
    static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, &_messageEntries[0]};  \
    return &messageMap;                                                                            \
    }

// Handlers are stored in the entry as one member-pointer type and read back with their own
// signature. The bits are copied rather than cast, which every member pointer of these
// classes allows (same size, no virtual bases) and which keeps cast warnings out of users' maps.
template <class TO, class FROM>
inline TO AfxPmsgCast(FROM pfn)
{
    static_assert(sizeof(TO) == sizeof(FROM), "member pointers of one size");
    TO to;
    memcpy(&to, &pfn, sizeof(to));
    return to;
}

// Converts a handler of the derived class to the common entry type, checking it against the
// signature's handler type.
#define AFX_MSGFN(sig, fn) AfxPmsgCast<AFX_PMSG>(static_cast<CAfxSigHandler<sig>::PMSG>(fn))

// An entry: the message, the notification code and the control-id range it takes, its signature
// and its handler.
#define AFX_MSG_ENTRY(msg, code, id, idLast, sig, fn)                                             \
    {(UINT)(msg), (UINT)(code), (UINT)(id), (UINT)(idLast), sig, AFX_MSGFN(sig, &ThisClass::fn)},
#define AFX_WM_ENTRY(msg, sig, fn) AFX_MSG_ENTRY(msg, 0, 0, 0, sig, fn)

#define ON_WM_CREATE() AFX_WM_ENTRY(WM_CREATE, AfxSig_is, OnCreate)
#define ON_WM_NCCREATE() AFX_WM_ENTRY(WM_NCCREATE, AfxSig_bs, OnNcCreate)
#define ON_WM_DESTROY() AFX_WM_ENTRY(WM_DESTROY, AfxSig_vv, OnDestroy)
#define ON_WM_NCDESTROY() AFX_WM_ENTRY(WM_NCDESTROY, AfxSig_vv, OnNcDestroy)
#define ON_WM_CLOSE() AFX_WM_ENTRY(WM_CLOSE, AfxSig_vv, OnClose)
#define ON_WM_PAINT() AFX_WM_ENTRY(WM_PAINT, AfxSig_vv, OnPaint)
#define ON_WM_NCPAINT() AFX_WM_ENTRY(WM_NCPAINT, AfxSig_vv, OnNcPaint)
#define ON_WM_CANCELMODE() AFX_WM_ENTRY(WM_CANCELMODE, AfxSig_vv, OnCancelMode)
#define ON_WM_SYSCOLORCHANGE() AFX_WM_ENTRY(WM_SYSCOLORCHANGE, AfxSig_vv, OnSysColorChange)
#define ON_WM_SIZE() AFX_WM_ENTRY(WM_SIZE, AfxSig_vwii, OnSize)
#define ON_WM_MOVE() AFX_WM_ENTRY(WM_MOVE, AfxSig_vii, OnMove)
#define ON_WM_TIMER() AFX_WM_ENTRY(WM_TIMER, AfxSig_vt, OnTimer)
#define ON_WM_SETFOCUS() AFX_WM_ENTRY(WM_SETFOCUS, AfxSig_vW, OnSetFocus)
#define ON_WM_KILLFOCUS() AFX_WM_ENTRY(WM_KILLFOCUS, AfxSig_vW, OnKillFocus)
#define ON_WM_CAPTURECHANGED() AFX_WM_ENTRY(WM_CAPTURECHANGED, AfxSig_vW, OnCaptureChanged)
#define ON_WM_CHAR() AFX_WM_ENTRY(WM_CHAR, AfxSig_vwww, OnChar)
#define ON_WM_KEYDOWN() AFX_WM_ENTRY(WM_KEYDOWN, AfxSig_vwww, OnKeyDown)
#define ON_WM_KEYUP() AFX_WM_ENTRY(WM_KEYUP, AfxSig_vwww, OnKeyUp)
#define ON_WM_SYSCHAR() AFX_WM_ENTRY(WM_SYSCHAR, AfxSig_vwww, OnSysChar)
#define ON_WM_SYSKEYDOWN() AFX_WM_ENTRY(WM_SYSKEYDOWN, AfxSig_vwww, OnSysKeyDown)
#define ON_WM_SYSKEYUP() AFX_WM_ENTRY(WM_SYSKEYUP, AfxSig_vwww, OnSysKeyUp)
#define ON_WM_LBUTTONDOWN() AFX_WM_ENTRY(WM_LBUTTONDOWN, AfxSig_vwp, OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_WM_ENTRY(WM_LBUTTONUP, AfxSig_vwp, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_WM_ENTRY(WM_LBUTTONDBLCLK, AfxSig_vwp, OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_WM_ENTRY(WM_RBUTTONDOWN, AfxSig_vwp, OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_WM_ENTRY(WM_RBUTTONUP, AfxSig_vwp, OnRButtonUp)
#define ON_WM_RBUTTONDBLCLK() AFX_WM_ENTRY(WM_RBUTTONDBLCLK, AfxSig_vwp, OnRButtonDblClk)
#define ON_WM_MBUTTONDOWN() AFX_WM_ENTRY(WM_MBUTTONDOWN, AfxSig_vwp, OnMButtonDown)
#define ON_WM_MBUTTONUP() AFX_WM_ENTRY(WM_MBUTTONUP, AfxSig_vwp, OnMButtonUp)
#define ON_WM_MBUTTONDBLCLK() AFX_WM_ENTRY(WM_MBUTTONDBLCLK, AfxSig_vwp, OnMButtonDblClk)
#define ON_WM_MOUSEMOVE() AFX_WM_ENTRY(WM_MOUSEMOVE, AfxSig_vwp, OnMouseMove)
#define ON_WM_MOUSEWHEEL() AFX_WM_ENTRY(WM_MOUSEWHEEL, AfxSig_bwsp, OnMouseWheel)
#define ON_WM_HSCROLL() AFX_WM_ENTRY(WM_HSCROLL, AfxSig_vwwS, OnHScroll)
#define ON_WM_VSCROLL() AFX_WM_ENTRY(WM_VSCROLL, AfxSig_vwwS, OnVScroll)
#define ON_WM_GETDLGCODE() AFX_WM_ENTRY(WM_GETDLGCODE, AfxSig_wv, OnGetDlgCode)
#define ON_WM_CTLCOLOR() AFX_WM_ENTRY(WM_CTLCOLOR, AfxSig_hDWw, OnCtlColor)
#define ON_WM_ERASEBKGND() AFX_WM_ENTRY(WM_ERASEBKGND, AfxSig_bD, OnEraseBkgnd)
#define ON_WM_SETCURSOR() AFX_WM_ENTRY(WM_SETCURSOR, AfxSig_bWww, OnSetCursor)
#define ON_WM_DRAWITEM() AFX_WM_ENTRY(WM_DRAWITEM, AfxSig_vDRAW, OnDrawItem)
#define ON_WM_MEASUREITEM() AFX_WM_ENTRY(WM_MEASUREITEM, AfxSig_vMEASURE, OnMeasureItem)
#define ON_WM_ENABLE() AFX_WM_ENTRY(WM_ENABLE, AfxSig_vb, OnEnable)
#define ON_WM_SHOWWINDOW() AFX_WM_ENTRY(WM_SHOWWINDOW, AfxSig_vbw, OnShowWindow)
#define ON_WM_CONTEXTMENU() AFX_WM_ENTRY(WM_CONTEXTMENU, AfxSig_vWp, OnContextMenu)
#define ON_WM_NCHITTEST() AFX_WM_ENTRY(WM_NCHITTEST, AfxSig_lp, OnNcHitTest)
#define ON_WM_WINDOWPOSCHANGED() AFX_WM_ENTRY(WM_WINDOWPOSCHANGED, AfxSig_vPOS, OnWindowPosChanged)
#define ON_WM_WINDOWPOSCHANGING() AFX_WM_ENTRY(WM_WINDOWPOSCHANGING, AfxSig_vPOS, OnWindowPosChanging)
#define ON_WM_GETMINMAXINFO() AFX_WM_ENTRY(WM_GETMINMAXINFO, AfxSig_vMMI, OnGetMinMaxInfo)
#define ON_WM_MOUSEACTIVATE() AFX_WM_ENTRY(WM_MOUSEACTIVATE, AfxSig_iWww, OnMouseActivate)
#define ON_WM_ACTIVATE() AFX_WM_ENTRY(WM_ACTIVATE, AfxSig_vwWb, OnActivate)
#define ON_WM_SETTINGCHANGE() AFX_WM_ENTRY(WM_SETTINGCHANGE, AfxSig_vws, OnSettingChange)
#define ON_WM_NCCALCSIZE() AFX_WM_ENTRY(WM_NCCALCSIZE, AfxSig_vbNCCS, OnNcCalcSize)
#define ON_WM_PARENTNOTIFY() AFX_WM_ENTRY(WM_PARENTNOTIFY, AfxSig_vwl, OnParentNotify)
#define ON_WM_INITMENUPOPUP() AFX_WM_ENTRY(WM_INITMENUPOPUP, AfxSig_vMwb, OnInitMenuPopup)

#define ON_MESSAGE(message, memberFxn) AFX_WM_ENTRY(message, AfxSig_lwl, memberFxn)
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn)                                        \
    {AFX_REGISTERED_MESSAGE, 0, 0, 0, (UINT_PTR)(const UINT*)(&nMessageVariable),                  \
     AFX_MSGFN(AfxSig_lwl, &ThisClass::memberFxn)},

#define ON_COMMAND(id, memberFxn) AFX_MSG_ENTRY(WM_COMMAND, CN_COMMAND, id, id, AfxSigCmd_v, memberFxn)
#define ON_COMMAND_RANGE(id, idLast, memberFxn)                                                   \
    AFX_MSG_ENTRY(WM_COMMAND, CN_COMMAND, id, idLast, AfxSigCmd_RANGE, memberFxn)
#define ON_CONTROL(wNotifyCode, id, memberFxn)                                                    \
    AFX_MSG_ENTRY(WM_COMMAND, (WORD)(wNotifyCode), id, id, AfxSigCmd_v, memberFxn)
#define ON_NOTIFY(wNotifyCode, id, memberFxn)                                                     \
    AFX_MSG_ENTRY(WM_NOTIFY, (WORD)(int)(wNotifyCode), id, id, AfxSigNotify_v, memberFxn)
#define ON_NOTIFY_RANGE(wNotifyCode, id, idLast, memberFxn)                                       \
    AFX_MSG_ENTRY(WM_NOTIFY, (WORD)(int)(wNotifyCode), id, idLast, AfxSigNotify_RANGE, memberFxn)
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn)                                                \
    AFX_MSG_ENTRY(WM_COMMAND + WM_REFLECT_BASE, (WORD)(wNotifyCode), 0, 0, AfxSigCmd_v, memberFxn)
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn)                                             \
    AFX_MSG_ENTRY(WM_COMMAND + WM_REFLECT_BASE, (WORD)(wNotifyCode), 0, 0, AfxSigCmd_b, memberFxn)
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn)                                                 \
    AFX_MSG_ENTRY(WM_NOTIFY + WM_REFLECT_BASE, (WORD)(int)(wNotifyCode), 0, 0, AfxSigNotify_v, memberFxn)
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn)                                              \
    AFX_MSG_ENTRY(WM_NOTIFY + WM_REFLECT_BASE, (WORD)(int)(wNotifyCode), 0, 0, AfxSigNotify_b, memberFxn)
#define ON_WM_CTLCOLOR_REFLECT() AFX_WM_ENTRY(WM_CTLCOLOR + WM_REFLECT_BASE, AfxSig_hDw, CtlColor)

#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_EN_MAXTEXT(id, memberFxn) ON_CONTROL(EN_MAXTEXT, id, memberFxn)
#define ON_EN_ERRSPACE(id, memberFxn) ON_CONTROL(EN_ERRSPACE, id, memberFxn)
#define ON_EN_HSCROLL(id, memberFxn) ON_CONTROL(EN_HSCROLL, id, memberFxn)
#define ON_EN_VSCROLL(id, memberFxn) ON_CONTROL(EN_VSCROLL, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_DBLCLK(id, memberFxn) ON_CONTROL(CBN_DBLCLK, id, memberFxn)
#define ON_CBN_SETFOCUS(id, memberFxn) ON_CONTROL(CBN_SETFOCUS, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_EDITUPDATE(id, memberFxn) ON_CONTROL(CBN_EDITUPDATE, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_SELENDOK(id, memberFxn) ON_CONTROL(CBN_SELENDOK, id, memberFxn)
#define ON_CBN_SELENDCANCEL(id, memberFxn) ON_CONTROL(CBN_SELENDCANCEL, id, memberFxn)
#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_BN_SETFOCUS(id, memberFxn) ON_CONTROL(BN_SETFOCUS, id, memberFxn)
#define ON_BN_KILLFOCUS(id, memberFxn) ON_CONTROL(BN_KILLFOCUS, id, memberFxn)
#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_LBN_SETFOCUS(id, memberFxn) ON_CONTROL(LBN_SETFOCUS, id, memberFxn)
#define ON_LBN_KILLFOCUS(id, memberFxn) ON_CONTROL(LBN_KILLFOCUS, id, memberFxn)
