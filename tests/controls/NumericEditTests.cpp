// The numeric edits: reading with range messages and the failure path, the keystroke, key and
// paste filter with its relaxed lower bound and the double's special spellings, and the data
// exchange of a real dialog.
#include "tests/controls/ControlHost.h"
#include "tests/harness/MessageSequence.h"

#include <afxdlg.h>
#include <float.h>
#include <limits.h>

#include <vector>

namespace
{
// One edit of each kind; only the one a case names is created.
struct CEdits
{
    CShortEdit m_short;
    CUShortEdit m_ushort;
    CLongEdit m_long;
    CULongEdit m_ulong;
    CDoubleEdit m_double;

    CNumericEdit& Get(char kind)
    {
        switch (kind)
        {
        case 's': return m_short;
        case 'w': return m_ushort;
        case 'l': return m_long;
        case 'u': return m_ulong;
        default: return m_double;
        }
    }
    // Bounds of the signed kinds; the unsigned ones have none to set.
    void SetBounds(char kind, double dMin, double dMax)
    {
        if (kind == 's')
            m_short.SetMinMaxValues(static_cast<short>(dMin), static_cast<short>(dMax));
        else if (kind == 'l')
            m_long.SetMinMaxValues(static_cast<LONG>(dMin), static_cast<LONG>(dMax));
        else if (kind == 'd')
            m_double.SetMinMaxValues(dMin, dMax);
    }
    // GetValue(T&) of the kind; dValue receives the value, or 7 when none was stored.
    int GetValue(char kind, double& dValue)
    {
        short s = 7;
        WORD w = 7;
        LONG l = 7;
        ULONG u = 7;
        double d = 7;
        int bValid = kind == 's'   ? m_short.GetValue(s)
                     : kind == 'w' ? m_ushort.GetValue(w)
                     : kind == 'l' ? m_long.GetValue(l)
                     : kind == 'u' ? m_ulong.GetValue(u)
                                   : m_double.GetValue(d);
        dValue = kind == 's' ? s : kind == 'w' ? w : kind == 'l' ? l : kind == 'u' ? u : d;
        return bValid;
    }
};

} // namespace

typedef CControlHost CNumericEditTest;

TEST_F(CNumericEditTest, ReadsInRangeOrReportsTheMessageInABoxCaptionedWithTheName)
{
    const struct
    {
        char kind; // s short, w unsigned short, l long, u unsigned long, d double
        const char* pszName;
        double dMin, dMax;
        const char* pszText;
        const char* pszMessage; // NULL: valid; "": fails quietly, with the display-error switch off
        double dValue = 0;
    } cases[] = {
        {'l', "", LONG_MIN, 100, "101",
         "The value entered is out of range!\n\rPlease enter a value less than or equal to 100!"},
        {'l', "Port", 1, LONG_MAX, "0", "Port is out of range!\n\rPlease enter a value greater than or equal to 1!"},
        {'l', "", 10, 100, "5", "The value entered is out of range!\n\rPlease enter a value between 10 and 100!"},
        {'l', "", 10, 100, "100", NULL, 100},
        {'l', "Port", 10, 100, "12a", "Non Numeric character found!"}, // the reader's message as it stands
        {'l', "", LONG_MIN, LONG_MAX, "", NULL, 0},
        {'s', "", -5, 5, "-6", "The value entered is out of range!\n\rPlease enter a value between -5 and 5!"},
        {'s', "", SHRT_MIN, SHRT_MAX, "-32768", NULL, -32768},
        {'w', "", 0, 0, "65535", NULL, 65535},
        {'u', "", 0, 0, "4294967295", NULL, 4294967295.0},
        // Bounds print in full (not with the control's two places), 12.0 as "12.".
        {'d', "", 1.5, 12.0, "12.5", "The value entered is out of range!\n\rPlease enter a value between 1.5 and 12.!"},
        {'d', "Level", DBL_MIN, 100.0, "150",
         "Level is out of range!\n\rPlease enter a value less than or equal to 100.!"},
        // 0.0 differs from the none value DBL_MIN: it is a bound.
        {'d', "", 0.0, DBL_MAX, "-1", "The value entered is out of range!\n\rPlease enter a value greater than or equal to 0.!"},
        {'d', "", 1.5, 12.0, "2.345", NULL, 2.35}, // two places, rounded
        {'d', "", DBL_MIN, DBL_MAX, "", NULL, DBL_MIN},
        {'d', "", DBL_MIN, DBL_MAX, "??", NULL, DBL_MIN},
        {'d', "", DBL_MIN, DBL_MAX, "-INF", NULL, -DBL_MAX},
        {'l', "", 1, 10, "0", ""},
        {'d', "", DBL_MIN, DBL_MAX, "1x", ""},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(std::string(1, c.kind) + " \"" + c.pszText + "\"");
        CEdits edits;
        CNumericEdit& edit = edits.Get(c.kind);
        CreateEdit(edit);
        edits.SetBounds(c.kind, c.dMin, c.dMax);
        edit.SetControlName(c.pszName);
        const bool bQuiet = c.pszMessage != NULL && *c.pszMessage == '\0';
        edit.SetDisplayErrMsg(!bQuiet);
        edit.SetWindowText(c.pszText);
        m_host.SetFocus();
        CImportRecorder::Get().ClearRecords();

        double dValue = 0;
        EXPECT_EQ(c.pszMessage == NULL, edits.GetValue(c.kind, dValue) != FALSE);
        const auto& boxes = Records().m_messageBoxes;
        if (c.pszMessage == NULL)
        {
            EXPECT_EQ(c.dValue, dValue);
            EXPECT_TRUE(boxes.empty());
            continue;
        }
        EXPECT_EQ(7, dValue);
        if (bQuiet)
        {
            EXPECT_TRUE(boxes.empty());
            EXPECT_EQ(m_host.m_hWnd, ::GetFocus());
            continue;
        }
        ASSERT_EQ(1u, boxes.size());
        EXPECT_EQ(c.pszMessage, boxes[0].m_strText);
        EXPECT_EQ(c.pszName, boxes[0].m_strCaption);
        EXPECT_EQ(m_host.m_hWnd, boxes[0].m_hWndOwner);
        EXPECT_EQ(static_cast<UINT>(MB_ICONEXCLAMATION), boxes[0].m_uType);
        // The box came with the text selected in the focused control.
        EXPECT_EQ(edit.m_hWnd, ::GetFocus());
        EXPECT_EQ(std::make_pair(DWORD(0), DWORD(strlen(c.pszText))), CInput::GetSel(edit));
    }
}

TEST_F(CNumericEditTest, TypingKeysAndPastesAreJudgedWithTheLowerBoundRelaxed)
{
    const char DEL = '\x7f', HOME = '\x02';
    const struct
    {
        char kind;
        double dMin, dMax;
        int bDynamic;
        const char* pszKeys; // typed, but DEL and HOME are keys pressed and what follows ^ is pasted
        const char* pszText;
        size_t nBeeps;
        DWORD dwCaret = 0; // where a refusal leaves the caret
    } cases[] = {
        {'l', 10, 100, 1, "5", "5", 0},
        {'l', 10, 100, 1, "12a", "12", 1, 2},
        {'l', 10, 100, 1, "-5", "-", 1, 1}, // the relaxed bound is 0, not gone
        {'l', 10, 100, 1, "12\x02\x7f", "2", 0},
        {'l', 10, 100, 1, "5\b", "", 0}, // clearing is never refused
        {'w', 0, 0, 1, "65536", "6553", 1, 4},
        {'s', 0, 0, 0, "ab", "ab", 0},
        {'s', 0, 0, 0, "ab\x02\x7f", "ab", 1, 0}, // Delete is judged with checking off
        {'l', 0, 0, 1, "5^34", "534", 0},
        {'l', 0, 0, 1, "5^3x", "5", 1, 1},
        {'l', 0, 0, 0, "5^3x", "5", 1, 1}, // and so is a paste
        {'l', 0, 0, 0, "5^", "5", 0},
        {'d', 0, 0, 1, "-", "-", 0},
        {'d', 0, 0, 1, "+I", "+I", 0},
        {'d', 0, 0, 1, "-IN", "-IN", 0},
        {'d', 0, 0, 1, "?", "?", 0},
        {'d', 0, 0, 1, "+INX", "+IN", 1, 3},
        {'d', 0, 0, 1, "-INFX", "-INF", 1, 4},
        {'d', 1.5, 10, 1, "0.5", "0.5", 0},
        {'d', 1.5, 10, 1, "-1", "-", 1, 1},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(std::string(1, c.kind) + " \"" + c.pszKeys + "\"");
        CEdits edits;
        CNumericEdit& edit = edits.Get(c.kind);
        CreateEdit(edit);
        if (c.dMin != 0 || c.dMax != 0)
            edits.SetBounds(c.kind, c.dMin, c.dMax);
        edit.SetDynamicErrChecking(c.bDynamic);
        CImportRecorder::Get().ClearRecords();
        for (const char* p = c.pszKeys; *p != '\0'; ++p)
        {
            if (*p == '^')
            {
                Paste(edit, p + 1);
                break;
            }
            if (*p == DEL || *p == HOME)
                CInput::PressKey(edit, *p == DEL ? VK_DELETE : VK_HOME);
            else
                CInput::TypeText(edit, std::string(1, *p).c_str());
        }
        EXPECT_EQ(c.pszText, Text(edit));
        EXPECT_EQ(std::vector<UINT>(c.nBeeps, MB_ICONEXCLAMATION), Records().m_beeps);
        EXPECT_TRUE(Records().m_messageBoxes.empty());
        if (c.nBeeps != 0)
        {
            EXPECT_EQ(std::make_pair(c.dwCaret, c.dwCaret), CInput::GetSel(edit));
        }
    }

    // 5 got in on the way to a number in range, but it is not in range.
    CLongEdit edit;
    CreateEdit(edit);
    edit.SetMinMaxValues(10, 100);
    CInput::TypeText(edit, "5");
    LONG nValue = 0;
    EXPECT_FALSE(edit.GetValue(nValue));
    ASSERT_EQ(1u, Records().m_messageBoxes.size());
}

TEST_F(CNumericEditTest, ARefusedKeystrokeRestoresTextAndSelectionWithRedrawingOff)
{
    CLongEdit edit;
    CreateEdit(edit);
    CInput::TypeText(edit, "12");
    CMessageSequence sequence;
    sequence.Watch(edit, "edit");
    sequence.Ignore(WM_GETTEXT);
    sequence.Ignore(WM_GETTEXTLENGTH);
    CInput::TypeText(edit, "a");
    EXPECT_TRUE(sequence.Check({
        {"edit", WM_CHAR, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, 'a'},
        {"edit", EM_GETSEL, SEQ_SENT | SEQ_DEFPROC},
        {"edit", WM_SETREDRAW, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, FALSE},
        {"edit", WM_SETTEXT, SEQ_SENT | SEQ_DEFPROC},
        {"edit", EM_SETSEL, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM | SEQ_LPARAM, 2, 2},
        {"edit", EM_SCROLLCARET, SEQ_SENT | SEQ_DEFPROC},
        {"edit", WM_SETREDRAW, SEQ_SENT | SEQ_DEFPROC | SEQ_WPARAM, TRUE},
    }));
    EXPECT_EQ(1u, Records().m_beeps.size());
}

namespace
{
enum
{
    IDC_LABEL = 100,
    IDC_PORT
};

class CPortDialog : public CDialog
{
public:
    CLongEdit m_edit;
    LONG m_nPort = -1;

    BOOL OnInitDialog() override
    {
        m_edit.SubclassDlgItem(IDC_PORT, this);
        m_edit.SetControlName();
        return CDialog::OnInitDialog();
    }
    void DoDataExchange(CDataExchange* pDX) override
    {
        if (pDX->m_bSaveAndValidate)
            m_edit.ValidateAndGet(m_nPort, pDX);
    }
};
} // namespace

TEST_F(CNumericEditTest, DialogShowsTheValueSetBeforehandAndAFailureEndsTheExchange)
{
    // The label "Port" and, after it, the port edit.
    const std::vector<WORD> words = DialogTemplate(
        {{0x82, IDC_LABEL, 0, 4, 12, "Port"}, {0x81, IDC_PORT, WS_TABSTOP | ES_AUTOHSCROLL, 20, 12, ""}});
    CPortDialog dlg;
    dlg.m_edit.SetMinMaxValues(1, 10);
    dlg.m_edit = 7L;
    ASSERT_TRUE(dlg.CreateIndirect(reinterpret_cast<LPCDLGTEMPLATE>(words.data()), &m_host));
    EXPECT_EQ("7", Text(dlg.m_edit));
    EXPECT_TRUE(dlg.UpdateData(TRUE));
    EXPECT_EQ(7, dlg.m_nPort);

    ::SetWindowTextA(dlg.m_edit, "11");
    m_host.SetFocus();
    EXPECT_FALSE(dlg.UpdateData(TRUE));
    EXPECT_EQ(7, dlg.m_nPort);
    ASSERT_EQ(1u, Records().m_messageBoxes.size());
    EXPECT_EQ("Port is out of range!\n\rPlease enter a value between 1 and 10!", Records().m_messageBoxes[0].m_strText);
    EXPECT_EQ("Port", Records().m_messageBoxes[0].m_strCaption);
    EXPECT_EQ(dlg.m_hWnd, Records().m_messageBoxes[0].m_hWndOwner);
    EXPECT_EQ(dlg.m_edit.m_hWnd, ::GetFocus());
}
