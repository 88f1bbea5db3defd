// Platform base: the Windows base types the portable code names, and the export macros.
// On Windows the real Windows headers provide the types; natively they are defined here
// with the same widths (LONG and DWORD are 32-bit, as on Windows).
#pragma once

#include <stddef.h>
#include <stdint.h>

#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#include <tchar.h>
#else
typedef unsigned char BYTE;
typedef unsigned short WORD;
typedef unsigned int DWORD;
typedef int LONG;
typedef unsigned int ULONG;
typedef short SHORT;
typedef unsigned short USHORT;
typedef int INT;
typedef unsigned int UINT;
typedef int BOOL;
typedef char CHAR;
typedef char TCHAR;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef char* LPTSTR;
typedef const char* LPCTSTR;
typedef void* LPVOID;
typedef UINT* PUINT;
typedef intptr_t INT_PTR;
typedef uintptr_t UINT_PTR;
typedef intptr_t LONG_PTR;
typedef uintptr_t DWORD_PTR;
typedef UINT_PTR WPARAM;
typedef LONG_PTR LPARAM;
typedef LONG_PTR LRESULT;
typedef DWORD COLORREF;
#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif
#define _T(x) x
#define RGB(r, g, b) ((COLORREF)(((BYTE)(r) | ((WORD)((BYTE)(g)) << 8)) | (((DWORD)(BYTE)(b)) << 16)))
#define GetRValue(rgb) ((BYTE)(rgb))
#define GetGValue(rgb) ((BYTE)(((WORD)(rgb)) >> 8))
#define GetBValue(rgb) ((BYTE)((rgb) >> 16))
#define LF_FACESIZE 32

typedef struct tagPOINT { LONG x; LONG y; } POINT, *LPPOINT;
typedef struct tagSIZE { LONG cx; LONG cy; } SIZE, *LPSIZE;
typedef struct tagRECT { LONG left; LONG top; LONG right; LONG bottom; } RECT, *LPRECT;
typedef const RECT* LPCRECT;

typedef struct tagLOGFONTA {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    CHAR lfFaceName[LF_FACESIZE];
} LOGFONTA, *LPLOGFONTA;
typedef LOGFONTA LOGFONT;
typedef LPLOGFONTA LPLOGFONT;
#endif

static_assert(sizeof(LONG) == 4 && sizeof(DWORD) == 4, "LONG and DWORD are 32-bit on every platform");

// Export macros. The core classes live in the shared KelAfx module; a library built with
// _AFXEXT exports its AFX_EXT_CLASS classes, and everything else imports them.
#ifdef _WIN32
#define AFX_CLASS_EXPORT __declspec(dllexport)
#define AFX_CLASS_IMPORT __declspec(dllimport)
#else
#define AFX_CLASS_EXPORT
#define AFX_CLASS_IMPORT
#endif

#if defined(_AFX_CORE_IMPL)
#define AFX_CORE_CLASS AFX_CLASS_EXPORT
#elif defined(_AFXDLL)
#define AFX_CORE_CLASS AFX_CLASS_IMPORT
#else
#define AFX_CORE_CLASS
#endif
#define AFX_CORE_API AFX_CORE_CLASS

#if defined(_AFXEXT)
#define AFX_EXT_CLASS AFX_CLASS_EXPORT
#elif defined(_AFXDLL)
#define AFX_EXT_CLASS AFX_CLASS_IMPORT
#else
#define AFX_EXT_CLASS
#endif
#define AFX_EXT_API AFX_EXT_CLASS
#define AFX_EXT_DATA AFX_EXT_CLASS

#define AFXAPI

#ifdef _DEBUG
#include <assert.h>
#define ASSERT(f) assert(f)
#define VERIFY(f) ASSERT(f)
#else
#define ASSERT(f) ((void)0)
#define VERIFY(f) ((void)(f))
#endif

// printf-style argument checking; MinGW's C99 stdio is the gnu_printf flavour.
#if defined(__MINGW32__)
#define AFX_PRINTF_FORMAT(fmt, args) __attribute__((format(gnu_printf, fmt, args)))
#elif defined(__GNUC__)
#define AFX_PRINTF_FORMAT(fmt, args) __attribute__((format(printf, fmt, args)))
#else
#define AFX_PRINTF_FORMAT(fmt, args)
#endif
