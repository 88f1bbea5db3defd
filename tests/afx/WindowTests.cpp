#include <afxwin.h>
#include <gtest/gtest.h>

#include "ImportRecorder.h"
#include "Input.h"

#include <string>
#include <vector>

namespace
{
const UINT WM_TEST_VALUE = WM_USER + 5;
const UINT WM_TEST_NESTED = WM_USER + 6;
const UINT g_nRegistered = ::RegisterWindowMessageA("KelAfxTestRegistered");
const UINT IDC_CHILD = 1001;

const char* TestClass()
{
    static const char* s_name = [] {
        WNDCLASSA wc = {};
        wc.lpfnWndProc = ::DefWindowProcA;
        wc.hInstance = ::GetModuleHandleA(NULL);
        wc.lpszClassName = "KelAfxTestWindow";
        ::RegisterClassA(&wc);
        return "KelAfxTestWindow";
    }();
    return s_name;
}

class CRecordingWnd : public CWnd
{
public:
    BOOL m_bAttachedAtNcCreate = FALSE;
    int m_nCreateResult = 0;
    int m_nPostNcDestroy = 0;
    CSize m_size;
    CPoint m_click;
    UINT m_nClickFlags = 0;
    std::vector<std::string> m_events;

    BOOL CreateTopLevel()
    {
        return CreateEx(0, TestClass(), "test", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, NULL, NULL);
    }

protected:
    afx_msg BOOL OnNcCreate(LPCREATESTRUCT lpcs)
    {
        m_bAttachedAtNcCreate = CWnd::FromHandlePermanent(m_hWnd) == this;
        return CWnd::OnNcCreate(lpcs);
    }
    afx_msg int OnCreate(LPCREATESTRUCT lpcs)
    {
        return m_nCreateResult != 0 ? m_nCreateResult : CWnd::OnCreate(lpcs);
    }
    afx_msg void OnSize(UINT, int cx, int cy) { m_size = CSize(cx, cy); }
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point)
    {
        m_click = point;
        m_nClickFlags = nFlags;
    }
    afx_msg LRESULT OnTestValue(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam + lParam); }
    afx_msg LRESULT OnRegistered(WPARAM wParam, LPARAM) { return static_cast<LRESULT>(wParam * 2); }
    afx_msg LRESULT OnSetText(WPARAM, LPARAM)
    {
        // A nested message must not disturb what Default() passes on.
        SendMessage(WM_TEST_NESTED, 1, 2);
        return Default();
    }
    afx_msg LRESULT OnNested(WPARAM, LPARAM)
    {
        m_events.push_back("nested");
        return 0;
    }
    afx_msg void OnChildChange() { m_events.push_back("parent EN_CHANGE"); }
    afx_msg void OnChildDblClk(NMHDR* pNMHDR, LRESULT* pResult)
    {
        m_events.push_back("parent NM_DBLCLK " + std::to_string(pNMHDR->idFrom));
        *pResult = 7;
    }
    void PostNcDestroy() override { ++m_nPostNcDestroy; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CRecordingWnd, CWnd)
ON_WM_NCCREATE()
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_LBUTTONDOWN()
ON_MESSAGE(WM_TEST_VALUE, OnTestValue)
ON_MESSAGE(WM_SETTEXT, OnSetText)
ON_MESSAGE(WM_TEST_NESTED, OnNested)
ON_REGISTERED_MESSAGE(g_nRegistered, OnRegistered)
ON_EN_CHANGE(IDC_CHILD, OnChildChange)
ON_NOTIFY(NM_DBLCLK, IDC_CHILD, OnChildDblClk)
END_MESSAGE_MAP()

// A derived map is searched before its base: it overrides one entry and inherits the rest.
class CDerivedWnd : public CRecordingWnd
{
protected:
    afx_msg LRESULT OnTestValue(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam * lParam); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CDerivedWnd, CRecordingWnd)
ON_MESSAGE(WM_TEST_VALUE, OnTestValue)
END_MESSAGE_MAP()

class CReflectingEdit : public CWnd
{
public:
    BOOL m_bPassOn = FALSE;
    int m_nPreSubclass = 0;
    int m_nChars = 0;
    std::vector<std::string>* m_pEvents = NULL;

protected:
    void PreSubclassWindow() override { ++m_nPreSubclass; }
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
    {
        ++m_nChars;
        CWnd::OnChar(nChar, nRepCnt, nFlags);
    }
    afx_msg BOOL OnReflectedChange()
    {
        m_pEvents->push_back("child EN_CHANGE");
        return !m_bPassOn;
    }
    afx_msg void OnReflectedClick(NMHDR*, LRESULT* pResult) { *pResult = 42; }
    afx_msg HBRUSH CtlColor(CDC* pDC, UINT nCtlColor)
    {
        return nCtlColor == CTLCOLOR_EDIT ? static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH)) : NULL;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CReflectingEdit, CWnd)
ON_WM_CHAR()
ON_CONTROL_REFLECT_EX(EN_CHANGE, OnReflectedChange)
ON_NOTIFY_REFLECT(NM_CLICK, OnReflectedClick)
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

class CWindowTest : public ::testing::Test
{
protected:
    void TearDown() override
    {
        if (m_parent.m_hWnd != NULL)
            m_parent.DestroyWindow();
        CWnd::DeleteTempMap();
    }

    HWND CreateEdit(DWORD dwStyle = 0)
    {
        return ::CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL | dwStyle, 0, 0, 200, 24,
                                 m_parent.m_hWnd, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(IDC_CHILD)),
                                 ::GetModuleHandleA(NULL), NULL);
    }

    CRecordingWnd m_parent;
};
} // namespace

TEST_F(CWindowTest, CreateAttachesTheObjectBeforeNcCreate)
{
    ASSERT_TRUE(m_parent.CreateTopLevel());
    EXPECT_TRUE(m_parent.m_bAttachedAtNcCreate);
    EXPECT_EQ(&m_parent, CWnd::FromHandlePermanent(m_parent.m_hWnd));
    HWND hWnd = m_parent.m_hWnd;
    EXPECT_TRUE(m_parent.DestroyWindow());
    EXPECT_EQ(NULL, m_parent.m_hWnd);
    EXPECT_EQ(NULL, CWnd::FromHandlePermanent(hWnd));
    EXPECT_EQ(1, m_parent.m_nPostNcDestroy);
}

TEST_F(CWindowTest, RefusedCreationDetachesAndCleansUp)
{
    m_parent.m_nCreateResult = -1;
    EXPECT_FALSE(m_parent.CreateTopLevel());
    EXPECT_EQ(NULL, m_parent.m_hWnd);
    EXPECT_EQ(1, m_parent.m_nPostNcDestroy);
    CRecordingWnd noClass;
    EXPECT_FALSE(noClass.CreateEx(0, "NoSuchClass", "", WS_POPUP, 0, 0, 1, 1, NULL, NULL));
    EXPECT_EQ(1, noClass.m_nPostNcDestroy); // the hook never ran
}

TEST_F(CWindowTest, HandlersReceiveDecodedArguments)
{
    ASSERT_TRUE(m_parent.CreateTopLevel());
    ::SendMessageA(m_parent.m_hWnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(30, 40));
    EXPECT_EQ(CSize(30, 40), m_parent.m_size);
    ::SendMessageA(m_parent.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MAKELPARAM(-5, 7));
    EXPECT_EQ(CPoint(-5, 7), m_parent.m_click); // coordinates are signed
    EXPECT_EQ(static_cast<UINT>(MK_LBUTTON | MK_SHIFT), m_parent.m_nClickFlags);
    EXPECT_EQ(5, ::SendMessageA(m_parent.m_hWnd, WM_TEST_VALUE, 2, 3));
    EXPECT_EQ(18, ::SendMessageA(m_parent.m_hWnd, g_nRegistered, 9, 0));
}

TEST_F(CWindowTest, DerivedMapOverridesAndInherits)
{
    CDerivedWnd wnd;
    ASSERT_TRUE(wnd.CreateTopLevel());
    EXPECT_EQ(6, ::SendMessageA(wnd.m_hWnd, WM_TEST_VALUE, 2, 3));
    EXPECT_EQ(18, ::SendMessageA(wnd.m_hWnd, g_nRegistered, 9, 0));
    wnd.DestroyWindow();
}

TEST_F(CWindowTest, DefaultPassesTheCurrentMessageAfterNestedOnes)
{
    ASSERT_TRUE(m_parent.CreateTopLevel());
    m_parent.SetWindowText("after nesting");
    CString text;
    m_parent.GetWindowText(text);
    EXPECT_STREQ("after nesting", text);
    ASSERT_EQ(1u, m_parent.m_events.size());
}

TEST_F(CWindowTest, TemporaryAndPermanentObjects)
{
    HWND hWnd = ::CreateWindowExA(0, TestClass(), "", WS_POPUP, 0, 0, 10, 10, NULL, NULL, NULL, NULL);
    CWnd* pTemp = CWnd::FromHandle(hWnd);
    ASSERT_NE(nullptr, pTemp);
    EXPECT_EQ(pTemp, CWnd::FromHandle(hWnd));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    CWnd wnd;
    EXPECT_TRUE(wnd.Attach(hWnd));
    EXPECT_FALSE(CWnd().Attach(hWnd)); // one permanent object per window
    EXPECT_EQ(&wnd, CWnd::FromHandle(hWnd));
    EXPECT_EQ(hWnd, wnd.Detach());
    EXPECT_EQ(nullptr, CWnd::FromHandle(NULL));
    CWnd* pNull = NULL;
    EXPECT_EQ(NULL, pNull->GetSafeHwnd());
    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(hWnd)); // deleting a temporary object leaves its window
    ::DestroyWindow(hWnd);
}

TEST_F(CWindowTest, SubclassedEditKeepsItsOwnBehaviour)
{
    ASSERT_TRUE(m_parent.CreateTopLevel());
    HWND hEdit = CreateEdit();
    LONG_PTR pfnOriginal = ::GetWindowLongPtrA(hEdit, GWLP_WNDPROC);
    CReflectingEdit edit;
    edit.m_pEvents = &m_parent.m_events;
    ASSERT_TRUE(edit.SubclassDlgItem(IDC_CHILD, &m_parent));
    EXPECT_EQ(1, edit.m_nPreSubclass);
    edit.m_bPassOn = TRUE;
    CInput::TypeText(hEdit, "abc");
    EXPECT_EQ(3, edit.m_nChars);
    EXPECT_EQ("abc", CInput::GetText(hEdit));
    EXPECT_EQ(hEdit, edit.UnsubclassWindow());
    EXPECT_EQ(pfnOriginal, ::GetWindowLongPtrA(hEdit, GWLP_WNDPROC));
    CInput::TypeText(hEdit, "d");
    EXPECT_EQ(3, edit.m_nChars);
}

TEST_F(CWindowTest, CommandReflectionDecidesWhetherTheParentHears)
{
    ASSERT_TRUE(m_parent.CreateTopLevel());
    CReflectingEdit edit;
    edit.m_pEvents = &m_parent.m_events;
    ASSERT_TRUE(edit.SubclassWindow(CreateEdit()));
    CInput::TypeText(edit.m_hWnd, "x"); // the child handles its own notification
    edit.m_bPassOn = TRUE;
    CInput::TypeText(edit.m_hWnd, "y"); // handled, and passed on to the parent
    std::vector<std::string> expected = {"child EN_CHANGE", "child EN_CHANGE", "parent EN_CHANGE"};
    EXPECT_EQ(expected, m_parent.m_events);
    edit.DestroyWindow();
}

TEST_F(CWindowTest, NotificationsAreReflectedOrRouted)
{
    ASSERT_TRUE(m_parent.CreateTopLevel());
    CReflectingEdit edit;
    edit.m_pEvents = &m_parent.m_events;
    ASSERT_TRUE(edit.SubclassWindow(CreateEdit()));
    NMHDR hdr = {edit.m_hWnd, IDC_CHILD, static_cast<UINT>(NM_CLICK)};
    EXPECT_EQ(42, ::SendMessageA(m_parent.m_hWnd, WM_NOTIFY, IDC_CHILD, reinterpret_cast<LPARAM>(&hdr)));
    hdr.code = static_cast<UINT>(NM_DBLCLK);
    EXPECT_EQ(7, ::SendMessageA(m_parent.m_hWnd, WM_NOTIFY, IDC_CHILD, reinterpret_cast<LPARAM>(&hdr)));
    ASSERT_EQ(1u, m_parent.m_events.size());
    EXPECT_EQ("parent NM_DBLCLK 1001", m_parent.m_events[0]);
    edit.DestroyWindow();
}

TEST_F(CWindowTest, ControlColourIsReflectedToTheChild)
{
    ASSERT_TRUE(m_parent.CreateTopLevel());
    CReflectingEdit edit;
    edit.m_pEvents = &m_parent.m_events;
    ASSERT_TRUE(edit.SubclassWindow(CreateEdit()));
    HDC hdc = ::GetDC(edit.m_hWnd);
    EXPECT_EQ(reinterpret_cast<LRESULT>(::GetStockObject(GRAY_BRUSH)),
              ::SendMessageA(m_parent.m_hWnd, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(hdc),
                             reinterpret_cast<LPARAM>(edit.m_hWnd)));
    // No brush from the child: the parent's own default answers.
    LRESULT lDefault = ::DefWindowProcA(m_parent.m_hWnd, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(hdc),
                                        reinterpret_cast<LPARAM>(edit.m_hWnd));
    EXPECT_EQ(lDefault, ::SendMessageA(m_parent.m_hWnd, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(hdc),
                                       reinterpret_cast<LPARAM>(edit.m_hWnd)));
    ::ReleaseDC(edit.m_hWnd, hdc);
    edit.DestroyWindow();
}

namespace
{
class CKeyFilterWnd : public CRecordingWnd
{
public:
    int m_nFiltered = 0;
    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (pMsg->message != WM_KEYDOWN)
            return FALSE;
        ++m_nFiltered;
        return TRUE;
    }
};

class CSelfDeletingWnd : public CWnd
{
public:
    explicit CSelfDeletingWnd(bool* pbDeleted) : m_pbDeleted(pbDeleted) {}
    ~CSelfDeletingWnd() override { *m_pbDeleted = true; }
    void PostNcDestroy() override { delete this; }

private:
    bool* m_pbDeleted;
};
} // namespace

TEST_F(CWindowTest, PreTranslateMessageSeesMessagesOfChildren)
{
    CKeyFilterWnd parent;
    ASSERT_TRUE(parent.CreateTopLevel());
    HWND hEdit = ::CreateWindowExA(0, "EDIT", "", WS_CHILD, 0, 0, 50, 20, parent.m_hWnd, NULL, NULL, NULL);
    ::PostMessageA(hEdit, WM_KEYDOWN, 'A', 0);
    ::PostMessageA(hEdit, WM_CHAR, 'b', 0);
    EXPECT_TRUE(AfxPumpMessage());
    EXPECT_TRUE(AfxPumpMessage());
    EXPECT_EQ(1, parent.m_nFiltered);
    EXPECT_EQ("b", CInput::GetText(hEdit));
    parent.DestroyWindow();
}

TEST_F(CWindowTest, AnObjectMayDeleteItselfWhenItsWindowIsGone)
{
    bool bDeleted = false;
    CSelfDeletingWnd* pWnd = new CSelfDeletingWnd(&bDeleted);
    ASSERT_TRUE(pWnd->CreateEx(0, TestClass(), "", WS_POPUP, 0, 0, 10, 10, NULL, NULL));
    EXPECT_TRUE(pWnd->DestroyWindow());
    EXPECT_TRUE(bDeleted);
}

TEST(CRuntimeClassTest, KindsAndDynamicCreation)
{
    CObject* pObject = RUNTIME_CLASS(CWnd)->CreateObject();
    ASSERT_NE(nullptr, pObject);
    EXPECT_TRUE(pObject->IsKindOf(RUNTIME_CLASS(CCmdTarget)));
    EXPECT_TRUE(pObject->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(pObject->IsKindOf(RUNTIME_CLASS(CWinApp)));
    EXPECT_EQ(static_cast<CWnd*>(pObject), DYNAMIC_DOWNCAST(CWnd, pObject));
    EXPECT_EQ(nullptr, DYNAMIC_DOWNCAST(CWinThread, pObject));
    EXPECT_EQ(nullptr, RUNTIME_CLASS(CCmdTarget)->CreateObject()); // not DYNCREATE
    EXPECT_EQ(RUNTIME_CLASS(CObject), CRuntimeClass::FromName("CObject"));
    EXPECT_EQ(nullptr, CRuntimeClass::FromName(NULL));
    delete pObject;
}

namespace
{
class CThrowingWnd : public CRecordingWnd
{
public:
    CException* m_pToThrow = NULL;

protected:
    afx_msg LRESULT OnThrow(WPARAM, LPARAM) { throw m_pToThrow; }
    afx_msg int OnCreate(LPCREATESTRUCT)
    {
        if (m_pToThrow != NULL)
            throw m_pToThrow;
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CThrowingWnd, CRecordingWnd)
ON_MESSAGE(WM_TEST_NESTED + 1, OnThrow)
ON_WM_CREATE()
END_MESSAGE_MAP()
} // namespace

TEST_F(CWindowTest, ExceptionsStopAtTheWindowProcedure)
{
    CImportRecorder& recorder = CImportRecorder::Get();
    recorder.Install(::GetModuleHandleA("KelAfx.dll"));
    CThrowingWnd wnd;
    ASSERT_TRUE(wnd.CreateTopLevel());
    wnd.m_pToThrow = new CUserException;
    EXPECT_EQ(0, ::SendMessageA(wnd.m_hWnd, WM_TEST_NESTED + 1, 0, 0));
    EXPECT_TRUE(recorder.GetRecords().m_messageBoxes.empty()); // the user was told already
    wnd.m_pToThrow = new CInvalidArgException;
    ::SendMessageA(wnd.m_hWnd, WM_TEST_NESTED + 1, 0, 0);
    ASSERT_EQ(1u, recorder.GetRecords().m_messageBoxes.size());
    EXPECT_EQ("Invalid argument.", recorder.GetRecords().m_messageBoxes[0].m_strText);
    EXPECT_EQ(static_cast<UINT>(MB_ICONSTOP), recorder.GetRecords().m_messageBoxes[0].m_uType);
    wnd.DestroyWindow();

    CThrowingWnd failing;
    failing.m_pToThrow = new CUserException;
    EXPECT_FALSE(failing.CreateTopLevel()); // an exception in WM_CREATE refuses the window
    recorder.Uninstall();
}

TEST_F(CWindowTest, NotificationsAreIgnoredWhileTheParentIsLockedOut)
{
    ASSERT_TRUE(m_parent.CreateTopLevel());
    CReflectingEdit edit;
    edit.m_pEvents = &m_parent.m_events;
    edit.m_bPassOn = TRUE;
    ASSERT_TRUE(edit.SubclassWindow(CreateEdit()));
    HWND hWndOld = AfxSetLockoutNotifyWindow(m_parent.m_hWnd);
    CInput::TypeText(edit.m_hWnd, "x");
    EXPECT_TRUE(m_parent.m_events.empty());
    EXPECT_EQ(m_parent.m_hWnd, AfxSetLockoutNotifyWindow(hWndOld));
    CInput::TypeText(edit.m_hWnd, "y");
    EXPECT_EQ(2u, m_parent.m_events.size());
    edit.DestroyWindow();
}
