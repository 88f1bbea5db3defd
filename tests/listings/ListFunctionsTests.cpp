#include "tests/controls/ControlHost.h"

#include "capture/WindowImage.h"

#include <cderr.h>
#include <commdlg.h>

#include <fstream>
#include <sstream>

namespace
{
HWND CreateList(HWND hParent, const char* pszClass, DWORD dwStyle)
{
    return ::CreateWindowExA(0, pszClass, "", WS_CHILD | WS_VISIBLE | WS_VSCROLL | dwStyle, 0, 0, 200, 150, hParent,
                             reinterpret_cast<HMENU>(10), CKelControlsModule::GetInstanceHandle(), NULL);
}

// ---- stand-ins for the dialogs, the print job and the text drawing ----------------------------

struct CDrawnText
{
    std::string m_strText;
    RECT m_rect;
    UINT m_uFormat;
};

struct CStandIns
{
    std::vector<CDrawnText> m_texts;
    int m_nPrintDialogs = 0;
    HDC m_hDialogDC = NULL; // the dialog's answer; null means cancelled
    DWORD m_dwDialogError = 0;
    std::string m_strSaveName; // the save dialog's answer; empty means cancelled
    std::string m_strDocName;
    int m_nPages = 0;
    int m_nEndPageResult = 1;
    int m_nEndDocs = 0;
    int m_nAborts = 0;
};
CStandIns s_standIns;

int WINAPI RecordDrawText(HDC hDC, LPCSTR pszText, int nCount, LPRECT pRect, UINT uFormat)
{
    s_standIns.m_texts.push_back({pszText, *pRect, uFormat});
    return ::DrawTextA(hDC, pszText, nCount, pRect, uFormat); // the program's own import, not redirected
}
BOOL WINAPI AnswerPrintDlg(LPPRINTDLGA pPrintDlg)
{
    ++s_standIns.m_nPrintDialogs;
    return (pPrintDlg->hDC = s_standIns.m_hDialogDC) != NULL;
}
BOOL WINAPI AnswerSaveDlg(LPOPENFILENAMEA pOfn)
{
    lstrcpynA(pOfn->lpstrFile, s_standIns.m_strSaveName.c_str(), static_cast<int>(pOfn->nMaxFile));
    return !s_standIns.m_strSaveName.empty();
}
DWORD WINAPI AnswerDialogError() { return s_standIns.m_dwDialogError; }
int WINAPI RecordStartDoc(HDC, const DOCINFOA* pDoc)
{
    s_standIns.m_strDocName = pDoc->lpszDocName;
    return 1;
}
int WINAPI RecordStartPage(HDC) { return ++s_standIns.m_nPages; }
int WINAPI AnswerEndPage(HDC) { return s_standIns.m_nEndPageResult; }
int WINAPI RecordEndDoc(HDC) { return ++s_standIns.m_nEndDocs; }
int WINAPI RecordAbortDoc(HDC) { return ++s_standIns.m_nAborts; }

class CListFunctionsTest : public CControlHost
{
protected:
    void SetUp() override
    {
        CControlHost::SetUp();
        InitListingLibrary();
        s_standIns = CStandIns();
        const struct
        {
            const char *pszDll, *pszFunction;
            void* pfnStandIn;
        } aRedirects[] = {
            {"user32.dll", "DrawTextA", reinterpret_cast<void*>(RecordDrawText)},
            {"comdlg32.dll", "PrintDlgA", reinterpret_cast<void*>(AnswerPrintDlg)},
            {"comdlg32.dll", "GetSaveFileNameA", reinterpret_cast<void*>(AnswerSaveDlg)},
            {"comdlg32.dll", "CommDlgExtendedError", reinterpret_cast<void*>(AnswerDialogError)},
            {"gdi32.dll", "StartDocA", reinterpret_cast<void*>(RecordStartDoc)},
            {"gdi32.dll", "StartPage", reinterpret_cast<void*>(RecordStartPage)},
            {"gdi32.dll", "EndPage", reinterpret_cast<void*>(AnswerEndPage)},
            {"gdi32.dll", "EndDoc", reinterpret_cast<void*>(RecordEndDoc)},
            {"gdi32.dll", "AbortDoc", reinterpret_cast<void*>(RecordAbortDoc)},
        };
        for (const auto& redirect : aRedirects)
            ASSERT_NE(nullptr, CImportRecorder::Get().Redirect(::GetModuleHandleA("KelControls.dll"), redirect.pszDll,
                                                               redirect.pszFunction, redirect.pfnStandIn))
                << redirect.pszFunction;
    }

    // An event list with "entry 1" to "entry N".
    HWND CreateEntries(int nCount)
    {
        HWND hList = CreateList(m_parent, EVENT_LIST_CLASS, 0);
        for (int i = 1; i <= nCount; ++i)
            FillList(hList, {("entry " + std::to_string(i)).c_str()});
        return hList;
    }
};

std::string ReadFile(const std::string& strPath)
{
    std::stringstream content;
    content << std::ifstream(strPath, std::ios::binary).rdbuf();
    return content.str();
}

std::string TempPath(const char* pszName)
{
    char szDir[MAX_PATH];
    ::GetTempPathA(sizeof(szDir), szDir);
    return std::string(szDir) + pszName;
}
} // namespace

// ---- SortList -----------------------------------------------------------------------------------

TEST_F(CListFunctionsTest, SortListOrdersByTheGridsSortTypesKeepsTiesInOrderAndRefusesWhatItCannot)
{
    const struct
    {
        const char* pszClass;
        DWORD dwStyle;
        int nType;
        std::initializer_list<const char*> input;
        std::vector<std::string> expected; // empty: refused, the list left as it was
    } aCases[] = {
        {EVENT_LIST_CLASS, 0, 2, {"10", "9", "abc"}, {"abc", "9", "10"}}, // "abc" is 0
        {EVENT_LIST_CLASS, 0, 3, {"9", "abc", "10"}, {"10", "9", "abc"}},
        {"LISTBOX", 0, 0, {"b", "a", "B", "A"}, {"a", "A", "b", "B"}},
        {"LISTBOX", 0, 1, {"b", "a", "B", "A"}, {"b", "B", "a", "A"}},
        {"LISTBOX", 0, 4, {"1:00:00", "59:00", "2"}, {"2", "59:00", "1:00:00"}}, // 10000, 5900, 2
        {"LISTBOX", 0, 5, {"59:00", "2", "1:00:00"}, {"1:00:00", "59:00", "2"}},
        {"LISTBOX", LBS_SORT, 1, {"b", "a"}, {}}, // it sorts itself
        {"LISTBOX", LBS_OWNERDRAWFIXED, 0, {}, {}}, // no strings
        {"LISTBOX", 0, 6, {"b", "a"}, {}},
        {"LISTBOX", 0, -1, {"b", "a"}, {}},
    };
    for (const auto& test : aCases)
    {
        SCOPED_TRACE(testing::Message() << test.pszClass << " " << test.dwStyle << " " << test.nType);
        HWND hList = CreateList(m_parent, test.pszClass, test.dwStyle);
        FillList(hList, test.input);
        const std::vector<std::string> before = ListTexts(hList);
        EXPECT_EQ(test.expected.empty() ? 0 : 1, SortList(hList, test.nType));
        EXPECT_EQ(test.expected.empty() ? before : test.expected, ListTexts(hList));
        ::DestroyWindow(hList);
    }
    EXPECT_EQ(0, SortList(NULL, 0));
}

TEST_F(CListFunctionsTest, SortListCarriesColoursDataAndSelectionAlong)
{
    HWND hListing = CreateList(m_parent, EVENT_LIST_CLASS, 0);
    FillList(hListing, {"10", "9", "abc"});
    KEL_LISTING_COLORS red = {RGB(255, 0, 0), RGB(0, 0, 64)};
    ::SendMessageA(hListing, KLM_SETITEMCOLORS, 0, reinterpret_cast<LPARAM>(&red));
    ::SendMessageA(hListing, LB_SETCURSEL, 1, 0);
    ASSERT_EQ(1, SortList(hListing, 2));
    KEL_LISTING_COLORS colors = {};
    ::SendMessageA(hListing, KLM_GETITEMCOLORS, 2, reinterpret_cast<LPARAM>(&colors)); // "10"
    EXPECT_EQ(red.crText, colors.crText);
    EXPECT_EQ(red.crBack, colors.crBack);
    EXPECT_EQ(1, ::SendMessageA(hListing, LB_GETCURSEL, 0, 0)); // "9"

    HWND hList = CreateList(m_parent, "LISTBOX", LBS_EXTENDEDSEL);
    FillList(hList, {"c", "a", "b"});
    for (int i = 0; i < 3; ++i)
        ::SendMessageA(hList, LB_SETITEMDATA, i, 100 + i);
    ::SendMessageA(hList, LB_SETSEL, TRUE, 0);
    ::SendMessageA(hList, LB_SETSEL, TRUE, 2);
    ASSERT_EQ(1, SortList(hList, 0));
    EXPECT_EQ((std::vector<std::string>{"a", "b", "c"}), ListTexts(hList));
    const int aData[] = {101, 102, 100};
    const int aSelected[] = {0, 1, 1};
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_EQ(aData[i], ::SendMessageA(hList, LB_GETITEMDATA, i, 0)) << i;
        EXPECT_EQ(aSelected[i], ::SendMessageA(hList, LB_GETSEL, i, 0)) << i;
    }
}

// ---- DrawListBoxPageEx and PrintListBoxEx ---------------------------------------------------------

TEST_F(CListFunctionsTest, PagesHoldWhatFitsBetweenTitleAndFooter)
{
    HWND hList = CreateEntries(25);
    CWindowImage canvas;
    ASSERT_TRUE(canvas.CreateCanvas(600, 1000, RGB(255, 255, 255)));
    int nInch = ::GetDeviceCaps(canvas.GetDC(), LOGPIXELSY);
    RECT rcPage = {0, 0, 600, 1000};
    ASSERT_EQ(25, DrawListBoxPageEx(hList, canvas.GetDC(), &rcPage, 1, NULL, 0));
    int nLine = s_standIns.m_texts[0].m_rect.bottom - s_standIns.m_texts[0].m_rect.top;
    ASSERT_GT(nLine, 0);
    EXPECT_EQ(nInch / 2, s_standIns.m_texts[0].m_rect.top);
    EXPECT_EQ(nInch / 2, s_standIns.m_texts[0].m_rect.left);

    // Room for ten lines and the footer.
    rcPage.bottom = nInch + 11 * nLine + nLine / 2;
    const int aDrawn[] = {10, 10, 5, 0};
    for (int nPage = 1; nPage <= 4; ++nPage)
    {
        s_standIns.m_texts.clear();
        EXPECT_EQ(aDrawn[nPage - 1], DrawListBoxPageEx(hList, canvas.GetDC(), &rcPage, nPage, NULL, 0)) << nPage;
        if (nPage != 2)
            continue;
        ASSERT_EQ(11u, s_standIns.m_texts.size());
        EXPECT_EQ("entry 11", s_standIns.m_texts[0].m_strText);
        EXPECT_EQ(nInch / 2 + nLine, s_standIns.m_texts[1].m_rect.top);
        const CDrawnText& footer = s_standIns.m_texts.back();
        EXPECT_EQ("Page 2 of 3", footer.m_strText);
        EXPECT_EQ(static_cast<UINT>(DT_CENTER), footer.m_uFormat & DT_CENTER);
        EXPECT_EQ(rcPage.bottom - nInch / 2, footer.m_rect.bottom);
    }
    EXPECT_EQ(-1, DrawListBoxPageEx(hList, canvas.GetDC(), &rcPage, 0, NULL, 0));
    EXPECT_EQ(-1, DrawListBoxPageEx(hList, NULL, &rcPage, 1, NULL, 0));
    EXPECT_EQ(-1, DrawListBoxPageEx(hList, canvas.GetDC(), NULL, 1, NULL, 0));
    EXPECT_EQ(-1, DrawListBoxPageEx(NULL, canvas.GetDC(), &rcPage, 1, NULL, 0));
}

TEST_F(CListFunctionsTest, TitleRuleColoursAndSelectionShowOnThePage)
{
    HWND hList = CreateEntries(3);
    KEL_LISTING_COLORS red = {RGB(255, 0, 0), RGB(255, 255, 255)};
    ::SendMessageA(hList, KLM_SETITEMCOLORS, 1, reinterpret_cast<LPARAM>(&red));
    ::SendMessageA(hList, LB_SETCURSEL, 1, 0);
    RECT rcPage = {0, 0, 500, 600};
    for (DWORD dwFlags : {0, KLP_COLORS})
    {
        CWindowImage canvas;
        ASSERT_TRUE(canvas.CreateCanvas(500, 600, RGB(255, 255, 255)));
        s_standIns.m_texts.clear();
        ASSERT_EQ(3, DrawListBoxPageEx(hList, canvas.GetDC(), &rcPage, 1, "Cue list", dwFlags));
        ASSERT_EQ(5u, s_standIns.m_texts.size());
        const RECT& rcTitle = s_standIns.m_texts[0].m_rect;
        EXPECT_EQ("Cue list", s_standIns.m_texts[0].m_strText);
        // The rule, under the title across the printable width; the entries below it.
        RECT rcRule = {rcTitle.left, rcTitle.bottom, rcTitle.right, rcTitle.bottom + 2};
        EXPECT_GE(canvas.CountPixels(RGB(0, 0, 0), rcRule), rcTitle.right - rcTitle.left);
        EXPECT_GT(s_standIns.m_texts[1].m_rect.top, rcTitle.bottom);
        EXPECT_EQ(dwFlags == KLP_COLORS, canvas.CountPixels(RGB(255, 0, 0), s_standIns.m_texts[2].m_rect) > 0);
    }
    s_standIns.m_texts.clear();
    CWindowImage canvas;
    ASSERT_TRUE(canvas.CreateCanvas(500, 600, RGB(255, 255, 255)));
    EXPECT_EQ(1, DrawListBoxPageEx(hList, canvas.GetDC(), &rcPage, 1, "", KLP_SELECTEDONLY));
    ASSERT_EQ(2u, s_standIns.m_texts.size()); // no title for an empty one
    EXPECT_EQ("entry 2", s_standIns.m_texts[0].m_strText);
    EXPECT_EQ("Page 1 of 1", s_standIns.m_texts[1].m_strText);
}

TEST_F(CListFunctionsTest, PrintingRunsTheJobPageByPage)
{
    HWND hEmpty = CreateEntries(0);
    EXPECT_EQ(0, PrintListBoxEx(hEmpty, NULL, "Cues", 0));
    EXPECT_EQ(0, s_standIns.m_nPrintDialogs); // nothing to print: no dialog
    HWND hList = CreateEntries(120);
    EXPECT_EQ(-1, PrintListBoxEx(hList, NULL, "Cues", 0)); // cancelled
    s_standIns.m_dwDialogError = PDERR_NODEFAULTPRN;
    EXPECT_EQ(-2, PrintListBoxEx(hList, NULL, "Cues", 0));
    EXPECT_EQ(2, s_standIns.m_nPrintDialogs);

    // The printer: a memory context, deleted by the library after the job.
    s_standIns.m_hDialogDC = ::CreateCompatibleDC(NULL);
    RECT rcPage = {0, 0, ::GetDeviceCaps(s_standIns.m_hDialogDC, HORZRES), ::GetDeviceCaps(s_standIns.m_hDialogDC, VERTRES)};
    int nPages = 0;
    while (DrawListBoxPageEx(hList, s_standIns.m_hDialogDC, &rcPage, nPages + 1, NULL, 0) > 0)
        ++nPages;
    ASSERT_GT(nPages, 1);
    EXPECT_EQ(nPages, PrintListBoxEx(hList, NULL, NULL, 0));
    EXPECT_EQ(nPages, s_standIns.m_nPages);
    EXPECT_EQ(1, s_standIns.m_nEndDocs);
    EXPECT_EQ("List", s_standIns.m_strDocName);
    EXPECT_EQ(0, ::GetDeviceCaps(s_standIns.m_hDialogDC, HORZRES)); // gone

    // A page the printer refuses aborts the job.
    CWindowImage printer;
    ASSERT_TRUE(printer.CreateCanvas(100, 100, RGB(255, 255, 255)));
    s_standIns.m_nEndPageResult = 0;
    EXPECT_EQ(-2, PrintListBoxEx(hList, printer.GetDC(), "Cues", 0));
    EXPECT_EQ("Cues", s_standIns.m_strDocName);
    EXPECT_EQ(1, s_standIns.m_nAborts);
}

// ---- SaveListBoxEntryInTextEx -------------------------------------------------------------------

TEST_F(CListFunctionsTest, SavingWritesLinesAppendsAndAsksForAName)
{
    HWND hList = CreateList(m_parent, "LISTBOX", LBS_EXTENDEDSEL);
    FillList(hList, {"a", "b", "c"});
    ::SendMessageA(hList, LB_SETSEL, TRUE, 1);
    HWND hEmpty = CreateEntries(0);
    std::string strPath = TempPath("kel_listing_save.txt");
    const struct
    {
        HWND hList;
        DWORD dwFlags;
        int nResult;
        const char* pszContent;
    } aCases[] = {
        {hList, 0, 3, "a\r\nb\r\nc\r\n"},
        {hList, KLS_APPEND, 3, "a\r\nb\r\nc\r\na\r\nb\r\nc\r\n"},
        {hList, KLS_APPEND | KLS_SELECTEDONLY, 1, "a\r\nb\r\nc\r\na\r\nb\r\nc\r\nb\r\n"},
        {hEmpty, KLS_APPEND, 0, "a\r\nb\r\nc\r\na\r\nb\r\nc\r\nb\r\n"},
        {hEmpty, 0, 0, ""},
    };
    for (const auto& test : aCases)
    {
        EXPECT_EQ(test.nResult, SaveListBoxEntryInTextEx(test.hList, strPath.c_str(), test.dwFlags));
        EXPECT_EQ(test.pszContent, ReadFile(strPath)) << test.dwFlags;
    }
    EXPECT_EQ(-2, SaveListBoxEntryInTextEx(hList, TempPath("no_such_folder\\x.txt").c_str(), 0));
    EXPECT_EQ(-1, SaveListBoxEntryInTextEx(hList, NULL, 0)); // the dialog cancelled
    s_standIns.m_strSaveName = strPath;
    EXPECT_EQ(1, SaveListBoxEntryInTextEx(hList, "", KLS_SELECTEDONLY));
    EXPECT_EQ("b\r\n", ReadFile(strPath));
    ::DeleteFileA(strPath.c_str());
}
