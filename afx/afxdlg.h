// Dialogs and dialog data exchange, as in MFC: CDialog (modal and modeless, from a resource
// or from a template in memory), CDataExchange and the DDX_/DDV_ functions.
#pragma once

#include <afxwnd.h>

// Flags of CWnd::RunModalLoop.
#define MLF_NOIDLEMSG 0x0001  // no WM_ENTERIDLE to the parent
#define MLF_SHOWONIDLE 0x0004 // show the window when the queue first runs empty

class AFX_CORE_CLASS CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)
public:
    // A modeless dialog: Create or CreateIndirect makes the window.
    CDialog();
    // A modal dialog: DoModal makes the window from the template resource.
    explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = NULL);
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = NULL);
    ~CDialog() override;

    // Modeless creation. A null parent stands for the application's main window.
    virtual BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = NULL);
    virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = NULL);
    virtual BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = NULL, void* lpDialogInit = NULL);
    virtual BOOL CreateIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd = NULL);

    // Modal use of a template in memory (a pointer, or a global memory handle). The template
    // (and the initialisation data) must stay in place until DoModal returns.
    BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = NULL, void* lpDialogInit = NULL);
    BOOL InitModalIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd = NULL);
    // Returns the EndDialog result, or -1 when the template cannot be found or the window
    // cannot be made.
    virtual INT_PTR DoModal();

    // Fills list and combo boxes from the initialisation data (the RT_DLGINIT resource of the
    // template's name, or the data given to CreateIndirect/InitModalIndirect), then moves the
    // members into the controls. A failure ends the dialog with -1.
    virtual BOOL OnInitDialog();
    void EndDialog(int nResult);

    void GotoDlgCtrl(CWnd* pWndCtrl);
    void NextDlgCtrl() const { ASSERT(::IsWindow(m_hWnd)); SendMessage(WM_NEXTDLGCTL, 0, 0); }
    void PrevDlgCtrl() const { ASSERT(::IsWindow(m_hWnd)); SendMessage(WM_NEXTDLGCTL, 1, 0); }
    void SetDefID(UINT nID) { ASSERT(::IsWindow(m_hWnd)); SendMessage(DM_SETDEFID, nID); }
    // The default button's identifier in the low word, DC_HASDEFID in the high word.
    DWORD GetDefID() const { ASSERT(::IsWindow(m_hWnd)); return static_cast<DWORD>(SendMessage(DM_GETDEFID)); }
    void MapDialogRect(LPRECT lpRect) const { ASSERT(::IsWindow(m_hWnd)); ::MapDialogRect(m_hWnd, lpRect); }

    // Gives the dialog manager the keyboard and mouse messages of the dialog and its controls.
    BOOL PreTranslateMessage(MSG* pMsg) override;

    // Sends the LB_ADDSTRING/CB_ADDSTRING records of dialog initialisation data (a list of
    // records: control id, message, data length, data; ended by a zero id) to the controls.
    // FALSE when a control refuses an item. Without data (or resource) there is nothing to do.
    BOOL ExecuteDlgInit(LPCTSTR lpszResourceName);
    BOOL ExecuteDlgInit(LPVOID lpResource);

protected:
    // OK saves and validates the members (UpdateData) and ends the dialog with IDOK only when
    // that succeeded; Cancel ends it with IDCANCEL.
    virtual void OnOK();
    virtual void OnCancel();

    // Makes the window from a template, attached to this object before WM_INITDIALOG.
    BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void* lpDialogInit, HINSTANCE hInst);
    BOOL CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst);

    LPCTSTR m_lpszTemplateName;
    HGLOBAL m_hDialogTemplate;
    LPCDLGTEMPLATE m_lpDialogTemplate;
    void* m_lpDialogInit;
    CWnd* m_pParentWnd;

    DECLARE_MESSAGE_MAP()
};

// The dialog procedure of CDialog windows: calls OnInitDialog of the attached object.
AFX_CORE_API INT_PTR CALLBACK AfxDlgProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

// One data exchange between a window's controls and its member variables.
class AFX_CORE_CLASS CDataExchange
{
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);

    BOOL m_bSaveAndValidate; // TRUE: controls to members, with validation
    CWnd* m_pDlgWnd;

    // The control with the given identifier; it becomes the one Fail returns the focus to.
    // A missing control throws CInvalidArgException.
    HWND PrepareCtrl(int nIDC);
    HWND PrepareEditCtrl(int nIDC);
    // Ends the exchange: on saving, the last prepared control gets the focus back (an edit's
    // text selected); then CUserException is thrown.
    [[noreturn]] void Fail();

    HWND m_hWndLastControl;
    BOOL m_bEditLastControl;
};

AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
// Saving copies at most nMaxLen - 1 characters and a terminator.
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, LPTSTR value, int nMaxLen);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, float& value);
AFX_CORE_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value);
AFX_CORE_API void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value);
AFX_CORE_API void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index);
AFX_CORE_API void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value);
// nIDC is the first radio button of a group (WS_GROUP); value is the index of the checked
// button in the group, -1 for none.
AFX_CORE_API void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
// Subclasses the dialog item with rControl, once.
AFX_CORE_API void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);

AFX_CORE_API void AFXAPI DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars);
AFX_CORE_API void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal);
AFX_CORE_API void AFXAPI DDV_MinMaxLong(CDataExchange* pDX, long value, long minVal, long maxVal);
AFX_CORE_API void AFXAPI DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal);
AFX_CORE_API void AFXAPI DDV_MinMaxDWord(CDataExchange* pDX, DWORD value, DWORD minVal, DWORD maxVal);
AFX_CORE_API void AFXAPI DDV_MinMaxDouble(CDataExchange* pDX, const double& value, double minVal, double maxVal);
