// The portable core of the MFC-compatible layer: base types, exceptions, strings.
#pragma once

#include <afxplatform.h>
#include <afxexcept.h>
#include <afxstr.h>

// A place in a sequence, as MFC's collections and GetFirstSelectedItemPosition hand it out;
// NULL is the end.
struct __POSITION
{
};
typedef __POSITION* POSITION;
#ifdef _WIN32
#include <afxfile.h>
#endif
