// The typed arrays of MFC's collection header, over the CArray template.
#pragma once

#include <afxstr.h>
#include <afxtempl.h>

class CStringArray : public CArray<CString, const CString&>
{
};

class CUIntArray : public CArray<UINT, UINT>
{
};

class CPtrArray : public CArray<void*, void*>
{
};

class CDWordArray : public CArray<DWORD, DWORD>
{
};

class CWordArray : public CArray<WORD, WORD>
{
};

class CByteArray : public CArray<BYTE, BYTE>
{
};
