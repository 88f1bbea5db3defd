// KEL_Util under real windows and messages: the listing, the time fields, button faces and
// profile values.
#include <gtest/gtest.h>

#include "capture/WindowImage.h"
#include "kelutil/KEL_Util.h"

#include <string.h>
#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

namespace
{

const char LISTING_CLASS[] = "KelUtilTestListing";
const int LISTING_ID = 101, TIME_ID = 1001;
const COLORREF BLACK = RGB(0, 0, 0), GREEN = RGB(0, 255, 0), WHITE = RGB(255, 255, 255);

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

// A time field's current field (window word 0) and value in its unit.
std::pair<LONG, LRESULT> GetFieldAndValue(HWND hField)
{
    return std::make_pair(GetWindowLongA(hField, 0), SendMessageA(hField, WM_USER + 1, 0, 0));
}

// A white canvas of 120 by 100 pixels, to paint into and read back exactly.
struct CCanvas : CWindowImage
{
    CCanvas() { CreateCanvas(120, 100, WHITE); }
};

// Children of one shown top-level window, so that they can take the focus, among them a
// listing of 120 by 100 pixels. The parent lives as long as the program: under Wine without a
// window manager, hiding or destroying a top-level window waits a second or two for the X server.
class CKelUtilTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        static HWND s_hParent = []() -> HWND {
            HINSTANCE hInstance = GetModuleHandleA(NULL);
            WNDCLASSA parent = {0, ParentProc, 0, 0, hInstance, NULL, NULL, NULL, NULL, "KelUtilTestParent"};
            WNDCLASSA listing = {CS_DBLCLKS, TestListingProc, 0, 0, hInstance, NULL, NULL, NULL, NULL, LISTING_CLASS};
            if (!RegisterClassA(&parent) || !RegisterClassA(&listing))
                return NULL;
            return CreateWindowExA(0, parent.lpszClassName, "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                   NULL, NULL, hInstance, NULL);
        }();
        ASSERT_NE(m_hParent = s_hParent, nullptr);
        g_commands.clear();
        m_hList = CreateChild(LISTING_CLASS, WS_VSCROLL | LBS_NOTIFY, LISTING_ID, 120, 100);
    }
    void TearDown() override
    {
        while (HWND hChild = GetWindow(m_hParent, GW_CHILD))
            DestroyWindow(hChild);
    }
    HWND CreateChild(const char* pszClass, DWORD dwStyle, int nId, int cx, int cy)
    {
        return CreateWindowExA(0, pszClass, "", WS_CHILD | WS_VISIBLE | dwStyle, 0, 0, cx, cy, m_hParent,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(nId)), GetModuleHandleA(NULL), NULL);
    }
    // In the style the library's time edits use.
    HWND CreateTime(const char* pszClass) { return CreateChild(pszClass, 0x8401, TIME_ID, 160, 24); }

    LRESULT Send(UINT nMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageA(m_hList, nMsg, wParam, lParam);
    }
    LRESULT Send(UINT nMsg, WPARAM wParam, const void* p) { return Send(nMsg, wParam, reinterpret_cast<LPARAM>(p)); }
    // The listing's texts joined by commas, read up to the first index that answers LB_ERR.
    std::string GetAll()
    {
        std::string all;
        char szText[64];
        for (int i = 0; ListingOnGetText(m_hList, i, szText) != LB_ERR; ++i)
            all += (i ? "," : "") + std::string(szText);
        return all;
    }

    HWND m_hParent = NULL, m_hList = NULL;
};

// ---- listing --------------------------------------------------------------------------------

// An extension reads the block's size and handle, then copies it into a larger block of its own,
// makes that the user data with its own handle in the second field, and frees the original.
TEST_F(CKelUtilTest, ListingEditsKeepTheOrderAndTheSelectionInABlockCopiedByAnExtension)
{
    EXPECT_EQ(ListingOnAddString(m_hList, "alpha"), 0);
    EXPECT_EQ(Send(LB_ADDSTRING, 0, "gamma"), 1);
    KEL_LISTING_BLOCK* pOld = reinterpret_cast<KEL_LISTING_BLOCK*>(GetWindowLongPtrA(m_hList, GWLP_USERDATA));
    ASSERT_NE(pOld, nullptr);
    HGLOBAL hOld = pOld->hBlock;
    EXPECT_EQ(std::make_tuple(KEL_LISTING_BLOCK_SIZE, GlobalHandle(pOld), m_hList),
              std::make_tuple(pOld->cbSize, hOld, pOld->hWnd));
    HGLOBAL hNew = GlobalAlloc(GMEM_FIXED, KEL_LISTING_BLOCK_SIZE + 48);
    KEL_LISTING_BLOCK* pNew = static_cast<KEL_LISTING_BLOCK*>(GlobalLock(hNew));
    memcpy(pNew, pOld, KEL_LISTING_BLOCK_SIZE);
    pNew->hBlock = hNew;
    SetWindowLongPtrA(m_hList, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pNew));
    GlobalUnlock(hOld);
    GlobalFree(hOld);

    EXPECT_EQ(ListingOnInsertString(m_hList, 1, "beta"), 1);
    EXPECT_EQ(ListingOnInsertString(m_hList, -1, "delta"), 3);
    EXPECT_EQ(Send(LB_INSERTSTRING, 0, ""), 0);
    EXPECT_EQ(GetAll(), ",alpha,beta,gamma,delta");
    // In order, what each call answered and what it should have: the selection follows the edits
    // and goes with its entry; clearing it answers LB_ERR, as a list box does.
    const std::pair<LRESULT, LRESULT> steps[] = {
        {Send(LB_SETCURSEL, 2), 2}, {ListingOnDeleteString(m_hList, 0), 4}, {pNew->nCurSel, 1},
        {ListingOnInsertString(m_hList, 0, "z"), 0}, {Send(LB_GETCURSEL), 2}, {Send(LB_DELETESTRING, 2), 4},
        {Send(LB_GETCURSEL), LB_ERR}, {Send(LB_SETCURSEL, 0), 0}, {Send(LB_SETCURSEL, static_cast<WPARAM>(-1)), LB_ERR},
        {Send(LB_GETCURSEL), LB_ERR}, {Send(LB_SETCURSEL, 0), 0}};
    for (size_t i = 0; i < sizeof(steps) / sizeof(steps[0]); ++i)
        EXPECT_EQ(steps[i].first, steps[i].second) << "step " << i;
    EXPECT_EQ(GetAll(), "z,alpha,gamma,delta");
    EXPECT_EQ(ListingOnResetContent(m_hList), 0);
    EXPECT_EQ(std::make_pair(Send(LB_GETCOUNT), Send(LB_GETCURSEL)), std::make_pair(LRESULT(0), LRESULT(LB_ERR)));
    EXPECT_EQ(CountCommands(LISTING_ID, LBN_SELCHANGE), 0) << "only the user's changes notify";

    // Bad indexes and pointers answer LB_ERR and change nothing.
    ListingOnAddString(m_hList, "one");
    ListingOnAddString(m_hList, "two");
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
        ListingOnGetTextAndColors(m_hList, 0, szText, 0, NULL, NULL), ListingOnGetText(m_hParent, 0, szText)};
    for (size_t i = 0; i < sizeof(results) / sizeof(results[0]); ++i)
        EXPECT_EQ(results[i], LB_ERR) << "case " << i;
    EXPECT_STREQ(szText, "untouched");
    EXPECT_EQ(GetAll(), "one,two");
    g_nUserDataAfterDestroy = -1;
    DestroyWindow(m_hList);
    EXPECT_EQ(g_nUserDataAfterDestroy, 0);
}

// Each entry takes the default colours in force when it is added; the empty area below the
// entries is painted in the current default background.
TEST_F(CKelUtilTest, ListingEntriesKeepTheirOwnColoursAndArePaintedInThem)
{
    const KEL_LISTING_COLORS first = {RGB(1, 1, 1), RGB(200, 0, 0)}, later = {RGB(10, 20, 30), RGB(0, 0, 200)};
    const KEL_LISTING_COLORS own = {RGB(255, 0, 0), RGB(0, 200, 0)}, selection = {BLACK, RGB(0, 100, 100)};
    Send(KLM_SETDEFAULTCOLORS, 0, &first);
    ListingOnAddString(m_hList, "first");
    Send(KLM_SETDEFAULTCOLORS, 0, &later);
    ListingOnAddString(m_hList, "second");
    ListingOnAddString(m_hList, "alphabet");
    EXPECT_EQ(Send(KLM_SETITEMCOLORS, 1, &own), 0);
    EXPECT_EQ(Send(KLM_SETSELCOLORS, 0, &selection), 0);
    Send(LB_SETCURSEL, 2);
    // The selected entry keeps its own colours.
    KEL_LISTING_COLORS got = {}, read = {};
    EXPECT_EQ(Send(KLM_GETITEMCOLORS, 2, &got), 0);
    char szText[8];
    EXPECT_EQ(ListingOnGetTextAndColors(m_hList, 1, szText, 8, &read.crText, &read.crBack), 6);
    EXPECT_EQ(std::make_tuple(later.crText, later.crBack, own.crText, own.crBack),
              std::make_tuple(got.crText, got.crBack, read.crText, read.crBack));
    int nHeight = static_cast<int>(Send(LB_GETITEMHEIGHT));
    CCanvas canvas;
    Send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.GetDC()), PRF_CLIENT);
    const COLORREF rows[] = {first.crBack, own.crBack, selection.crBack, later.crBack};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(canvas.GetPixel(60, i * nHeight + 1), rows[i]) << "row " << i;

    // The text is cut to fit the buffer, terminator included.
    memset(szText, '#', sizeof(szText));
    EXPECT_EQ(ListingOnGetTextAndColors(m_hList, 2, szText, 4, NULL, NULL), 3);
    EXPECT_EQ(std::string(szText, 5), std::string("alp\0#", 5));
    EXPECT_EQ(ListingOnGetTextAndColors(m_hList, 2, szText, 1, NULL, NULL), 0);
    EXPECT_STREQ(szText, "");
}

TEST_F(CKelUtilTest, ListingKeysMouseAndTypedCharactersSelectScrollAndNotifyWithLbsNotify)
{
    for (const char* pszText : {"apple", "Banana", "blueberry", "cherry", "bean"})
        ListingOnAddString(m_hList, pszText);
    for (int i = 5; i < 20; ++i)
        ListingOnAddString(m_hList, "entry");
    int nHeight = static_cast<int>(Send(LB_GETITEMHEIGHT)), nRows = 100 / nHeight;
    ASSERT_TRUE(nRows > 2 && nRows < 20);
    const struct { WPARAM nKey; LRESULT nSel, nTop; } steps[] = {
        {VK_DOWN, 0, 0}, // no selection yet: the first visible entry
        {VK_DOWN, 1, 0}, {VK_UP, 0, 0}, {VK_UP, 0, 0}, {VK_NEXT, nRows - 1, 0}, {VK_END, 19, 20 - nRows},
        {VK_PRIOR, 20 - nRows, 20 - nRows}, {VK_HOME, 0, 0}};
    for (const auto& step : steps)
    {
        EXPECT_EQ(Send(WM_KEYDOWN, step.nKey), 0);
        EXPECT_EQ(std::make_pair(Send(LB_GETCURSEL), Send(LB_GETTOPINDEX)), std::make_pair(step.nSel, step.nTop))
            << "step " << &step - steps;
    }
    EXPECT_EQ(CountCommands(LISTING_ID, LBN_SELCHANGE), 7);
    EXPECT_EQ(Send(WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);

    g_commands.clear();
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 2 * nHeight + 1));
    EXPECT_EQ(std::make_pair(GetFocus(), Send(LB_GETCURSEL)), std::make_pair(m_hList, LRESULT(2)));
    Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 1));
    EXPECT_EQ(Send(LB_GETCURSEL), 0);
    EXPECT_EQ(CountCommands(LISTING_ID, LBN_SELCHANGE), 2);
    EXPECT_EQ(CountCommands(LISTING_ID, LBN_DBLCLK), 1);
    Send(WM_CHAR, 'b');
    EXPECT_EQ(Send(LB_GETCURSEL), 1) << "letter case does not matter";
    Send(WM_CHAR, 'l');
    EXPECT_EQ(Send(LB_GETCURSEL), 2);
    Send(WM_CHAR, 'x');
    EXPECT_EQ(Send(LB_GETCURSEL), 2) << "no match keeps the selection";

    EXPECT_EQ(Send(LB_SETTOPINDEX, 19), 0);
    EXPECT_EQ(Send(LB_GETTOPINDEX), 20 - nRows) << "stops at the last full page";
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, nRows * nHeight + 1)); // below the entries
    EXPECT_EQ(Send(LB_GETCURSEL), 2);
    Send(WM_VSCROLL, SB_LINEUP);
    SCROLLINFO si = {sizeof(si), SIF_ALL, 0, 0, 0, 0, 0};
    ASSERT_TRUE(GetScrollInfo(m_hList, SB_VERT, &si));
    EXPECT_EQ(std::make_tuple(19 - nRows, 19, static_cast<UINT>(nRows), 19 - nRows),
              std::make_tuple(static_cast<int>(Send(LB_GETTOPINDEX)), si.nMax, si.nPage, si.nPos));

    HWND hQuiet = CreateChild(LISTING_CLASS, 0, 102, 120, 100); // without LBS_NOTIFY
    ListingOnAddString(hQuiet, "a");
    SendMessageA(hQuiet, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 1));
    EXPECT_EQ(SendMessageA(hQuiet, LB_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(CountCommands(102, LBN_SELCHANGE) + CountCommands(102, LBN_DBLCLK), 0);
}

// ---- time fields ----------------------------------------------------------------------------

// Left and Right stop at the first and last fields; Up and Down wrap within the field.
TEST_F(CKelUtilTest, TimeFieldKeepsItsValueInRangeAndKeysStepTheFieldInWindowWordZero)
{
    EXPECT_NE(KEL_Util_Running(), 0);
    HWND hTime = CreateTime(KEL_TIMECLASS), hMsTime = CreateTime(KEL_MSTIMECLASS);
    ASSERT_TRUE(hTime != NULL && hMsTime != NULL) << "global classes of the library";
    const struct { HWND hField; LPARAM nSet; LRESULT nExpected; } cases[] = {
        {hTime, -5, 0}, {hTime, 400000, 359999}, {hMsTime, 400000000, 359999999}, {hTime, 59 * 60, 59 * 60}};
    for (const auto& c : cases)
    {
        EXPECT_EQ(SendMessageA(c.hField, WM_USER, 0, c.nSet), c.nExpected) << c.nSet;
        EXPECT_EQ(GetFieldAndValue(c.hField).second, c.nExpected) << c.nSet;
    }
    EXPECT_TRUE(g_commands.empty()) << "only the user's changes notify";
    EXPECT_EQ(SendMessageA(hTime, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);

    SendMessageA(hTime, WM_LBUTTONDOWN, 0, 0);
    EXPECT_EQ(GetFocus(), hTime);
    const struct { WPARAM nKey; LONG nField; LRESULT nValue; } steps[] = {
        {VK_LEFT, 0, 59 * 60}, {VK_RIGHT, 1, 59 * 60}, {VK_UP, 1, 0}, // 59 minutes up is 0; the hours stay
        {VK_DOWN, 1, 59 * 60}, {VK_RIGHT, 2, 59 * 60}, {VK_RIGHT, 2, 59 * 60}, {VK_LEFT, 1, 59 * 60},
        {VK_LEFT, 0, 59 * 60}, {VK_DOWN, 0, 99 * 3600 + 59 * 60}};
    for (const auto& step : steps)
    {
        SendMessageA(hTime, WM_KEYDOWN, step.nKey, 0);
        EXPECT_EQ(GetFieldAndValue(hTime), std::make_pair(step.nField, step.nValue)) << "step " << &step - steps;
    }
    EXPECT_EQ(CountCommands(TIME_ID, EN_CHANGE), 3);
    // Window word 0 is open to anyone: a foreign field index reads as the hours.
    SetWindowLongA(hTime, 0, 7);
    SendMessageA(hTime, WM_KEYDOWN, VK_UP, 0);
    EXPECT_EQ(GetFieldAndValue(hTime).second, 59 * 60);

    // The mouse makes the nearest field current.
    SendMessageA(hMsTime, WM_LBUTTONDOWN, 0, MAKELPARAM(159, 5));
    EXPECT_EQ(GetFieldAndValue(hMsTime).first, 3);
    SendMessageA(hMsTime, WM_LBUTTONDOWN, 0, MAKELPARAM(0, 5));
    EXPECT_EQ(GetFieldAndValue(hMsTime).first, 0);
}

TEST_F(CKelUtilTest, TimeFieldTypedDigitsFillTheFieldsInTurn)
{
    const struct { const char* pszClass; const char* pszTyped; LONG nField; LRESULT nValue; } cases[] = {
        {KEL_TIMECLASS, "123045", 2, 12 * 3600 + 30 * 60 + 45}, {KEL_TIMECLASS, "1", 0, 3600},
        {KEL_TIMECLASS, "007", 2, 7 * 60}, // 7 minutes cannot take a second digit
        {KEL_TIMECLASS, "1:2:3", 2, 3600 + 120 + 3},
        {KEL_TIMECLASS, "00005912", 2, 12}, // the last field starts over when full
        {KEL_MSTIMECLASS, "000001250", 3, 1250}, {KEL_TIMECLASS, "0012", 2, 12 * 60}};
    for (const auto& c : cases)
    {
        HWND hField = CreateTime(c.pszClass);
        g_commands.clear();
        SendMessageA(hField, WM_LBUTTONDOWN, 0, 0);
        for (const char* pch = c.pszTyped; *pch; ++pch)
            SendMessageA(hField, WM_CHAR, static_cast<WPARAM>(*pch), 0);
        EXPECT_EQ(GetFieldAndValue(hField), std::make_pair(c.nField, c.nValue)) << c.pszTyped;
        DestroyWindow(hField);
    }
    EXPECT_EQ(CountCommands(TIME_ID, EN_CHANGE), 2) << "typing a zero over a zero changes nothing";
}

// ---- button faces ---------------------------------------------------------------------------

TEST_F(CKelUtilTest, ButtonFacesDrawGlyphsEdgesTextAndFocusUnlessTheArgumentsAreBad)
{
    HWND hButton = CreateChild("BUTTON", BS_OWNERDRAW, 1, 60, 30);
    auto paint = [](HWND hWnd, const CCanvas* pCanvas, DWORD dwGlyph, WORD wState, DWORD cbSize = 124) {
        const KEL_BUTTON_PARAMS params = {cbSize, {}, wState, 0, {}, BLACK, GREEN, dwGlyph, 0, {}}; // black on green
        return PaintButtonEx2(hWnd, pCanvas != NULL ? pCanvas->GetDC() : NULL, &params);
    };
    const COLORREF crGrey = GetSysColor(COLOR_GRAYTEXT);
    const struct { DWORD dwGlyph; WORD wState; COLORREF crCentre; } cases[] = {
        {KEL_GLYPH_PLAY, 0, BLACK}, {KEL_GLYPH_STOP, 0, BLACK}, {KEL_GLYPH_FFORWARD, 0, BLACK},
        {KEL_GLYPH_REWIND, 0, BLACK}, {KEL_GLYPH_RECORD, 0, RGB(255, 0, 0)}, {KEL_GLYPH_PLAY, ODS_DISABLED, crGrey},
        {KEL_GLYPH_RECORD, ODS_DISABLED, crGrey}, {KEL_GLYPH_TEXT, 0, GREEN}}; // the button has no text
    for (const auto& c : cases)
    {
        CCanvas canvas;
        EXPECT_TRUE(paint(hButton, &canvas, c.dwGlyph, c.wState));
        EXPECT_EQ(std::make_pair(canvas.GetPixel(30, 15), canvas.GetPixel(5, 5)), std::make_pair(c.crCentre, GREEN))
            << c.dwGlyph << " state " << c.wState;
    }

    CCanvas raised, sunken, plain, focused, untouched;
    paint(hButton, &raised, KEL_GLYPH_STOP, 0);
    paint(hButton, &sunken, KEL_GLYPH_STOP, ODS_SELECTED);
    EXPECT_NE(raised.GetPixel(0, 0), sunken.GetPixel(0, 0));
    EXPECT_NE(raised.GetPixel(59, 29), sunken.GetPixel(59, 29));
    SetWindowTextA(hButton, "WWW");
    paint(hButton, &plain, KEL_GLYPH_TEXT, 0);
    paint(hButton, &focused, KEL_GLYPH_TEXT, ODS_FOCUS);
    int nFocusPixels = 0; // inside the edge, which may be black
    for (int x = 3; x < 57; ++x)
        nFocusPixels += plain.GetPixel(x, 4) != focused.GetPixel(x, 4);
    EXPECT_GT(plain.CountPixels(BLACK, RECT{3, 15, 57, 16}), 0);
    EXPECT_GT(nFocusPixels, 0);

    EXPECT_FALSE(PaintButtonEx2(hButton, untouched.GetDC(), NULL));
    EXPECT_FALSE(paint(NULL, &untouched, KEL_GLYPH_PLAY, 0));
    EXPECT_FALSE(paint(hButton, NULL, KEL_GLYPH_PLAY, 0));
    EXPECT_FALSE(paint(hButton, &untouched, KEL_GLYPH_PLAY, 0, 100));
    EXPECT_EQ(untouched.GetPixel(5, 5), WHITE) << "bad arguments paint nothing";
}

// ---- profile values -------------------------------------------------------------------------

TEST(ProfileTest, ReadsTheYesNoFormsAndWritesOneOrZero)
{
    const char szFile[] = ".\\KelUtilTests.ini"; // with a directory, not in the Windows one
    const struct { const char* pszText; int nExpected; } cases[] = { // -1: the default
        {"1", 1}, {"yes", 1}, {"TRUE", 1}, {"On", 1}, {"0", 0}, {"NO", 0}, {"false", 0}, {"oFF", 0},
        {"2", -1}, {"maybe", -1}, {"yesterday", -1}, {"", -1}};
    for (const auto& c : cases)
    {
        WritePrivateProfileStringA("Joystick", "Enabled", c.pszText, szFile);
        for (BOOL bDefault : {FALSE, TRUE})
            EXPECT_EQ(GetPrivateProfileBool("Joystick", "Enabled", bDefault, szFile),
                      c.nExpected < 0 ? bDefault : c.nExpected) << c.pszText;
    }
    EXPECT_EQ(GetPrivateProfileBool("Joystick", "Missing", 7, szFile), TRUE);
    EXPECT_EQ(GetPrivateProfileBool(NULL, "Enabled", FALSE, szFile), FALSE);
    EXPECT_EQ(GetPrivateProfileBool("Joystick", NULL, TRUE, szFile), TRUE);

    EXPECT_TRUE(WritePrivateProfileBool("Joystick", "Enabled", 5, szFile));
    EXPECT_EQ(GetPrivateProfileIntA("Joystick", "Enabled", -1, szFile), 1); // not "yes" or "true"
    EXPECT_TRUE(WritePrivateProfileBool("Joystick", "Enabled", FALSE, szFile));
    // A null key must not delete the section, as the system function would.
    EXPECT_FALSE(WritePrivateProfileBool("Joystick", NULL, TRUE, szFile));
    EXPECT_FALSE(WritePrivateProfileBool(NULL, "Enabled", TRUE, szFile));
    EXPECT_EQ(GetPrivateProfileIntA("Joystick", "Enabled", -1, szFile), 0);
    DeleteFileA(szFile);
}

} // namespace
