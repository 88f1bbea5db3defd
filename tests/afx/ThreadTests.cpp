#include <afxwin.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace
{
const UINT WM_TEST_PING = WM_APP + 1;

// Lets both threads go on once each has arrived.
class CRendezvous
{
public:
    void Arrive()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        ++m_nArrived;
        m_arrived.notify_all();
        m_arrived.wait(lock, [this] { return m_nArrived == 2; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_arrived;
    int m_nArrived = 0;
};

// Ends its thread's message loop at the second ping: its own and the other thread's.
class CPingWnd : public CWnd
{
public:
    DWORD m_dwThreadId = 0;
    int m_nPings = 0;
    bool m_bFoundOnItsThread = true;

    afx_msg LRESULT OnPing(WPARAM, LPARAM)
    {
        m_bFoundOnItsThread = m_bFoundOnItsThread && ::GetCurrentThreadId() == m_dwThreadId;
        if (++m_nPings == 2)
            ::PostQuitMessage(0);
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPingWnd, CWnd)
ON_MESSAGE(WM_TEST_PING, OnPing)
END_MESSAGE_MAP()

// One thread's window and what the thread saw.
struct CSide
{
    CPingWnd m_wnd;
    CWnd* m_pOwnPermanent = NULL;
    CWnd* m_pOther = NULL;
    CWnd* m_pOtherPermanent = NULL;
    CGdiObject* m_pStockPen = NULL;
};

void RunSide(CSide& self, const CSide& other, CRendezvous& created, bool bDeleteTempsItself)
{
    self.m_wnd.m_dwThreadId = ::GetCurrentThreadId();
    self.m_wnd.CreateEx(0, "STATIC", "", WS_POPUP, 0, 0, 10, 10, NULL, NULL);
    self.m_pStockPen = CGdiObject::FromHandle(::GetStockObject(BLACK_PEN));
    created.Arrive();
    // The other window cannot go before this thread's ping has reached it.
    self.m_pOwnPermanent = CWnd::FromHandlePermanent(self.m_wnd.m_hWnd);
    self.m_pOther = CWnd::FromHandle(other.m_wnd.m_hWnd);
    self.m_pOtherPermanent = CWnd::FromHandlePermanent(other.m_wnd.m_hWnd);
    self.m_wnd.PostMessage(WM_TEST_PING);
    other.m_wnd.PostMessage(WM_TEST_PING);
    MSG msg;
    while (::GetMessageA(&msg, NULL, 0, 0) > 0)
        ::DispatchMessageA(&msg);
    self.m_wnd.DestroyWindow();
    if (bDeleteTempsItself)
        AfxDeleteTempMaps(); // else the thread's end deletes them
}
} // namespace

TEST(CThreadTest, EachThreadHasItsOwnPermanentAndTemporaryObjects)
{
    CSide first, second;
    CRendezvous created;
    std::thread firstThread(RunSide, std::ref(first), std::cref(second), std::ref(created), true);
    std::thread secondThread(RunSide, std::ref(second), std::cref(first), std::ref(created), false);
    firstThread.join();
    secondThread.join();

    for (const CSide* pSide : {&first, &second})
    {
        const CSide& other = pSide == &first ? second : first;
        EXPECT_EQ(&pSide->m_wnd, pSide->m_pOwnPermanent);
        EXPECT_EQ(2, pSide->m_wnd.m_nPings);
        EXPECT_TRUE(pSide->m_wnd.m_bFoundOnItsThread);
        EXPECT_EQ(NULL, pSide->m_wnd.m_hWnd);
        // The other thread's window is only a temporary object here.
        EXPECT_EQ(nullptr, pSide->m_pOtherPermanent);
        EXPECT_NE(nullptr, pSide->m_pOther);
        EXPECT_NE(static_cast<const CWnd*>(&other.m_wnd), pSide->m_pOther);
    }
    // One handle, a temporary object on each thread.
    EXPECT_NE(nullptr, first.m_pStockPen);
    EXPECT_NE(first.m_pStockPen, second.m_pStockPen);
}
