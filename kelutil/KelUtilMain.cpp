// Start-up of KEL_Util and the screen metrics.
#include "kelutil/KelUtilPrivate.h"

HINSTANCE g_hKelUtilInstance = NULL;

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID lpReserved)
{
    if (dwReason == DLL_PROCESS_ATTACH)
    {
        g_hKelUtilInstance = hInstance;
        DisableThreadLibraryCalls(hInstance);
        KelRegisterTimeClasses(hInstance);
    }
    // At process exit (lpReserved set) the classes go with the process; unregister them only
    // when the library is unloaded from a running process.
    else if (dwReason == DLL_PROCESS_DETACH && lpReserved == NULL)
        KelUnregisterTimeClasses(hInstance);
    return TRUE;
}

static RECT GetWorkArea()
{
    RECT rect;
    if (!SystemParametersInfoA(SPI_GETWORKAREA, 0, &rect, 0))
        SetRect(&rect, 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
    return rect;
}

int __cdecl GetScreenWidth(void)
{
    RECT rect = GetWorkArea();
    return rect.right - rect.left;
}

int __cdecl GetScreenHeight(void)
{
    RECT rect = GetWorkArea();
    return rect.bottom - rect.top;
}

int __cdecl KEL_Util_Running(void)
{
    // The result is nonzero either way: callers only need the library loaded, and a failed
    // registration shows up as a failed window creation, where they look.
    KelRegisterTimeClasses(g_hKelUtilInstance);
    return 1;
}
