#include "afxstr.h"

// Until the resource chain exists, strings come from the program's own module.
HINSTANCE AFXAPI AfxFindStringResourceHandle(UINT)
{
    return ::GetModuleHandleA(NULL);
}
