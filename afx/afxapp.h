// The application object, the message loop, and the module state shared by the program and
// its extension libraries: instance and resource handles and the resource chain of
// CDynLinkLibrary objects that resource and string loading walk.
#pragma once

#include <afxwnd.h>

class AFX_CORE_CLASS CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)
public:
    CWinThread();

    CWnd* m_pMainWnd;
    MSG m_msgCur;

    virtual BOOL InitInstance();
    virtual int Run();
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    virtual BOOL PumpMessage();
    virtual BOOL OnIdle(LONG lCount);
    virtual BOOL IsIdleMessage(MSG* pMsg);
    virtual int ExitInstance();
    virtual CWnd* GetMainWnd() { return m_pMainWnd; }
};

class AFX_CORE_CLASS CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)
public:
    explicit CWinApp(LPCTSTR lpszAppName = NULL);
    ~CWinApp() override;

    LPCTSTR m_pszAppName;
    LPCTSTR m_pszExeName;
    LPCTSTR m_pszProfileName; // the INI file of the profile functions
    HINSTANCE m_hInstance;
    LPTSTR m_lpCmdLine;
    int m_nCmdShow;

    virtual BOOL InitApplication();
    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);

    UINT GetProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault);
    BOOL WriteProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue);
    CString GetProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault = NULL);
    BOOL WriteProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue);

    HCURSOR LoadCursor(LPCTSTR lpszResourceName) const;
    HCURSOR LoadCursor(UINT nIDResource) const;
    HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const { return ::LoadCursor(NULL, lpszCursorName); }
    HICON LoadIcon(UINT nIDResource) const;

private:
    // Names that AfxWinInit derives when the application sets none; freed with the object.
    CString m_strAppName;
    CString m_strExeName;
    CString m_strProfileName;
    friend AFX_CORE_API BOOL AFXAPI AfxWinInit(HINSTANCE, HINSTANCE, LPTSTR, int);
};

AFX_CORE_API CWinApp* AFXAPI AfxGetApp();
AFX_CORE_API CWinThread* AFXAPI AfxGetThread();
AFX_CORE_API CWnd* AFXAPI AfxGetMainWnd();
AFX_CORE_API LPCTSTR AFXAPI AfxGetAppName();
AFX_CORE_API BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
AFX_CORE_API int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
// One turn of the message loop: TRUE unless WM_QUIT arrived.
AFX_CORE_API BOOL AFXAPI AfxPumpMessage();
AFX_CORE_API BOOL AFXAPI AfxPreTranslateMessage(MSG* pMsg);
// Deletes the calling thread's temporary window, device-context, GDI-object, menu and
// image-list objects.
AFX_CORE_API void AFXAPI AfxDeleteTempMaps();

AFX_CORE_API int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
AFX_CORE_API int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = static_cast<UINT>(-1));

// Module state
AFX_CORE_API HINSTANCE AFXAPI AfxGetInstanceHandle();
AFX_CORE_API HINSTANCE AFXAPI AfxGetResourceHandle();
AFX_CORE_API void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource);
AFX_CORE_API HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType);

struct AFX_EXTENSION_MODULE
{
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
    CRuntimeClass* pFirstSharedClass;
    void* pFirstSharedFactory;
};

// A library in the resource chain. Resource and string lookups search the program first,
// then every non-system library from the newest, then the system libraries.
class AFX_CORE_CLASS CDynLinkLibrary : public CCmdTarget
{
    DECLARE_DYNAMIC(CDynLinkLibrary)
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;
    CRuntimeClass* m_pFirstClass;
    BOOL m_bSystem;
    CDynLinkLibrary* m_pNextDLL;

    static CDynLinkLibrary* PASCAL GetFirst();

private:
    void Link();
};

AFX_CORE_API BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
AFX_CORE_API void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);
