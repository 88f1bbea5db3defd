#include <afxwin.h>
#include <afxcmn.h>
#include <afxres.h>

#include <string.h>

namespace
{
// Process-wide module state. The program and every extension library share it, which is
// why this layer is a DLL of its own.
struct CModuleState
{
    CWinApp* pCurrentWinApp = NULL;
    HINSTANCE hCurrentInstanceHandle = NULL;
    HINSTANCE hCurrentResourceHandle = NULL;
    CDynLinkLibrary* pFirstLibrary = NULL;
};

CModuleState& ModuleState()
{
    static CModuleState s_state;
    return s_state;
}

bool HasStringResource(HINSTANCE hInstance, UINT nID)
{
    // With a zero buffer size, LoadStringW reports the length without copying.
    LPCWSTR pText = NULL;
    return hInstance != NULL && ::LoadStringW(hInstance, nID, reinterpret_cast<LPWSTR>(&pText), 0) > 0;
}

// Walks the program, then the non-system libraries, then the system libraries, and returns
// the first module that the test accepts; the program's resources when none does.
template <class Test>
HINSTANCE FindInResourceChain(Test test)
{
    HINSTANCE hProgram = AfxGetResourceHandle();
    if (test(hProgram))
        return hProgram;
    for (int nPass = 0; nPass < 2; ++nPass)
    {
        for (CDynLinkLibrary* pDLL = ModuleState().pFirstLibrary; pDLL != NULL; pDLL = pDLL->m_pNextDLL)
        {
            if ((pDLL->m_bSystem != FALSE) == (nPass == 1) && pDLL->m_hResource != NULL && test(pDLL->m_hResource))
                return pDLL->m_hResource;
        }
    }
    return hProgram;
}
} // namespace

// ---------------------------------------------------------------------------------------------
// Module state and the resource chain

HINSTANCE AFXAPI AfxGetInstanceHandle()
{
    HINSTANCE hInstance = ModuleState().hCurrentInstanceHandle;
    return hInstance != NULL ? hInstance : ::GetModuleHandleA(NULL);
}

HINSTANCE AFXAPI AfxGetResourceHandle()
{
    HINSTANCE hInstance = ModuleState().hCurrentResourceHandle;
    return hInstance != NULL ? hInstance : AfxGetInstanceHandle();
}

void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource)
{
    ModuleState().hCurrentResourceHandle = hInstResource;
}

HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType)
{
    return FindInResourceChain([&](HINSTANCE h) { return ::FindResourceA(h, lpszName, lpszType) != NULL; });
}

HINSTANCE AFXAPI AfxFindStringResourceHandle(UINT nID)
{
    return FindInResourceChain([&](HINSTANCE h) { return HasStringResource(h, nID); });
}

CRuntimeClass* AFXAPI AfxFindLibraryRuntimeClass(LPCSTR lpszClassName)
{
    for (CDynLinkLibrary* pDLL = ModuleState().pFirstLibrary; pDLL != NULL; pDLL = pDLL->m_pNextDLL)
        for (CRuntimeClass* pClass = pDLL->m_pFirstClass; pClass != NULL; pClass = pClass->m_pNextClass)
            if (strcmp(pClass->m_lpszClassName, lpszClassName) == 0)
                return pClass;
    return NULL;
}

BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule)
{
    if (state.bInitialized)
        return TRUE;
    state.bInitialized = TRUE;
    state.hModule = hModule;
    state.hResource = hModule;
    // The library's static constructors ran just before its DllMain: its classes are the
    // ones registered since the last detach.
    state.pFirstSharedClass = AfxDetachClassList();
    state.pFirstSharedFactory = NULL;
    return TRUE;
}

void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll)
{
    if (!state.bInitialized)
        return;
    CDynLinkLibrary* pDLL = ModuleState().pFirstLibrary;
    while (pDLL != NULL)
    {
        CDynLinkLibrary* pNext = pDLL->m_pNextDLL;
        if (bAll || pDLL->m_hModule == state.hModule)
            delete pDLL;
        pDLL = pNext;
    }
}

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_pFirstClass(state.pFirstSharedClass),
      m_bSystem(bSystem), m_pNextDLL(NULL)
{
    Link();
}

CDynLinkLibrary::CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource)
    : m_hModule(hModule), m_hResource(hResource), m_pFirstClass(NULL), m_bSystem(FALSE), m_pNextDLL(NULL)
{
    Link();
}

void CDynLinkLibrary::Link()
{
    m_pNextDLL = ModuleState().pFirstLibrary;
    ModuleState().pFirstLibrary = this;
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    for (CDynLinkLibrary** ppDLL = &ModuleState().pFirstLibrary; *ppDLL != NULL; ppDLL = &(*ppDLL)->m_pNextDLL)
    {
        if (*ppDLL == this)
        {
            *ppDLL = m_pNextDLL;
            break;
        }
    }
}

CDynLinkLibrary* PASCAL CDynLinkLibrary::GetFirst()
{
    return ModuleState().pFirstLibrary;
}

// ---------------------------------------------------------------------------------------------
// The message loop

void AFXAPI AfxDeleteTempMaps()
{
    CWnd::DeleteTempMap();
    CDC::DeleteTempMap();
    CGdiObject::DeleteTempMap();
    CMenu::DeleteTempMap();
    CImageList::DeleteTempMap();
}

BOOL AFXAPI AfxPreTranslateMessage(MSG* pMsg)
{
    CWinThread* pThread = AfxGetThread();
    if (pThread != NULL)
        return pThread->PreTranslateMessage(pMsg);
    return CWnd::WalkPreTranslateTree(NULL, pMsg);
}

BOOL AFXAPI AfxPumpMessage()
{
    MSG msg;
    if (::GetMessageA(&msg, NULL, 0, 0) <= 0)
    {
        if (msg.message == WM_QUIT)
            ::PostQuitMessage(static_cast<int>(msg.wParam)); // let outer loops see it too
        return FALSE;
    }
    if (!AfxPreTranslateMessage(&msg))
    {
        ::TranslateMessage(&msg);
        ::DispatchMessageA(&msg);
    }
    return TRUE;
}

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

CWinThread::CWinThread() : m_pMainWnd(NULL)
{
    memset(&m_msgCur, 0, sizeof(m_msgCur));
}

BOOL CWinThread::InitInstance()
{
    return FALSE;
}

int CWinThread::ExitInstance()
{
    return static_cast<int>(m_msgCur.wParam);
}

BOOL CWinThread::PreTranslateMessage(MSG* pMsg)
{
    HWND hWndMain = m_pMainWnd->GetSafeHwnd();
    if (CWnd::WalkPreTranslateTree(hWndMain, pMsg))
        return TRUE;
    // A message for a window outside the main window's tree still goes to the main window.
    if (hWndMain != NULL && pMsg->hwnd != hWndMain && !::IsChild(hWndMain, pMsg->hwnd))
        return m_pMainWnd->PreTranslateMessage(pMsg);
    return FALSE;
}

BOOL CWinThread::PumpMessage()
{
    if (::GetMessageA(&m_msgCur, NULL, 0, 0) <= 0)
        return FALSE;
    if (!PreTranslateMessage(&m_msgCur))
    {
        ::TranslateMessage(&m_msgCur);
        ::DispatchMessageA(&m_msgCur);
    }
    return TRUE;
}

BOOL CWinThread::IsIdleMessage(MSG* pMsg)
{
    // Mouse moves that do not move and the caret blink do not end an idle period.
    static POINT s_ptLast = {-1, -1};
    if (pMsg->message == WM_MOUSEMOVE || pMsg->message == WM_NCMOUSEMOVE)
    {
        if (pMsg->pt.x == s_ptLast.x && pMsg->pt.y == s_ptLast.y)
            return FALSE;
        s_ptLast = pMsg->pt;
        return TRUE;
    }
    return pMsg->message != WM_PAINT && pMsg->message != 0x0118; // WM_SYSTIMER
}

BOOL CWinThread::OnIdle(LONG lCount)
{
    if (lCount <= 0)
        return TRUE;
    AfxDeleteTempMaps();
    return FALSE;
}

int CWinThread::Run()
{
    BOOL bIdle = TRUE;
    LONG lIdleCount = 0;
    for (;;)
    {
        MSG msg;
        while (bIdle && !::PeekMessageA(&msg, NULL, 0, 0, PM_NOREMOVE))
        {
            if (!OnIdle(lIdleCount++))
                bIdle = FALSE;
        }
        do
        {
            if (!PumpMessage())
                return ExitInstance();
            if (IsIdleMessage(&m_msgCur))
            {
                bIdle = TRUE;
                lIdleCount = 0;
            }
        } while (::PeekMessageA(&msg, NULL, 0, 0, PM_NOREMOVE));
    }
}

// ---------------------------------------------------------------------------------------------
// The application

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

CWinApp::CWinApp(LPCTSTR lpszAppName)
    : m_pszAppName(lpszAppName), m_pszExeName(NULL), m_pszProfileName(NULL), m_hInstance(NULL), m_lpCmdLine(NULL),
      m_nCmdShow(SW_SHOWNORMAL)
{
    ModuleState().pCurrentWinApp = this;
}

CWinApp::~CWinApp()
{
    if (ModuleState().pCurrentWinApp == this)
        ModuleState().pCurrentWinApp = NULL;
}

BOOL CWinApp::InitApplication()
{
    return TRUE;
}

CWinApp* AFXAPI AfxGetApp()
{
    return ModuleState().pCurrentWinApp;
}

CWinThread* AFXAPI AfxGetThread()
{
    return ModuleState().pCurrentWinApp;
}

CWnd* AFXAPI AfxGetMainWnd()
{
    CWinThread* pThread = AfxGetThread();
    return pThread != NULL ? pThread->GetMainWnd() : NULL;
}

LPCTSTR AFXAPI AfxGetAppName()
{
    CWinApp* pApp = AfxGetApp();
    return pApp != NULL && pApp->m_pszAppName != NULL ? pApp->m_pszAppName : "";
}

BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE, LPTSTR lpCmdLine, int nCmdShow)
{
    CModuleState& state = ModuleState();
    state.hCurrentInstanceHandle = hInstance;
    state.hCurrentResourceHandle = hInstance;
    CWinApp* pApp = state.pCurrentWinApp;
    if (pApp == NULL)
        return TRUE;
    pApp->m_hInstance = hInstance;
    pApp->m_lpCmdLine = lpCmdLine;
    pApp->m_nCmdShow = nCmdShow;

    // As MFC: the program's base name names the application and its INI file.
    char szPath[MAX_PATH];
    DWORD nLength = ::GetModuleFileNameA(hInstance, szPath, MAX_PATH);
    CString strPath(szPath, static_cast<int>(nLength));
    CString strBase = strPath.Mid(strPath.ReverseFind('\\') + 1);
    int nDot = strBase.ReverseFind('.');
    if (nDot >= 0)
        strBase = strBase.Left(nDot);
    if (pApp->m_pszExeName == NULL)
    {
        pApp->m_strExeName = strBase;
        pApp->m_pszExeName = pApp->m_strExeName;
    }
    if (pApp->m_pszAppName == NULL)
    {
        pApp->m_strAppName = strBase;
        pApp->m_pszAppName = pApp->m_strAppName;
    }
    if (pApp->m_pszProfileName == NULL)
    {
        pApp->m_strProfileName = strBase + ".INI";
        pApp->m_pszProfileName = pApp->m_strProfileName;
    }
    return TRUE;
}

int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow)
{
    CWinApp* pApp = AfxGetApp();
    if (!AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow) || pApp == NULL || !pApp->InitApplication())
        return -1;
    if (!pApp->InitInstance())
    {
        if (pApp->m_pMainWnd != NULL)
            pApp->m_pMainWnd->DestroyWindow();
        return pApp->ExitInstance();
    }
    return pApp->Run();
}

UINT CWinApp::GetProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault)
{
    ASSERT(lpszSection != NULL);
    ASSERT(lpszEntry != NULL);
    return ::GetPrivateProfileIntA(lpszSection, lpszEntry, nDefault, m_pszProfileName);
}

BOOL CWinApp::WriteProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue)
{
    ASSERT(lpszSection != NULL);
    ASSERT(lpszEntry != NULL);
    CString strValue;
    strValue.Format("%d", nValue);
    return ::WritePrivateProfileStringA(lpszSection, lpszEntry, strValue, m_pszProfileName);
}

CString CWinApp::GetProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault)
{
    ASSERT(lpszSection != NULL);
    ASSERT(lpszEntry != NULL);
    // Grow the buffer until the value fits: the function cuts without saying so.
    for (DWORD nSize = 256;; nSize *= 2)
    {
        CString strValue;
        DWORD nLength = ::GetPrivateProfileStringA(lpszSection, lpszEntry, lpszDefault != NULL ? lpszDefault : "",
                                                   strValue.GetBuffer(nSize), nSize, m_pszProfileName);
        strValue.ReleaseBuffer(static_cast<int>(nLength));
        if (nLength < nSize - 2 || nSize >= 65536)
            return strValue;
    }
}

BOOL CWinApp::WriteProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue)
{
    ASSERT(lpszSection != NULL); // a null entry deletes the section
    return ::WritePrivateProfileStringA(lpszSection, lpszEntry, lpszValue, m_pszProfileName);
}

HCURSOR CWinApp::LoadCursor(LPCTSTR lpszResourceName) const
{
    return ::LoadCursorA(AfxFindResourceHandle(lpszResourceName, MAKEINTRESOURCEA(12) /* RT_GROUP_CURSOR */),
                         lpszResourceName);
}

HCURSOR CWinApp::LoadCursor(UINT nIDResource) const
{
    return LoadCursor(MAKEINTRESOURCEA(nIDResource));
}

HICON CWinApp::LoadIcon(UINT nIDResource) const
{
    LPCSTR lpszName = MAKEINTRESOURCEA(nIDResource);
    return ::LoadIconA(AfxFindResourceHandle(lpszName, MAKEINTRESOURCEA(14) /* RT_GROUP_ICON */), lpszName);
}

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT)
{
    // Owned by the active window of the program when there is one, else by the main window.
    HWND hWndOwner = ::GetActiveWindow();
    if (hWndOwner == NULL)
        hWndOwner = AfxGetMainWnd()->GetSafeHwnd();
    if ((nType & MB_ICONMASK) == 0)
    {
        switch (nType & MB_TYPEMASK)
        {
        case MB_OK:
        case MB_OKCANCEL:
            nType |= MB_ICONEXCLAMATION;
            break;
        case MB_YESNO:
        case MB_YESNOCANCEL:
            nType |= MB_ICONQUESTION;
            break;
        default:
            break;
        }
    }
    return ::MessageBoxA(hWndOwner, lpszPrompt, m_pszAppName != NULL ? m_pszAppName : "", nType);
}

int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp)
{
    CWinApp* pApp = AfxGetApp();
    if (pApp != NULL)
        return pApp->DoMessageBox(lpszText, nType, nIDHelp);
    return ::MessageBoxA(::GetActiveWindow(), lpszText, "", nType);
}

int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp)
{
    CString strPrompt;
    strPrompt.LoadString(nIDPrompt);
    return AfxMessageBox(strPrompt, nType, nIDHelp == static_cast<UINT>(-1) ? nIDPrompt : nIDHelp);
}

// The layer itself is the system library of the chain, as MFC's own DLL is: its classes and
// resources are found after those of the program and of the extension libraries. A thread
// that ends takes its handle maps and their temporary objects with it.
extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID)
{
    static AFX_EXTENSION_MODULE s_coreModule = {FALSE, NULL, NULL, NULL, NULL};
    static CDynLinkLibrary* s_pCoreLibrary = NULL;
    if (dwReason == DLL_PROCESS_ATTACH && AfxInitExtensionModule(s_coreModule, hInstance))
        s_pCoreLibrary = new CDynLinkLibrary(s_coreModule, TRUE);
    else if (dwReason == DLL_THREAD_DETACH)
        CHandleMapBase::DeleteThreadMaps();
    else if (dwReason == DLL_PROCESS_DETACH)
    {
        delete s_pCoreLibrary;
        s_pCoreLibrary = NULL;
    }
    return TRUE;
}

int CException::ReportError(UINT nType, UINT nMessageID)
{
    char szMessage[512];
    CString strMessage;
    if (GetErrorMessage(szMessage, sizeof(szMessage)))
        strMessage = szMessage;
    else if (nMessageID == 0 || !strMessage.LoadString(nMessageID))
        strMessage.LoadString(AFX_IDP_NO_ERROR_AVAILABLE);
    return AfxMessageBox(strMessage, nType);
}
