// A resource-only library for the resource-chain tests; Windows wants one export or entry.
#include <windows.h>

extern "C" __declspec(dllexport) int LibraryStringsVersion()
{
    return 1;
}
