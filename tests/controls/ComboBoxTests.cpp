// The text combo and the typed combos: real combos in a hidden host, and in a modeless dialog
// for the subclassing and data exchange paths.
#include "KelControls.h"
#include "tests/harness/ImportRecorder.h"
#include "tests/harness/Input.h"

#include <afxdlg.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace
{
enum
{
    IDC_LABEL = 100,
    IDC_COMBO = 101
};

// A dialog template in memory: a label and a drop-down combo after it, hidden.
std::vector<WORD> ComboTemplate()
{
    const DWORD dwDlgStyle = WS_POPUP | DS_MODALFRAME;
    std::vector<WORD> words = {LOWORD(dwDlgStyle), HIWORD(dwDlgStyle), 0, 0, 2, 0, 0, 200, 100, 0, 0, 0};
    auto add = [&](WORD wClass, WORD nID, DWORD dwStyle, WORD y, WORD cy) {
        if (words.size() % 2 != 0)
            words.push_back(0);
        dwStyle |= WS_CHILD | WS_VISIBLE;
        words.insert(words.end(), {LOWORD(dwStyle), HIWORD(dwStyle), 0, 0, 10, y, 80, cy, nID, 0xFFFF, wClass, 0, 0});
    };
    add(0x82, IDC_LABEL, 0, 4, 10);                                // static
    add(0x85, IDC_COMBO, CBS_DROPDOWN | WS_VSCROLL, 16, 60);       // combo box
    return words;
}

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

class CComboTest : public ::testing::Test
{
protected:
    CWnd m_host;
    const std::vector<WORD> m_template = ComboTemplate();

    void SetUp() override
    {
        ASSERT_GT(CImportRecorder::Get().Install(::GetModuleHandleA("KelControls.dll")), 0);
        ASSERT_TRUE(m_host.CreateEx(0, "STATIC", "", WS_POPUP, 20, 20, 300, 200, NULL, NULL));
    }
    void TearDown() override { CImportRecorder::Get().Uninstall(); }

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
    const std::vector<CImportRecorder::CMessageBoxCall>& Boxes() const
    {
        return CImportRecorder::Get().GetRecords().m_messageBoxes;
    }
};

TEST_F(CComboTest, WithoutAWindowTheCacheAnswers)
{
    CStringComboBox combo;
    int nData = 0;
    EXPECT_EQ(-1, combo.AddString("pear"));
    EXPECT_EQ(-1, combo.AddString("pear", &nData));
    EXPECT_EQ(-1, combo.SetCurSel(&nData));
    EXPECT_EQ(3, combo.SetCurSel(3));
    combo = "apple";
    void* pData = &nData;
    EXPECT_EQ(3, combo.GetCurSel(pData));
    EXPECT_EQ(nullptr, pData);
    CString strText;
    EXPECT_EQ(3, combo.GetCurSel(strText));
    EXPECT_STREQ("apple", strText);
    char szBuffer[4];
    EXPECT_EQ(3, combo.GetWindowText(szBuffer, sizeof(szBuffer)));
    EXPECT_STREQ("app", szBuffer);
    EXPECT_EQ("", std::string(combo.GetAt(0)));
    EXPECT_EQ(3, static_cast<int>(combo));
}

TEST_F(CComboTest, ItemsAreFoundByTheirDataFromTheTop)
{
    CStringComboBox combo;
    Create(combo);
    int a = 0, b = 0, c = 0;
    EXPECT_EQ(0, combo.AddString("red", &b));
    EXPECT_EQ(1, combo.AddString("green", &a));
    EXPECT_EQ(2, combo.AddString("blue"));
    EXPECT_EQ(3, combo.AddString("green too", &a));
    EXPECT_EQ(1, combo.SetCurSel(&a)); // present twice: the lower index
    void* pData = NULL;
    EXPECT_EQ(1, combo.GetCurSel(pData));
    EXPECT_EQ(&a, pData);
    EXPECT_EQ(-1, combo.SetCurSel(&c));
    EXPECT_EQ(1, combo.GetCurSel());
    EXPECT_EQ("green", std::string(static_cast<CString>(combo)));
    CString strItem = "x";
    EXPECT_FALSE(combo.GetAt(4, strItem));
    EXPECT_TRUE(strItem.IsEmpty());
    EXPECT_EQ("", std::string(combo.GetAt(-1)));
    EXPECT_EQ("blue", std::string(combo.GetAt(2)));
    EXPECT_EQ(-1, combo.SetCurSel(7)); // no such item: the window's answer
}

TEST_F(CComboTest, TheSelectionReachesTheDialogAndOutlivesIt)
{
    CComboDialog dlg;
    CStringComboBox combo;
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

TEST_F(CComboTest, TheComboColoursItsEditField)
{
    CStringComboBox combo;
    Create(combo);
    combo.SetTextColor(RGB(200, 0, 0));
    combo.SetBkColor(RGB(0, 0, 90));
    HWND hEdit = ::GetWindow(combo.m_hWnd, GW_CHILD);
    HDC hDC = ::GetDC(hEdit);
    HBRUSH hBrush = reinterpret_cast<HBRUSH>(
        ::SendMessageA(combo.m_hWnd, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(hDC), reinterpret_cast<LPARAM>(hEdit)));
    LOGBRUSH lb = {};
    ASSERT_TRUE(::GetObjectA(hBrush, sizeof(lb), &lb));
    EXPECT_EQ(RGB(0, 0, 90), lb.lbColor);
    EXPECT_EQ(RGB(200, 0, 0), ::GetTextColor(hDC));
    EXPECT_EQ(RGB(0, 0, 90), ::GetBkColor(hDC));
    ::ReleaseDC(hEdit, hDC);
}
