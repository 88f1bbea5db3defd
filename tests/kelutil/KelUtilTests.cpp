// KEL_Util under real windows and messages: the listing, the time fields, button faces,
// profile values and screen metrics.
#include <gtest/gtest.h>

#include <kelutil/KEL_Util.h>

#include <string.h>
#include <string>
#include <vector>

#ifndef _WIN64
static_assert(KEL_LISTING_BLOCK_SIZE == 1732, "the event list checks this size");
#endif

namespace
{

const char PARENT_CLASS[] = "KelUtilTestParent";
const char LISTING_CLASS[] = "KelUtilTestListing";
const int LISTING_ID = 101;
const int TIME_ID = 1001;

std::vector<WPARAM> g_commands; // WM_COMMAND wParams received by the parent
LONG_PTR g_nUserDataAfterDestroy = -1;

LRESULT CALLBACK ParentProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    if (nMsg == WM_COMMAND)
        g_commands.push_back(wParam);
    return DefWindowProcA(hWnd, nMsg, wParam, lParam);
}

// Forwards everything, as the event list does, and watches the destruction.
LRESULT CALLBACK TestListingProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    LRESULT nResult = WndListingProc(hWnd, nMsg, wParam, lParam);
    if (nMsg == WM_NCDESTROY)
        g_nUserDataAfterDestroy = GetWindowLongPtrA(hWnd, GWLP_USERDATA);
    return nResult;
}

void RegisterTestClass(const char* pszName, WNDPROC pfnProc)
{
    WNDCLASSEXA wc = {};
    wc.cbSize = sizeof(wc);
    if (GetClassInfoExA(GetModuleHandleA(NULL), pszName, &wc))
        return;
    wc.style = CS_DBLCLKS;
    wc.lpfnWndProc = pfnProc;
    wc.hInstance = GetModuleHandleA(NULL);
    wc.lpszClassName = pszName;
    ASSERT_NE(RegisterClassExA(&wc), 0);
}

int CountCommands(int nId, int nCode)
{
    int n = 0;
    for (WPARAM wParam : g_commands)
        n += LOWORD(wParam) == nId && HIWORD(wParam) == nCode;
    return n;
}

// Children of one shown top-level window, so that they can take the focus. The parent lives as
// long as the program: under Wine without a window manager, hiding or destroying a top-level
// window waits a second or two for the X server.
class WindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        RegisterTestClass(PARENT_CLASS, ParentProc);
        RegisterTestClass(LISTING_CLASS, TestListingProc);
        static HWND s_hParent = NULL;
        if (s_hParent == NULL)
        {
            s_hParent = CreateWindowExA(0, PARENT_CLASS, "", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300,
                                        NULL, NULL, GetModuleHandleA(NULL), NULL);
            ShowWindow(s_hParent, SW_SHOW);
        }
        m_hParent = s_hParent;
        ASSERT_NE(m_hParent, nullptr);
        g_commands.clear();
    }
    void TearDown() override
    {
        for (HWND hChild : m_children)
            DestroyWindow(hChild);
    }

    HWND CreateChild(const char* pszClass, DWORD dwStyle, int nId, int cx, int cy)
    {
        HWND hChild = CreateWindowExA(0, pszClass, "", dwStyle, 0, 0, cx, cy, m_hParent,
                                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(nId)),
                                      GetModuleHandleA(NULL), NULL);
        m_children.push_back(hChild);
        return hChild;
    }

    HWND m_hParent = NULL;
    std::vector<HWND> m_children;
};

// A 32-bit device-independent bitmap to paint into and read back exactly.
class Canvas
{
public:
    Canvas(int cx, int cy)
    {
        BITMAPINFO bmi = {};
        bmi.bmiHeader.biSize = sizeof(bmi.bmiHeader);
        bmi.bmiHeader.biWidth = cx;
        bmi.bmiHeader.biHeight = -cy;
        bmi.bmiHeader.biPlanes = 1;
        bmi.bmiHeader.biBitCount = 32;
        void* pBits = NULL;
        m_hdc = CreateCompatibleDC(NULL);
        m_hBitmap = CreateDIBSection(m_hdc, &bmi, DIB_RGB_COLORS, &pBits, NULL, 0);
        m_hOld = SelectObject(m_hdc, m_hBitmap);
        RECT rect = {0, 0, cx, cy};
        SetBkColor(m_hdc, RGB(1, 2, 3));
        ExtTextOutA(m_hdc, 0, 0, ETO_OPAQUE, &rect, NULL, 0, NULL);
    }
    ~Canvas()
    {
        SelectObject(m_hdc, m_hOld);
        DeleteObject(m_hBitmap);
        DeleteDC(m_hdc);
    }
    HDC GetDC() const { return m_hdc; }
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hdc, x, y); }

private:
    HDC m_hdc;
    HBITMAP m_hBitmap;
    HGDIOBJ m_hOld;
};

// ---- listing --------------------------------------------------------------------------------

class ListingTest : public WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_hList = CreateChild(LISTING_CLASS, WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY,
                              LISTING_ID, 120, 100);
        ASSERT_NE(m_hList, nullptr);
    }

    LRESULT Send(UINT nMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageA(m_hList, nMsg, wParam, lParam);
    }
    void Add(std::initializer_list<const char*> texts)
    {
        for (const char* pszText : texts)
            ASSERT_GE(ListingOnAddString(m_hList, pszText), 0);
    }
    std::string GetText(int nIndex)
    {
        std::string text(static_cast<size_t>(Send(LB_GETTEXTLEN, nIndex)), '?');
        EXPECT_EQ(ListingOnGetText(m_hList, nIndex, &text[0]), static_cast<LRESULT>(text.size()));
        return text;
    }
    std::string GetAll()
    {
        std::string all;
        for (int i = 0; i < Send(LB_GETCOUNT); ++i)
            all += (i ? "," : "") + GetText(i);
        return all;
    }
    KEL_LISTING_BLOCK* GetBlock()
    {
        return reinterpret_cast<KEL_LISTING_BLOCK*>(GetWindowLongPtrA(m_hList, GWLP_USERDATA));
    }
    int GetRows() { return 100 / static_cast<int>(Send(LB_GETITEMHEIGHT)); }

    HWND m_hList = NULL;
};

TEST_F(ListingTest, BlockStartsWithItsSizeAndItsOwnHandle)
{
    KEL_LISTING_BLOCK* pBlock = GetBlock();
    ASSERT_NE(pBlock, nullptr);
    // Read as an extension reads it: the first word, then the handle right after it.
    EXPECT_EQ(*reinterpret_cast<DWORD*>(pBlock), KEL_LISTING_BLOCK_SIZE);
    HGLOBAL hBlock = *reinterpret_cast<HGLOBAL*>(reinterpret_cast<char*>(pBlock) + sizeof(void*));
    EXPECT_EQ(hBlock, GlobalHandle(pBlock));
    EXPECT_GE(GlobalSize(hBlock), KEL_LISTING_BLOCK_SIZE);
    EXPECT_EQ(pBlock->hWnd, m_hList);
    EXPECT_EQ(pBlock->nCurSel, -1);
}

TEST_F(ListingTest, AddInsertDeleteAndReset)
{
    EXPECT_EQ(ListingOnAddString(m_hList, "alpha"), 0);
    EXPECT_EQ(Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>("gamma")), 1);
    EXPECT_EQ(ListingOnInsertString(m_hList, 1, "beta"), 1);
    EXPECT_EQ(ListingOnInsertString(m_hList, -1, "delta"), 3);
    EXPECT_EQ(Send(LB_INSERTSTRING, 0, reinterpret_cast<LPARAM>("")), 0);
    EXPECT_EQ(GetAll(), ",alpha,beta,gamma,delta");
    EXPECT_EQ(ListingOnDeleteString(m_hList, 0), 4);
    EXPECT_EQ(Send(LB_DELETESTRING, 3), 3);
    EXPECT_EQ(GetAll(), "alpha,beta,gamma");
    char szText[16];
    EXPECT_EQ(Send(LB_GETTEXT, 1, reinterpret_cast<LPARAM>(szText)), 4);
    EXPECT_STREQ(szText, "beta");
    EXPECT_EQ(ListingOnResetContent(m_hList), 0);
    EXPECT_EQ(Send(LB_GETCOUNT), 0);
    EXPECT_EQ(Send(LB_GETCURSEL), LB_ERR);
}

TEST_F(ListingTest, BadIndexesAndPointersAnswerLbErr)
{
    Add({"one", "two"});
    char szText[16] = "untouched";
    KEL_LISTING_COLORS colors = {};
    struct Case
    {
        const char* pszName;
        LRESULT nResult;
    } cases[] = {
        {"LB_GETTEXT 2", Send(LB_GETTEXT, 2, reinterpret_cast<LPARAM>(szText))},
        {"LB_GETTEXT -1", Send(LB_GETTEXT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(szText))},
        {"LB_GETTEXT null", Send(LB_GETTEXT, 0, 0)},
        {"LB_GETTEXTLEN 2", Send(LB_GETTEXTLEN, 2)},
        {"LB_ADDSTRING null", Send(LB_ADDSTRING, 0, 0)},
        {"LB_INSERTSTRING 3", ListingOnInsertString(m_hList, 3, "x")},
        {"LB_INSERTSTRING -2", ListingOnInsertString(m_hList, -2, "x")},
        {"LB_DELETESTRING 2", ListingOnDeleteString(m_hList, 2)},
        {"LB_SETCURSEL 2", Send(LB_SETCURSEL, 2)},
        {"LB_SETTOPINDEX 2", Send(LB_SETTOPINDEX, 2)},
        {"KLM_SETITEMCOLORS 2", Send(KLM_SETITEMCOLORS, 2, reinterpret_cast<LPARAM>(&colors))},
        {"KLM_SETITEMCOLORS null", Send(KLM_SETITEMCOLORS, 0, 0)},
        {"KLM_GETITEMCOLORS -1", Send(KLM_GETITEMCOLORS, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&colors))},
        {"KLM_SETDEFAULTCOLORS null", Send(KLM_SETDEFAULTCOLORS, 0, 0)},
        {"GetTextAndColors 2", ListingOnGetTextAndColors(m_hList, 2, szText, 16, NULL, NULL)},
        {"GetTextAndColors null", ListingOnGetTextAndColors(m_hList, 0, NULL, 16, NULL, NULL)},
        {"GetTextAndColors size 0", ListingOnGetTextAndColors(m_hList, 0, szText, 0, NULL, NULL)},
        {"not a listing", ListingOnGetText(m_hParent, 0, szText)},
        {"no window", ListingOnAddString(NULL, "x")},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.pszName);
        EXPECT_EQ(c.nResult, LB_ERR);
    }
    EXPECT_STREQ(szText, "untouched");
    EXPECT_EQ(GetAll(), "one,two");
}

TEST_F(ListingTest, EntriesKeepTheirOwnColours)
{
    KEL_LISTING_COLORS first = {RGB(1, 1, 1), RGB(2, 2, 2)};
    KEL_LISTING_COLORS later = {RGB(10, 20, 30), RGB(40, 50, 60)};
    KEL_LISTING_COLORS own = {RGB(255, 0, 0), RGB(0, 0, 255)};
    Send(KLM_SETDEFAULTCOLORS, 0, reinterpret_cast<LPARAM>(&first));
    Add({"first"});
    Send(KLM_SETDEFAULTCOLORS, 0, reinterpret_cast<LPARAM>(&later));
    Add({"second", "third"});
    EXPECT_EQ(Send(KLM_SETITEMCOLORS, 2, reinterpret_cast<LPARAM>(&own)), 0);

    const KEL_LISTING_COLORS expected[] = {first, later, own};
    for (int i = 0; i < 3; ++i)
    {
        SCOPED_TRACE(i);
        char szText[16];
        COLORREF crText = 0, crBack = 0;
        EXPECT_GT(ListingOnGetTextAndColors(m_hList, i, szText, 16, &crText, &crBack), 0);
        EXPECT_EQ(crText, expected[i].crText);
        EXPECT_EQ(crBack, expected[i].crBack);
        KEL_LISTING_COLORS colors = {};
        EXPECT_EQ(Send(KLM_GETITEMCOLORS, i, reinterpret_cast<LPARAM>(&colors)), 0);
        EXPECT_EQ(colors.crBack, expected[i].crBack);
    }
}

TEST_F(ListingTest, GetTextAndColorsStaysInsideTheBuffer)
{
    Add({"alphabet"});
    char szText[8];
    memset(szText, '#', sizeof(szText));
    EXPECT_EQ(ListingOnGetTextAndColors(m_hList, 0, szText, 4, NULL, NULL), 3);
    EXPECT_STREQ(szText, "alp");
    EXPECT_EQ(szText[4], '#');
    EXPECT_EQ(ListingOnGetTextAndColors(m_hList, 0, szText, 1, NULL, NULL), 0);
    EXPECT_STREQ(szText, "");
}

TEST_F(ListingTest, SelectionFollowsInsertionsAndDeletions)
{
    Add({"a", "b", "c"});
    EXPECT_EQ(Send(LB_SETCURSEL, 1), 1);
    ListingOnInsertString(m_hList, 0, "z");
    EXPECT_EQ(Send(LB_GETCURSEL), 2);
    ListingOnDeleteString(m_hList, 0);
    EXPECT_EQ(Send(LB_GETCURSEL), 1);
    ListingOnDeleteString(m_hList, 1);
    EXPECT_EQ(Send(LB_GETCURSEL), LB_ERR);
    // Clearing the selection answers LB_ERR, as a list box does.
    Send(LB_SETCURSEL, 0);
    EXPECT_EQ(Send(LB_SETCURSEL, static_cast<WPARAM>(-1)), LB_ERR);
    EXPECT_EQ(Send(LB_GETCURSEL), LB_ERR);
    EXPECT_EQ(CountCommands(LISTING_ID, LBN_SELCHANGE), 0) << "only the user's changes notify";
}

TEST_F(ListingTest, KeysMoveTheSelectionAndScroll)
{
    for (int i = 0; i < 20; ++i)
        Add({"entry"});
    int nRows = GetRows();
    ASSERT_GT(nRows, 1);
    ASSERT_LT(nRows, 20);
    struct Step
    {
        WPARAM nKey;
        int nSel;
        int nTop;
    } steps[] = {
        {VK_DOWN, 0, 0}, // no selection yet: the first visible entry
        {VK_DOWN, 1, 0},
        {VK_UP, 0, 0},
        {VK_UP, 0, 0},
        {VK_NEXT, nRows - 1, 0},
        {VK_END, 19, 20 - nRows},
        {VK_PRIOR, 20 - nRows, 20 - nRows},
        {VK_HOME, 0, 0},
    };
    for (const Step& step : steps)
    {
        SCOPED_TRACE(step.nKey);
        EXPECT_EQ(Send(WM_KEYDOWN, step.nKey), 0);
        EXPECT_EQ(Send(LB_GETCURSEL), step.nSel);
        EXPECT_EQ(Send(LB_GETTOPINDEX), step.nTop);
    }
    EXPECT_EQ(CountCommands(LISTING_ID, LBN_SELCHANGE), 7);
    EXPECT_EQ(Send(WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
}

TEST_F(ListingTest, TopIndexAndScrollBar)
{
    for (int i = 0; i < 20; ++i)
        Add({"entry"});
    int nRows = GetRows();
    EXPECT_EQ(Send(LB_SETTOPINDEX, 19), 0);
    EXPECT_EQ(Send(LB_GETTOPINDEX), 20 - nRows) << "stops at the last full page";
    Send(WM_VSCROLL, SB_TOP);
    Send(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(Send(LB_GETTOPINDEX), 1);
    SCROLLINFO si = {};
    si.cbSize = sizeof(si);
    si.fMask = SIF_ALL;
    ASSERT_TRUE(GetScrollInfo(m_hList, SB_VERT, &si));
    EXPECT_EQ(si.nMax, 19);
    EXPECT_EQ(si.nPage, static_cast<UINT>(nRows));
    EXPECT_EQ(si.nPos, 1);
    EXPECT_EQ(Send(LB_SETCURSEL, 0), 0);
    EXPECT_EQ(Send(LB_GETTOPINDEX), 0) << "the selection is scrolled into view";
}

TEST_F(ListingTest, MouseSelectsAndNotifies)
{
    Add({"a", "b", "c"});
    int nHeight = static_cast<int>(Send(LB_GETITEMHEIGHT));
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 2 * nHeight + 1));
    EXPECT_EQ(GetFocus(), m_hList);
    EXPECT_EQ(Send(LB_GETCURSEL), 2);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 3 * nHeight + 1)); // below the entries
    EXPECT_EQ(Send(LB_GETCURSEL), 2);
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 1));
    EXPECT_EQ(Send(LB_GETCURSEL), 0);
    EXPECT_EQ(CountCommands(LISTING_ID, LBN_SELCHANGE), 2);
    EXPECT_EQ(CountCommands(LISTING_ID, LBN_DBLCLK), 1);
}

TEST_F(ListingTest, WithoutLbsNotifyTheParentHearsNoSelection)
{
    HWND hQuiet = CreateChild(LISTING_CLASS, WS_CHILD | WS_VISIBLE, 102, 120, 100);
    ListingOnAddString(hQuiet, "a");
    SendMessageA(hQuiet, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 1));
    EXPECT_EQ(SendMessageA(hQuiet, LB_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(CountCommands(102, LBN_SELCHANGE) + CountCommands(102, LBN_DBLCLK), 0);
}

TEST_F(ListingTest, TypedCharactersFindEntries)
{
    Add({"apple", "Banana", "blueberry", "cherry", "bean"});
    Send(WM_CHAR, 'b');
    EXPECT_EQ(Send(LB_GETCURSEL), 1) << "letter case does not matter";
    Send(WM_CHAR, 'l');
    EXPECT_EQ(Send(LB_GETCURSEL), 2);
    Send(WM_CHAR, 'x');
    EXPECT_EQ(Send(LB_GETCURSEL), 2) << "no match keeps the selection";
}

TEST_F(ListingTest, FontSetsTheItemHeight)
{
    HFONT hFont = CreateFontA(-40, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET, 0, 0, 0, 0, "Arial");
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(hFont), TRUE);
    EXPECT_EQ(Send(WM_GETFONT), reinterpret_cast<LRESULT>(hFont));
    EXPECT_GE(Send(LB_GETITEMHEIGHT), 40);
    DestroyWindow(m_hList);
    DeleteObject(hFont);
}

TEST_F(ListingTest, PaintsEachEntryInItsColours)
{
    KEL_LISTING_COLORS red = {RGB(0, 0, 0), RGB(200, 0, 0)};
    KEL_LISTING_COLORS empty = {RGB(0, 0, 0), RGB(0, 0, 200)};
    KEL_LISTING_COLORS selection = {RGB(255, 255, 255), RGB(0, 200, 0)};
    Add({"a", "b"});
    Send(KLM_SETITEMCOLORS, 0, reinterpret_cast<LPARAM>(&red));
    Send(KLM_SETDEFAULTCOLORS, 0, reinterpret_cast<LPARAM>(&empty));
    Send(KLM_SETSELCOLORS, 0, reinterpret_cast<LPARAM>(&selection));
    Send(LB_SETCURSEL, 1);
    int nHeight = static_cast<int>(Send(LB_GETITEMHEIGHT));
    Canvas canvas(120, 100);
    Send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.GetDC()), PRF_CLIENT);
    EXPECT_EQ(canvas.GetPixel(60, 1), RGB(200, 0, 0));
    EXPECT_EQ(canvas.GetPixel(60, nHeight + 1), RGB(0, 200, 0));
    EXPECT_EQ(canvas.GetPixel(60, 2 * nHeight + 1), RGB(0, 0, 200));
}

TEST_F(ListingTest, SurvivesTheEventListCopyingItsBlock)
{
    Add({"kept"});
    // What the event list does at creation: copy into a larger block of its own, make that the
    // user data with its own handle in the second field, and free the original.
    KEL_LISTING_BLOCK* pOld = GetBlock();
    HGLOBAL hOld = pOld->hBlock;
    HGLOBAL hNew = GlobalAlloc(GMEM_FIXED, KEL_LISTING_BLOCK_SIZE + 48);
    ASSERT_NE(hNew, nullptr);
    KEL_LISTING_BLOCK* pNew = static_cast<KEL_LISTING_BLOCK*>(GlobalLock(hNew));
    memcpy(pNew, pOld, KEL_LISTING_BLOCK_SIZE);
    pNew->hBlock = hNew;
    SetWindowLongPtrA(m_hList, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pNew));
    GlobalUnlock(hOld);
    GlobalFree(hOld);

    Add({"added"});
    EXPECT_EQ(GetAll(), "kept,added");
    EXPECT_EQ(Send(WM_KEYDOWN, VK_END), 0);
    EXPECT_EQ(pNew->nCurSel, 1);
    g_nUserDataAfterDestroy = -1;
    DestroyWindow(m_hList);
    EXPECT_EQ(g_nUserDataAfterDestroy, 0);
}

// ---- time fields ----------------------------------------------------------------------------

// The style the library's time edits use.
const DWORD TIME_EDIT_STYLE = 0x50008401;

class TimeFieldTest : public WindowTest
{
protected:
    HWND Create(const char* pszClass)
    {
        HWND hField = CreateChild(pszClass, TIME_EDIT_STYLE, TIME_ID, 160, 24);
        EXPECT_NE(hField, nullptr);
        return hField;
    }
    static LONG GetField(HWND hField) { return GetWindowLongA(hField, 0); }
    static LRESULT GetValue(HWND hField) { return SendMessageA(hField, WM_USER + 1, 0, 0); }
    static void Key(HWND hField, WPARAM nKey, int nTimes = 1)
    {
        for (int i = 0; i < nTimes; ++i)
            SendMessageA(hField, WM_KEYDOWN, nKey, 0);
    }
    static void Type(HWND hField, const char* pszChars)
    {
        for (; *pszChars; ++pszChars)
            SendMessageA(hField, WM_CHAR, static_cast<WPARAM>(*pszChars), 0);
    }
};

TEST_F(TimeFieldTest, ClassesAreGlobalClassesOfTheLibrary)
{
    EXPECT_NE(KEL_Util_Running(), 0);
    for (const char* pszClass : {KEL_TIMECLASS, KEL_MSTIMECLASS})
    {
        SCOPED_TRACE(pszClass);
        WNDCLASSEXA wc = {};
        wc.cbSize = sizeof(wc);
        ASSERT_TRUE(GetClassInfoExA(GetModuleHandleA("KEL_Util.dll"), pszClass, &wc));
        EXPECT_NE(wc.style & CS_GLOBALCLASS, 0u);
        EXPECT_GE(wc.cbWndExtra, 4);
    }
}

TEST_F(TimeFieldTest, ValueRoundTripsInTheClassUnit)
{
    HWND hTime = Create(KEL_TIMECLASS);
    HWND hMsTime = Create(KEL_MSTIMECLASS);
    struct Case
    {
        HWND hField;
        LPARAM nSet;
        LRESULT nExpected;
    } cases[] = {
        {hTime, 61, 61},
        {hTime, 3661, 3661},
        {hTime, -5, 0},
        {hTime, 99 * 3600 + 59 * 60 + 59, 359999},
        {hTime, 400000, 359999},
        {hMsTime, 61500, 61500},
        {hMsTime, 400000000, 359999999},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.nSet);
        EXPECT_EQ(SendMessageA(c.hField, WM_USER, 0, c.nSet), c.nExpected);
        EXPECT_EQ(GetValue(c.hField), c.nExpected);
    }
    EXPECT_TRUE(g_commands.empty()) << "only the user's changes notify";
    EXPECT_EQ(SendMessageA(hTime, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
}

TEST_F(TimeFieldTest, ArrowsMoveBetweenFieldsInWindowWordZero)
{
    HWND hTime = Create(KEL_TIMECLASS);
    HWND hMsTime = Create(KEL_MSTIMECLASS);
    SendMessageA(hTime, WM_LBUTTONDOWN, 0, 0);
    EXPECT_EQ(GetFocus(), hTime);
    EXPECT_EQ(GetField(hTime), 0);
    Key(hTime, VK_RIGHT);
    EXPECT_EQ(GetField(hTime), 1);
    Key(hTime, VK_RIGHT, 5);
    EXPECT_EQ(GetField(hTime), 2);
    Key(hMsTime, VK_RIGHT, 5);
    EXPECT_EQ(GetField(hMsTime), 3);
    Key(hMsTime, VK_LEFT, 5);
    EXPECT_EQ(GetField(hMsTime), 0);
}

TEST_F(TimeFieldTest, UpAndDownWrapWithinTheField)
{
    HWND hField = Create(KEL_TIMECLASS);
    SendMessageA(hField, WM_USER, 0, 59 * 60);
    Key(hField, VK_RIGHT);
    Key(hField, VK_UP);
    EXPECT_EQ(GetValue(hField), 0) << "59 minutes up is 0 minutes; the hours stay";
    Key(hField, VK_DOWN);
    EXPECT_EQ(GetValue(hField), 59 * 60);
    Key(hField, VK_LEFT);
    Key(hField, VK_DOWN);
    EXPECT_EQ(GetValue(hField), 99 * 3600 + 59 * 60);
    EXPECT_EQ(CountCommands(TIME_ID, EN_CHANGE), 3);
}

TEST_F(TimeFieldTest, TypedDigitsFillTheFieldsInTurn)
{
    struct Case
    {
        const char* pszClass;
        const char* pszTyped;
        LRESULT nValue;
        LONG nField;
    } cases[] = {
        {KEL_TIMECLASS, "123045", 12 * 3600 + 30 * 60 + 45, 2},
        {KEL_TIMECLASS, "1", 3600, 0},
        {KEL_TIMECLASS, "17", 17 * 3600, 1},
        {KEL_TIMECLASS, "007", 7 * 60, 2},     // 7 minutes cannot take a second digit
        {KEL_TIMECLASS, "1:2:3", 3600 + 120 + 3, 2},
        {KEL_TIMECLASS, "00005912", 12, 2}, // the last field starts over when full
        {KEL_MSTIMECLASS, "000001250", 1250, 3},
        {KEL_MSTIMECLASS, "000007", 7000, 3},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.pszTyped);
        HWND hField = Create(c.pszClass);
        SendMessageA(hField, WM_LBUTTONDOWN, 0, 0);
        Type(hField, c.pszTyped);
        EXPECT_EQ(GetValue(hField), c.nValue);
        EXPECT_EQ(GetField(hField), c.nField);
        DestroyWindow(hField);
    }
}

TEST_F(TimeFieldTest, TypingNotifiesEachChange)
{
    HWND hField = Create(KEL_TIMECLASS);
    SendMessageA(hField, WM_LBUTTONDOWN, 0, 0);
    Type(hField, "0012");
    EXPECT_EQ(CountCommands(TIME_ID, EN_CHANGE), 2) << "typing a zero over a zero changes nothing";
}

TEST_F(TimeFieldTest, ClickSelectsTheFieldUnderTheMouse)
{
    HWND hField = Create(KEL_MSTIMECLASS);
    SendMessageA(hField, WM_LBUTTONDOWN, 0, MAKELPARAM(159, 5));
    EXPECT_EQ(GetField(hField), 3);
    SendMessageA(hField, WM_LBUTTONDOWN, 0, MAKELPARAM(0, 5));
    EXPECT_EQ(GetField(hField), 0);
}

TEST_F(TimeFieldTest, ForeignFieldIndexReadsAsHours)
{
    HWND hField = Create(KEL_TIMECLASS);
    SetWindowLongA(hField, 0, 7);
    Key(hField, VK_UP);
    EXPECT_EQ(GetValue(hField), 3600);
}

// ---- button faces ---------------------------------------------------------------------------

class ButtonPaintTest : public WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_hButton = CreateChild("BUTTON", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, 1, 60, 30);
        ASSERT_NE(m_hButton, nullptr);
    }
    static KEL_BUTTON_PARAMS MakeParams(DWORD dwGlyph, WORD wState)
    {
        KEL_BUTTON_PARAMS params = {};
        params.cbSize = sizeof(params);
        params.wItemState = wState;
        params.crText = RGB(0, 0, 0);
        params.crFace = RGB(0, 255, 0);
        params.dwGlyph = dwGlyph;
        params.crSysFace = GetSysColor(COLOR_BTNFACE);
        return params;
    }

    HWND m_hButton = NULL;
};

TEST_F(ButtonPaintTest, GlyphsAreDrawnInTheCentre)
{
    const COLORREF crGrey = GetSysColor(COLOR_GRAYTEXT);
    struct Case
    {
        DWORD dwGlyph;
        WORD wState;
        COLORREF crCentre;
    } cases[] = {
        {KEL_GLYPH_PLAY, 0, RGB(0, 0, 0)},
        {KEL_GLYPH_STOP, 0, RGB(0, 0, 0)},
        {KEL_GLYPH_FFORWARD, 0, RGB(0, 0, 0)},
        {KEL_GLYPH_REWIND, 0, RGB(0, 0, 0)},
        {KEL_GLYPH_RECORD, 0, RGB(255, 0, 0)},
        {KEL_GLYPH_PLAY, ODS_SELECTED, RGB(0, 0, 0)},
        {KEL_GLYPH_PLAY, ODS_DISABLED, crGrey},
        {KEL_GLYPH_RECORD, ODS_DISABLED, crGrey},
        {KEL_GLYPH_TEXT, 0, RGB(0, 255, 0)}, // the button has no text
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.dwGlyph << " state " << c.wState);
        Canvas canvas(60, 30);
        KEL_BUTTON_PARAMS params = MakeParams(c.dwGlyph, c.wState);
        EXPECT_TRUE(PaintButtonEx2(m_hButton, canvas.GetDC(), &params));
        EXPECT_EQ(canvas.GetPixel(30, 15), c.crCentre);
        EXPECT_EQ(canvas.GetPixel(5, 5), RGB(0, 255, 0)) << "the face";
    }
}

TEST_F(ButtonPaintTest, PressedSinksTheEdge)
{
    Canvas raised(60, 30), sunken(60, 30);
    KEL_BUTTON_PARAMS params = MakeParams(KEL_GLYPH_STOP, 0);
    PaintButtonEx2(m_hButton, raised.GetDC(), &params);
    params.wItemState = ODS_SELECTED;
    PaintButtonEx2(m_hButton, sunken.GetDC(), &params);
    EXPECT_NE(raised.GetPixel(0, 0), sunken.GetPixel(0, 0));
    EXPECT_NE(raised.GetPixel(59, 29), sunken.GetPixel(59, 29));
}

TEST_F(ButtonPaintTest, TextAndFocusAreDrawn)
{
    SetWindowTextA(m_hButton, "WWW");
    Canvas plain(60, 30), focused(60, 30);
    KEL_BUTTON_PARAMS params = MakeParams(KEL_GLYPH_TEXT, 0);
    PaintButtonEx2(m_hButton, plain.GetDC(), &params);
    params.wItemState = ODS_FOCUS;
    PaintButtonEx2(m_hButton, focused.GetDC(), &params);
    int nTextPixels = 0, nFocusPixels = 0;
    for (int x = 0; x < 60; ++x)
    {
        for (int y = 0; y < 30; ++y)
            nTextPixels += plain.GetPixel(x, y) == RGB(0, 0, 0);
        nFocusPixels += plain.GetPixel(x, 4) != focused.GetPixel(x, 4);
    }
    EXPECT_GT(nTextPixels, 0);
    EXPECT_GT(nFocusPixels, 0);
}

TEST_F(ButtonPaintTest, BadArgumentsPaintNothing)
{
    Canvas canvas(60, 30);
    KEL_BUTTON_PARAMS params = MakeParams(KEL_GLYPH_PLAY, 0);
    EXPECT_FALSE(PaintButtonEx2(m_hButton, canvas.GetDC(), NULL));
    EXPECT_FALSE(PaintButtonEx2(NULL, canvas.GetDC(), &params));
    EXPECT_FALSE(PaintButtonEx2(m_hButton, NULL, &params));
    params.cbSize = 100;
    EXPECT_FALSE(PaintButtonEx2(m_hButton, canvas.GetDC(), &params));
    EXPECT_EQ(canvas.GetPixel(5, 5), RGB(1, 2, 3));
}

// ---- profile and screen ---------------------------------------------------------------------

class ProfileTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        char szDir[MAX_PATH];
        ASSERT_GT(GetTempPathA(MAX_PATH, szDir), 0u);
        ASSERT_NE(GetTempFileNameA(szDir, "kel", 0, m_szFile), 0u);
    }
    void TearDown() override { DeleteFileA(m_szFile); }

    char m_szFile[MAX_PATH];
};

TEST_F(ProfileTest, ReadsTheYesNoForms)
{
    struct Case
    {
        const char* pszText;
        int nExpected; // -1: the default
    } cases[] = {
        {"1", 1},     {"yes", 1},  {"TRUE", 1},  {"On", 1},   {"0", 0},
        {"NO", 0},    {"false", 0}, {"oFF", 0},  {"2", -1},   {"maybe", -1},
        {"yesterday", -1}, {"", -1},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.pszText);
        WritePrivateProfileStringA("Joystick", "Enabled", c.pszText, m_szFile);
        for (BOOL bDefault : {FALSE, TRUE})
        {
            BOOL bExpected = c.nExpected < 0 ? bDefault : c.nExpected;
            EXPECT_EQ(GetPrivateProfileBool("Joystick", "Enabled", bDefault, m_szFile), bExpected);
        }
    }
    EXPECT_EQ(GetPrivateProfileBool("Joystick", "Missing", 7, m_szFile), TRUE);
    EXPECT_EQ(GetPrivateProfileBool(NULL, "Enabled", FALSE, m_szFile), FALSE);
    EXPECT_EQ(GetPrivateProfileBool("Joystick", NULL, TRUE, m_szFile), TRUE);
}

TEST_F(ProfileTest, WritesOneOrZero)
{
    char szValue[8];
    EXPECT_TRUE(WritePrivateProfileBool("Joystick", "Enabled", 5, m_szFile));
    GetPrivateProfileStringA("Joystick", "Enabled", "", szValue, sizeof(szValue), m_szFile);
    EXPECT_STREQ(szValue, "1");
    EXPECT_TRUE(GetPrivateProfileBool("Joystick", "Enabled", FALSE, m_szFile));
    EXPECT_TRUE(WritePrivateProfileBool("Joystick", "Enabled", FALSE, m_szFile));
    GetPrivateProfileStringA("Joystick", "Enabled", "", szValue, sizeof(szValue), m_szFile);
    EXPECT_STREQ(szValue, "0");
    // A null key must not delete the section, as the system function would.
    EXPECT_FALSE(WritePrivateProfileBool("Joystick", NULL, TRUE, m_szFile));
    EXPECT_FALSE(WritePrivateProfileBool(NULL, "Enabled", TRUE, m_szFile));
    EXPECT_FALSE(GetPrivateProfileBool("Joystick", "Enabled", TRUE, m_szFile));
}

TEST(ScreenTest, SizeIsTheWorkArea)
{
    RECT rect;
    ASSERT_TRUE(SystemParametersInfoA(SPI_GETWORKAREA, 0, &rect, 0));
    EXPECT_EQ(GetScreenWidth(), rect.right - rect.left);
    EXPECT_EQ(GetScreenHeight(), rect.bottom - rect.top);
    EXPECT_GT(GetScreenWidth(), 0);
    EXPECT_LE(GetScreenHeight(), GetSystemMetrics(SM_CYSCREEN));
}

} // namespace
