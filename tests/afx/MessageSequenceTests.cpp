// The order in which a parent and its controls hear of things: reflected notifications, the
// notification lockout while a dialog exchanges data, subclassing and unsubclassing.
#include <afxwin.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include "tests/harness/Input.h"
#include "tests/harness/MessageSequence.h"

#include <vector>

namespace
{
const UINT IDC_EDIT = 1001;
const WPARAM EDIT_CHANGE = MAKEWPARAM(IDC_EDIT, EN_CHANGE);
const WPARAM EDIT_UPDATE = MAKEWPARAM(IDC_EDIT, EN_UPDATE);

// Each handler notes that it ran, with the message it handles.
class CReflectingEdit : public CWnd
{
public:
    BOOL m_bPassOn = FALSE; // the reflected EN_CHANGE goes on to the parent

    afx_msg BOOL OnReflectedChange()
    {
        CMessageSequence::Handled(m_hWnd, WM_COMMAND, EDIT_CHANGE);
        return !m_bPassOn;
    }
    afx_msg BOOL OnReflectedClick(NMHDR* pNMHDR, LRESULT* pResult)
    {
        CMessageSequence::Handled(m_hWnd, pNMHDR);
        *pResult = 5;
        return FALSE; // the parent's handler runs too
    }
    afx_msg void OnReflectedDblClk(NMHDR* pNMHDR, LRESULT* pResult)
    {
        CMessageSequence::Handled(m_hWnd, pNMHDR);
        *pResult = 7;
    }
    afx_msg HBRUSH CtlColor(CDC*, UINT nCtlColor)
    {
        CMessageSequence::Handled(m_hWnd, WM_CTLCOLORMSGBOX + nCtlColor);
        return nCtlColor == CTLCOLOR_EDIT ? static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH)) : NULL;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CReflectingEdit, CWnd)
ON_CONTROL_REFLECT_EX(EN_CHANGE, OnReflectedChange)
ON_NOTIFY_REFLECT_EX(NM_CLICK, OnReflectedClick)
ON_NOTIFY_REFLECT(NM_DBLCLK, OnReflectedDblClk)
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

// Swallows digits and passes every other character on to the edit's own procedure.
class CLetterEdit : public CWnd
{
public:
    afx_msg void OnChar(UINT nChar, UINT, UINT)
    {
        CMessageSequence::Handled(m_hWnd, WM_CHAR, nChar);
        if (nChar < '0' || nChar > '9')
            Default();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CLetterEdit, CWnd)
ON_WM_CHAR()
END_MESSAGE_MAP()

class CParentWnd : public CWnd
{
public:
    afx_msg void OnEditChange() { CMessageSequence::Handled(m_hWnd, WM_COMMAND, EDIT_CHANGE); }
    afx_msg void OnEditNotify(NMHDR* pNMHDR, LRESULT*) { CMessageSequence::Handled(m_hWnd, pNMHDR); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CParentWnd, CWnd)
ON_EN_CHANGE(IDC_EDIT, OnEditChange)
ON_NOTIFY(NM_CLICK, IDC_EDIT, OnEditNotify)
ON_NOTIFY(NM_DBLCLK, IDC_EDIT, OnEditNotify)
END_MESSAGE_MAP()

// A hidden dialog with one edit, whose text is exchanged with m_strName.
class CNameDialog : public CDialog
{
public:
    CString m_strName;

    BOOL Create(CWnd* pParent)
    {
        // Style, extended style, one item, x, y, cx, cy, no menu, the dialog class, no title;
        // then the edit: style, extended style, x, y, cx, cy, id, the edit class's atom, no
        // text, no creation data.
        const DWORD dwStyle = WS_POPUP, dwEditStyle = WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL;
        static const WORD s_awTemplate[] = {LOWORD(dwStyle), HIWORD(dwStyle), 0, 0, 1, 0, 0, 100, 40, 0, 0, 0,
                                            LOWORD(dwEditStyle), HIWORD(dwEditStyle), 0, 0, 4, 4, 90, 12,
                                            IDC_EDIT, 0xFFFF, 0x0081, 0, 0};
        return CreateIndirect(reinterpret_cast<LPCDLGTEMPLATE>(s_awTemplate), pParent);
    }
    void DoDataExchange(CDataExchange* pDX) override { DDX_Text(pDX, IDC_EDIT, m_strName); }
    afx_msg void OnNameChange() { CMessageSequence::Handled(m_hWnd, WM_COMMAND, EDIT_CHANGE); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CNameDialog, CDialog)
ON_EN_CHANGE(IDC_EDIT, OnNameChange)
END_MESSAGE_MAP()

// A hidden popup with a system edit, both watched; the objects come with each test.
class CMessageSequenceTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_parent.CreateEx(0, "STATIC", "", WS_POPUP, 0, 0, 300, 200, NULL, NULL));
        m_hEdit = ::CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE, 0, 0, 200, 24, m_parent.m_hWnd,
                                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(IDC_EDIT)), NULL, NULL);
        ASSERT_NE(nullptr, m_hEdit);
        m_seq.Watch(m_parent.m_hWnd, "parent");
        m_seq.Watch(m_hEdit, "edit");
    }
    void TearDown() override { m_parent.DestroyWindow(); }

    LRESULT Notify(UINT uCode)
    {
        NMHDR hdr = {m_hEdit, IDC_EDIT, uCode};
        return m_parent.SendMessage(WM_NOTIFY, IDC_EDIT, reinterpret_cast<LPARAM>(&hdr));
    }

    CMessageSequence m_seq;
    CParentWnd m_parent;
    HWND m_hEdit = NULL;
};
} // namespace

TEST_F(CMessageSequenceTest, ReflectedNotificationsReachTheControlFirstAndItsParentOnlyWhenPassedOn)
{
    CReflectingEdit edit;
    ASSERT_TRUE(edit.SubclassWindow(m_hEdit));
    CInput::TypeText(m_hEdit, "a");
    edit.m_bPassOn = TRUE;
    CInput::TypeText(m_hEdit, "b");
    EXPECT_TRUE(m_seq.Check({
        {"edit", WM_CHAR, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, 'a'},
        {"parent", WM_COMMAND, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, EDIT_UPDATE}, // no handler anywhere
        {"parent", WM_COMMAND, SEQ_SENT | SEQ_WPARAM, EDIT_CHANGE},
        {"edit", WM_COMMAND, SEQ_HANDLER},
        {"edit", WM_CHAR, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, 'b'},
        {"parent", WM_COMMAND, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, EDIT_UPDATE},
        {"parent", WM_COMMAND, SEQ_SENT | SEQ_WPARAM, EDIT_CHANGE},
        {"edit", WM_COMMAND, SEQ_HANDLER},
        {"parent", WM_COMMAND, SEQ_HANDLER},
    }));

    EXPECT_EQ(5, Notify(NM_CLICK));
    EXPECT_EQ(7, Notify(NM_DBLCLK));
    EXPECT_TRUE(m_seq.Check({
        {"parent", WM_NOTIFY, SEQ_SENT | SEQ_WPARAM | SEQ_LPARAM, IDC_EDIT, NM_CLICK},
        {"edit", WM_NOTIFY, SEQ_HANDLER | SEQ_LPARAM, 0, NM_CLICK},
        {"parent", WM_NOTIFY, SEQ_HANDLER | SEQ_LPARAM, 0, NM_CLICK},
        {"parent", WM_NOTIFY, SEQ_SENT | SEQ_LPARAM, 0, NM_DBLCLK},
        {"edit", WM_NOTIFY, SEQ_HANDLER | SEQ_LPARAM, 0, NM_DBLCLK},
    }));

    // A control that gives no brush leaves the colour to its parent's default.
    m_seq.Record(WM_CTLCOLOREDIT);
    m_seq.Record(WM_CTLCOLORSTATIC);
    HDC hdc = ::GetDC(m_hEdit);
    EXPECT_EQ(reinterpret_cast<LRESULT>(::GetStockObject(GRAY_BRUSH)),
              m_parent.SendMessage(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(hdc), reinterpret_cast<LPARAM>(m_hEdit)));
    m_parent.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(hdc), reinterpret_cast<LPARAM>(m_hEdit));
    ::ReleaseDC(m_hEdit, hdc);
    EXPECT_TRUE(m_seq.Check({
        {"parent", WM_CTLCOLOREDIT, SEQ_SENT},
        {"edit", WM_CTLCOLOREDIT, SEQ_HANDLER},
        {"parent", WM_CTLCOLORSTATIC, SEQ_SENT | SEQ_DEFPROC},
        {"edit", WM_CTLCOLORSTATIC, SEQ_HANDLER},
    }));
}

TEST_F(CMessageSequenceTest, SubclassedControlsSeeMessagesBeforeTheirOwnProcedureAndNotAfterUnsubclassing)
{
    CLetterEdit edit;
    const LONG_PTR pfnEdit = ::GetWindowLongPtrA(m_hEdit, GWLP_WNDPROC);
    ASSERT_TRUE(edit.SubclassDlgItem(IDC_EDIT, &m_parent));
    CInput::TypeText(m_hEdit, "a1");
    EXPECT_EQ(m_hEdit, edit.UnsubclassWindow());
    EXPECT_EQ(pfnEdit, ::GetWindowLongPtrA(m_hEdit, GWLP_WNDPROC));
    CInput::TypeText(m_hEdit, "2");
    EXPECT_TRUE(m_seq.Check({
        {"edit", WM_CHAR, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, 'a'},
        {"edit", WM_CHAR, SEQ_HANDLER},
        {"parent", WM_COMMAND, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, EDIT_UPDATE},
        {"parent", WM_COMMAND, SEQ_SENT | SEQ_WPARAM, EDIT_CHANGE},
        {"parent", WM_COMMAND, SEQ_HANDLER},
        {"edit", WM_CHAR, SEQ_SENT | SEQ_WPARAM, '1'}, // swallowed
        {"edit", WM_CHAR, SEQ_HANDLER},
        {"edit", WM_CHAR, SEQ_SENT | SEQ_WPARAM, '2'}, // straight to the edit's own procedure
        {"parent", WM_COMMAND, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, EDIT_UPDATE},
        {"parent", WM_COMMAND, SEQ_SENT | SEQ_WPARAM, EDIT_CHANGE},
        {"parent", WM_COMMAND, SEQ_HANDLER},
    }));
    EXPECT_EQ("a2", CInput::GetText(m_hEdit));
}

TEST_F(CMessageSequenceTest, DataExchangeLocksTheDialogsNotificationHandlersOut)
{
    CNameDialog dlg;
    ASSERT_TRUE(dlg.Create(&m_parent));
    HWND hName = ::GetDlgItem(dlg.m_hWnd, IDC_EDIT);
    m_seq.Watch(dlg.m_hWnd, "dialog");
    m_seq.Watch(hName, "name");
    dlg.m_strName = "Ann";
    ASSERT_TRUE(dlg.UpdateData(FALSE));
    CInput::TypeText(hName, "e");
    EXPECT_TRUE(m_seq.Check({
        {"name", WM_GETTEXTLENGTH, SEQ_SENT | SEQ_OPTIONAL}, // the text shown, to compare
        {"name", WM_GETTEXT, SEQ_SENT | SEQ_OPTIONAL},
        {"name", WM_SETTEXT, SEQ_SENT},
        // The exchange's own doing: taken, by neither a handler nor the default procedure.
        {"dialog", WM_COMMAND, SEQ_SENT | SEQ_WPARAM, EDIT_UPDATE},
        {"dialog", WM_COMMAND, SEQ_SENT | SEQ_WPARAM, EDIT_CHANGE},
        {"name", WM_CHAR, SEQ_SENT},
        {"dialog", WM_COMMAND, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, EDIT_UPDATE},
        {"dialog", WM_COMMAND, SEQ_SENT | SEQ_WPARAM, EDIT_CHANGE},
        {"dialog", WM_COMMAND, SEQ_HANDLER},
    }));
    dlg.DestroyWindow();
}
