// The combo grid: its drop-down opened and closed by real keys and clicks, the fixed closing
// order and the payloads of its notifications, sorting that keeps the chosen row, type-to-find,
// the combo queries it answers itself and its life as a typed control.
#include "KelControls.h"
#include "capture/WindowImage.h"
#include "tests/harness/ImportRecorder.h"
#include "tests/harness/Input.h"
#include "tests/harness/MessageSequence.h"
#include "tests/harness/NotifyRecorder.h"

#include <afxdlg.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
const UINT COMBO_ID = 31;

// Rows: number, name, kind; the data of row r is 100 + r.
const char* const kRows[][3] = {
    {"3", "Spot", "Moving"}, {"1", "Wash", "LED"}, {"12", "Beam", "Moving"}, {"5", "Par", "Static"},
    {"4", "Fresnel", "Static"},
};
const int kRowCount = 5;

class CComboGridTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_parent.Create(400, 300, true));
        m_parent.SetPayloadSize(CBGN_SELCHANGING, sizeof(NMCOMBOGRID));
        m_parent.SetPayloadSize(CBGN_SORTING, sizeof(NMCOMBOGRID));
        ASSERT_GT(CImportRecorder::Get().Install(::GetModuleHandleA("KelControls.dll")), 0);
    }
    void TearDown() override { CImportRecorder::Get().Uninstall(); }

    void CreateCombo(CComboGrid& combo, DWORD dwType, int y = 10)
    {
        ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | dwType, CRect(10, y, 210, y + 200),
                                 CWnd::FromHandle(m_parent), COMBO_ID));
        Fill(combo);
    }

    static void Fill(CComboGrid& combo)
    {
        ASSERT_TRUE(combo.SetColumnCount(3));
        combo.SetColumn(0, "No", 40, 1, 1);
        combo.SetColumn(1, "Name", 90);
        combo.SetColumn(2, "Kind", 70);
        for (int r = 0; r < kRowCount; ++r)
        {
            ASSERT_EQ(r, combo.AddRow(kRows[r][0], 100 + r));
            combo.SetItemText(r, 1, kRows[r][1]);
            combo.SetItemText(r, 2, kRows[r][2]);
        }
        combo.SetTextColumn(1);
        combo.SetKeyColumn(1);
    }

    std::string FieldText(CComboGrid& combo) { return std::string(combo.GetWindowText()); }

    CNotifyRecorder m_parent;
    CComboGrid m_combo;
};

TEST_F(CComboGridTest, CreationRefusesStylesWithoutAGridDropDown)
{
    for (DWORD dwStyle : {DWORD(CBS_SIMPLE), DWORD(CBS_DROPDOWNLIST | CBS_SORT),
                          DWORD(CBS_DROPDOWN | CBS_OWNERDRAWFIXED), DWORD(CBS_DROPDOWNLIST | CBS_OWNERDRAWVARIABLE)})
    {
        CComboGrid combo;
        EXPECT_FALSE(combo.Create(WS_CHILD | dwStyle, CRect(0, 0, 100, 100), CWnd::FromHandle(m_parent), 1))
            << dwStyle;
        EXPECT_EQ(-1, combo.AddRow("x"));
    }
}

// The platform combo's own list holds exactly the chosen row's text, or nothing.
TEST_F(CComboGridTest, DropDownListShowsTheChosenRowAsItsOneString)
{
    CreateCombo(m_combo, CBS_DROPDOWNLIST);
    EXPECT_EQ(2, m_combo.SetCurSel(2));
    EXPECT_EQ(1, m_combo.SendMessage(CB_GETCOUNT));
    EXPECT_EQ("Beam", FieldText(m_combo));
    EXPECT_EQ(102u, m_combo.GetCurSelData());
    EXPECT_EQ(CB_ERR, m_combo.SetCurSel(kRowCount));
    EXPECT_EQ(-1, m_combo.SetCurSel(-1));
    EXPECT_EQ(0, m_combo.SendMessage(CB_GETCOUNT));
    EXPECT_EQ(4, m_combo.FindRowText("fres", -1, TRUE));
    EXPECT_EQ(-1, m_combo.FindRowText("fres"));
    EXPECT_EQ(4, m_combo.FindRowData(104));
}

struct CloseCase
{
    const char* pszWhat;
    std::vector<UINT> keys; // after F4 opened it
    LRESULT lSelChanging;   // the parent's reply to CBGN_SELCHANGING
    std::vector<UINT> codes; // from opening on: CBN_ codes by WM_COMMAND, CBGN_ codes by WM_NOTIFY
    int nRowAfter;
};

// The closing order is the library's: SELENDOK or SELENDCANCEL, CLOSEUP, then SELCHANGE.
TEST_F(CComboGridTest, KeysCloseInTheFixedOrder)
{
    CreateCombo(m_combo, CBS_DROPDOWNLIST);
    const CloseCase cases[] = {
        {"Down, Enter takes",
         {VK_DOWN, VK_RETURN},
         0,
         {CBN_DROPDOWN, CBGN_SELCHANGING, CBN_SELENDOK, CBGN_GETDISPTEXT, CBN_CLOSEUP, CBN_SELCHANGE},
         2},
        {"Down, Escape", {VK_DOWN, VK_ESCAPE}, 0, {CBN_DROPDOWN, CBN_SELENDCANCEL, CBN_CLOSEUP}, 1},
        {"Enter refused", {VK_DOWN, VK_RETURN}, 1, {CBN_DROPDOWN, CBGN_SELCHANGING, CBN_SELENDCANCEL, CBN_CLOSEUP}, 1},
        {"Enter on the chosen row", {VK_RETURN}, 0, {CBN_DROPDOWN, CBN_SELENDOK, CBN_CLOSEUP}, 1},
        {"F4 again takes",
         {VK_END, VK_F4},
         0,
         {CBN_DROPDOWN, CBGN_SELCHANGING, CBN_SELENDOK, CBGN_GETDISPTEXT, CBN_CLOSEUP, CBN_SELCHANGE},
         4},
    };
    for (const CloseCase& c : cases)
    {
        m_combo.SetCurSel(1);
        m_parent.SetReply(CBGN_SELCHANGING, c.lSelChanging);
        CMessageSequence seq;
        seq.Ignore(WM_PARENTNOTIFY);
        seq.Watch(m_parent, "parent");
        CInput::PressKey(m_combo, VK_F4);
        EXPECT_TRUE(m_combo.GetDroppedState()) << c.pszWhat;
        for (UINT nKey : c.keys)
            CInput::PressKey(m_combo, nKey);
        EXPECT_FALSE(m_combo.GetDroppedState()) << c.pszWhat;
        std::vector<CMessageSequence::CMessage> expected;
        for (UINT nCode : c.codes)
        {
            if (nCode >= CBGN_SORTING)
                expected.emplace_back("parent", WM_NOTIFY, SEQ_SENT | SEQ_LPARAM, 0, nCode);
            else
                expected.emplace_back("parent", WM_COMMAND, SEQ_SENT | SEQ_WPARAM, MAKEWPARAM(COMBO_ID, nCode));
        }
        EXPECT_TRUE(seq.Check(expected.data(), expected.size())) << c.pszWhat;
        EXPECT_EQ(c.nRowAfter, m_combo.GetCurSel()) << c.pszWhat;
        EXPECT_EQ(kRows[c.nRowAfter][1], FieldText(m_combo)) << c.pszWhat;
    }
    // The refusal was asked with the old row, the new one and its data.
    const NMCOMBOGRID* pNm = m_parent.GetLast<NMCOMBOGRID>(CBGN_SELCHANGING);
    ASSERT_TRUE(pNm != NULL);
    EXPECT_EQ(1, pNm->nOldRow);
    EXPECT_EQ(4, pNm->nNewRow);
    EXPECT_EQ(104u, pNm->dwData);
}

// The host rewrites the text shown for a row.
TEST_F(CComboGridTest, DisplayTextComesFromTheHost)
{
    CreateCombo(m_combo, CBS_DROPDOWN);
    m_parent.SetHandler(CBGN_GETDISPTEXT, [](NMHDR* pHdr) {
        NMCOMBOGRID* pNm = reinterpret_cast<NMCOMBOGRID*>(pHdr);
        EXPECT_EQ(256, pNm->cchText);
        EXPECT_EQ(103u, pNm->dwData);
        strcat(pNm->pszText, " (3)");
        return LRESULT(0);
    });
    m_combo.SetCurSel(3);
    EXPECT_EQ("Par (3)", FieldText(m_combo));
}

// Closed, drop-down-list style: keys and typed characters move the choice, each change with
// CBN_SELCHANGE.
TEST_F(CComboGridTest, ClosedKeysAndTypingMoveTheChoice)
{
    CreateCombo(m_combo, CBS_DROPDOWNLIST);
    m_combo.SetDropDownRows(2);
    struct
    {
        UINT nKey;
        char chTyped;
        int nRow;
    } steps[] = {{VK_DOWN, 0, 0}, {VK_NEXT, 0, 2}, {VK_END, 0, 4}, {VK_DOWN, 0, 4}, {VK_HOME, 0, 0},
                 {0, 'w', 1},     {0, 'f', 4},     {VK_UP, 0, 3}};
    int nChanges = 0;
    for (const auto& step : steps)
    {
        int nBefore = m_combo.GetCurSel();
        if (step.nKey != 0)
            CInput::PressKey(m_combo, step.nKey);
        else
        {
            CInput::PumpMessages(1100); // a new type-ahead search
            const char sz[2] = {step.chTyped, 0};
            CInput::TypeText(m_combo, sz);
        }
        EXPECT_EQ(step.nRow, m_combo.GetCurSel()) << step.nKey << step.chTyped;
        nChanges += nBefore != step.nRow;
    }
    EXPECT_FALSE(m_combo.GetDroppedState());
    int nSelChanges = 0;
    for (const CNotifyRecorder::CCommand& c : m_parent.GetCommands())
        nSelChanges += c.m_uNotifyCode == CBN_SELCHANGE;
    EXPECT_EQ(nChanges, nSelChanges);
}

// Header clicks sort ascending, then descending, keeping the chosen row; a refusal stops it.
// Divider drags size the list's columns.
TEST_F(CComboGridTest, HeaderSortKeepsTheChosenRow)
{
    CreateCombo(m_combo, CBS_DROPDOWNLIST);
    m_combo.SetCurSel(2); // "12", Beam
    ASSERT_TRUE(m_combo.ShowDropDown());
    CGridHeader* pHeader = m_combo.GetHeader();
    auto column = [&](int col) {
        std::string s;
        for (int r = 0; r < kRowCount; ++r)
            s += std::string(m_combo.GetItemText(r, col)) + " ";
        return s;
    };
    CInput::Click(*pHeader, 20, 5); // numbers, ascending
    EXPECT_EQ("1 3 4 5 12 ", column(0));
    EXPECT_EQ(4, m_combo.GetCurSel());
    CInput::Click(*pHeader, 20, 5);
    EXPECT_EQ("12 5 4 3 1 ", column(0));
    EXPECT_EQ(0, m_combo.GetCurSel());
    const NMCOMBOGRID* pNm = m_parent.GetLast<NMCOMBOGRID>(CBGN_SORTING);
    ASSERT_TRUE(pNm != NULL);
    EXPECT_EQ(0, pNm->nCol);
    EXPECT_EQ(3, pNm->nSortType);
    m_parent.SetReply(CBGN_SORTING, 1);
    CInput::Click(*pHeader, 80, 5); // names: refused
    EXPECT_EQ("Beam Par Fresnel Spot Wash ", column(1));
    EXPECT_EQ("Beam", FieldText(m_combo));
    EXPECT_EQ(102u, m_combo.GetCurSelData());

    // A divider drag sizes the list's column, unless the columns were made fixed.
    CInput::Drag(*pHeader, CPoint(40, 5), CPoint(60, 5));
    EXPECT_EQ(60, m_combo.GetList()->GetColumnWidth(0));
    m_combo.SetColumnsSizable(FALSE);
    CInput::Drag(*pHeader, CPoint(60, 5), CPoint(80, 5));
    EXPECT_EQ(60, m_combo.GetList()->GetColumnWidth(0));
}

// The mouse: a click on the combo opens and a second one closes without reopening; hovering a
// row highlights it, and a click on it takes it.
TEST_F(CComboGridTest, ClicksOpenCloseAndTake)
{
    CreateCombo(m_combo, CBS_DROPDOWNLIST);
    CInput::Click(m_combo, 100, 8);
    ASSERT_TRUE(m_combo.GetDroppedState());
    EXPECT_EQ(::GetFocus(), m_combo.m_hWnd);
    CInput::Click(m_combo, 100, 8);
    EXPECT_FALSE(m_combo.GetDroppedState());
    EXPECT_EQ(0, m_combo.SendMessage(CB_GETDROPPEDSTATE));

    EXPECT_TRUE(m_combo.SendMessage(CB_SHOWDROPDOWN, TRUE));
    CGridList* pList = m_combo.GetList();
    CRect rcPopup, rcCombo, rcCell;
    m_combo.SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&rcPopup));
    m_combo.GetWindowRect(&rcCombo);
    EXPECT_EQ(rcCombo.bottom, rcPopup.top);
    EXPECT_EQ(rcCombo.left, rcPopup.left);
    pList->GetCellRect(3, 1, rcCell);
    ::SendMessage(*pList, WM_MOUSEMOVE, 0, MAKELPARAM(rcCell.left + 5, rcCell.top + 3));
    EXPECT_EQ(3, pList->GetRow());
    EXPECT_TRUE(pList->IsSelectedItem(3, 0));
    // The whole row shows the selection colours, though list style selects its first cell only.
    CWindowImage image;
    pList->UpdateWindow();
    ASSERT_TRUE(image.Capture(*pList));
    CRect rcLast;
    ASSERT_TRUE(pList->GetCellRect(3, 2, rcLast));
    // Column 0, above its text; column 2 on its row and on the row above.
    const COLORREF crSelected = image.GetPixel(rcCell.left - 20, rcCell.top + 1);
    EXPECT_EQ(crSelected, image.GetPixel(rcLast.left + 10, rcLast.top + 1));
    EXPECT_NE(crSelected, image.GetPixel(rcLast.left + 10, rcLast.top - 4));
    CInput::Click(*pList, rcCell.left + 5, rcCell.top + 3);
    EXPECT_FALSE(m_combo.GetDroppedState());
    EXPECT_EQ(3, m_combo.GetCurSel());
    EXPECT_EQ(::GetFocus(), m_combo.m_hWnd);
}

// Real presses through the system's queue: one on the open combo closes it without reopening,
// one elsewhere closes it too; opening a second combo grid closes the first without taking.
TEST_F(CComboGridTest, RealPressesAndASecondComboClose)
{
    CreateCombo(m_combo, CBS_DROPDOWNLIST);
    CComboGrid second;
    CreateCombo(second, CBS_DROPDOWNLIST, 250);
    m_combo.ShowDropDown();
    CInput::QueuedClick(m_combo, 100, 8);
    EXPECT_FALSE(m_combo.GetDroppedState());
    m_combo.ShowDropDown();
    CInput::QueuedClick(m_parent, 390, 290);
    EXPECT_FALSE(m_combo.GetDroppedState());

    m_combo.ShowDropDown();
    CInput::PressKey(m_combo, VK_DOWN);
    m_parent.Clear();
    second.ShowDropDown();
    EXPECT_FALSE(m_combo.GetDroppedState());
    EXPECT_TRUE(second.GetDroppedState());
    EXPECT_EQ(-1, m_combo.GetCurSel());
    ASSERT_GE(m_parent.GetCommands().size(), 3u);
    EXPECT_EQ(UINT(CBN_SELENDCANCEL), m_parent.GetCommands()[1].m_uNotifyCode);
    // Destroyed while open: quietly closed, the hook gone, the choice kept.
    second.SetCurSel(4);
    second.DestroyWindow();
    EXPECT_EQ(NULL, CKelDropDown::GetOpenDropDown());
    EXPECT_EQ(104u, second.GetCurSelData());
    EXPECT_EQ("Fresnel", std::string(second.GetWindowText()));
}

struct ValidateCase
{
    const char* pszWhat;
    const char* pszName;
    int bRequired;
    const char* pszTyped;
    BOOL bOk;
    int nRow;
    const char* pszMessage; // null for none
};

TEST_F(CComboGridTest, DropDownStyleValidatesTheTypedText)
{
    CreateCombo(m_combo, CBS_DROPDOWN);
    const ValidateCase cases[] = {
        {"no row's text", "", 0, "Gobo", FALSE, -1, "The value entered is not in the list!"},
        {"another case of a row", "", 0, "fRESNEL", TRUE, 4, NULL},
        {"empty, optional", "", 0, "", TRUE, -1, NULL},
        {"empty, required", "Fixture", 1, "", FALSE, -1, " A Fixture must be selected!"},
        {"named", "Fixture", 0, "Gobo", FALSE, -1, "Fixture is not in the list!"},
    };
    for (const ValidateCase& c : cases)
    {
        CImportRecorder::Get().ClearRecords();
        m_combo.SetCurSel(-1);
        m_combo.SetControlName(c.pszName);
        m_combo.SetRequired(c.bRequired);
        m_combo.SetDisplayErrMsg(1);
        ::SetWindowTextA(::GetWindow(m_combo, GW_CHILD), c.pszTyped);
        int nRow = -7;
        EXPECT_EQ(c.bOk, m_combo.ValidateAndGet(nRow)) << c.pszWhat;
        EXPECT_EQ(c.nRow, m_combo.GetCurSel()) << c.pszWhat;
        const auto& boxes = CImportRecorder::Get().GetRecords().m_messageBoxes;
        ASSERT_EQ(c.pszMessage != NULL ? 1u : 0u, boxes.size()) << c.pszWhat;
        if (c.pszMessage != NULL)
            EXPECT_EQ(c.pszMessage, boxes[0].m_strText) << c.pszWhat;
        else
            EXPECT_EQ(c.nRow, nRow) << c.pszWhat;
    }
}

// Typing in the open drop-down style moves the list's highlight, never the choice; closing with
// Enter takes the row typed, auto-completion fills in the rest.
TEST_F(CComboGridTest, TypingFindsInTheOpenList)
{
    CreateCombo(m_combo, CBS_DROPDOWN);
    m_combo.SetAutoComplete(1);
    HWND hWndField = ::GetWindow(m_combo, GW_CHILD);
    CInput::PressKey(hWndField, VK_F4);
    ASSERT_TRUE(m_combo.GetDroppedState());
    CInput::TypeText(hWndField, "be");
    EXPECT_EQ(2, m_combo.GetList()->GetRow());
    EXPECT_EQ(-1, m_combo.GetCurSel());
    EXPECT_EQ("Beam", CInput::GetText(hWndField));
    EXPECT_EQ(std::make_pair(DWORD(2), DWORD(4)), CInput::GetSel(hWndField));
    CInput::PressKey(hWndField, VK_RETURN);
    EXPECT_FALSE(m_combo.GetDroppedState());
    EXPECT_EQ(2, m_combo.GetCurSel());
}

// A dialog's combo grid, subclassed through the exchange: the platform combo's own
// CBN_SELENDCANCEL (sent as it loses the focus) is swallowed in the reflection while the combo's
// own reach the dialog; the exchange validates the typed text, and the choice outlives the dialog.
class CGridDialog : public CDialog
{
public:
    CComboGrid m_combo;
    int m_nRow = -7;
    int m_nSelEndCancel = 0;
    int m_nCloseUp = 0;

    void DoDataExchange(CDataExchange* pDX) override
    {
        DDX_Control(pDX, COMBO_ID, m_combo);
        if (pDX->m_bSaveAndValidate)
            m_combo.ValidateAndGet(m_nRow, pDX);
    }
    afx_msg void OnSelEndCancel() { ++m_nSelEndCancel; }
    afx_msg void OnCloseUp() { ++m_nCloseUp; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CGridDialog, CDialog)
ON_CBN_SELENDCANCEL(COMBO_ID, OnSelEndCancel)
ON_CBN_CLOSEUP(COMBO_ID, OnCloseUp)
END_MESSAGE_MAP()

TEST_F(CComboGridTest, InADialog)
{
    // A hidden dialog holding one drop-down combo.
    std::vector<WORD> words = {LOWORD(WS_POPUP), HIWORD(WS_POPUP), 0, 0, 1, 0, 0, 200, 100, 0, 0, 0};
    const DWORD dwStyle = WS_CHILD | WS_VISIBLE | CBS_DROPDOWN;
    words.insert(words.end(), {LOWORD(dwStyle), HIWORD(dwStyle), 0, 0, 10, 10, 120, 80, WORD(COMBO_ID), 0xFFFF, 0x85,
                               0, 0});
    CGridDialog dlg;
    ASSERT_TRUE(dlg.CreateIndirect(reinterpret_cast<LPCDLGTEMPLATE>(words.data()), CWnd::FromHandle(m_parent)));
    Fill(dlg.m_combo);
    dlg.SendMessage(WM_COMMAND, MAKEWPARAM(COMBO_ID, CBN_SELENDCANCEL), reinterpret_cast<LPARAM>(dlg.m_combo.m_hWnd));
    EXPECT_EQ(0, dlg.m_nSelEndCancel);
    ASSERT_TRUE(dlg.m_combo.ShowDropDown());
    CInput::PressKey(dlg.m_combo, VK_ESCAPE);
    EXPECT_EQ(1, dlg.m_nSelEndCancel);
    EXPECT_EQ(1, dlg.m_nCloseUp);

    ::SetWindowTextA(::GetWindow(dlg.m_combo, GW_CHILD), "wash");
    EXPECT_TRUE(dlg.UpdateData(TRUE));
    EXPECT_EQ(1, dlg.m_nRow);
    dlg.DestroyWindow();
    EXPECT_EQ(101u, dlg.m_combo.GetCurSelData());
    EXPECT_EQ(1, dlg.m_combo.GetCurSel());
    EXPECT_EQ("Wash", std::string(dlg.m_combo.GetWindowText()));
}
} // namespace
