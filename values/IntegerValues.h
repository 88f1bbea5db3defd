// The integer value types: one number each, with the library's single definition of how an
// integer is read from user text (ValidateAndGet: 1 or 0 and a message) and written back
// (Format). They have no base class and no virtual functions; they are copied by value.
#pragma once

#include <afx.h>

// The members every integer value type shares; the implementation is IMPLEMENT_KEL_INTEGER_VALUE
// in the source file, and each class writes only its own ValidateAndGet.
#define DECLARE_KEL_INTEGER_VALUE(class_name, value_type)                                          \
public:                                                                                            \
    class_name();                                                                                  \
    class_name(value_type nValue);                                                                 \
    /* An invalid text leaves the default value. */                                                \
    class_name(const CString& text);                                                               \
    class_name(const class_name& other);                                                           \
                                                                                                   \
    value_type operator=(value_type nValue);                                                       \
    value_type operator=(const class_name& other);                                                 \
    /* An invalid text leaves the value unchanged. */                                              \
    value_type operator=(const CString& text);                                                     \
    operator value_type() const;                                                                   \
    operator CString() const;                                                                      \
                                                                                                   \
    static int Validate(const CString& text, CString* pError = NULL);                              \
    int ValidateAndSet(const CString& text, CString* pError = NULL);                               \
    /* 1 with result set, or 0 with result untouched and the message in *pError. An empty text */  \
    /* is the number 0 and leaves *pError as it was; other successes empty it. */                  \
    static int ValidateAndGet(const CString& text, value_type& result, CString* pError = NULL);    \
    static CString Format(value_type nValue);                                                      \
    static const char* Format(value_type nValue, CString& out);                                    \
                                                                                                   \
private:                                                                                           \
    value_type m_nValue;

// Unsigned 8-bit; parsed as a CLong, then tested against 0..255.
class AFX_EXT_CLASS CByte
{
    DECLARE_KEL_INTEGER_VALUE(CByte, BYTE)
};

// Signed 16-bit; parsed as a CLong, then tested against -32768..32767.
class AFX_EXT_CLASS CShort
{
    DECLARE_KEL_INTEGER_VALUE(CShort, short)
};

// Unsigned 16-bit; parsed as a CULong, then tested against 0..65535.
class AFX_EXT_CLASS CUShort
{
    DECLARE_KEL_INTEGER_VALUE(CUShort, WORD)
};

// Signed 32-bit. Leading blanks are skipped, trailing ones are faults, and the range is tested
// on the text, so leading zeros count as digits.
class AFX_EXT_CLASS CLong
{
    DECLARE_KEL_INTEGER_VALUE(CLong, LONG)
};

// Unsigned 32-bit, read like CLong but without a sign.
class AFX_EXT_CLASS CULong
{
    DECLARE_KEL_INTEGER_VALUE(CULong, ULONG)
};

#undef DECLARE_KEL_INTEGER_VALUE
