// CControl: the second base of every typed control. It carries the control's name (the first
// words of a range message and the caption of its message boxes), the switches that say whether
// a failed validation shows a box and whether typing is checked, and the hooks called when the
// focus enters or leaves.
//
// The focus procedures are class-wide: one set-focus and one kill-focus procedure serve every
// typed control of every class. A control calls them when its own boolean is set, or when its
// external switch points to a non-zero int; a guard per procedure keeps a procedure that moves
// the focus from running into itself.
#pragma once

#include <afxwin.h>

#include <limits>

class CDataExchange;

class AFX_EXT_CLASS CControl
{
public:
    typedef void (*PFNFOCUSPROC)(CWnd* pThisWnd, CWnd* pOtherWnd);

    CControl();
    CControl(const CControl& other);
    CControl& operator=(const CControl& other);
    virtual ~CControl();

    void SetControlName(const CString& strName) { m_strControlName = strName; }
    void SetControlName(const char* lpszName) { m_strControlName = lpszName != NULL ? lpszName : ""; }
    // Takes the name from the window in front of this control in its parent's child order (the
    // label before it in a dialog); nothing happens while either window is missing.
    void SetControlName();
    const CString& GetControlName() const { return m_strControlName; }

    void SetDisplayErrMsg(int bDisplay) { m_bDisplayErrMsg = bDisplay; }
    int GetDisplayErrMsg() const { return m_bDisplayErrMsg; }
    void SetDynamicErrChecking(int bCheck) { m_bDynamicErrChecking = bCheck; }
    void SetCallSetFocusProc(int bCall) { m_bCallSetFocusProc = bCall; }
    void SetCallKillFocusProc(int bCall) { m_bCallKillFocusProc = bCall; }
    void SetCallSetFocusProc(int* pbCall) { m_pbCallSetFocusProc = pbCall; }
    void SetCallKillFocusProc(int* pbCall) { m_pbCallKillFocusProc = pbCall; }
    void SetCallOnFocusProcs(int bCall) { m_bCallSetFocusProc = m_bCallKillFocusProc = bCall; }
    void SetCallOnFocusProcs(int* pbCall) { m_pbCallSetFocusProc = m_pbCallKillFocusProc = pbCall; }

    virtual void SetSetFocusProc(PFNFOCUSPROC pfnProc) const;
    virtual void SetKillFocusProc(PFNFOCUSPROC pfnProc) const;

protected:
    // How a failed validation treats the focus (the families differ): an edit takes the focus
    // and selects its text only when it shows the box, a combo takes the focus even when it
    // shows nothing, a button takes it when it shows the box.
    enum FAILURE_FOCUS
    {
        FOCUS_SELECT_WHEN_SHOWN,
        FOCUS_ALWAYS,
        FOCUS_WHEN_SHOWN
    };

    // The window of this control (every typed control is also a CWnd), or NULL before it exists.
    CWnd* GetControlWnd() const;

    // Runs the class-wide set-focus or kill-focus procedure when this control asks for it.
    void CallSetFocusProc(CWnd* pOldWnd);
    void CallKillFocusProc(CWnd* pNewWnd);

    // The failure path of a validation: focus as the family does, the message box (exclamation
    // icon, owned by the parent, captioned with the name) when the display-error switch is on,
    // then CDataExchange::Fail when an exchange is running (it does not return). Returns FALSE.
    int ReportFailure(const CString& strMessage, CDataExchange* pDX, FAILURE_FOCUS focus);

    // The range message: the name (or "The value entered"), " is out of range!\n\r", the guidance
    // phrase for the bounds that are set (NULL for an unset one), the bounds and "!".
    // lpszNoBounds is the phrase when neither bound is set.
    CString FormatRangeMessage(LPCTSTR lpszLower, LPCTSTR lpszUpper, LPCTSTR lpszNoBounds = NULL) const;

    // Reads strText through the integer value type TValue and checks the bounds, a bound equal to
    // the type's own limit being unset. On failure strMessage holds the parser's message or the
    // range message, and value is left alone.
    template <class TValue, class T>
    int ReadIntegerInRange(const CString& strText, T nMin, T nMax, T& value, CString& strMessage) const
    {
        T nRead = 0;
        if (!TValue::ValidateAndGet(strText, nRead, &strMessage))
            return FALSE;
        bool bLowerSet = nMin != std::numeric_limits<T>::min();
        bool bUpperSet = nMax != std::numeric_limits<T>::max();
        if ((bLowerSet && nRead < nMin) || (bUpperSet && nRead > nMax))
        {
            strMessage = FormatRangeMessage(bLowerSet ? static_cast<LPCTSTR>(TValue::Format(nMin)) : NULL,
                                            bUpperSet ? static_cast<LPCTSTR>(TValue::Format(nMax)) : NULL);
            return FALSE;
        }
        value = nRead;
        return TRUE;
    }
    // The same for a double read through CDouble with the control's settings. A bound is set when
    // it differs bit for bit from its none value (CDouble's undefined value below, the largest
    // double above), and set bounds print in full, whatever places the control shows. The
    // undefined value passes only when bAcceptUndefined is on.
    int ReadDoubleInRange(const CString& strText, double dMin, double dMax, int nDecimals, int nRound,
                          int nScientific, BOOL bAcceptUndefined, double& value, CString& strMessage) const;
    static BOOL IsDoubleBoundSet(double dBound, double dNone);
    // The message of a choice left empty (a radio group, a colour): " A <name> must be selected!".
    CString FormatChoiceMessage() const;

    // The text of a control that keeps it in the object too: read into a buffer of nMaxCount bytes
    // (from the window, caching it; without a window from the cache), or set (cached, and given
    // to the window when there is one). Returns the length copied.
    static int GetCachedText(HWND hWnd, CString& strCache, LPTSTR lpszBuffer, int nMaxCount);
    static void SetCachedText(HWND hWnd, CString& strCache, LPCTSTR lpszText);

    CString m_strControlName;
    int m_bDisplayErrMsg;
    int m_bDynamicErrChecking;
    int m_bCallSetFocusProc;
    int m_bCallKillFocusProc;
    int* m_pbCallSetFocusProc;
    int* m_pbCallKillFocusProc;

    static PFNFOCUSPROC s_pfnSetFocusProc;
    static PFNFOCUSPROC s_pfnKillFocusProc;
    static BOOL s_bInSetFocusProc;
    static BOOL s_bInKillFocusProc;
};

// Turns the display-error switch off for a scope (no box while typing) and puts it back.
class CControlQuietScope
{
public:
    explicit CControlQuietScope(int& bDisplayErrMsg) : m_rbSwitch(bDisplayErrMsg), m_bSaved(bDisplayErrMsg)
    {
        m_rbSwitch = 0;
    }
    ~CControlQuietScope() { m_rbSwitch = m_bSaved; }
    CControlQuietScope(const CControlQuietScope&) = delete;
    CControlQuietScope& operator=(const CControlQuietScope&) = delete;

private:
    int& m_rbSwitch;
    int m_bSaved;
};
