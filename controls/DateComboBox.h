// CDateComboBox: a combo holding dates. The text of its edit field, or of a list item chosen by
// index, is read by CKelDate with its own messages and checked against optional bounds held as
// day numbers; the date edit over the edit field keeps typing to the characters of a date.
//
// A bound equal to its none value (DBL_MIN below, DBL_MAX above) leaves that side open. Dates
// are printed, in the list and in the range message, in the combo's style (0..3, as
// CKelDate::DATE_STYLE; any other style prints as month/day/year) with its separator.
//
// The field edit copies the bounds and settings when it is created, as the combo's window is
// created or subclassed: set them before.
#pragma once

#include <afxwin.h>

#include "controls/DateEdit.h"
#include "controls/StringComboBox.h"
#include "values/KelDate.h"

class AFX_EXT_CLASS CDateComboBox : public CStringComboBox
{
    DECLARE_DYNAMIC(CDateComboBox)
public:
    CDateComboBox();

    using CStringComboBox::AddString;
    using CStringComboBox::SetWindowText;
    using CStringComboBox::operator=;

    void SetMinMaxValues(double dMinDayNumber, double dMaxDayNumber);
    void SetMinMaxValues(const CKelDate& minDate, const CKelDate& maxDate);
    void SetDateStyle(int nStyle) { m_nDateStyle = nStyle; }
    void SetDateSeperator(char chSeparator) { m_chDateSeparator = chSeparator; }

    // nIndex -1 reads the edit field, else that item (see GetValidationText).
    int ValidateAndGet(CKelDate& date, int nIndex = -1, CDataExchange* pDX = NULL);
    int GetValue(CKelDate& date, int nIndex = -1) { return ValidateAndGet(date, nIndex, NULL); }
    // The empty date when the text is not a valid date.
    CKelDate GetValue(int nIndex = -1);
    int Validate(int nIndex = -1);

    int AddString(const CKelDate& date);
    void SetWindowText(const CKelDate& date);
    CDateComboBox& operator+=(const CKelDate& date)
    {
        AddString(date);
        return *this;
    }
    const CKelDate& operator=(const CKelDate& date)
    {
        SetWindowText(date);
        return date;
    }
    operator CKelDate() { return GetValue(-1); }

protected:
    CStringEdit* CreateFieldEdit() override;
    // A day number as the combo prints dates.
    CString Format(double dDayNumber) const;
    BOOL IsLowerSet() const;
    BOOL IsUpperSet() const;

    CKelDate m_date; // the last date read
    double m_dMinValue;
    double m_dMaxValue;
    int m_nDateStyle;
    char m_chDateSeparator;
};
