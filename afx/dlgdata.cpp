// Dialog data exchange: CDataExchange, CWnd::UpdateData and the DDX_/DDV_ functions.
#include <afxwin.h>
#include <afxres.h>

#include <float.h>
#include <limits.h>
#include <math.h>
#include <stdio.h>
#include <stdlib.h>

namespace
{
// MFC's prompts for text that does not parse.
const char szParseInt[] = "Please enter an integer.";
const char szParseUInt[] = "Please enter a positive integer.";
const char szParseByte[] = "Please enter an integer between 0 and 255.";
const char szParseReal[] = "Please enter a number.";

// Loading leaves a control that already shows the text alone, so that it sends no change
// notification and keeps its selection.
void SetTextIfChanged(HWND hWnd, LPCTSTR lpszNew)
{
    CString strOld;
    AfxGetWindowText(hWnd, strOld);
    if (strOld != lpszNew)
        ::SetWindowTextA(hWnd, lpszNew);
}

bool IsBlank(char ch)
{
    return ch == ' ' || ch == '\t';
}

bool IsDigit(char ch)
{
    return ch >= '0' && ch <= '9';
}

// A whole decimal integer between blanks: an optional sign ('-' only where negative values
// exist) and at least one digit, nothing else, within [llMin, llMax].
BOOL ParseInteger(LPCTSTR lpsz, LONGLONG llMin, LONGLONG llMax, LONGLONG& llValue)
{
    while (IsBlank(*lpsz))
        ++lpsz;
    bool bNegative = *lpsz == '-';
    if (bNegative && llMin >= 0)
        return FALSE;
    if (*lpsz == '-' || *lpsz == '+')
        ++lpsz;
    if (!IsDigit(*lpsz))
        return FALSE;
    ULONGLONG ullMagnitude = 0;
    for (; IsDigit(*lpsz); ++lpsz)
    {
        ullMagnitude = ullMagnitude * 10 + static_cast<ULONGLONG>(*lpsz - '0');
        if (ullMagnitude > 0xFFFFFFFFFFull) // far beyond every 32-bit range, and no overflow
            return FALSE;
    }
    while (IsBlank(*lpsz))
        ++lpsz;
    if (*lpsz != '\0')
        return FALSE;
    LONGLONG ll = bNegative ? -static_cast<LONGLONG>(ullMagnitude) : static_cast<LONGLONG>(ullMagnitude);
    if (ll < llMin || ll > llMax)
        return FALSE;
    llValue = ll;
    return TRUE;
}

// A whole decimal number between blanks: sign, digits with an optional point, an optional
// exponent; no infinities, no hexadecimal, nothing beyond the magnitude dMax.
BOOL ParseReal(LPCTSTR lpsz, double dMax, double& dValue)
{
    while (IsBlank(*lpsz))
        ++lpsz;
    LPCTSTR lpszNumber = lpsz;
    if (*lpsz == '-' || *lpsz == '+')
        ++lpsz;
    int nDigits = 0;
    for (; IsDigit(*lpsz); ++lpsz)
        ++nDigits;
    if (*lpsz == '.')
        for (++lpsz; IsDigit(*lpsz); ++lpsz)
            ++nDigits;
    if (nDigits == 0)
        return FALSE;
    if (*lpsz == 'e' || *lpsz == 'E')
    {
        ++lpsz;
        if (*lpsz == '-' || *lpsz == '+')
            ++lpsz;
        if (!IsDigit(*lpsz))
            return FALSE;
        while (IsDigit(*lpsz))
            ++lpsz;
    }
    while (IsBlank(*lpsz))
        ++lpsz;
    if (*lpsz != '\0')
        return FALSE;
    double d = strtod(lpszNumber, NULL); // stops where the checked number ends
    if (!(fabs(d) <= dMax))
        return FALSE;
    dValue = d;
    return TRUE;
}

// Tells the user and ends the exchange.
[[noreturn]] void FailWithPrompt(CDataExchange* pDX, LPCTSTR lpszPrompt)
{
    AfxMessageBox(lpszPrompt, MB_ICONEXCLAMATION);
    pDX->Fail();
}

void ExchangeInteger(CDataExchange* pDX, int nIDC, LONGLONG& llValue, LONGLONG llMin, LONGLONG llMax,
                     LPCTSTR lpszPrompt)
{
    HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
    {
        CString strText;
        AfxGetWindowText(hWndCtrl, strText);
        if (!ParseInteger(strText, llMin, llMax, llValue))
            FailWithPrompt(pDX, lpszPrompt);
    }
    else
    {
        char szText[32];
        snprintf(szText, sizeof(szText), "%lld", llValue);
        SetTextIfChanged(hWndCtrl, szText);
    }
}

// The integer members of every width go through one exchange of a 64-bit value.
template <class T>
void ExchangeIntegerAs(CDataExchange* pDX, int nIDC, T& value, LONGLONG llMin, LONGLONG llMax, LPCTSTR lpszPrompt)
{
    LONGLONG ll = value;
    ExchangeInteger(pDX, nIDC, ll, llMin, llMax, lpszPrompt);
    value = static_cast<T>(ll);
}

// nDigits significant digits on loading: 6 for float, 15 for double.
void ExchangeReal(CDataExchange* pDX, int nIDC, double& dValue, int nDigits, double dMax)
{
    HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
    {
        CString strText;
        AfxGetWindowText(hWndCtrl, strText);
        if (!ParseReal(strText, dMax, dValue))
            FailWithPrompt(pDX, szParseReal);
    }
    else
    {
        char szText[64];
        snprintf(szText, sizeof(szText), "%.*g", nDigits, dValue);
        SetTextIfChanged(hWndCtrl, szText);
    }
}

// Values out of range are refused only on saving: initial values are left for the user to
// correct.
void FailMinMax(CDataExchange* pDX, LPCTSTR lpszRangeFormat, LPCTSTR lpszMin, LPCTSTR lpszMax)
{
    if (!pDX->m_bSaveAndValidate)
        return;
    CString strPrompt;
    strPrompt.Format(lpszRangeFormat, lpszMin, lpszMax);
    FailWithPrompt(pDX, strPrompt);
}

void CheckIntegerRange(CDataExchange* pDX, LONGLONG llValue, LONGLONG llMin, LONGLONG llMax)
{
    if (llValue >= llMin && llValue <= llMax)
        return;
    char szMin[32], szMax[32];
    snprintf(szMin, sizeof(szMin), "%lld", llMin);
    snprintf(szMax, sizeof(szMax), "%lld", llMax);
    FailMinMax(pDX, "Please enter an integer between %s and %s.", szMin, szMax);
}
} // namespace

// ---------------------------------------------------------------------------------------------
// CDataExchange

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd), m_hWndLastControl(NULL), m_bEditLastControl(FALSE)
{
}

HWND CDataExchange::PrepareCtrl(int nIDC)
{
    HWND hWndCtrl = ::GetDlgItem(m_pDlgWnd->GetSafeHwnd(), nIDC);
    if (hWndCtrl == NULL)
        AfxThrowInvalidArgException();
    m_hWndLastControl = hWndCtrl;
    m_bEditLastControl = FALSE;
    return hWndCtrl;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC)
{
    HWND hWndCtrl = PrepareCtrl(nIDC);
    m_bEditLastControl = TRUE;
    return hWndCtrl;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && m_hWndLastControl != NULL)
    {
        ::SetFocus(m_hWndLastControl);
        if (m_bEditLastControl)
            ::SendMessageA(m_hWndLastControl, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    ASSERT(::IsWindow(m_hWnd));
    CDataExchange dx(this, bSaveAndValidate);
    // The controls' notifications while the exchange sets their texts are not the user's.
    HWND hWndOldLockout = AfxSetLockoutNotifyWindow(m_hWnd);
    struct CRestoreLockout
    {
        HWND hWnd;
        ~CRestoreLockout() { AfxSetLockoutNotifyWindow(hWnd); }
    } restore = {hWndOldLockout};
    try
    {
        DoDataExchange(&dx);
        return TRUE;
    }
    catch (CUserException* e)
    {
        e->Delete(); // the user has been told already
    }
    catch (CException* e)
    {
        e->ReportError(MB_ICONEXCLAMATION, AFX_IDP_INTERNAL_FAILURE);
        e->Delete();
    }
    return FALSE;
}

// ---------------------------------------------------------------------------------------------
// DDX_Text

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value)
{
    HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        AfxGetWindowText(hWndCtrl, value);
    else
        SetTextIfChanged(hWndCtrl, value);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, LPTSTR value, int nMaxLen)
{
    HWND hWndCtrl = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
    {
        if (value != NULL && nMaxLen > 0)
            ::GetWindowTextA(hWndCtrl, value, nMaxLen);
    }
    else
    {
        SetTextIfChanged(hWndCtrl, value != NULL ? value : "");
    }
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value)
{
    ExchangeIntegerAs(pDX, nIDC, value, 0, 255, szParseByte);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value)
{
    ExchangeIntegerAs(pDX, nIDC, value, SHRT_MIN, SHRT_MAX, szParseInt);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value)
{
    ExchangeIntegerAs(pDX, nIDC, value, INT_MIN, INT_MAX, szParseInt);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value)
{
    ExchangeIntegerAs(pDX, nIDC, value, 0, UINT_MAX, szParseUInt);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value)
{
    ExchangeIntegerAs(pDX, nIDC, value, LONG_MIN, LONG_MAX, szParseInt);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value)
{
    ExchangeIntegerAs(pDX, nIDC, value, 0, ULONG_MAX, szParseUInt);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, float& value)
{
    double d = value;
    ExchangeReal(pDX, nIDC, d, FLT_DIG, FLT_MAX);
    value = (float)d;
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value)
{
    ExchangeReal(pDX, nIDC, value, DBL_DIG, DBL_MAX);
}

// ---------------------------------------------------------------------------------------------
// Combo boxes and buttons

void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value)
{
    HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
    {
        // A drop-down list answers with its selected item, of which MFC documents that it
        // gives 255 characters at most.
        BOOL bDropList = (::GetWindowLongA(hWndCtrl, GWL_STYLE) & 0x3) == CBS_DROPDOWNLIST;
        AfxGetWindowText(hWndCtrl, value, bDropList ? 255 : INT_MAX);
    }
    else if (::SendMessageA(hWndCtrl, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(static_cast<LPCTSTR>(value))) == CB_ERR)
    {
        // No item begins with the text: it goes into the edit field (a drop-down list has none).
        SetTextIfChanged(hWndCtrl, value);
    }
}

void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index)
{
    HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        index = static_cast<int>(::SendMessageA(hWndCtrl, CB_GETCURSEL, 0, 0));
    else
        ::SendMessageA(hWndCtrl, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value)
{
    HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
    {
        value = static_cast<int>(::SendMessageA(hWndCtrl, BM_GETCHECK, 0, 0));
        return;
    }
    // Kept from MFC: a value that is no check state is reset to unchecked, in the member too.
    if (value < BST_UNCHECKED || value > BST_INDETERMINATE)
        value = BST_UNCHECKED;
    ::SendMessageA(hWndCtrl, BM_SETCHECK, static_cast<WPARAM>(value), 0);
}

void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value)
{
    HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        value = -1;
    // The group runs from nIDC up to the next control with WS_GROUP; other kinds of controls
    // in it are skipped and not counted.
    int nButton = 0;
    do
    {
        if (::SendMessageA(hWndCtrl, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON)
        {
            if (!pDX->m_bSaveAndValidate)
                ::SendMessageA(hWndCtrl, BM_SETCHECK, nButton == value ? BST_CHECKED : BST_UNCHECKED, 0);
            else if (value == -1 && ::SendMessageA(hWndCtrl, BM_GETCHECK, 0, 0) != BST_UNCHECKED)
                value = nButton;
            ++nButton;
        }
        hWndCtrl = ::GetWindow(hWndCtrl, GW_HWNDNEXT);
    } while (hWndCtrl != NULL && !(::GetWindowLongA(hWndCtrl, GWL_STYLE) & WS_GROUP));
}

void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    if (rControl.m_hWnd != NULL)
        return;
    HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
    if (!rControl.SubclassWindow(hWndCtrl))
        AfxThrowInvalidArgException(); // the control belongs to another object already
}

// ---------------------------------------------------------------------------------------------
// Validation

void AFXAPI DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars)
{
    if (pDX->m_bSaveAndValidate)
    {
        if (value.GetLength() <= nChars)
            return;
        CString strPrompt;
        strPrompt.Format("Please enter no more than %d characters.", nChars);
        FailWithPrompt(pDX, strPrompt);
    }
    // Loading limits the edit to the same length, so the user cannot type more.
    if (pDX->m_hWndLastControl != NULL && pDX->m_bEditLastControl)
        ::SendMessageA(pDX->m_hWndLastControl, EM_LIMITTEXT, static_cast<WPARAM>(nChars), 0);
}

void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal)
{
    CheckIntegerRange(pDX, value, minVal, maxVal);
}

void AFXAPI DDV_MinMaxLong(CDataExchange* pDX, long value, long minVal, long maxVal)
{
    CheckIntegerRange(pDX, value, minVal, maxVal);
}

void AFXAPI DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal)
{
    CheckIntegerRange(pDX, value, minVal, maxVal);
}

void AFXAPI DDV_MinMaxDWord(CDataExchange* pDX, DWORD value, DWORD minVal, DWORD maxVal)
{
    CheckIntegerRange(pDX, value, minVal, maxVal);
}

void AFXAPI DDV_MinMaxDouble(CDataExchange* pDX, const double& value, double minVal, double maxVal)
{
    if (value >= minVal && value <= maxVal)
        return;
    char szMin[64], szMax[64];
    snprintf(szMin, sizeof(szMin), "%.*g", DBL_DIG, minVal);
    snprintf(szMax, sizeof(szMax), "%.*g", DBL_DIG, maxVal);
    FailMinMax(pDX, "Please enter a number between %s and %s.", szMin, szMax);
}
