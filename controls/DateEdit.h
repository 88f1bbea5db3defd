// CDateEdit: a typed edit holding a CKelDate. The text is parsed and printed only through
// CKelDate, in one of its four numeric display styles with the control's separator.
//
// While typing, only the characters a date can be written with get through (digits, '-', '/'
// and '\\'); the order of the fields is judged when the value is read, by CKelDate.
#pragma once

#include "controls/StringEdit.h"
#include "values/KelDate.h"

class AFX_EXT_CLASS CDateEdit : public CStringEdit
{
    DECLARE_DYNAMIC(CDateEdit)
public:
    CDateEdit();

    int GetValue(CKelDate& date);
    // The empty date when the text does not parse.
    CKelDate GetValue();
    int Validate() override;
    int ValidateAndGet(CKelDate& date, CDataExchange* pDX);
    int DynamicValidate() override;

    using CStringEdit::SetWindowText;
    // Writes the date in the control's style (0..3) with its separator; any other style leaves
    // the text as it is.
    void SetWindowText(CKelDate& date);
    void SetWindowText(double dDayNumber);
    // Which text forms the control accepts (see CKelDate::MakeStyleValid).
    void MakeStyleValid(CKelDate::DATE_STYLE style, int valid);

    // The style and separator of the printed date; the date combo copies its own into its field.
    void SetDateStyle(int nStyle) { m_nDateStyle = nStyle; }
    void SetDateSeperator(char chSeparator) { m_chDateSeparator = chSeparator; }

    const CKelDate& operator=(const CKelDate& date);
    double operator=(double dDayNumber);
    operator double();
    // The control's own date after reading the text; it keeps its last good value when the text
    // does not parse.
    operator const CKelDate&();

protected:
    CKelDate m_date;
    int m_nDateStyle;
    char m_chDateSeparator;
};
