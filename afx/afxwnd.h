// CCmdTarget and CWnd: window objects attached to window handles, message maps, subclassing,
// creation with the object attached before WM_NCCREATE, and message reflection, as in MFC.
// The handle maps are per thread (afxhandle.h): a window's object is permanent on the thread
// that created or attached it.
#pragma once

#include <commctrl.h>

// Win32 macros that would rename members of the same name.
#undef GetNextWindow
#undef SubclassWindow

#include <afx.h>
#include <afxhandle.h>
#include <afxmsg_.h>
#include <atltypes.h>

class CDC;
class CMenu;
class CFont;
class CScrollBar;
class CDataExchange;

// The message being handled, for Default() and GetCurrentMessage().
struct AFX_CTLCOLOR
{
    HWND hWnd;
    HDC hDC;
    UINT nCtlType;
};

struct AFX_NOTIFY
{
    LRESULT* pResult;
    NMHDR* pNMHDR;
};

class AFX_CORE_CLASS CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)
public:
    CCmdTarget();

    // Routes WM_COMMAND and WM_NOTIFY entries: nCode is the notification code in the low word
    // and, for other than WM_COMMAND, the message in the high word.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, void* pHandlerInfo);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
    static const AFX_MSGMAP_ENTRY* AFXAPI FindMessageEntry(const AFX_MSGMAP_ENTRY* lpEntry, UINT nMsg,
                                                           UINT nCode, UINT nID);
};

class AFX_CORE_CLASS CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)
public:
    CWnd();
    explicit CWnd(HWND hWnd); // for the z-order positions below, never attached
    ~CWnd() override;

    static const CWnd wndTop;
    static const CWnd wndBottom;
    static const CWnd wndTopMost;
    static const CWnd wndNoTopMost;

    HWND m_hWnd;
    // Callers may use these through a null pointer, as MFC allows (GetParent()->GetSafeHwnd()).
    operator HWND() const { return GetSafeHwnd(); }
    HWND GetSafeHwnd() const
    {
        const CWnd* pThis = AfxNullableThis(this);
        return pThis == NULL ? NULL : pThis->m_hWnd;
    }
    bool operator==(const CWnd& wnd) const { return m_hWnd == wnd.m_hWnd; }
    bool operator!=(const CWnd& wnd) const { return m_hWnd != wnd.m_hWnd; }

    // Handle map of the calling thread. FromHandle makes a temporary object for a window without
    // a permanent one on this thread; temporary objects are deleted when the thread is idle
    // (DeleteTempMap) and when it ends.
    static CWnd* PASCAL FromHandle(HWND hWnd);
    static CWnd* PASCAL FromHandlePermanent(HWND hWnd);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HWND hWndNew);
    HWND Detach();

    // Creation and subclassing
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                        CWnd* pParentWnd, UINT nID, LPVOID lpParam = NULL);
    virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                          int x, int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu,
                          LPVOID lpParam = NULL);
    BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                  const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = NULL);
    virtual BOOL DestroyWindow();
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    HWND UnsubclassWindow();

    // Overridables
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    virtual void PreSubclassWindow();
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual void PostNcDestroy();
    virtual void DoDataExchange(CDataExchange* pDX);
    virtual void CalcWindowRect(LPRECT lpClientRect, UINT nAdjustType = 0);

    LRESULT Default();
    static const MSG* PASCAL GetCurrentMessage();
    BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    static BOOL PASCAL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = NULL);
    BOOL SendChildNotifyLastMsg(LRESULT* pResult = NULL);
    static BOOL PASCAL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);

    // Modal loop of dialogs and other modal windows
    int RunModalLoop(DWORD dwFlags = 0);
    virtual BOOL ContinueModal();
    virtual void EndModalLoop(int nResult);

    // Styles
    DWORD GetStyle() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<DWORD>(::GetWindowLongPtr(m_hWnd, GWL_STYLE)); }
    DWORD GetExStyle() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<DWORD>(::GetWindowLongPtr(m_hWnd, GWL_EXSTYLE)); }
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);

    // Text, fonts, identity
    void SetWindowText(LPCTSTR lpszString) { ASSERT(::IsWindow(m_hWnd)); ::SetWindowTextA(m_hWnd, lpszString); }
    int GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const { ASSERT(::IsWindow(m_hWnd)); return ::GetWindowTextA(m_hWnd, lpszStringBuf, nMaxCount); }
    void GetWindowText(CString& rString) const;
    int GetWindowTextLength() const { ASSERT(::IsWindow(m_hWnd)); return ::GetWindowTextLengthA(m_hWnd); }
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
    CFont* GetFont() const;
    int GetDlgCtrlID() const { ASSERT(::IsWindow(m_hWnd)); return ::GetDlgCtrlID(m_hWnd); }
    int SetDlgCtrlID(int nID) { ASSERT(::IsWindow(m_hWnd)); return static_cast<int>(::SetWindowLongPtr(m_hWnd, GWLP_ID, nID)); }
    BOOL IsWindowVisible() const { ASSERT(::IsWindow(m_hWnd)); return ::IsWindowVisible(m_hWnd); }
    BOOL IsWindowEnabled() const { ASSERT(::IsWindow(m_hWnd)); return ::IsWindowEnabled(m_hWnd); }
    BOOL EnableWindow(BOOL bEnable = TRUE) { ASSERT(::IsWindow(m_hWnd)); return ::EnableWindow(m_hWnd, bEnable); }
    BOOL ShowWindow(int nCmdShow) { ASSERT(::IsWindow(m_hWnd)); return ::ShowWindow(m_hWnd, nCmdShow); }
    BOOL IsChild(const CWnd* pWnd) const { ASSERT(::IsWindow(m_hWnd)); return ::IsChild(m_hWnd, pWnd->GetSafeHwnd()); }
    BOOL IsIconic() const { ASSERT(::IsWindow(m_hWnd)); return ::IsIconic(m_hWnd); }
    BOOL IsZoomed() const { ASSERT(::IsWindow(m_hWnd)); return ::IsZoomed(m_hWnd); }

    // Parent, owner, children
    CWnd* GetParent() const { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::GetParent(m_hWnd)); }
    CWnd* SetParent(CWnd* pWndNewParent) { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::SetParent(m_hWnd, pWndNewParent->GetSafeHwnd())); }
    CWnd* GetOwner() const { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::GetWindow(m_hWnd, GW_OWNER)); }
    CWnd* GetTopLevelParent() const;
    CWnd* GetWindow(UINT nCmd) const { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::GetWindow(m_hWnd, nCmd)); }
    CWnd* GetNextWindow(UINT nFlag = GW_HWNDNEXT) const { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::GetWindow(m_hWnd, nFlag)); }
    CWnd* GetDlgItem(int nID) const { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::GetDlgItem(m_hWnd, nID)); }
    void GetDlgItem(int nID, HWND* phWnd) const { ASSERT(::IsWindow(m_hWnd)); *phWnd = ::GetDlgItem(m_hWnd, nID); }
    UINT GetDlgItemInt(int nID, BOOL* lpTrans = NULL, BOOL bSigned = TRUE) const { ASSERT(::IsWindow(m_hWnd)); return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned); }
    void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE) { ASSERT(::IsWindow(m_hWnd)); ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned); }
    int GetDlgItemText(int nID, CString& rString) const;
    void SetDlgItemText(int nID, LPCTSTR lpszString) { ASSERT(::IsWindow(m_hWnd)); ::SetDlgItemTextA(m_hWnd, nID, lpszString); }
    LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) { ASSERT(::IsWindow(m_hWnd)); return ::SendDlgItemMessageA(m_hWnd, nID, message, wParam, lParam); }
    CWnd* GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::GetNextDlgTabItem(m_hWnd, pWndCtl->GetSafeHwnd(), bPrevious)); }
    CWnd* GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::GetNextDlgGroupItem(m_hWnd, pWndCtl->GetSafeHwnd(), bPrevious)); }
    void CheckDlgButton(int nIDButton, UINT nCheck) { ASSERT(::IsWindow(m_hWnd)); ::CheckDlgButton(m_hWnd, nIDButton, nCheck); }
    UINT IsDlgButtonChecked(int nIDButton) const { ASSERT(::IsWindow(m_hWnd)); return ::IsDlgButtonChecked(m_hWnd, nIDButton); }

    // Focus, activation, capture
    CWnd* SetFocus() { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::SetFocus(m_hWnd)); }
    static CWnd* PASCAL GetFocus() { return CWnd::FromHandle(::GetFocus()); }
    CWnd* SetActiveWindow() { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::SetActiveWindow(m_hWnd)); }
    static CWnd* PASCAL GetActiveWindow() { return CWnd::FromHandle(::GetActiveWindow()); }
    BOOL SetForegroundWindow() { ASSERT(::IsWindow(m_hWnd)); return ::SetForegroundWindow(m_hWnd); }
    CWnd* SetCapture() { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::SetCapture(m_hWnd)); }
    static CWnd* PASCAL GetCapture() { return CWnd::FromHandle(::GetCapture()); }
    static CWnd* PASCAL GetDesktopWindow() { return CWnd::FromHandle(::GetDesktopWindow()); }
    static CWnd* PASCAL WindowFromPoint(POINT point) { return CWnd::FromHandle(::WindowFromPoint(point)); }
    CWnd* ChildWindowFromPoint(POINT point) const { ASSERT(::IsWindow(m_hWnd)); return CWnd::FromHandle(::ChildWindowFromPoint(m_hWnd, point)); }

    // Size and position
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE) { ASSERT(::IsWindow(m_hWnd)); ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint); }
    void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE) { MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top, bRepaint); }
    BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
    void GetWindowRect(LPRECT lpRect) const { ASSERT(::IsWindow(m_hWnd)); ::GetWindowRect(m_hWnd, lpRect); }
    void GetClientRect(LPRECT lpRect) const { ASSERT(::IsWindow(m_hWnd)); ::GetClientRect(m_hWnd, lpRect); }
    void ClientToScreen(LPPOINT lpPoint) const { ASSERT(::IsWindow(m_hWnd)); ::ClientToScreen(m_hWnd, lpPoint); }
    void ClientToScreen(LPRECT lpRect) const;
    void ScreenToClient(LPPOINT lpPoint) const { ASSERT(::IsWindow(m_hWnd)); ::ScreenToClient(m_hWnd, lpPoint); }
    void ScreenToClient(LPRECT lpRect) const;
    void MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const { ASSERT(::IsWindow(m_hWnd)); ::MapWindowPoints(m_hWnd, pwndTo->GetSafeHwnd(), lpPoint, nCount); }
    void MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const { ASSERT(::IsWindow(m_hWnd)); ::MapWindowPoints(m_hWnd, pwndTo->GetSafeHwnd(), reinterpret_cast<LPPOINT>(lpRect), 2); }
    void CenterWindow(CWnd* pAlternateOwner = NULL);

    // Painting
    void Invalidate(BOOL bErase = TRUE) { ASSERT(::IsWindow(m_hWnd)); ::InvalidateRect(m_hWnd, NULL, bErase); }
    void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE) { ASSERT(::IsWindow(m_hWnd)); ::InvalidateRect(m_hWnd, lpRect, bErase); }
    void ValidateRect(LPCRECT lpRect) { ASSERT(::IsWindow(m_hWnd)); ::ValidateRect(m_hWnd, lpRect); }
    void UpdateWindow() { ASSERT(::IsWindow(m_hWnd)); ::UpdateWindow(m_hWnd); }
    BOOL RedrawWindow(LPCRECT lpRectUpdate = NULL, HRGN hrgnUpdate = NULL,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE) { ASSERT(::IsWindow(m_hWnd)); return ::RedrawWindow(m_hWnd, lpRectUpdate, hrgnUpdate, flags); }
    void SetRedraw(BOOL bRedraw = TRUE) { ASSERT(::IsWindow(m_hWnd)); ::SendMessageA(m_hWnd, WM_SETREDRAW, bRedraw, 0); }
    CDC* GetDC();
    CDC* GetWindowDC();
    int ReleaseDC(CDC* pDC);
    CDC* BeginPaint(LPPAINTSTRUCT lpPaint);
    void EndPaint(LPPAINTSTRUCT lpPaint) { ASSERT(::IsWindow(m_hWnd)); ::EndPaint(m_hWnd, lpPaint); }

    // Timers, scrolling
    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, void(CALLBACK* lpfnTimer)(HWND, UINT, UINT_PTR, DWORD) = NULL) { ASSERT(::IsWindow(m_hWnd)); return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer); }
    BOOL KillTimer(UINT_PTR nIDEvent) { ASSERT(::IsWindow(m_hWnd)); return ::KillTimer(m_hWnd, nIDEvent); }
    int GetScrollPos(int nBar) const { ASSERT(::IsWindow(m_hWnd)); return ::GetScrollPos(m_hWnd, nBar); }
    int SetScrollPos(int nBar, int nPos, BOOL bRedraw = TRUE) { ASSERT(::IsWindow(m_hWnd)); return ::SetScrollPos(m_hWnd, nBar, nPos, bRedraw); }
    void GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const { ASSERT(::IsWindow(m_hWnd)); ::GetScrollRange(m_hWnd, nBar, lpMinPos, lpMaxPos); }
    void SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw = TRUE) { ASSERT(::IsWindow(m_hWnd)); ::SetScrollRange(m_hWnd, nBar, nMinPos, nMaxPos, bRedraw); }
    BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
    BOOL SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
    int GetScrollLimit(int nBar);
    void ShowScrollBar(UINT nBar, BOOL bShow = TRUE) { ASSERT(::IsWindow(m_hWnd)); ::ShowScrollBar(m_hWnd, nBar, bShow); }
    void ScrollWindow(int xAmount, int yAmount, LPCRECT lpRect = NULL, LPCRECT lpClipRect = NULL) { ASSERT(::IsWindow(m_hWnd)); ::ScrollWindow(m_hWnd, xAmount, yAmount, lpRect, lpClipRect); }
    int ScrollWindowEx(int dx, int dy, LPCRECT lpRectScroll, LPCRECT lpRectClip, HRGN hrgnUpdate, LPRECT lpRectUpdate, UINT flags) { ASSERT(::IsWindow(m_hWnd)); return ::ScrollWindowEx(m_hWnd, dx, dy, lpRectScroll, lpRectClip, hrgnUpdate, lpRectUpdate, flags); }

    // Messages
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const { ASSERT(::IsWindow(m_hWnd)); return ::SendMessageA(m_hWnd, message, wParam, lParam); }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const { ASSERT(::IsWindow(m_hWnd)); return ::PostMessageA(m_hWnd, message, wParam, lParam); }
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, BOOL bDeep = TRUE);
    int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = NULL, UINT nType = MB_OK);

    // Menus and carets
    CMenu* GetMenu() const;
    BOOL SetMenu(CMenu* pMenu);
    CMenu* GetSystemMenu(BOOL bRevert) const;
    void CreateSolidCaret(int nWidth, int nHeight) { ASSERT(::IsWindow(m_hWnd)); ::CreateCaret(m_hWnd, NULL, nWidth, nHeight); }
    static void PASCAL SetCaretPos(POINT point) { ::SetCaretPos(point.x, point.y); }
    static CPoint PASCAL GetCaretPos();
    void ShowCaret() { ASSERT(::IsWindow(m_hWnd)); ::ShowCaret(m_hWnd); }
    void HideCaret() { ASSERT(::IsWindow(m_hWnd)); ::HideCaret(m_hWnd); }

    // Message handlers whose default is the window's own processing, or reflection to the child.
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg BOOL OnNcCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy();
    afx_msg void OnNcDestroy();
    afx_msg void OnClose();
    afx_msg void OnPaint();
    afx_msg void OnNcPaint();
    afx_msg void OnCancelMode();
    afx_msg void OnSysColorChange();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnMove(int x, int y);
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg UINT OnGetDlgCode();
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
    afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct);
    afx_msg void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    afx_msg void OnEnable(BOOL bEnable);
    afx_msg void OnShowWindow(BOOL bShow, UINT nStatus);
    afx_msg void OnContextMenu(CWnd* pWnd, CPoint pos);
    afx_msg LRESULT OnNcHitTest(CPoint point);
    afx_msg void OnWindowPosChanged(WINDOWPOS* lpwndpos);
    afx_msg void OnWindowPosChanging(WINDOWPOS* lpwndpos);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
    afx_msg int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message);
    afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
    afx_msg void OnSettingChange(UINT uFlags, LPCTSTR lpszSection);
    afx_msg void OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS* lpncsp);
    afx_msg void OnParentNotify(UINT message, LPARAM lParam);
    afx_msg void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);

    // The previous window procedure of a subclassed or superclassed window.
    WNDPROC m_pfnSuper;

protected:
    int m_nModalResult;
    BOOL m_bInModalLoop;

protected:
    DECLARE_MESSAGE_MAP()

    friend LRESULT CALLBACK AfxWndProc(HWND, UINT, WPARAM, LPARAM);
};

// A window's text, at most nMaxLen characters of it.
AFX_CORE_API void AFXAPI AfxGetWindowText(HWND hWnd, CString& rString, int nMaxLen = 0x7FFFFFFF);
// Registers the class unless its module already has a class of that name; TRUE when it is there.
AFX_CORE_API BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass);

// While a window exchanges data, the notifications of its controls are ignored; returns the
// window locked out before.
AFX_CORE_API HWND AFXAPI AfxSetLockoutNotifyWindow(HWND hWnd);
// What a handler's uncaught exception becomes: a message box (none for CUserException), -1 for
// WM_CREATE, a validated window for WM_PAINT.
AFX_CORE_API LRESULT AFXAPI AfxProcessWndProcException(CException* e, const MSG* pMsg);

// Window procedure of every window with a CWnd attached.
AFX_CORE_API LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
AFX_CORE_API LRESULT AFXAPI AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
// Attaches pWnd to the next window this thread creates, before it receives WM_NCCREATE; the
// thread's creation hook is removed as soon as it has. Call AfxUnhookWindowCreate after the
// creation: it removes a hook that never ran and returns FALSE when pWnd was not attached.
AFX_CORE_API void AFXAPI AfxHookWindowCreate(CWnd* pWnd);
AFX_CORE_API BOOL AFXAPI AfxUnhookWindowCreate();
