// The text combo and the typed combos: real combos in a hidden host, and in a modeless dialog
// for the subclassing and data exchange paths.
#include "tests/controls/ControlHost.h"

#include <afxdlg.h>
#include <float.h>

#include <functional>

namespace
{
enum
{
    IDC_LABEL = 100,
    IDC_COMBO = 101
};

// Initialisation data for the combo: three items.
const char s_items[] = "\x65\x00\x03\x04\x05\x00\x00\x00pear\0"
                       "\x65\x00\x03\x04\x05\x00\x00\x00plum\0"
                       "\x65\x00\x03\x04\x05\x00\x00\x00kiwi\0"
                       "\x00\x00";

// Subclasses its combo through the exchange, then runs the test's own exchange.
class CComboDialog : public CDialog
{
public:
    CWnd* m_pCombo = NULL;
    std::function<void(CDataExchange*)> m_exchange;

    void DoDataExchange(CDataExchange* pDX) override
    {
        if (m_pCombo != NULL)
            DDX_Control(pDX, IDC_COMBO, *m_pCombo);
        if (m_exchange)
            m_exchange(pDX);
    }
};
} // namespace

class CComboTest : public CControlHost
{
protected:
    // A label and a drop-down combo after it.
    const std::vector<WORD> m_template = DialogTemplate(
        {{0x82, IDC_LABEL, 0, 4, 10, "Level"}, {0x85, IDC_COMBO, CBS_DROPDOWN | WS_VSCROLL, 16, 60, ""}});

    void Create(CComboBox& combo)
    {
        ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL,
                                 CRect(10, 10, 200, 150), &m_host, IDC_COMBO));
    }
    bool OpenDialog(CComboDialog& dlg, CWnd& combo)
    {
        dlg.m_pCombo = &combo;
        return dlg.CreateIndirect(reinterpret_cast<LPCDLGTEMPLATE>(m_template.data()), &m_host,
                                  const_cast<char*>(s_items)) != FALSE;
    }
};

TEST_F(CComboTest, ItemsAreFoundByTheirDataFromTheTop)
{
    CStringComboBox combo;
    Create(combo);
    int a = 0, b = 0, c = 0;
    for (int* pData : {&b, &a, static_cast<int*>(NULL), &a})
        combo.AddString("item", pData);
    EXPECT_EQ(1, combo.SetCurSel(&a)); // present twice: the lower index
    void* pData = NULL;
    EXPECT_EQ(1, combo.GetCurSel(pData));
    EXPECT_EQ(&a, pData);
    EXPECT_EQ(-1, combo.SetCurSel(&c));
    EXPECT_EQ(1, combo.GetCurSel());
    CString strItem = "x";
    EXPECT_FALSE(combo.GetAt(4, strItem));
    EXPECT_TRUE(strItem.IsEmpty());
}

TEST_F(CComboTest, TheCacheAnswersWithoutAWindowReachesTheDialogAndOutlivesIt)
{
    CStringComboBox combo;
    int nData = 0;
    EXPECT_EQ(-1, combo.AddString("pear", &nData));
    EXPECT_EQ(-1, combo.SetCurSel(&nData));
    EXPECT_EQ(3, combo.SetCurSel(3));
    combo = "apple";
    void* pData = &nData;
    EXPECT_EQ(3, combo.GetCurSel(pData));
    EXPECT_EQ(nullptr, pData);
    char szBuffer[4];
    EXPECT_EQ(3, combo.GetWindowText(szBuffer, sizeof(szBuffer)));
    EXPECT_STREQ("app", szBuffer);

    CComboDialog dlg;
    combo.SetCurSel(2);
    ASSERT_TRUE(OpenDialog(dlg, combo));
    EXPECT_EQ(2, combo.GetCurSel());
    EXPECT_EQ("kiwi", CInput::GetText(combo.m_hWnd));
    combo.SetCurSel(1);
    dlg.DestroyWindow();
    CString strText;
    EXPECT_EQ(1, combo.GetCurSel(strText));
    EXPECT_STREQ("plum", strText);
}

TEST_F(CComboTest, TypedCombosReadTheFieldOrAnItemAndReportAsTheEdits)
{
    CLongComboBox combo;
    Create(combo);
    combo.SetMinMaxValues(1, 100);
    for (LONG nItem : {10L, 20L, 30L, 40L, 200L})
        combo += nItem;
    combo = 50L;
    CEdit other;
    ASSERT_TRUE(other.Create(WS_CHILD | WS_VISIBLE, CRect(10, 160, 100, 180), &m_host, 2));
    const std::string strRange = "The value entered is out of range!\n\rPlease enter a value between 1 and 100!";
    struct
    {
        int nIndex;
        int bDisplay;
        BOOL bValid;
        LONG nValue;
        const char* pszBox;   // NULL: no box
        bool bFocusMoves;
    } const cases[] = {
        {-1, 1, TRUE, 50, NULL, false},
        {0, 1, TRUE, 10, NULL, false},
        {4, 1, FALSE, 0, strRange.c_str(), true},
        {4, 0, FALSE, 0, NULL, true},            // quiet, yet the focus moves
        {5, 1, FALSE, 0, strRange.c_str(), true}, // the count: an empty text, which reads as 0
        {6, 1, FALSE, 0, NULL, false},            // past the count: quietly
        {-2, 1, FALSE, 0, NULL, false},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.nIndex);
        CImportRecorder::Get().ClearRecords();
        other.SetFocus();
        combo.SetDisplayErrMsg(c.bDisplay);
        LONG nValue = 0;
        EXPECT_EQ(c.bValid, combo.GetValue(nValue, c.nIndex));
        EXPECT_EQ(c.nValue, nValue);
        ASSERT_EQ(c.pszBox != NULL ? 1u : 0u, Boxes().size());
        if (c.pszBox != NULL)
        {
            EXPECT_EQ(c.pszBox, Boxes()[0].m_strText);
            EXPECT_EQ(MB_ICONEXCLAMATION, Boxes()[0].m_uType);
            EXPECT_EQ(m_host.m_hWnd, Boxes()[0].m_hWndOwner);
        }
        HWND hFocus = ::GetFocus();
        EXPECT_EQ(c.bFocusMoves, hFocus == combo.m_hWnd || ::GetParent(hFocus) == combo.m_hWnd);
    }
    EXPECT_EQ(50, static_cast<LONG>(combo));
    EXPECT_EQ(0, combo.GetValue(4)); // the start value on failure
}

TEST_F(CComboTest, TheFieldEditFiltersWithTheCombosSettingsAndColours)
{
    CShortComboBox level;
    level.SetMinMaxValues(-10, 10);
    Create(level);
    level.SetTextColor(RGB(200, 0, 0)); // after the field edit was made: it hears it when painting
    level.SetBkColor(RGB(0, 0, 90));
    CDateComboBox date;
    date.SetDateSeperator('-');
    ASSERT_TRUE(date.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, CRect(10, 40, 200, 150), &m_host, IDC_COMBO + 1));
    ASSERT_NE(nullptr, dynamic_cast<CShortEdit*>(level.GetFieldEdit()));
    ASSERT_NE(nullptr, dynamic_cast<CDateEdit*>(date.GetFieldEdit()));

    struct
    {
        CComboBox* pCombo;
        const char* pszTyped;
        const char* pszText;
        size_t nBeeps;
    } const cases[] = {
        {&level, "5x0", "5", 2}, // a letter, and 50 past the upper bound
        {&level, "-9", "-9", 0},
        {&date, "5-17x", "5-17", 1},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszTyped);
        CImportRecorder::Get().ClearRecords();
        HWND hEdit = ::GetWindow(c.pCombo->m_hWnd, GW_CHILD);
        ::SetWindowTextA(hEdit, "");
        CInput::TypeText(hEdit, c.pszTyped);
        EXPECT_EQ(c.pszText, CInput::GetText(hEdit));
        EXPECT_EQ(c.nBeeps, Records().m_beeps.size());
    }

    // The edit field asks the combo for its colours (the system combo would pass the request on
    // to the parent, which reflects it to the field edit): both answer with the combo's.
    HWND hEdit = ::GetWindow(level.m_hWnd, GW_CHILD);
    HDC hDC = ::GetDC(hEdit);
    for (HWND hWndAsked : {level.m_hWnd, m_host.m_hWnd})
    {
        ::SetTextColor(hDC, RGB(0, 0, 0));
        LRESULT lBrush = ::SendMessageA(hWndAsked, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(hDC),
                                        reinterpret_cast<LPARAM>(hEdit));
        HBRUSH hBrush = reinterpret_cast<HBRUSH>(lBrush);
        LOGBRUSH lb = {};
        ASSERT_TRUE(::GetObjectA(hBrush, sizeof(lb), &lb));
        EXPECT_EQ(RGB(0, 0, 90), lb.lbColor);
        EXPECT_EQ(RGB(200, 0, 0), ::GetTextColor(hDC));
        EXPECT_EQ(RGB(0, 0, 90), ::GetBkColor(hDC));
    }
    ::ReleaseDC(hEdit, hDC);
}

TEST_F(CComboTest, DoubleAndDateCombosPrintAndReportInTheirOwnTerms)
{
    CDoubleComboBox level;
    Create(level);
    level.SetMinMaxValues(0.0, 1.0);
    level.SetDisplayErrMsg(0);
    level.AddString(0.5);
    EXPECT_EQ("0.50", std::string(level.GetAt(0)));
    double dValue = 0;
    EXPECT_TRUE(level.GetValue(dValue, 1)); // an empty text is the undefined value, in range
    EXPECT_EQ(DBL_MIN, dValue);
    level = 2.0;
    EXPECT_FALSE(level.GetValue(dValue));

    CDateComboBox date;
    date.SetDateSeperator('-');
    date.SetMinMaxValues(CKelDate(2020, 1, 1), CKelDate(2020, 12, 31));
    ASSERT_TRUE(date.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, CRect(10, 40, 200, 150), &m_host, IDC_COMBO + 1));
    date.SetControlName("Premiere");
    date += CKelDate(2020, 5, 17);
    EXPECT_EQ("05-17-2020", std::string(date.GetAt(0)));
    CKelDate read(0);
    EXPECT_TRUE(date.GetValue(read, 0));
    EXPECT_EQ(17, read.GetDay());

    struct
    {
        const char* pszText;
        const char* pszBox;
    } const cases[] = {
        {"13/1/2020", "Invalid Month"},
        {"1/1/2021", "Premiere is out of range!\n\rPlease enter a value between 01-01-2020 and 12-31-2020!"},
    };
    for (const auto& c : cases)
    {
        CImportRecorder::Get().ClearRecords();
        date = c.pszText;
        EXPECT_FALSE(date.Validate());
        ASSERT_EQ(1u, Boxes().size());
        EXPECT_EQ(c.pszBox, Boxes()[0].m_strText);
        EXPECT_EQ("Premiere", Boxes()[0].m_strCaption);
    }
}

TEST_F(CComboTest, AFailedExchangeStopsTheDialogAtTheCombo)
{
    CComboDialog dlg;
    CShortComboBox combo;
    short nValue = 0;
    dlg.m_exchange = [&](CDataExchange* pDX) {
        if (pDX->m_bSaveAndValidate)
            combo.ValidateAndGet(nValue, -1, pDX);
    };
    ASSERT_TRUE(OpenDialog(dlg, combo));
    combo.SetControlName(); // the label in front of it
    ::SetDlgItemTextA(dlg.m_hWnd, IDC_COMBO, "7");
    EXPECT_TRUE(dlg.UpdateData(TRUE));
    EXPECT_EQ(7, nValue);
    ::SetDlgItemTextA(dlg.m_hWnd, IDC_COMBO, "7a");
    EXPECT_FALSE(dlg.UpdateData(TRUE));
    EXPECT_EQ(7, nValue);
    ASSERT_EQ(1u, Boxes().size());
    EXPECT_EQ("Level", Boxes()[0].m_strCaption);
    dlg.DestroyWindow();

    // Opened again, the dialog's new edit field gets a field edit of its own.
    ASSERT_TRUE(OpenDialog(dlg, combo));
    ASSERT_NE(nullptr, combo.GetFieldEdit());
    EXPECT_EQ(::GetWindow(combo.m_hWnd, GW_CHILD), combo.GetFieldEdit()->m_hWnd);
    dlg.DestroyWindow();
}
