// Message maps: the entry layout, the handler signatures and the ON_ macros, as in MFC.
// An entry names a message (or WM_COMMAND/WM_NOTIFY with a code and a control-id range),
// a signature and a member function; CWnd::OnWndMsg and CCmdTarget::OnCmdMsg dispatch them.
#pragma once

#include <string.h>

#include <afxplatform.h>

class CCmdTarget;
class CWnd;

#define afx_msg

typedef void (CCmdTarget::*AFX_PMSG)(void);
typedef void (CWnd::*AFX_PMSGW)(void);

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

enum AfxSig
{
    AfxSig_end = 0,
    AfxSig_vv,      // void ()
    AfxSig_bv,      // BOOL ()
    AfxSig_lwl,     // LRESULT (WPARAM, LPARAM)
    AfxSig_is,      // int (LPCREATESTRUCT)
    AfxSig_bs,      // BOOL (LPCREATESTRUCT)
    AfxSig_vW,      // void (CWnd*)
    AfxSig_vwii,    // void (UINT, int, int)
    AfxSig_vii,     // void (int, int)
    AfxSig_vt,      // void (UINT_PTR)
    AfxSig_vwww,    // void (UINT, UINT, UINT)
    AfxSig_vwp,     // void (UINT, CPoint)
    AfxSig_bwsp,    // BOOL (UINT, short, CPoint)
    AfxSig_vwwS,    // void (UINT, UINT, CScrollBar*)
    AfxSig_wv,      // UINT ()
    AfxSig_hDWw,    // HBRUSH (CDC*, CWnd*, UINT)
    AfxSig_hDw,     // HBRUSH (CDC*, UINT) of a reflected WM_CTLCOLOR
    AfxSig_bD,      // BOOL (CDC*)
    AfxSig_bWww,    // BOOL (CWnd*, UINT, UINT)
    AfxSig_vOWNER,  // void (int, LPTSTR): WM_DRAWITEM, WM_MEASUREITEM style (id, struct)
    AfxSig_vb,      // void (BOOL)
    AfxSig_vbw,     // void (BOOL, UINT)
    AfxSig_vWp,     // void (CWnd*, CPoint)
    AfxSig_lp,      // LRESULT (CPoint)
    AfxSig_vPOS,    // void (WINDOWPOS*)
    AfxSig_vMMI,    // void (MINMAXINFO*)
    AfxSig_iWww,    // int (CWnd*, UINT, UINT)
    AfxSig_vwWb,    // void (UINT, CWnd*, BOOL)
    AfxSig_vws,     // void (UINT, LPCTSTR)
    AfxSig_vbNCCS,  // void (BOOL, NCCALCSIZE_PARAMS*)
    AfxSig_vwl,     // void (UINT, LPARAM)
    AfxSig_vMwb,    // void (CMenu*, UINT, BOOL)
    // command and notification entries
    AfxSigCmd_v,     // void ()
    AfxSigCmd_b,     // BOOL ()
    AfxSigCmd_RANGE, // void (UINT)
    AfxSigNotify_v,  // void (NMHDR*, LRESULT*)
    AfxSigNotify_b,  // BOOL (NMHDR*, LRESULT*)
    AfxSigNotify_RANGE, // void (UINT, NMHDR*, LRESULT*)
};

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

// Converts a handler of the derived class to the common entry type, checking its signature.
#define AFX_MSGFN(type, fn) AfxPmsgCast<AFX_PMSG>(static_cast<type>(fn))
#define AFX_CMDFN(type, fn) AfxPmsgCast<AFX_PMSG>(static_cast<type>(fn))

#define AFX_WM_ENTRY(msg, sig, type, fn) {msg, 0, 0, 0, sig, AFX_MSGFN(type, &ThisClass::fn)},

#define ON_WM_CREATE() AFX_WM_ENTRY(WM_CREATE, AfxSig_is, int (CWnd::*)(LPCREATESTRUCT), OnCreate)
#define ON_WM_NCCREATE() AFX_WM_ENTRY(WM_NCCREATE, AfxSig_bs, BOOL (CWnd::*)(LPCREATESTRUCT), OnNcCreate)
#define ON_WM_DESTROY() AFX_WM_ENTRY(WM_DESTROY, AfxSig_vv, void (CWnd::*)(), OnDestroy)
#define ON_WM_NCDESTROY() AFX_WM_ENTRY(WM_NCDESTROY, AfxSig_vv, void (CWnd::*)(), OnNcDestroy)
#define ON_WM_CLOSE() AFX_WM_ENTRY(WM_CLOSE, AfxSig_vv, void (CWnd::*)(), OnClose)
#define ON_WM_PAINT() AFX_WM_ENTRY(WM_PAINT, AfxSig_vv, void (CWnd::*)(), OnPaint)
#define ON_WM_NCPAINT() AFX_WM_ENTRY(WM_NCPAINT, AfxSig_vv, void (CWnd::*)(), OnNcPaint)
#define ON_WM_CANCELMODE() AFX_WM_ENTRY(WM_CANCELMODE, AfxSig_vv, void (CWnd::*)(), OnCancelMode)
#define ON_WM_SYSCOLORCHANGE() AFX_WM_ENTRY(WM_SYSCOLORCHANGE, AfxSig_vv, void (CWnd::*)(), OnSysColorChange)
#define ON_WM_SIZE() AFX_WM_ENTRY(WM_SIZE, AfxSig_vwii, void (CWnd::*)(UINT, int, int), OnSize)
#define ON_WM_MOVE() AFX_WM_ENTRY(WM_MOVE, AfxSig_vii, void (CWnd::*)(int, int), OnMove)
#define ON_WM_TIMER() AFX_WM_ENTRY(WM_TIMER, AfxSig_vt, void (CWnd::*)(UINT_PTR), OnTimer)
#define ON_WM_SETFOCUS() AFX_WM_ENTRY(WM_SETFOCUS, AfxSig_vW, void (CWnd::*)(CWnd*), OnSetFocus)
#define ON_WM_KILLFOCUS() AFX_WM_ENTRY(WM_KILLFOCUS, AfxSig_vW, void (CWnd::*)(CWnd*), OnKillFocus)
#define ON_WM_CAPTURECHANGED() AFX_WM_ENTRY(WM_CAPTURECHANGED, AfxSig_vW, void (CWnd::*)(CWnd*), OnCaptureChanged)
#define ON_WM_CHAR() AFX_WM_ENTRY(WM_CHAR, AfxSig_vwww, void (CWnd::*)(UINT, UINT, UINT), OnChar)
#define ON_WM_KEYDOWN() AFX_WM_ENTRY(WM_KEYDOWN, AfxSig_vwww, void (CWnd::*)(UINT, UINT, UINT), OnKeyDown)
#define ON_WM_KEYUP() AFX_WM_ENTRY(WM_KEYUP, AfxSig_vwww, void (CWnd::*)(UINT, UINT, UINT), OnKeyUp)
#define ON_WM_SYSCHAR() AFX_WM_ENTRY(WM_SYSCHAR, AfxSig_vwww, void (CWnd::*)(UINT, UINT, UINT), OnSysChar)
#define ON_WM_SYSKEYDOWN() AFX_WM_ENTRY(WM_SYSKEYDOWN, AfxSig_vwww, void (CWnd::*)(UINT, UINT, UINT), OnSysKeyDown)
#define ON_WM_SYSKEYUP() AFX_WM_ENTRY(WM_SYSKEYUP, AfxSig_vwww, void (CWnd::*)(UINT, UINT, UINT), OnSysKeyUp)
#define ON_WM_LBUTTONDOWN() AFX_WM_ENTRY(WM_LBUTTONDOWN, AfxSig_vwp, void (CWnd::*)(UINT, CPoint), OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_WM_ENTRY(WM_LBUTTONUP, AfxSig_vwp, void (CWnd::*)(UINT, CPoint), OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_WM_ENTRY(WM_LBUTTONDBLCLK, AfxSig_vwp, void (CWnd::*)(UINT, CPoint), OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_WM_ENTRY(WM_RBUTTONDOWN, AfxSig_vwp, void (CWnd::*)(UINT, CPoint), OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_WM_ENTRY(WM_RBUTTONUP, AfxSig_vwp, void (CWnd::*)(UINT, CPoint), OnRButtonUp)
#define ON_WM_RBUTTONDBLCLK() AFX_WM_ENTRY(WM_RBUTTONDBLCLK, AfxSig_vwp, void (CWnd::*)(UINT, CPoint), OnRButtonDblClk)
#define ON_WM_MBUTTONDOWN() AFX_WM_ENTRY(WM_MBUTTONDOWN, AfxSig_vwp, void (CWnd::*)(UINT, CPoint), OnMButtonDown)
#define ON_WM_MBUTTONUP() AFX_WM_ENTRY(WM_MBUTTONUP, AfxSig_vwp, void (CWnd::*)(UINT, CPoint), OnMButtonUp)
#define ON_WM_MOUSEMOVE() AFX_WM_ENTRY(WM_MOUSEMOVE, AfxSig_vwp, void (CWnd::*)(UINT, CPoint), OnMouseMove)
#define ON_WM_MOUSEWHEEL() AFX_WM_ENTRY(WM_MOUSEWHEEL, AfxSig_bwsp, BOOL (CWnd::*)(UINT, short, CPoint), OnMouseWheel)
#define ON_WM_HSCROLL() AFX_WM_ENTRY(WM_HSCROLL, AfxSig_vwwS, void (CWnd::*)(UINT, UINT, CScrollBar*), OnHScroll)
#define ON_WM_VSCROLL() AFX_WM_ENTRY(WM_VSCROLL, AfxSig_vwwS, void (CWnd::*)(UINT, UINT, CScrollBar*), OnVScroll)
#define ON_WM_GETDLGCODE() AFX_WM_ENTRY(WM_GETDLGCODE, AfxSig_wv, UINT (CWnd::*)(), OnGetDlgCode)
#define ON_WM_CTLCOLOR() AFX_WM_ENTRY(WM_CTLCOLOR, AfxSig_hDWw, HBRUSH (CWnd::*)(CDC*, CWnd*, UINT), OnCtlColor)
#define ON_WM_ERASEBKGND() AFX_WM_ENTRY(WM_ERASEBKGND, AfxSig_bD, BOOL (CWnd::*)(CDC*), OnEraseBkgnd)
#define ON_WM_SETCURSOR() AFX_WM_ENTRY(WM_SETCURSOR, AfxSig_bWww, BOOL (CWnd::*)(CWnd*, UINT, UINT), OnSetCursor)
#define ON_WM_DRAWITEM() AFX_WM_ENTRY(WM_DRAWITEM, AfxSig_vOWNER, void (CWnd::*)(int, LPDRAWITEMSTRUCT), OnDrawItem)
#define ON_WM_MEASUREITEM() AFX_WM_ENTRY(WM_MEASUREITEM, AfxSig_vOWNER, void (CWnd::*)(int, LPMEASUREITEMSTRUCT), OnMeasureItem)
#define ON_WM_ENABLE() AFX_WM_ENTRY(WM_ENABLE, AfxSig_vb, void (CWnd::*)(BOOL), OnEnable)
#define ON_WM_SHOWWINDOW() AFX_WM_ENTRY(WM_SHOWWINDOW, AfxSig_vbw, void (CWnd::*)(BOOL, UINT), OnShowWindow)
#define ON_WM_CONTEXTMENU() AFX_WM_ENTRY(WM_CONTEXTMENU, AfxSig_vWp, void (CWnd::*)(CWnd*, CPoint), OnContextMenu)
#define ON_WM_NCHITTEST() AFX_WM_ENTRY(WM_NCHITTEST, AfxSig_lp, LRESULT (CWnd::*)(CPoint), OnNcHitTest)
#define ON_WM_WINDOWPOSCHANGED() AFX_WM_ENTRY(WM_WINDOWPOSCHANGED, AfxSig_vPOS, void (CWnd::*)(WINDOWPOS*), OnWindowPosChanged)
#define ON_WM_WINDOWPOSCHANGING() AFX_WM_ENTRY(WM_WINDOWPOSCHANGING, AfxSig_vPOS, void (CWnd::*)(WINDOWPOS*), OnWindowPosChanging)
#define ON_WM_GETMINMAXINFO() AFX_WM_ENTRY(WM_GETMINMAXINFO, AfxSig_vMMI, void (CWnd::*)(MINMAXINFO*), OnGetMinMaxInfo)
#define ON_WM_MOUSEACTIVATE() AFX_WM_ENTRY(WM_MOUSEACTIVATE, AfxSig_iWww, int (CWnd::*)(CWnd*, UINT, UINT), OnMouseActivate)
#define ON_WM_ACTIVATE() AFX_WM_ENTRY(WM_ACTIVATE, AfxSig_vwWb, void (CWnd::*)(UINT, CWnd*, BOOL), OnActivate)
#define ON_WM_SETTINGCHANGE() AFX_WM_ENTRY(WM_SETTINGCHANGE, AfxSig_vws, void (CWnd::*)(UINT, LPCTSTR), OnSettingChange)
#define ON_WM_NCCALCSIZE() AFX_WM_ENTRY(WM_NCCALCSIZE, AfxSig_vbNCCS, void (CWnd::*)(BOOL, NCCALCSIZE_PARAMS*), OnNcCalcSize)
#define ON_WM_PARENTNOTIFY() AFX_WM_ENTRY(WM_PARENTNOTIFY, AfxSig_vwl, void (CWnd::*)(UINT, LPARAM), OnParentNotify)
#define ON_WM_INITMENUPOPUP() AFX_WM_ENTRY(WM_INITMENUPOPUP, AfxSig_vMwb, void (CWnd::*)(CMenu*, UINT, BOOL), OnInitMenuPopup)

#define ON_MESSAGE(message, memberFxn)                                                            \
    {message, 0, 0, 0, AfxSig_lwl, AFX_MSGFN(LRESULT (CWnd::*)(WPARAM, LPARAM), &ThisClass::memberFxn)},
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn)                                        \
    {AFX_REGISTERED_MESSAGE, 0, 0, 0, (UINT_PTR)(const UINT*)(&nMessageVariable),                  \
     AFX_MSGFN(LRESULT (CWnd::*)(WPARAM, LPARAM), &ThisClass::memberFxn)},

#define ON_COMMAND(id, memberFxn)                                                                 \
    {WM_COMMAND, CN_COMMAND, (UINT)(id), (UINT)(id), AfxSigCmd_v,                                  \
     AFX_CMDFN(void (CCmdTarget::*)(), &ThisClass::memberFxn)},
#define ON_COMMAND_RANGE(id, idLast, memberFxn)                                                   \
    {WM_COMMAND, CN_COMMAND, (UINT)(id), (UINT)(idLast), AfxSigCmd_RANGE,                          \
     AFX_CMDFN(void (CCmdTarget::*)(UINT), &ThisClass::memberFxn)},
#define ON_CONTROL(wNotifyCode, id, memberFxn)                                                    \
    {WM_COMMAND, (UINT)(WORD)(wNotifyCode), (UINT)(id), (UINT)(id), AfxSigCmd_v,                   \
     AFX_CMDFN(void (CCmdTarget::*)(), &ThisClass::memberFxn)},
#define ON_NOTIFY(wNotifyCode, id, memberFxn)                                                     \
    {WM_NOTIFY, (UINT)(WORD)(int)(wNotifyCode), (UINT)(id), (UINT)(id), AfxSigNotify_v,            \
     AFX_CMDFN(void (CCmdTarget::*)(NMHDR*, LRESULT*), &ThisClass::memberFxn)},
#define ON_NOTIFY_RANGE(wNotifyCode, id, idLast, memberFxn)                                       \
    {WM_NOTIFY, (UINT)(WORD)(int)(wNotifyCode), (UINT)(id), (UINT)(idLast), AfxSigNotify_RANGE,    \
     AFX_CMDFN(void (CCmdTarget::*)(UINT, NMHDR*, LRESULT*), &ThisClass::memberFxn)},
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn)                                                \
    {WM_COMMAND + WM_REFLECT_BASE, (UINT)(WORD)(wNotifyCode), 0, 0, AfxSigCmd_v,                   \
     AFX_CMDFN(void (CCmdTarget::*)(), &ThisClass::memberFxn)},
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn)                                             \
    {WM_COMMAND + WM_REFLECT_BASE, (UINT)(WORD)(wNotifyCode), 0, 0, AfxSigCmd_b,                   \
     AFX_CMDFN(BOOL (CCmdTarget::*)(), &ThisClass::memberFxn)},
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn)                                                 \
    {WM_NOTIFY + WM_REFLECT_BASE, (UINT)(WORD)(int)(wNotifyCode), 0, 0, AfxSigNotify_v,            \
     AFX_CMDFN(void (CCmdTarget::*)(NMHDR*, LRESULT*), &ThisClass::memberFxn)},
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn)                                              \
    {WM_NOTIFY + WM_REFLECT_BASE, (UINT)(WORD)(int)(wNotifyCode), 0, 0, AfxSigNotify_b,            \
     AFX_CMDFN(BOOL (CCmdTarget::*)(NMHDR*, LRESULT*), &ThisClass::memberFxn)},
#define ON_WM_CTLCOLOR_REFLECT()                                                                  \
    {WM_CTLCOLOR + WM_REFLECT_BASE, 0, 0, 0, AfxSig_hDw,                                           \
     AFX_MSGFN(HBRUSH (CWnd::*)(CDC*, UINT), &ThisClass::CtlColor)},

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
