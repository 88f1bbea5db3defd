#include "frame/KelControlsFrame.h"

#include <stdlib.h>
#include <string.h>

#include "frame/EditTipClass.h"
#include "frame/EventList.h"

namespace
{
AFX_EXTENSION_MODULE s_extensionModule = {FALSE, NULL, NULL, NULL, NULL};
CDynLinkLibrary* s_pOwnLink = NULL;
LONG s_nPlatformId = -1;
HCURSOR s_hDragCursor = NULL;
HCURSOR s_hAltDragCursor = NULL;

char s_szResourceString[1024];
char s_szEmpty[] = "";

// Kept as it stands, two blanks and all: hosts compare against it.
const char kDebugWarning[] =
    "Can't Run KelControls.DLL Release Version from Debug Version of Other DLL!  Contact System Support";

void WarnDebugCaller(DWORD_PTR dwDebug)
{
    if (dwDebug != 0)
        ::MessageBoxA(NULL, kDebugWarning, "Error", MB_ICONEXCLAMATION);
}

LONG QueryPlatformId()
{
    OSVERSIONINFOA info;
    memset(&info, 0, sizeof(info));
    info.dwOSVersionInfoSize = sizeof(info);
    static_assert(sizeof(OSVERSIONINFOA) == 148, "the version record the library passes");
    return ::GetVersionExA(&info) ? static_cast<LONG>(info.dwPlatformId) : -1;
}
} // namespace

HINSTANCE CKelControlsModule::GetInstanceHandle()
{
    return s_extensionModule.hModule;
}

LONG CKelControlsModule::GetPlatformId()
{
    return s_nPlatformId;
}

HCURSOR CKelControlsModule::GetDragCursor()
{
    return s_hDragCursor;
}

HCURSOR CKelControlsModule::GetAltDragCursor()
{
    return s_hAltDragCursor;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID lpReserved)
{
    if (dwReason == DLL_PROCESS_ATTACH)
    {
        AfxInitExtensionModule(s_extensionModule, hInstance);
        s_nPlatformId = QueryPlatformId();
        s_pOwnLink = new CDynLinkLibrary(s_extensionModule);
        RegisterEditTipClass(hInstance);
    }
    else if (dwReason == DLL_PROCESS_DETACH && lpReserved == NULL)
    {
        // Freed while the process runs on: windows created later must not find a procedure of
        // this library, nor the resource chain a link to it. Ending the module deletes every
        // link to it, the hosts' included.
        UnregisterEditTipClass(hInstance);
        ::UnregisterClassA(EVENT_LIST_CLASS, hInstance);
        AfxTermExtensionModule(s_extensionModule);
        s_pOwnLink = NULL;
    }
    else if (dwReason == DLL_PROCESS_DETACH && s_pOwnLink != NULL)
    {
        delete s_pOwnLink;
        s_pOwnLink = NULL;
    }
    return TRUE;
}

int InitKelControlsInterface(DWORD, const KelControlsInit* pInit)
{
    if (pInit == NULL)
        return 0;
    WarnDebugCaller(pInit->dwDebug); // a warning only: the caller is served all the same
    s_hDragCursor = pInit->hDragCursor;
    s_hAltDragCursor = pInit->hAltDragCursor;

    WNDCLASS wc;
    memset(&wc, 0, sizeof(wc));
    wc.style = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;
    wc.lpfnWndProc = EventListWndProc;
    wc.hInstance = s_extensionModule.hModule;
    wc.hCursor = ::LoadCursorA(NULL, MAKEINTRESOURCEA(32512)); // IDC_ARROW
    wc.hbrBackground = static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH));
    wc.lpszClassName = EVENT_LIST_CLASS;
    return AfxRegisterClass(&wc);
}

CDynLinkLibrary* LinkNewDynLinkLibraryToKelControls(int nDebug)
{
    WarnDebugCaller(static_cast<DWORD_PTR>(nDebug));
    return new (std::nothrow) CDynLinkLibrary(s_extensionModule);
}

char* LoadBufferedResourceStringEx(UINT nID, HINSTANCE hModule)
{
    s_szResourceString[0] = '\0';
    ::LoadStringA(hModule, nID, s_szResourceString, sizeof(s_szResourceString));
    return s_szResourceString;
}

int LoadResourceStringEx(UINT nID, char** ppszString, HINSTANCE hModule)
{
    if (ppszString == NULL)
        return 0;
    *ppszString = NULL;
    const char* pszBuffered = LoadBufferedResourceStringEx(nID, hModule);
    size_t nLength = strlen(pszBuffered);
    char* pszCopy = static_cast<char*>(malloc(nLength + 1));
    if (pszCopy == NULL)
        return 0;
    memcpy(pszCopy, pszBuffered, nLength + 1);
    *ppszString = pszCopy;
    return static_cast<int>(nLength);
}

int StringResourceMessageBoxEx(HWND hWndOwner, UINT nTextID, UINT nCaptionID, UINT nType, HINSTANCE hModule)
{
    char* pszCaption = NULL;
    char* pszText = NULL;
    LoadResourceStringEx(nCaptionID, &pszCaption, hModule);
    LoadResourceStringEx(nTextID, &pszText, hModule);
    if (pszCaption == NULL)
        pszCaption = s_szEmpty;
    if (pszText == NULL)
        pszText = s_szEmpty;
    int nResult = ::MessageBoxA(hWndOwner, pszText, pszCaption, nType);
    if (pszCaption != s_szEmpty)
        free(pszCaption);
    if (pszText != s_szEmpty)
        free(pszText);
    return nResult;
}
