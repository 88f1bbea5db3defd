// KEL_Util under real windows and messages: the listing, the time fields, button faces,
// profile values and screen metrics.
#include <gtest/gtest.h>

#include <kelutil/KEL_Util.h>

#include <string.h>
#include <algorithm>
#include <string>
#include <vector>

#ifndef _WIN64
static_assert(KEL_LISTING_BLOCK_SIZE == 1732, "the event list checks this size");
#endif

namespace
{

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

int CountCommands(int nId, int nCode)
{
    return static_cast<int>(std::count(g_commands.begin(), g_commands.end(), MAKEWPARAM(nId, nCode)));
}

// Children of one shown top-level window, so that they can take the focus. The parent lives as
// long as the program: under Wine without a window manager, hiding or destroying a top-level
// window waits a second or two for the X server.
class WindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        static HWND s_hParent = CreateParent();
        m_hParent = s_hParent;
        ASSERT_NE(m_hParent, nullptr);
        g_commands.clear();
    }
    void TearDown() override
    {
        while (HWND hChild = GetWindow(m_hParent, GW_CHILD))
            DestroyWindow(hChild);
    }
    static HWND CreateParent()
    {
        HINSTANCE hInstance = GetModuleHandleA(NULL);
        WNDCLASSA parent = {0, ParentProc, 0, 0, hInstance, NULL, NULL, NULL, NULL, "KelUtilTestParent"};
        WNDCLASSA listing = {CS_DBLCLKS, TestListingProc, 0, 0, hInstance, NULL, NULL, NULL, NULL, LISTING_CLASS};
        if (!RegisterClassA(&parent) || !RegisterClassA(&listing))
            return NULL;
        HWND hParent = CreateWindowExA(0, parent.lpszClassName, "", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300, NULL, NULL,
                                       hInstance, NULL);
        ShowWindow(hParent, SW_SHOW);
        return hParent;
    }
    HWND CreateChild(const char* pszClass, DWORD dwStyle, int nId, int cx, int cy)
    {
        return CreateWindowExA(0, pszClass, "", dwStyle, 0, 0, cx, cy, m_hParent,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(nId)), GetModuleHandleA(NULL), NULL);
    }

    HWND m_hParent = NULL;
};

// A 32-bit device-independent bitmap to paint into and read back exactly.
struct CCanvas
{
    CCanvas(int cx, int cy) : m_hdc(CreateCompatibleDC(NULL))
    {
        BITMAPINFO bmi = {{sizeof(BITMAPINFOHEADER), cx, -cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
        void* pBits = NULL;
        m_hBitmap = CreateDIBSection(m_hdc, &bmi, DIB_RGB_COLORS, &pBits, NULL, 0);
        SelectObject(m_hdc, m_hBitmap);
        RECT rect = {0, 0, cx, cy};
        SetBkColor(m_hdc, RGB(1, 2, 3));
        ExtTextOutA(m_hdc, 0, 0, ETO_OPAQUE, &rect, NULL, 0, NULL);
    }
    ~CCanvas() { DeleteDC(m_hdc); DeleteObject(m_hBitmap); }
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hdc, x, y); }

    HDC m_hdc;
    HBITMAP m_hBitmap;
};

// ---- listing --------------------------------------------------------------------------------

class ListingTest : public WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_hList = CreateChild(LISTING_CLASS, WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY, LISTING_ID, 120, 100);
        ASSERT_NE(m_hList, nullptr);
    }

    LRESULT Send(UINT nMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageA(m_hList, nMsg, wParam, lParam);
    }
    LRESULT Send(UINT nMsg, WPARAM wParam, const void* p) { return Send(nMsg, wParam, reinterpret_cast<LPARAM>(p)); }
    void Add(std::initializer_list<const char*> texts)
    {
        for (const char* pszText : texts)
            ASSERT_GE(ListingOnAddString(m_hList, pszText), 0);
    }
    // The texts joined by commas, read up to the first index that answers LB_ERR.
    std::string GetAll()
    {
        std::string all;
        char szText[64];
        for (int i = 0; ListingOnGetText(m_hList, i, szText) != LB_ERR; ++i)
            all += (i ? "," : "") + std::string(szText);
        return all;
    }

    HWND m_hList = NULL;
};

// An extension reads the block's size and handle, then copies it into a larger block of its own,
// makes that the user data with its own handle in the second field, and frees the original.
TEST_F(ListingTest, BlockLayoutAndTheEventListCopyingIt)
{
    Add({"kept"});
    KEL_LISTING_BLOCK* pOld = reinterpret_cast<KEL_LISTING_BLOCK*>(GetWindowLongPtrA(m_hList, GWLP_USERDATA));
    ASSERT_NE(pOld, nullptr);
    EXPECT_EQ(*reinterpret_cast<DWORD*>(pOld), KEL_LISTING_BLOCK_SIZE);
    HGLOBAL hOld = *reinterpret_cast<HGLOBAL*>(reinterpret_cast<char*>(pOld) + sizeof(void*));
    EXPECT_EQ(hOld, GlobalHandle(pOld));
    EXPECT_GE(GlobalSize(hOld), KEL_LISTING_BLOCK_SIZE);
    EXPECT_EQ(pOld->hWnd, m_hList);

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

TEST_F(ListingTest, EditsKeepTheOrderAndTheSelection)
{
    EXPECT_EQ(ListingOnAddString(m_hList, "alpha"), 0);
    EXPECT_EQ(Send(LB_ADDSTRING, 0, "gamma"), 1);
    EXPECT_EQ(ListingOnInsertString(m_hList, 1, "beta"), 1);
    EXPECT_EQ(ListingOnInsertString(m_hList, -1, "delta"), 3);
    EXPECT_EQ(Send(LB_INSERTSTRING, 0, ""), 0);
    EXPECT_EQ(GetAll(), ",alpha,beta,gamma,delta");
    EXPECT_EQ(Send(LB_SETCURSEL, 2), 2);
    EXPECT_EQ(ListingOnDeleteString(m_hList, 0), 4);
    EXPECT_EQ(Send(LB_GETCURSEL), 1);
    EXPECT_EQ(ListingOnInsertString(m_hList, 0, "z"), 0);
    EXPECT_EQ(Send(LB_GETCURSEL), 2);
    EXPECT_EQ(Send(LB_DELETESTRING, 2), 4);
    EXPECT_EQ(Send(LB_GETCURSEL), LB_ERR);
    char szText[16];
    EXPECT_EQ(Send(LB_GETTEXTLEN, 3), 5);
    EXPECT_EQ(Send(LB_GETTEXT, 3, szText), 5);
    EXPECT_STREQ(szText, "delta");
    // Clearing the selection answers LB_ERR, as a list box does.
    Send(LB_SETCURSEL, 0);
    EXPECT_EQ(Send(LB_SETCURSEL, static_cast<WPARAM>(-1)), LB_ERR);
    EXPECT_EQ(Send(LB_GETCURSEL), LB_ERR);
    Send(LB_SETCURSEL, 0);
    EXPECT_EQ(ListingOnResetContent(m_hList), 0);
    EXPECT_EQ(Send(LB_GETCOUNT), 0);
    EXPECT_EQ(Send(LB_GETCURSEL), LB_ERR);
    EXPECT_EQ(CountCommands(LISTING_ID, LBN_SELCHANGE), 0) << "only the user's changes notify";
}

TEST_F(ListingTest, BadIndexesAndPointersAnswerLbErr)
{
    Add({"one", "two"});
    char szText[16] = "untouched";
    KEL_LISTING_COLORS colors = {};
    const LRESULT results[] = {
        Send(LB_GETTEXT, 2, szText), Send(LB_GETTEXT, 0, nullptr), Send(LB_GETTEXTLEN, 2),
        Send(LB_ADDSTRING, 0, nullptr), ListingOnInsertString(m_hList, 3, "x"), ListingOnInsertString(m_hList, -2, "x"),
        ListingOnDeleteString(m_hList, 2), Send(LB_SETCURSEL, 2), Send(LB_SETTOPINDEX, 2),
        Send(KLM_SETITEMCOLORS, 2, &colors), Send(KLM_SETITEMCOLORS, 0, nullptr),
        Send(KLM_GETITEMCOLORS, static_cast<WPARAM>(-1), &colors), Send(KLM_SETDEFAULTCOLORS, 0, nullptr),
        ListingOnGetTextAndColors(m_hList, 2, szText, 16, NULL, NULL),
        ListingOnGetTextAndColors(m_hList, 0, NULL, 16, NULL, NULL),
        ListingOnGetTextAndColors(m_hList, 0, szText, 0, NULL, NULL),
        ListingOnGetText(m_hParent, 0, szText), // not a listing
        ListingOnAddString(NULL, "x")};
    for (size_t i = 0; i < sizeof(results) / sizeof(results[0]); ++i)
        EXPECT_EQ(results[i], LB_ERR) << "case " << i;
    EXPECT_STREQ(szText, "untouched");
    EXPECT_EQ(GetAll(), "one,two");
}

// Each entry takes the default colours in force when it is added; the empty area below the
// entries is painted in the current default background.
TEST_F(ListingTest, EntriesKeepTheirOwnColoursAndArePaintedInThem)
{
    const KEL_LISTING_COLORS first = {RGB(1, 1, 1), RGB(200, 0, 0)}, later = {RGB(10, 20, 30), RGB(0, 0, 200)};
    const KEL_LISTING_COLORS own = {RGB(255, 0, 0), RGB(0, 200, 0)}, selection = {RGB(0, 0, 0), RGB(0, 100, 100)};
    Send(KLM_SETDEFAULTCOLORS, 0, &first);
    Add({"first"});
    Send(KLM_SETDEFAULTCOLORS, 0, &later);
    Add({"second", "alphabet"});
    EXPECT_EQ(Send(KLM_SETITEMCOLORS, 1, &own), 0);
    EXPECT_EQ(Send(KLM_SETSELCOLORS, 0, &selection), 0);
    Send(LB_SETCURSEL, 2);
    const KEL_LISTING_COLORS expected[] = {first, own, later};
    char szText[8];
    for (int i = 0; i < 3; ++i)
    {
        SCOPED_TRACE(i);
        COLORREF crText = 0, crBack = 0;
        KEL_LISTING_COLORS colors = {};
        EXPECT_GT(ListingOnGetTextAndColors(m_hList, i, szText, 8, &crText, &crBack), 0);
        EXPECT_EQ(Send(KLM_GETITEMCOLORS, i, &colors), 0);
        EXPECT_EQ(crText, expected[i].crText);
        EXPECT_EQ(crBack, expected[i].crBack);
        EXPECT_EQ(colors.crBack, expected[i].crBack);
    }
    int nHeight = static_cast<int>(Send(LB_GETITEMHEIGHT));
    CCanvas canvas(120, 100);
    Send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.m_hdc), PRF_CLIENT);
    const COLORREF rows[] = {first.crBack, own.crBack, selection.crBack, later.crBack};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(canvas.GetPixel(60, i * nHeight + 1), rows[i]) << "row " << i;

    // The text is cut to fit the buffer, terminator included.
    memset(szText, '#', sizeof(szText));
    EXPECT_EQ(ListingOnGetTextAndColors(m_hList, 2, szText, 4, NULL, NULL), 3);
    EXPECT_STREQ(szText, "alp");
    EXPECT_EQ(szText[4], '#');
    EXPECT_EQ(ListingOnGetTextAndColors(m_hList, 2, szText, 1, NULL, NULL), 0);
    EXPECT_STREQ(szText, "");
}

TEST_F(ListingTest, KeysAndTheScrollBarMoveWithinTheEntries)
{
    for (int i = 0; i < 20; ++i)
        Add({"entry"});
    int nRows = 100 / static_cast<int>(Send(LB_GETITEMHEIGHT));
    ASSERT_GT(nRows, 1);
    ASSERT_LT(nRows, 20);
    const struct { WPARAM nKey; int nSel, nTop; } steps[] = {
        {VK_DOWN, 0, 0}, // no selection yet: the first visible entry
        {VK_DOWN, 1, 0}, {VK_UP, 0, 0}, {VK_UP, 0, 0}, {VK_NEXT, nRows - 1, 0}, {VK_END, 19, 20 - nRows},
        {VK_PRIOR, 20 - nRows, 20 - nRows}, {VK_HOME, 0, 0}};
    for (const auto& step : steps)
    {
        SCOPED_TRACE(step.nKey);
        EXPECT_EQ(Send(WM_KEYDOWN, step.nKey), 0);
        EXPECT_EQ(Send(LB_GETCURSEL), step.nSel);
        EXPECT_EQ(Send(LB_GETTOPINDEX), step.nTop);
    }
    EXPECT_EQ(CountCommands(LISTING_ID, LBN_SELCHANGE), 7);
    EXPECT_EQ(Send(WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);

    EXPECT_EQ(Send(LB_SETTOPINDEX, 19), 0);
    EXPECT_EQ(Send(LB_GETTOPINDEX), 20 - nRows) << "stops at the last full page";
    Send(WM_VSCROLL, SB_TOP);
    Send(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(Send(LB_GETTOPINDEX), 1);
    SCROLLINFO si = {sizeof(si), SIF_ALL, 0, 0, 0, 0, 0};
    ASSERT_TRUE(GetScrollInfo(m_hList, SB_VERT, &si));
    EXPECT_EQ(si.nMax, 19);
    EXPECT_EQ(si.nPage, static_cast<UINT>(nRows));
    EXPECT_EQ(si.nPos, 1);
}

TEST_F(ListingTest, MouseSelectsAndNotifiesOnlyWithLbsNotify)
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
    EXPECT_GE(Send(LB_GETITEMHEIGHT), 40);
    DestroyWindow(m_hList); // before its font
    DeleteObject(hFont);
}

// ---- time fields ----------------------------------------------------------------------------

class TimeFieldTest : public WindowTest
{
protected:
    // In the style the library's time edits use.
    HWND Create(const char* pszClass) { return CreateChild(pszClass, 0x50008401, TIME_ID, 160, 24); }
    static LONG GetField(HWND hField) { return GetWindowLongA(hField, 0); }
    static LRESULT GetValue(HWND hField) { return SendMessageA(hField, WM_USER + 1, 0, 0); }
    static void Type(HWND hField, const char* pszChars)
    {
        SendMessageA(hField, WM_LBUTTONDOWN, 0, 0);
        while (*pszChars)
            SendMessageA(hField, WM_CHAR, static_cast<WPARAM>(*pszChars++), 0);
    }
};

TEST_F(TimeFieldTest, ValueIsKeptInTheClassUnitWithinItsRange)
{
    EXPECT_NE(KEL_Util_Running(), 0);
    HWND hTime = Create(KEL_TIMECLASS), hMsTime = Create(KEL_MSTIMECLASS);
    ASSERT_TRUE(hTime != NULL && hMsTime != NULL) << "global classes of the library";
    const struct { HWND hField; LPARAM nSet; LRESULT nExpected; } cases[] = {
        {hTime, 3661, 3661}, {hTime, -5, 0}, {hTime, 359999, 359999}, {hTime, 400000, 359999},
        {hMsTime, 61500, 61500}, {hMsTime, 400000000, 359999999}};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.nSet);
        EXPECT_EQ(SendMessageA(c.hField, WM_USER, 0, c.nSet), c.nExpected);
        EXPECT_EQ(GetValue(c.hField), c.nExpected);
    }
    EXPECT_TRUE(g_commands.empty()) << "only the user's changes notify";
    EXPECT_EQ(SendMessageA(hTime, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
}

// Left and Right stop at the first and last fields; Up and Down wrap within the field.
TEST_F(TimeFieldTest, KeysChooseAndStepTheFieldInWindowWordZero)
{
    HWND hField = Create(KEL_TIMECLASS);
    SendMessageA(hField, WM_USER, 0, 59 * 60);
    SendMessageA(hField, WM_LBUTTONDOWN, 0, 0);
    EXPECT_EQ(GetFocus(), hField);
    const struct { WPARAM nKey; LONG nField; LRESULT nValue; } steps[] = {
        {VK_LEFT, 0, 59 * 60}, {VK_RIGHT, 1, 59 * 60}, {VK_UP, 1, 0}, // 59 minutes up is 0; the hours stay
        {VK_DOWN, 1, 59 * 60}, {VK_RIGHT, 2, 59 * 60}, {VK_RIGHT, 2, 59 * 60}, {VK_LEFT, 1, 59 * 60},
        {VK_LEFT, 0, 59 * 60}, {VK_DOWN, 0, 99 * 3600 + 59 * 60}};
    for (const auto& step : steps)
    {
        SendMessageA(hField, WM_KEYDOWN, step.nKey, 0);
        EXPECT_EQ(GetField(hField), step.nField) << "step " << &step - steps;
        EXPECT_EQ(GetValue(hField), step.nValue) << "step " << &step - steps;
    }
    EXPECT_EQ(CountCommands(TIME_ID, EN_CHANGE), 3);
    // Window word 0 is open to anyone: a foreign field index reads as the hours.
    SetWindowLongA(hField, 0, 7);
    SendMessageA(hField, WM_KEYDOWN, VK_UP, 0);
    EXPECT_EQ(GetValue(hField), 59 * 60);

    HWND hMsTime = Create(KEL_MSTIMECLASS);
    for (int i = 0; i < 5; ++i)
        SendMessageA(hMsTime, WM_KEYDOWN, VK_RIGHT, 0);
    EXPECT_EQ(GetField(hMsTime), 3);
    SendMessageA(hMsTime, WM_LBUTTONDOWN, 0, MAKELPARAM(0, 5));
    EXPECT_EQ(GetField(hMsTime), 0);
    SendMessageA(hMsTime, WM_LBUTTONDOWN, 0, MAKELPARAM(159, 5));
    EXPECT_EQ(GetField(hMsTime), 3);
}

TEST_F(TimeFieldTest, TypedDigitsFillTheFieldsInTurn)
{
    const struct { const char* pszClass; const char* pszTyped; LRESULT nValue; LONG nField; } cases[] = {
        {KEL_TIMECLASS, "123045", 12 * 3600 + 30 * 60 + 45, 2},
        {KEL_TIMECLASS, "1", 3600, 0},
        {KEL_TIMECLASS, "007", 7 * 60, 2}, // 7 minutes cannot take a second digit
        {KEL_TIMECLASS, "1:2:3", 3600 + 120 + 3, 2},
        {KEL_TIMECLASS, "00005912", 12, 2}, // the last field starts over when full
        {KEL_MSTIMECLASS, "000001250", 1250, 3}};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszTyped);
        HWND hField = Create(c.pszClass);
        Type(hField, c.pszTyped);
        EXPECT_EQ(GetValue(hField), c.nValue);
        EXPECT_EQ(GetField(hField), c.nField);
        DestroyWindow(hField);
    }
    g_commands.clear();
    Type(Create(KEL_TIMECLASS), "0012");
    EXPECT_EQ(CountCommands(TIME_ID, EN_CHANGE), 2) << "typing a zero over a zero changes nothing";
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
    // Black on green.
    BOOL Paint(const CCanvas& canvas, DWORD dwGlyph, WORD wState, DWORD cbSize = sizeof(KEL_BUTTON_PARAMS))
    {
        const KEL_BUTTON_PARAMS params = {cbSize, {}, wState, 0, {}, RGB(0, 0, 0), RGB(0, 255, 0), dwGlyph,
                                          GetSysColor(COLOR_BTNFACE), {}};
        return PaintButtonEx2(m_hButton, canvas.m_hdc, &params);
    }

    HWND m_hButton = NULL;
};

TEST_F(ButtonPaintTest, GlyphsAreDrawnInTheCentreUnlessTheArgumentsAreBad)
{
    const COLORREF crBlack = RGB(0, 0, 0), crGrey = GetSysColor(COLOR_GRAYTEXT);
    const struct { DWORD dwGlyph; WORD wState; COLORREF crCentre; } cases[] = {
        {KEL_GLYPH_PLAY, 0, crBlack}, {KEL_GLYPH_STOP, 0, crBlack}, {KEL_GLYPH_FFORWARD, 0, crBlack},
        {KEL_GLYPH_REWIND, 0, crBlack}, {KEL_GLYPH_RECORD, 0, RGB(255, 0, 0)}, {KEL_GLYPH_PLAY, ODS_DISABLED, crGrey},
        {KEL_GLYPH_RECORD, ODS_DISABLED, crGrey}, {KEL_GLYPH_TEXT, 0, RGB(0, 255, 0)}}; // the button has no text
    for (const auto& c : cases)
    {
        SCOPED_TRACE(testing::Message() << c.dwGlyph << " state " << c.wState);
        CCanvas canvas(60, 30);
        EXPECT_TRUE(Paint(canvas, c.dwGlyph, c.wState));
        EXPECT_EQ(canvas.GetPixel(30, 15), c.crCentre);
        EXPECT_EQ(canvas.GetPixel(5, 5), RGB(0, 255, 0)) << "the face";
    }

    CCanvas canvas(60, 30);
    KEL_BUTTON_PARAMS params = {};
    params.cbSize = sizeof(params);
    EXPECT_FALSE(PaintButtonEx2(m_hButton, canvas.m_hdc, NULL));
    EXPECT_FALSE(PaintButtonEx2(NULL, canvas.m_hdc, &params));
    EXPECT_FALSE(PaintButtonEx2(m_hButton, NULL, &params));
    EXPECT_FALSE(Paint(canvas, KEL_GLYPH_PLAY, 0, 100));
    EXPECT_EQ(canvas.GetPixel(5, 5), RGB(1, 2, 3)) << "bad arguments paint nothing";
}

TEST_F(ButtonPaintTest, PressedSinksTheEdgeAndTextAndFocusAreDrawn)
{
    CCanvas raised(60, 30), sunken(60, 30), plain(60, 30), focused(60, 30);
    Paint(raised, KEL_GLYPH_STOP, 0);
    Paint(sunken, KEL_GLYPH_STOP, ODS_SELECTED);
    EXPECT_NE(raised.GetPixel(0, 0), sunken.GetPixel(0, 0));
    EXPECT_NE(raised.GetPixel(59, 29), sunken.GetPixel(59, 29));
    SetWindowTextA(m_hButton, "WWW");
    Paint(plain, KEL_GLYPH_TEXT, 0);
    Paint(focused, KEL_GLYPH_TEXT, ODS_FOCUS);
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

// ---- profile and screen ---------------------------------------------------------------------

TEST(ProfileTest, ReadsTheYesNoFormsAndWritesOneOrZero)
{
    char szDir[MAX_PATH], szFile[MAX_PATH], szValue[8];
    ASSERT_GT(GetTempPathA(MAX_PATH, szDir), 0u);
    ASSERT_NE(GetTempFileNameA(szDir, "kel", 0, szFile), 0u);
    const struct { const char* pszText; int nExpected; } cases[] = { // -1: the default
        {"1", 1}, {"yes", 1}, {"TRUE", 1}, {"On", 1}, {"0", 0}, {"NO", 0}, {"false", 0}, {"oFF", 0},
        {"2", -1}, {"maybe", -1}, {"yesterday", -1}, {"", -1}};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.pszText);
        WritePrivateProfileStringA("Joystick", "Enabled", c.pszText, szFile);
        for (BOOL bDefault : {FALSE, TRUE})
            EXPECT_EQ(GetPrivateProfileBool("Joystick", "Enabled", bDefault, szFile),
                      c.nExpected < 0 ? bDefault : c.nExpected);
    }
    EXPECT_EQ(GetPrivateProfileBool("Joystick", "Missing", 7, szFile), TRUE);
    EXPECT_EQ(GetPrivateProfileBool(NULL, "Enabled", FALSE, szFile), FALSE);
    EXPECT_EQ(GetPrivateProfileBool("Joystick", NULL, TRUE, szFile), TRUE);

    EXPECT_TRUE(WritePrivateProfileBool("Joystick", "Enabled", 5, szFile));
    GetPrivateProfileStringA("Joystick", "Enabled", "", szValue, sizeof(szValue), szFile);
    EXPECT_STREQ(szValue, "1");
    EXPECT_TRUE(WritePrivateProfileBool("Joystick", "Enabled", FALSE, szFile));
    // A null key must not delete the section, as the system function would.
    EXPECT_FALSE(WritePrivateProfileBool("Joystick", NULL, TRUE, szFile));
    EXPECT_FALSE(WritePrivateProfileBool(NULL, "Enabled", TRUE, szFile));
    GetPrivateProfileStringA("Joystick", "Enabled", "", szValue, sizeof(szValue), szFile);
    EXPECT_STREQ(szValue, "0");
    DeleteFileA(szFile);
}

// The work area, not the whole screen: the taskbar is left out.
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
