// CKelButton and CRadioButton in real windows: the block handed to the companion's painter,
// the colours given to the parent, the radio group as one value, its message, and the states
// that outlive the windows.
#include <afxwin.h>
#include <afxdlg.h>
#include <gtest/gtest.h>

#include <string.h>

#include <string>
#include <vector>

#include "controls/KelButton.h"
#include "kelutil/KEL_Util.h"
#include "tests/controls/ControlHost.h"
#include "tests/harness/ImportRecorder.h"

namespace
{
const COLORREF PARENT_COLOR = RGB(12, 34, 56);

// The last block the library passed to PaintButtonEx2, as bytes.
std::vector<BYTE> s_lastBlock;
typedef BOOL(__cdecl* PFNPAINTBUTTON)(HWND, HDC, const KEL_BUTTON_PARAMS*);
PFNPAINTBUTTON s_pfnRealPaint = NULL;

BOOL __cdecl RecordingPaint(HWND hButton, HDC hdc, const KEL_BUTTON_PARAMS* params)
{
    const BYTE* pBytes = reinterpret_cast<const BYTE*>(params);
    s_lastBlock.assign(pBytes, pBytes + sizeof(KEL_BUTTON_PARAMS));
    return s_pfnRealPaint(hButton, hdc, params);
}

// A parent painted in PARENT_COLOR, so that its pixel (0, 0) is known.
class CParentWnd : public CWnd
{
public:
    BOOL Create(bool bVisible, int x = 20)
    {
        WNDCLASSA wc = {};
        wc.lpfnWndProc = ::DefWindowProcA;
        wc.hInstance = ::GetModuleHandle(NULL);
        wc.hbrBackground = ::CreateSolidBrush(PARENT_COLOR);
        wc.lpszClassName = "KelButtonTestParent";
        ::RegisterClassA(&wc); // once; later calls fail harmlessly
        if (!CreateEx(0, wc.lpszClassName, "", WS_POPUP, x, 20, 300, 200, NULL, NULL))
            return FALSE;
        if (bVisible)
        {
            ShowWindow(SW_SHOWNOACTIVATE);
            UpdateWindow();
        }
        return TRUE;
    }
};

class CButtonTest : public ::testing::Test
{
protected:
    CParentWnd m_parent;
    CImportRecorder& m_recorder = CImportRecorder::Get();
    HMODULE m_hLibrary = ::GetModuleHandleA("KelControls.dll");

    void SetUp() override
    {
        ASSERT_TRUE(m_parent.Create(true));
        m_recorder.Install(m_hLibrary);
    }
    void TearDown() override { m_recorder.Uninstall(); }

    BOOL CreateButton(CButton& button, LPCTSTR lpszText, DWORD dwStyle, int nID, int y = 0)
    {
        return button.Create(lpszText, WS_CHILD | WS_VISIBLE | dwStyle, CRect(10, 10 + y, 90, 30 + y), &m_parent, nID);
    }
};

TEST_F(CButtonTest, OwnerDrawnFaceHandsThePainterTheBlockForItsTextAndColours)
{
    s_pfnRealPaint = reinterpret_cast<PFNPAINTBUTTON>(
        m_recorder.Redirect(m_hLibrary, "KEL_Util.dll", "PaintButtonEx2", reinterpret_cast<void*>(RecordingPaint)));
    ASSERT_NE(nullptr, s_pfnRealPaint);
    const COLORREF crSysFace = ::GetSysColor(COLOR_BTNFACE);
    const struct
    {
        LPCTSTR lpszText;
        COLORREF crBack; // CLR_NONE: no background colour set
        DWORD dwGlyph;
        COLORREF crFace;
    } aCases[] = {
        {_T("_PLAY_"), CLR_NONE, 9, 0x00FF00},
        {_T("_STOP_"), CLR_NONE, 10, 0x0000FF},
        {_T("_STOP_"), 0x123456, 10, 0x123456},
        {_T("_FFORWARD_"), CLR_NONE, 13, 0xFFFF00},
        {_T("_REWIND_"), CLR_NONE, 14, 0xFFFF00},
        {_T("_RECORD_"), CLR_NONE, 15, 0x00FF00}, // green as play, not red
        {_T("_stop_"), CLR_NONE, 16, crSysFace},  // keywords are exact
        {_T("Go"), CLR_NONE, 16, crSysFace},
        {_T("Go"), 0x654321, 16, 0x654321},
    };
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(std::string(c.lpszText) + (c.crBack == CLR_NONE ? "" : " coloured"));
        CKelButton button;
        button.SetTextColor(0x0A0B0C);
        button.SetBkColor(c.crBack);
        ASSERT_TRUE(CreateButton(button, c.lpszText, BS_OWNERDRAW, 1));
        s_lastBlock.clear();
        button.SendMessage(BM_SETSTATE, TRUE); // repaints pressed
        button.UpdateWindow();
        ASSERT_EQ(sizeof(KEL_BUTTON_PARAMS), s_lastBlock.size());

        std::vector<BYTE> expected(124, 0);
        auto put = [&](size_t nOffset, DWORD dwValue, size_t nWidth) { memcpy(&expected[nOffset], &dwValue, nWidth); };
        put(0, 124, 4);
        put(12, ODS_SELECTED, 2);
        put(28, 0x0A0B0C, 4);
        put(32, c.crFace, 4);
        put(36, c.dwGlyph, 4);
        put(40, crSysFace, 4);
        EXPECT_EQ(expected, s_lastBlock);
    }
}

TEST_F(CButtonTest, ColoursGoToTheParentWithTheButtonsOwnColourOrThePixelBehindIt)
{
    CKelButton coloured, plain;
    coloured.SetBkColor(RGB(0, 170, 0));
    coloured.SetTextColor(RGB(200, 0, 0));
    plain.SetTextColor(RGB(0, 0, 200));
    ASSERT_TRUE(CreateButton(coloured, _T("Loop"), BS_AUTOCHECKBOX, 1));
    ASSERT_TRUE(CreateButton(plain, _T("Fade"), BS_AUTOCHECKBOX, 2, 30));
    CParentWnd hidden;
    CKelButton behindHidden;
    ASSERT_TRUE(hidden.Create(false, 400)); // where nothing else is painted
    ASSERT_TRUE(behindHidden.Create(_T("Snap"), WS_CHILD | WS_VISIBLE | BS_AUTOCHECKBOX, CRect(0, 0, 50, 20), &hidden, 3));

    // The message a check box sends its parent before it paints, answered through the button.
    auto brushColour = [](CWnd& parent, CWnd& button, UINT uMsg, HDC hDC) {
        HBRUSH hBrush = reinterpret_cast<HBRUSH>(parent.SendMessage(uMsg, reinterpret_cast<WPARAM>(hDC),
                                                                    reinterpret_cast<LPARAM>(button.m_hWnd)));
        LOGBRUSH lb = {};
        return hBrush != NULL && ::GetObject(hBrush, sizeof(lb), &lb) == sizeof(lb) ? lb.lbColor : CLR_INVALID;
    };
    const struct
    {
        const char* pszName;
        CWnd& parent;
        CKelButton& button;
        UINT uMsg;
        COLORREF crText;
        COLORREF crBack;
    } aCases[] = {
        {"own colour", m_parent, coloured, WM_CTLCOLORSTATIC, RGB(200, 0, 0), RGB(0, 170, 0)},
        {"own colour, button message", m_parent, coloured, WM_CTLCOLORBTN, RGB(200, 0, 0), RGB(0, 170, 0)},
        {"the parent's pixel", m_parent, plain, WM_CTLCOLORSTATIC, RGB(0, 0, 200), PARENT_COLOR},
        // A hidden parent has no pixels: the colour last read behind any button stands in.
        {"the last parent colour", hidden, behindHidden, WM_CTLCOLORSTATIC, ::GetSysColor(COLOR_WINDOWTEXT),
         PARENT_COLOR},
    };
    HDC hDC = ::CreateCompatibleDC(NULL);
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.pszName);
        ::SetBkMode(hDC, OPAQUE);
        ::SetTextColor(hDC, RGB(1, 1, 1));
        EXPECT_EQ(c.crBack, brushColour(c.parent, c.button, c.uMsg, hDC));
        EXPECT_EQ(c.crText, ::GetTextColor(hDC));
        EXPECT_EQ(c.crBack, ::GetBkColor(hDC));
        EXPECT_EQ(TRANSPARENT, ::GetBkMode(hDC));
    }
    ::DeleteDC(hDC);
}

// A radio group of three with a label inside it, then a check box that starts the next group.
class CRadioGroupTest : public CButtonTest
{
protected:
    CRadioButton m_radio;
    CButton m_second, m_third, m_next;
    CStatic m_label;

    void SetUp() override
    {
        CButtonTest::SetUp();
        ASSERT_TRUE(CreateButton(m_radio, _T("Live"), BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, 1));
        // SS_CENTER shares a bit with the radio styles: only buttons count.
        ASSERT_TRUE(m_label.Create(_T("Mode"), WS_CHILD | WS_VISIBLE | SS_CENTER, CRect(100, 10, 150, 30), &m_parent, 2));
        ASSERT_TRUE(CreateButton(m_second, _T("Blind"), BS_AUTORADIOBUTTON, 3, 25));
        ASSERT_TRUE(CreateButton(m_third, _T("Preview"), BS_RADIOBUTTON, 4, 50));
        ASSERT_TRUE(CreateButton(m_next, _T("Loop"), BS_AUTOCHECKBOX | WS_GROUP, 5, 75));
        m_next.SetCheck(BST_CHECKED);
    }
    std::vector<int> Checks() const
    {
        return {m_radio.CButton::GetCheck(), m_second.GetCheck(), m_third.GetCheck(), m_next.GetCheck()};
    }
};

TEST_F(CRadioGroupTest, TheGroupIsOneValue)
{
    const struct
    {
        int nSet;
        std::vector<int> checks;
        int nValue;
    } aCases[] = {
        {2, {0, 0, 1, 1}, 2},
        {0, {1, 0, 0, 1}, 0},
        {5, {0, 0, 0, 1}, -1},
        {-1, {0, 0, 0, 1}, -1},
    };
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.nSet);
        m_radio.SetCheck(c.nSet);
        EXPECT_EQ(c.checks, Checks());
        EXPECT_EQ(c.nValue, m_radio.GetCurSel());
    }
    m_second.SendMessage(BM_CLICK);
    EXPECT_EQ(1, static_cast<int>(m_radio));
    m_radio.SendMessage(BM_CLICK);
    m_parent.DestroyWindow();
    EXPECT_EQ(0, m_radio.GetCheck()); // read from the group as the windows went
}

TEST_F(CRadioGroupTest, AnEmptyChoiceIsReportedWithTheControlsName)
{
    m_radio.SetControlName("Mode");
    int nIndex = 7;
    m_radio.SetDisplayErrMsg(0);
    EXPECT_FALSE(m_radio.ValidateAndGet(nIndex));
    EXPECT_EQ(-1, nIndex);
    EXPECT_TRUE(m_recorder.GetRecords().m_messageBoxes.empty());

    m_radio.SetDisplayErrMsg(1);
    EXPECT_FALSE(m_radio.Validate());
    const auto& boxes = m_recorder.GetRecords().m_messageBoxes;
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ(" A Mode must be selected!", boxes[0].m_strText); // the leading blank is kept
    EXPECT_EQ("Mode", boxes[0].m_strCaption);
    EXPECT_EQ(m_parent.m_hWnd, boxes[0].m_hWndOwner);
    EXPECT_EQ(static_cast<UINT>(MB_ICONEXCLAMATION), boxes[0].m_uType);
    EXPECT_EQ(m_radio.m_hWnd, ::GetFocus());

    m_radio.SetCurSel(1);
    EXPECT_TRUE(m_radio.ValidateAndGet(nIndex));
    EXPECT_EQ(1, nIndex);
}

TEST_F(CButtonTest, ADialogShowsTheValuesSetBeforeItsControlsAndTheyOutliveIt)
{
    enum
    {
        IDC_FIRST = 100,
        IDC_CHECK = 104
    };
    // Three radio buttons, OK starting the next group, and a check box.
    const std::vector<WORD> words = DialogTemplate({{0x80, IDC_FIRST, BS_AUTORADIOBUTTON | WS_GROUP, 4, 12, ""},
                                                    {0x80, IDC_FIRST + 1, BS_AUTORADIOBUTTON, 18, 12, ""},
                                                    {0x80, IDC_FIRST + 2, BS_AUTORADIOBUTTON, 32, 12, ""},
                                                    {0x80, IDOK, BS_PUSHBUTTON | WS_GROUP, 46, 12, ""},
                                                    {0x80, IDC_CHECK, BS_AUTOCHECKBOX, 60, 12, ""}});
    CDialog dlg;
    ASSERT_TRUE(dlg.CreateIndirect(reinterpret_cast<LPCDLGTEMPLATE>(words.data()), &m_parent));
    ::CheckDlgButton(dlg.m_hWnd, IDC_FIRST, BST_CHECKED);
    CRadioButton radio;
    CKelButton check;
    radio = 2;
    check = BST_CHECKED;
    ASSERT_TRUE(radio.SubclassDlgItem(IDC_FIRST, &dlg));
    ASSERT_TRUE(check.SubclassDlgItem(IDC_CHECK, &dlg));
    EXPECT_EQ(BST_UNCHECKED, dlg.IsDlgButtonChecked(IDC_FIRST));
    EXPECT_EQ(BST_CHECKED, dlg.IsDlgButtonChecked(IDC_FIRST + 2));
    EXPECT_EQ(BST_CHECKED, dlg.IsDlgButtonChecked(IDC_CHECK));
    check.SendMessage(BM_CLICK);
    dlg.DestroyWindow();
    EXPECT_EQ(BST_UNCHECKED, check.GetCheck()); // as the window last had it
    EXPECT_EQ(2, radio.GetCheck());
}
} // namespace
