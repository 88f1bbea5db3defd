// The numeric edits: CShortEdit, CUShortEdit, CLongEdit, CULongEdit and CDoubleEdit. Each holds
// one number, read and printed only through its value type (CShort, CUShort, CLong, CULong,
// CDouble), with an optional range. A bound equal to its type's extreme (the "none" value) leaves
// that side open. A failed read shows the value type's own message, a value out of range the
// range message; either goes through the control's failure path (box, focus, exchange ended).
//
// While typing, a positive lower bound counts as 0, so the digits on the way to a number in range
// (2 on the way to 25 when the range is 10..100) are not refused.
#pragma once

#include <afxwin.h>

#include <limits>

#include "controls/StringEdit.h"
#include "values/DoubleValue.h"
#include "values/IntegerValues.h"

// What the numeric edits share: their text comes from the dialog's data exchange when one runs,
// else from the control itself.
class AFX_EXT_CLASS CNumericEdit : public CStringEdit
{
    DECLARE_DYNAMIC(CNumericEdit)
protected:
    // The text to validate. An exchange that loads the dialog gets the control's own text back,
    // so reading never changes what the control shows.
    CString GetExchangeText(CDataExchange* pDX);
};

// The integer edits; TValue is the value type that reads and prints a T.
template <class TValue, class T>
class CIntegerEditT : public CNumericEdit
{
public:
    CIntegerEditT() : m_nMinValue(std::numeric_limits<T>::min()), m_nMaxValue(std::numeric_limits<T>::max()) {}

    using CStringEdit::SetWindowText;
    using CStringEdit::operator=;

    int ValidateAndGet(T& value, CDataExchange* pDX)
    {
        CString strText = GetExchangeText(pDX);
        CString strMessage;
        if (ReadIntegerInRange<TValue>(strText, m_nMinValue, m_nMaxValue, value, strMessage))
            return TRUE;
        return ReportFailure(strMessage, pDX, FOCUS_SELECT_WHEN_SHOWN);
    }
    int GetValue(T& value) { return ValidateAndGet(value, NULL); }
    // 0 when the text is not a valid value.
    T GetValue()
    {
        T value = 0;
        ValidateAndGet(value, NULL);
        return value;
    }
    operator T() { return GetValue(); }

    int Validate() override
    {
        T value = 0;
        return ValidateAndGet(value, NULL);
    }
    int DynamicValidate() override
    {
        T nSavedMin = m_nMinValue;
        if (m_nMinValue > 0)
            m_nMinValue = 0;
        int bValid = Validate();
        m_nMinValue = nSavedMin;
        return bValid;
    }

    void SetWindowText(T value) { CStringEdit::SetWindowText(TValue::Format(value)); }
    T operator=(T value)
    {
        SetWindowText(value);
        return value;
    }

protected:
    // Public only on the signed edits: the unsigned ones keep their whole range.
    void SetMinMaxValues(T nMin, T nMax)
    {
        m_nMinValue = nMin;
        m_nMaxValue = nMax;
    }

    T m_nMinValue;
    T m_nMaxValue;
};

class AFX_EXT_CLASS CShortEdit : public CIntegerEditT<CShort, short>
{
    DECLARE_DYNAMIC(CShortEdit)
public:
    using CIntegerEditT::SetMinMaxValues;
    using CIntegerEditT::operator=;
};

class AFX_EXT_CLASS CUShortEdit : public CIntegerEditT<CUShort, WORD>
{
    DECLARE_DYNAMIC(CUShortEdit)
public:
    using CIntegerEditT::operator=;
};

class AFX_EXT_CLASS CLongEdit : public CIntegerEditT<CLong, LONG>
{
    DECLARE_DYNAMIC(CLongEdit)
public:
    using CIntegerEditT::SetMinMaxValues;
    using CIntegerEditT::operator=;
};

class AFX_EXT_CLASS CULongEdit : public CIntegerEditT<CULong, ULONG>
{
    DECLARE_DYNAMIC(CULongEdit)
public:
    using CIntegerEditT::operator=;
};

// A double with CDouble's text: "??" (or an empty text) is the undefined value DBL_MIN, "+INF"
// and "-INF" the largest doubles. The lower bound's none value is DBL_MIN and the upper one's
// DBL_MAX; a bound counts as set when it differs from its none value bit for bit. The decimal
// places, rounding and scientific notation steer both reading and printing.
class AFX_EXT_CLASS CDoubleEdit : public CNumericEdit
{
    DECLARE_DYNAMIC(CDoubleEdit)
public:
    CDoubleEdit();

    using CStringEdit::SetWindowText;
    using CStringEdit::operator=;

    void SetDecimalPlaces(int nDecimalPlaces) { m_nDecimalPlaces = nDecimalPlaces; }
    void SetRound(int bRound) { m_bRound = bRound; }
    void SetScientificNotation(int bScientific) { m_bScientificNotation = bScientific; }
    void SetMinMaxValues(double dMin, double dMax)
    {
        m_dMinValue = dMin;
        m_dMaxValue = dMax;
    }

    int ValidateAndGet(double& value, CDataExchange* pDX);
    int GetValue(double& value) { return ValidateAndGet(value, NULL); }
    // The undefined value when the text is not a valid value.
    double GetValue();
    operator double() { return GetValue(); }

    int Validate() override;
    // Also lets through the beginnings of CDouble's special spellings, which do not parse
    // until they are complete ("-I" on the way to "-INF").
    int DynamicValidate() override;

    void SetWindowText(double value);
    double operator=(double value)
    {
        SetWindowText(value);
        return value;
    }

protected:
    BOOL IsLowerSet() const;
    BOOL IsUpperSet() const;

    int m_nDecimalPlaces;
    int m_bRound;
    // Always on today: the undefined value is a valid entry.
    int m_bAcceptUndefined;
    double m_dMinValue;
    double m_dMaxValue;
    int m_bScientificNotation;
};
