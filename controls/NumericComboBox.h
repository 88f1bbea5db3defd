// The numeric combos: CShortComboBox, CUShortComboBox, CLongComboBox, CULongComboBox and
// CDoubleComboBox. Each validates the text of its edit field, or of a list item chosen by index,
// with the value type and the range message of the matching numeric edit, and puts that edit
// over its edit field so that typing is filtered as in the edit.
//
// A failure takes the focus to the combo even when no box is shown, and never selects the
// text: the user is back at the combo, where the list is at hand.
//
// The field edit copies the bounds and settings when it is created, as the combo's window is
// created or subclassed: set them before.
#pragma once

#include <afxwin.h>

#include <limits>

#include "controls/NumericEdit.h"
#include "controls/StringComboBox.h"
#include "values/DoubleValue.h"
#include "values/IntegerValues.h"

// The integer combos; TValue reads and prints a T, TEdit is the field edit.
template <class TValue, class T, class TEdit>
class CIntegerComboBoxT : public CStringComboBox
{
public:
    CIntegerComboBoxT() : m_nMinValue(std::numeric_limits<T>::min()), m_nMaxValue(std::numeric_limits<T>::max()) {}

    using CStringComboBox::AddString;
    using CStringComboBox::SetWindowText;
    using CStringComboBox::operator=;

    // nIndex -1 reads the edit field, else that item (see GetValidationText).
    int ValidateAndGet(T& value, int nIndex = -1, CDataExchange* pDX = NULL)
    {
        CString strText;
        if (!GetValidationText(nIndex, pDX, strText))
            return FALSE;
        CString strMessage;
        if (ReadIntegerInRange<TValue>(strText, m_nMinValue, m_nMaxValue, value, strMessage))
            return TRUE;
        return ReportFailure(strMessage, pDX, FOCUS_ALWAYS);
    }
    int GetValue(T& value, int nIndex = -1) { return ValidateAndGet(value, nIndex, NULL); }
    // 0 when the text is not a valid value.
    T GetValue(int nIndex = -1)
    {
        T value = 0;
        ValidateAndGet(value, nIndex, NULL);
        return value;
    }
    int Validate(int nIndex = -1)
    {
        T value = 0;
        return ValidateAndGet(value, nIndex, NULL);
    }

    int AddString(T value) { return CStringComboBox::AddString(TValue::Format(value)); }
    void SetWindowText(T value) { CStringComboBox::SetWindowText(TValue::Format(value)); }
    CIntegerComboBoxT& operator+=(T value)
    {
        AddString(value);
        return *this;
    }
    T operator=(T value)
    {
        SetWindowText(value);
        return value;
    }
    operator T() { return GetValue(-1); }

protected:
    // Public only on the signed combos, as on the edits.
    void SetMinMaxValues(T nMin, T nMax)
    {
        m_nMinValue = nMin;
        m_nMaxValue = nMax;
    }

    CStringEdit* CreateFieldEdit() override { return new TEdit; }
    // The field edit of a signed combo, with the combo's bounds.
    TEdit* CreateBoundedEdit()
    {
        TEdit* pEdit = new TEdit;
        pEdit->SetMinMaxValues(m_nMinValue, m_nMaxValue);
        return pEdit;
    }

    T m_nMinValue;
    T m_nMaxValue;
};

class AFX_EXT_CLASS CShortComboBox : public CIntegerComboBoxT<CShort, short, CShortEdit>
{
    DECLARE_DYNAMIC(CShortComboBox)
public:
    using CIntegerComboBoxT::SetMinMaxValues;
    using CIntegerComboBoxT::operator=;

protected:
    CStringEdit* CreateFieldEdit() override { return CreateBoundedEdit(); }
};

class AFX_EXT_CLASS CUShortComboBox : public CIntegerComboBoxT<CUShort, WORD, CUShortEdit>
{
    DECLARE_DYNAMIC(CUShortComboBox)
public:
    using CIntegerComboBoxT::operator=;
};

class AFX_EXT_CLASS CLongComboBox : public CIntegerComboBoxT<CLong, LONG, CLongEdit>
{
    DECLARE_DYNAMIC(CLongComboBox)
public:
    using CIntegerComboBoxT::SetMinMaxValues;
    using CIntegerComboBoxT::operator=;

protected:
    CStringEdit* CreateFieldEdit() override { return CreateBoundedEdit(); }
};

class AFX_EXT_CLASS CULongComboBox : public CIntegerComboBoxT<CULong, ULONG, CULongEdit>
{
    DECLARE_DYNAMIC(CULongComboBox)
public:
    using CIntegerComboBoxT::operator=;
};

// A double as CDoubleEdit reads it: an empty text or "??" is the undefined value, which always
// passes; a bound counts as set when it differs bit for bit from its none value, and is shown
// in the range message with CDouble's plainest format, not with the combo's settings.
class AFX_EXT_CLASS CDoubleComboBox : public CStringComboBox
{
    DECLARE_DYNAMIC(CDoubleComboBox)
public:
    CDoubleComboBox();

    using CStringComboBox::AddString;
    using CStringComboBox::SetWindowText;
    using CStringComboBox::operator=;

    void SetDecimalPlaces(int nDecimalPlaces) { m_nDecimalPlaces = nDecimalPlaces; }
    void SetRound(int bRound) { m_bRound = bRound; }
    void SetScientificNotation(int bScientific) { m_bScientificNotation = bScientific; }
    void SetMinMaxValues(double dMin, double dMax)
    {
        m_dMinValue = dMin;
        m_dMaxValue = dMax;
    }

    int ValidateAndGet(double& value, int nIndex = -1, CDataExchange* pDX = NULL);
    int GetValue(double& value, int nIndex = -1) { return ValidateAndGet(value, nIndex, NULL); }
    // The undefined value when the text is not a valid value.
    double GetValue(int nIndex = -1);
    int Validate(int nIndex = -1);

    // Printed with the combo's decimal places, rounding and notation.
    int AddString(double value);
    void SetWindowText(double value);
    CDoubleComboBox& operator+=(double value)
    {
        AddString(value);
        return *this;
    }
    double operator=(double value)
    {
        SetWindowText(value);
        return value;
    }
    operator double() { return GetValue(-1); }

protected:
    CStringEdit* CreateFieldEdit() override;
    CString FormatValue(double value) const;

    int m_nDecimalPlaces;
    int m_bRound;
    double m_dMinValue;
    double m_dMaxValue;
    int m_bScientificNotation;
};
