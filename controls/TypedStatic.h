// The typed statics: labels that show one value exactly as the matching edit prints it, framed
// by the label's prefix and suffix. CShortStatic, CUShortStatic, CLongStatic and CULongStatic
// print through their integer value types, CDoubleStatic through CDouble with its decimal
// places, rounding and scientific notation, CDateStatic through CKelDate in one of eight styles
// and CTimeStatic through CKelTime in one of its ten styles at its own frame rate.
//
// A static remembers whether it holds a value. A text given from outside (SetWindowText, or the
// dialog template's text when the object was given none) is shown as it stands and read back:
// without the prefix and suffix and trimmed, it becomes the value when it parses; otherwise, or
// when nothing is left, the static holds no value and keeps its last one unseen. No message is
// ever shown. A setting (the affixes too) changed while a value is held prints the value again.
#pragma once

#include "controls/StringStatic.h"
#include "values/DoubleValue.h"
#include "values/IntegerValues.h"
#include "values/KelDate.h"
#include "values/KelTime.h"

template <class T>
class CValueStaticT : public CStringStatic
{
public:
    using CStringStatic::SetWindowText;
    using CStringStatic::operator=;

    void SetValue(const T& value)
    {
        m_value = value;
        m_bHasValue = 1;
        ShowValue();
    }
    void SetWindowText(const T& value) { SetValue(value); }
    void SetAffixes(LPCTSTR lpszPrefix, LPCTSTR lpszSuffix)
    {
        CStringStatic::SetAffixes(lpszPrefix, lpszSuffix);
        Reprint();
    }
    T operator=(const T& value)
    {
        SetValue(value);
        return value;
    }

    // The has-value flag; the value only when there is one.
    int GetValue(T& value) const
    {
        if (m_bHasValue)
            value = m_value;
        return m_bHasValue;
    }
    // The value, or the type's no-value without one.
    T GetValue() const
    {
        T value = NoValue();
        GetValue(value);
        return value;
    }
    operator T() const { return GetValue(); }
    int HasValue() const { return m_bHasValue; }
    void ClearValue()
    {
        m_bHasValue = 0;
        ShowText(CString());
    }

protected:
    explicit CValueStaticT(const T& value) : m_value(value), m_bHasValue(0) {}

    // The value's own text, without the affixes; FALSE for a value that has none to show.
    virtual BOOL FormatValue(const T& value, CString& strText) const = 0;
    // Reads a text into value (which starts as a copy of the static's own, settings included).
    virtual BOOL ParseText(const CString& strText, T& value) const = 0;
    virtual T NoValue() const = 0;

    void ShowValue()
    {
        CString strText;
        if (FormatValue(m_value, strText))
            ShowText(m_strPrefix + strText + m_strSuffix);
        else
            ClearValue();
    }
    void Reprint()
    {
        if (m_bHasValue)
            ShowValue();
    }

    void ReadBackText(const CString& strText) override
    {
        CString strCore = StripAffixes(strText);
        T value(m_value);
        // An empty text would read as zero, but a label showing nothing holds nothing.
        m_bHasValue = !strCore.IsEmpty() && ParseText(strCore, value);
        if (m_bHasValue)
            m_value = value;
    }

    T m_value;
    int m_bHasValue;
};

// The integer statics; TValue is the value type that reads and prints a T.
template <class TValue, class T>
class CIntegerStaticT : public CValueStaticT<T>
{
public:
    using CValueStaticT<T>::operator=;

protected:
    CIntegerStaticT() : CValueStaticT<T>(0) {}

    BOOL FormatValue(const T& value, CString& strText) const override
    {
        strText = TValue::Format(value);
        return TRUE;
    }
    BOOL ParseText(const CString& strText, T& value) const override
    {
        return TValue::ValidateAndGet(strText, value, NULL);
    }
    T NoValue() const override { return 0; }
};

class AFX_EXT_CLASS CShortStatic : public CIntegerStaticT<CShort, short>
{
    DECLARE_DYNAMIC(CShortStatic)
public:
    using CIntegerStaticT::operator=;
};

class AFX_EXT_CLASS CUShortStatic : public CIntegerStaticT<CUShort, WORD>
{
    DECLARE_DYNAMIC(CUShortStatic)
public:
    using CIntegerStaticT::operator=;
};

class AFX_EXT_CLASS CLongStatic : public CIntegerStaticT<CLong, LONG>
{
    DECLARE_DYNAMIC(CLongStatic)
public:
    using CIntegerStaticT::operator=;
};

class AFX_EXT_CLASS CULongStatic : public CIntegerStaticT<CULong, ULONG>
{
    DECLARE_DYNAMIC(CULongStatic)
public:
    using CIntegerStaticT::operator=;
};

// Without a value GetValue() answers CDouble's undefined value, DBL_MIN, which prints as "??".
class AFX_EXT_CLASS CDoubleStatic : public CValueStaticT<double>
{
    DECLARE_DYNAMIC(CDoubleStatic)
public:
    CDoubleStatic();
    using CValueStaticT::operator=;

    void SetDecimalPlaces(int nDecimalPlaces);
    void SetRound(int bRound);
    void SetScientificNotation(int bScientific);

protected:
    BOOL FormatValue(const double& value, CString& strText) const override;
    BOOL ParseText(const CString& strText, double& value) const override;
    double NoValue() const override;

    int m_nDecimalPlaces;
    int m_bRound;
    int m_bScientificNotation;
};

// Styles 0..3 are CKelDate's numeric styles with the static's separator; 4 "Sept 05, 2003",
// 5 "Sept, 2003", 6 "September 05, 2003", 7 "September, 2003". Only the numeric styles read a
// text back. A date that is not valid shows an empty text and is no value.
class AFX_EXT_CLASS CDateStatic : public CValueStaticT<CKelDate>
{
    DECLARE_DYNAMIC(CDateStatic)
public:
    enum { DATE_STYLE_LAST = 7 };

    CDateStatic();
    using CValueStaticT::operator=;

    // FALSE, with the style kept, for a style outside 0..7.
    BOOL SetDateStyle(int nStyle);
    void SetDateSeperator(char chSeparator);

protected:
    BOOL FormatValue(const CKelDate& value, CString& strText) const override;
    BOOL ParseText(const CString& strText, CKelDate& value) const override;
    CKelDate NoValue() const override;

    int m_nDateStyle;
    char m_chDateSeparator;
};

// The frame rate (for the timecode style) is kept by the static's own time value.
class AFX_EXT_CLASS CTimeStatic : public CValueStaticT<CKelTime>
{
    DECLARE_DYNAMIC(CTimeStatic)
public:
    CTimeStatic();
    using CValueStaticT::operator=;

    // FALSE, with the style kept, for a style outside 0..9.
    BOOL SetTimeStyle(int nStyle);
    // FALSE, with the rate kept, for a rate CKelTime refuses.
    BOOL SetFramesPerSecond(double dFramesPerSecond);

protected:
    BOOL FormatValue(const CKelTime& value, CString& strText) const override;
    BOOL ParseText(const CString& strText, CKelTime& value) const override;
    CKelTime NoValue() const override;

    int m_nTimeStyle;
};
