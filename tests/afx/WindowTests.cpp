#include <afxwin.h>
#include <gtest/gtest.h>

#include "tests/harness/ImportRecorder.h"
#include "tests/harness/Input.h"

#include <string>
#include <vector>

namespace
{
typedef std::vector<std::string> CEvents;
const UINT WM_TEST_VALUE = WM_USER + 5;
const UINT WM_TEST_THROW = WM_USER + 7;

class CRecordingWnd : public CWnd
{
public:
    BOOL m_bAttachedAtNcCreate = FALSE;
    int m_nCreateResult = 0;
    CException* m_pToThrow = NULL; // by WM_CREATE and WM_TEST_THROW
    int m_nPostNcDestroy = 0;
    CEvents m_events;

    BOOL CreateTopLevel() { return CreateEx(0, "STATIC", "test", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, NULL, NULL); }

    afx_msg BOOL OnNcCreate(LPCREATESTRUCT lpcs)
    {
        m_bAttachedAtNcCreate = CWnd::FromHandlePermanent(m_hWnd) == this;
        return CWnd::OnNcCreate(lpcs);
    }
    afx_msg int OnCreate(LPCREATESTRUCT lpcs)
    {
        if (m_pToThrow != NULL)
            throw m_pToThrow;
        return m_nCreateResult != 0 ? m_nCreateResult : CWnd::OnCreate(lpcs);
    }
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point)
    {
        m_events.push_back(std::to_string(point.x) + "," + std::to_string(point.y) + " " + std::to_string(nFlags));
    }
    afx_msg LRESULT OnTestValue(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam + lParam); }
    afx_msg LRESULT OnThrow(WPARAM, LPARAM) { throw m_pToThrow; }
    afx_msg LRESULT OnSetText(WPARAM, LPARAM)
    {
        // A nested message must not disturb what Default() passes on.
        m_events.push_back("nested " + std::to_string(SendMessage(WM_TEST_VALUE, 2, 3)));
        return Default();
    }
    void PostNcDestroy() override { ++m_nPostNcDestroy; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CRecordingWnd, CWnd)
ON_WM_NCCREATE()
ON_WM_CREATE()
ON_WM_LBUTTONDOWN()
ON_MESSAGE(WM_TEST_VALUE, OnTestValue)
ON_MESSAGE(WM_TEST_THROW, OnThrow)
ON_MESSAGE(WM_SETTEXT, OnSetText)
END_MESSAGE_MAP()

// A derived map is searched before its base: it overrides one entry and inherits the rest.
class CDerivedWnd : public CRecordingWnd
{
    afx_msg LRESULT OnTestValue(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam * lParam); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CDerivedWnd, CRecordingWnd)
ON_MESSAGE(WM_TEST_VALUE, OnTestValue)
END_MESSAGE_MAP()

// Creates a window from its own WM_NCCREATE and another from its WM_CREATE, while it is itself
// still being created.
class CNestingWnd : public CWnd
{
public:
    CWnd m_fromNcCreate;
    CWnd m_fromCreate;

    afx_msg BOOL OnNcCreate(LPCREATESTRUCT lpcs)
    {
        m_fromNcCreate.CreateEx(0, "STATIC", "", WS_CHILD, 0, 0, 1, 1, m_hWnd, NULL);
        return CWnd::OnNcCreate(lpcs);
    }
    afx_msg int OnCreate(LPCREATESTRUCT lpcs)
    {
        m_fromCreate.CreateEx(0, "STATIC", "", WS_CHILD, 0, 0, 1, 1, m_hWnd, NULL);
        return CWnd::OnCreate(lpcs);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CNestingWnd, CWnd)
ON_WM_NCCREATE()
ON_WM_CREATE()
END_MESSAGE_MAP()

class CSelfDeletingWnd : public CWnd
{
public:
    bool* m_pbDeleted = NULL;
    ~CSelfDeletingWnd() override { *m_pbDeleted = true; }
    void PostNcDestroy() override { delete this; }
};

class CWindowTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_parent.CreateTopLevel()); }
    void TearDown() override
    {
        m_parent.DestroyWindow();
        CWnd::DeleteTempMap();
    }

    CRecordingWnd m_parent;
};
} // namespace

TEST_F(CWindowTest, CreationAttachesBeforeNcCreateAndRefusedCreationCleansUp)
{
    EXPECT_TRUE(m_parent.m_bAttachedAtNcCreate);
    EXPECT_EQ(&m_parent, CWnd::FromHandlePermanent(m_parent.m_hWnd));
    HWND hWnd = m_parent.m_hWnd;
    EXPECT_TRUE(m_parent.DestroyWindow());
    EXPECT_EQ(NULL, m_parent.m_hWnd);
    EXPECT_EQ(NULL, CWnd::FromHandlePermanent(hWnd));
    EXPECT_EQ(1, m_parent.m_nPostNcDestroy);

    CRecordingWnd refusing, throwing, noClass;
    refusing.m_nCreateResult = -1;
    EXPECT_FALSE(refusing.CreateTopLevel());
    EXPECT_EQ(NULL, refusing.m_hWnd);
    EXPECT_EQ(1, refusing.m_nPostNcDestroy);
    throwing.m_pToThrow = new CUserException;
    EXPECT_FALSE(throwing.CreateTopLevel()); // an exception in WM_CREATE refuses the window
    EXPECT_FALSE(noClass.CreateEx(0, "NoSuchClass", "", WS_POPUP, 0, 0, 1, 1, NULL, NULL));
    EXPECT_EQ(1, noClass.m_nPostNcDestroy); // the hook never ran
    HWND hPlain = ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1, 1, NULL, NULL, NULL, NULL);
    EXPECT_EQ(NULL, noClass.m_hWnd); // nothing left waiting for the next window
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hPlain));
    ::DestroyWindow(hPlain);

    // An object may delete itself when its window is gone.
    bool bDeleted = false;
    CSelfDeletingWnd* pWnd = new CSelfDeletingWnd;
    pWnd->m_pbDeleted = &bDeleted;
    ASSERT_TRUE(pWnd->CreateEx(0, "STATIC", "", WS_POPUP, 0, 0, 10, 10, NULL, NULL));
    EXPECT_TRUE(pWnd->DestroyWindow());
    EXPECT_TRUE(bDeleted);
}

TEST_F(CWindowTest, WindowsCreatedDuringACreationAreAttachedToTheirOwnObjects)
{
    CNestingWnd outer;
    ASSERT_TRUE(outer.CreateEx(0, "STATIC", "", WS_POPUP, 0, 0, 10, 10, NULL, NULL));
    for (CWnd* pWnd : {static_cast<CWnd*>(&outer), &outer.m_fromNcCreate, &outer.m_fromCreate})
    {
        ASSERT_NE(nullptr, pWnd->m_hWnd);
        EXPECT_EQ(pWnd, CWnd::FromHandlePermanent(pWnd->m_hWnd));
        EXPECT_EQ(reinterpret_cast<LONG_PTR>(&AfxWndProc), ::GetWindowLongPtrA(pWnd->m_hWnd, GWLP_WNDPROC));
    }
    EXPECT_EQ(outer.m_hWnd, ::GetParent(outer.m_fromCreate.m_hWnd));
    HWND hPlain = ::CreateWindowExA(0, "STATIC", "", WS_CHILD, 0, 0, 1, 1, outer.m_hWnd, NULL, NULL, NULL);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hPlain));
    EXPECT_TRUE(outer.DestroyWindow());
    EXPECT_EQ(NULL, outer.m_fromCreate.m_hWnd); // its children went with it, detached
}

TEST_F(CWindowTest, HandlersGetDecodedArgumentsFromDerivedMapsFirstAndDefaultPassesTheCurrentMessage)
{
    CDerivedWnd derived;
    ASSERT_TRUE(derived.CreateTopLevel());
    EXPECT_EQ(6, ::SendMessageA(derived.m_hWnd, WM_TEST_VALUE, 2, 3));
    ::SendMessageA(derived.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MAKELPARAM(-5, 7)); // signed coordinates
    derived.SetWindowText("after nesting");
    EXPECT_EQ("after nesting", CInput::GetText(derived.m_hWnd));
    EXPECT_EQ((CEvents{"-5,7 5", "nested 6"}), derived.m_events);
}

TEST_F(CWindowTest, TemporaryAndPermanentObjects)
{
    HWND hWnd = ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 10, 10, NULL, NULL, NULL, NULL);
    CWnd* pTemp = CWnd::FromHandle(hWnd);
    ASSERT_NE(nullptr, pTemp);
    EXPECT_EQ(pTemp, CWnd::FromHandle(hWnd));
    EXPECT_EQ(nullptr, CWnd::FromHandle(NULL));
    CWnd wnd;
    EXPECT_TRUE(wnd.Attach(hWnd));
    EXPECT_FALSE(CWnd().Attach(hWnd)); // one permanent object per window
    EXPECT_EQ(hWnd, wnd.Detach());
    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(hWnd)); // deleting a temporary object leaves its window
    ::DestroyWindow(hWnd);
}

TEST_F(CWindowTest, ExceptionsStopAtTheWindowProcedure)
{
    CImportRecorder& recorder = CImportRecorder::Get();
    recorder.Install(::GetModuleHandleA("KelAfx.dll"));
    m_parent.m_pToThrow = new CUserException; // the user was told already: no box
    EXPECT_EQ(0, ::SendMessageA(m_parent.m_hWnd, WM_TEST_THROW, 0, 0));
    m_parent.m_pToThrow = new CInvalidArgException;
    ::SendMessageA(m_parent.m_hWnd, WM_TEST_THROW, 0, 0);
    ASSERT_EQ(1u, recorder.GetRecords().m_messageBoxes.size());
    EXPECT_EQ("Invalid argument.", recorder.GetRecords().m_messageBoxes[0].m_strText);
    EXPECT_EQ(static_cast<UINT>(MB_ICONSTOP), recorder.GetRecords().m_messageBoxes[0].m_uType);
    recorder.Uninstall();
}

TEST(CRuntimeClassTest, KindsAndDynamicCreation)
{
    CObject* pObject = RUNTIME_CLASS(CWnd)->CreateObject();
    ASSERT_NE(nullptr, pObject);
    EXPECT_FALSE(pObject->IsKindOf(RUNTIME_CLASS(CWinApp)));
    EXPECT_EQ(static_cast<CWnd*>(pObject), DYNAMIC_DOWNCAST(CWnd, pObject));
    EXPECT_EQ(nullptr, DYNAMIC_DOWNCAST(CWinThread, pObject));
    EXPECT_EQ(nullptr, RUNTIME_CLASS(CCmdTarget)->CreateObject()); // not DYNCREATE
    EXPECT_EQ(nullptr, CRuntimeClass::FromName(NULL));
    delete pObject;
}
