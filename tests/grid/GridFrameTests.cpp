// The grid window: sorting through header clicks (row order and the header's pixels), widths in
// step both ways with the host's veto, printing onto a memory device context, and export.
#include "frame/KelControlsRes.h"
#include "grid/GridFind.h"
#include "tests/grid/GridHost.h"
#include "tests/harness/Input.h"

#include <stdio.h>

#include <algorithm>

#include <string>
#include <vector>

namespace
{
const UINT GRID_ID = 77;
const int COL_WIDTH = 80;

// Records the printing flags each time a cell or a title is drawn.
class CProbeList : public CGridList
{
public:
    void DrawCell(int row, int col, CDC* pDC, const CRect& rcCell, CRect& rcText, int& nIconSide) override
    {
        m_arDrawn.push_back(IsPrinting() ? row : -1);
        CGridList::DrawCell(row, col, pDC, rcCell, rcText, nIconSide);
    }
    std::vector<int> m_arDrawn; // the row, -1 when drawn while not printing
};

class CProbeHeader : public CGridHeader
{
public:
    void DrawItem(CDC* pDC, int nIndex) override
    {
        m_arDrawn.push_back(IsPrinting() ? nIndex : -1);
        CGridHeader::DrawItem(pDC, nIndex);
    }
    std::vector<int> m_arDrawn;
};

class CGridFrameTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_host.Create(400, 300, true));
        m_host.SetPayloadSize(HDN_ITEMCLICKA, sizeof(NMHEADERA));
        m_host.SetPayloadSize(HDN_TRACKA, sizeof(NMHEADERA));
    }

    void CreateGrid(int nRows, int nCols)
    {
        ASSERT_TRUE(m_grid.Create(nRows, nCols, FALSE, FALSE, WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 300),
                                  CWnd::FromHandle(m_host), GRID_ID));
        m_grid.GetList().SetAllColsToWidth(COL_WIDTH);
        m_grid.GetList().SetRowHeight(16);
    }

    void SetRows(const std::vector<std::vector<const char*>>& rows)
    {
        for (size_t row = 0; row < rows.size(); ++row)
            for (size_t col = 0; col < rows[row].size(); ++col)
                m_grid.GetList().SetText(static_cast<int>(row), static_cast<int>(col), rows[row][col]);
    }

    CNotifyRecorder m_host;
    CTGrid<CProbeList, CProbeHeader> m_grid;
};

// Plain clicks sort by one column, flipping on the second click; Ctrl+clicks add keys or flip
// them. The rows are read back through the key columns, the keys from the header.
TEST_F(CGridFrameTest, HeaderClicksSortByOneOrSeveralColumns)
{
    CreateGrid(6, 4);
    SetRows({{"b", "2"}, {"a", "10"}, {"c", "2"}, {"a", "2"}, {"d", "10"}, {"b", "1"}});
    m_grid.SetColumnSortClass(1, 1);
    m_grid.GetList().ModifyStyle(0, CGridList::GS_SORTONHDR);
    HWND hHeader = m_grid.GetHeader().GetSafeHwnd();
    struct
    {
        int col;
        UINT fModifiers;
        std::vector<int> keys; // column, type, priority per key
        const char* pszRows;   // each row's key columns
    } steps[] = {
        {1, 0, {1, 2, -1}, "1 2 2 2 10 10"},
        {1, 0, {1, 3, -1}, "10 10 2 2 2 1"},
        {0, CInput::CTRL, {1, 3, 1, 0, 0, 2}, "10a 10d 2a 2b 2c 1b"},
        {0, CInput::CTRL, {1, 3, 1, 0, 1, 2}, "10d 10a 2c 2b 2a 1b"},
        {1, CInput::CTRL, {1, 2, 1, 0, 1, 2}, "1b 2c 2b 2a 10d 10a"},
        {0, 0, {0, 0, -1}, "a a b b c d"},
    };
    for (const auto& step : steps)
    {
        CInput::Click(hHeader, step.col * COL_WIDTH + COL_WIDTH / 2, 5, step.fModifiers);
        const std::vector<int> keys = SortKeys(m_grid.GetHeader());
        std::string rows;
        for (int row = 0; row < 6; ++row)
        {
            rows += row > 0 ? " " : "";
            for (size_t i = 0; i < keys.size(); i += 3)
                rows += m_grid.GetList().GetText(row, keys[i]);
        }
        EXPECT_EQ(step.keys, keys) << step.col;
        EXPECT_EQ(step.pszRows, rows) << step.col;
        // The host hears of the click from the grid window.
        const NMHEADERA* pClick = m_host.GetLast<NMHEADERA>(HDN_ITEMCLICKA);
        ASSERT_TRUE(pClick != NULL);
        EXPECT_EQ(m_grid.GetSafeHwnd(), pClick->hdr.hwndFrom);
        EXPECT_EQ(GRID_ID, pClick->hdr.idFrom);
        EXPECT_EQ(step.col, pClick->iItem);
    }

    // Two keys: both items show an arrow and a priority number, the others neither.
    CInput::Click(hHeader, COL_WIDTH + COL_WIDTH / 2, 5, CInput::CTRL);
    CWindowImage image;
    m_grid.GetHeader().UpdateWindow();
    ASSERT_TRUE(image.Capture(hHeader));
    const COLORREF clrShadow = ::GetSysColor(COLOR_BTNSHADOW) & 0xFFFFFF;
    for (int col = 0; col < 4; ++col)
    {
        const CRect rcInside(col * COL_WIDTH + 3, 3, (col + 1) * COL_WIDTH - 3, image.GetHeight() - 3);
        EXPECT_EQ(col < 2, image.CountPixels(clrShadow, rcInside) > 0) << col;
        EXPECT_EQ(col < 2, image.CountPixels(RGB(0, 0, 0), rcInside) > 0) << col;
    }
}

TEST_F(CGridFrameTest, WidthsInStepBothWaysAndTheHostMayVetoADrag)
{
    CreateGrid(3, 3);
    HD_ITEM item = {};
    item.mask = HDI_WIDTH;
    ASSERT_TRUE(m_grid.GetList().SetColumnWidth(2, 50));
    ASSERT_TRUE(m_grid.GetHeader().GetItem(2, &item));
    EXPECT_EQ(50, item.cxy);

    HWND hHeader = m_grid.GetHeader().GetSafeHwnd();
    CWindowImage image;
    ASSERT_TRUE(image.Capture(m_grid.GetList().GetSafeHwnd())); // painted before the drag
    CInput::Drag(hHeader, CPoint(COL_WIDTH - 1, 5), CPoint(COL_WIDTH + 29, 5));
    EXPECT_EQ(COL_WIDTH + 30, m_grid.GetList().GetColumnWidth(0));
    // The list shows the columns' right grid lines where the drag left them, not where they were.
    ASSERT_TRUE(image.Capture(m_grid.GetList().GetSafeHwnd()));
    const COLORREF clrLine = RGB(200, 200, 200);
    for (int nEdge : {COL_WIDTH, 2 * COL_WIDTH})
    {
        EXPECT_NE(clrLine, image.GetPixel(nEdge - 1, 8)) << nEdge;
        EXPECT_EQ(clrLine, image.GetPixel(nEdge + 29, 8)) << nEdge;
    }
    m_grid.GetHeader().GetItem(0, &item);
    EXPECT_EQ(COL_WIDTH + 30, item.cxy);
    const NMHEADERA* pTrack = m_host.GetLast<NMHEADERA>(HDN_TRACKA);
    ASSERT_TRUE(pTrack != NULL);
    EXPECT_EQ(m_grid.GetSafeHwnd(), pTrack->hdr.hwndFrom);

    m_host.SetReply(HDN_TRACKA, 1);
    CInput::Drag(hHeader, CPoint(2 * COL_WIDTH + 29, 5), CPoint(2 * COL_WIDTH + 49, 5));
    EXPECT_EQ(COL_WIDTH, m_grid.GetList().GetColumnWidth(1));
    m_grid.GetHeader().GetItem(1, &item);
    EXPECT_EQ(COL_WIDTH, item.cxy);
}

// F3 or Ctrl+F on the list opens its find dialog with the titles as column names; F8 goes to the
// host.
TEST_F(CGridFrameTest, F3OrCtrlFOpensTheFindDialogWithTheTitlesAndF8ReachesTheHost)
{
    CreateGrid(3, 2);
    m_grid.SetColumnTitle(0, "Cue");
    m_grid.SetColumnTitle(1, "Level");
    m_host.RecordMessage(GM_KEYF8);
    CInput::PressKey(m_grid.GetList(), VK_F8);
    ASSERT_EQ(1u, m_host.GetMessages().size());
    EXPECT_EQ(static_cast<UINT>(GM_KEYF8), m_host.GetMessages()[0].m_uMsg);

    CInput::PressKey(m_grid.GetList(), VK_F3);
    CGridFind* pDlg = m_grid.GetList().GetFindDlg();
    ASSERT_NE(nullptr, pDlg);
    const HWND hColumns = ::GetDlgItem(pDlg->GetSafeHwnd(), IDC_GRIDFIND_COLUMNS);
    char szName[16] = "";
    ::SendMessageA(hColumns, CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(szName));
    EXPECT_STREQ("Level", szName);
    pDlg->DestroyWindow();
    ASSERT_EQ(nullptr, m_grid.GetList().GetFindDlg());

    CInput::PressKey(m_grid.GetList(), 'F', CInput::CTRL);
    pDlg = m_grid.GetList().GetFindDlg();
    ASSERT_NE(nullptr, pDlg);
    pDlg->DestroyWindow();
}

// Pages of a 300 by 200 memory bitmap: the header on each, the rows shared out, the printing
// flags set only while drawing.
TEST_F(CGridFrameTest, PrintsPagesWithTheHeaderOnEach)
{
    CreateGrid(30, 3);
    m_grid.SetColumnTitle(0, "Name");
    m_grid.GetList().SetCurSel(1, 0); // a selection does not print
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(NULL));
    HDC hScreen = ::GetDC(NULL);
    HBITMAP hBitmap = ::CreateCompatibleBitmap(hScreen, 300, 200);
    ::ReleaseDC(NULL, hScreen);
    HGDIOBJ hOld = ::SelectObject(dc.GetSafeHdc(), hBitmap);
    const CRect rcPage(0, 0, 300, 200);
    const int nPerPage = (200 - m_grid.GetHeaderHeight()) / 16;
    const int nPages = (30 + nPerPage - 1) / nPerPage;
    ASSERT_EQ(nPages, m_grid.GetPrintPageCount(&dc, rcPage));
    ASSERT_LE(3, nPages);

    for (int nPage : {0, nPages - 1})
    {
        ::PatBlt(dc.GetSafeHdc(), 0, 0, 300, 200, WHITENESS);
        m_grid.GetList().m_arDrawn.clear();
        m_grid.GetHeader().m_arDrawn.clear();
        ASSERT_TRUE(m_grid.PrintPage(&dc, rcPage, nPage));
        std::vector<int> rows;
        const int nLast = std::min(30, (nPage + 1) * nPerPage);
        for (int row = nPage * nPerPage; row < nLast; ++row)
            rows.insert(rows.end(), {row, row, row});
        EXPECT_EQ(rows, m_grid.GetList().m_arDrawn);
        EXPECT_EQ(std::vector<int>({0, 1, 2}), m_grid.GetHeader().m_arDrawn);
        // The header's face across the top, white cells below.
        EXPECT_EQ(::GetSysColor(COLOR_BTNFACE) & 0xFFFFFF, ::GetPixel(dc.GetSafeHdc(), COL_WIDTH / 2, 3));
        EXPECT_EQ(RGB(255, 255, 255), ::GetPixel(dc.GetSafeHdc(), COL_WIDTH / 2, m_grid.GetHeaderHeight() + 24));
    }
    EXPECT_FALSE(m_grid.GetList().IsPrinting());
    EXPECT_FALSE(m_grid.GetHeader().IsPrinting());
    EXPECT_FALSE(m_grid.PrintPage(&dc, rcPage, nPages));
    EXPECT_FALSE(m_grid.PrintPage(NULL, rcPage, 0));
    ::SelectObject(dc.GetSafeHdc(), hOld);
    ::DeleteObject(hBitmap);
}

TEST_F(CGridFrameTest, ExportsQuotedTextAndCsvToFileAndClipboard)
{
    CreateGrid(2, 3);
    const char* titles[] = {"Name", "Size, mm", "Note"};
    for (int col = 0; col < 3; ++col)
        m_grid.SetColumnTitle(col, titles[col]);
    SetRows({{"plain", "a\tb", "say \"hi\""}, {"x,y", "line1\nline2", ""}});
    const char* pszText = "Name\tSize, mm\tNote\r\n"
                          "plain\t\"a\tb\"\t\"say \"\"hi\"\"\"\r\n"
                          "x,y\t\"line1\nline2\"\t\r\n";
    const char* pszCsv = "Name,\"Size, mm\",Note\r\n"
                         "plain,a\tb,\"say \"\"hi\"\"\"\r\n"
                         "\"x,y\",\"line1\nline2\",\r\n";
    EXPECT_STREQ(pszText, m_grid.GetExportText(CGridFrame::EXPORT_TEXT));

    ASSERT_TRUE(m_grid.ExportToClipboard(CGridFrame::EXPORT_CSV));
    ASSERT_TRUE(::OpenClipboard(NULL));
    HANDLE hData = ::GetClipboardData(CF_TEXT);
    EXPECT_STREQ(pszCsv, hData != NULL ? static_cast<const char*>(::GlobalLock(hData)) : "");
    if (hData != NULL)
        ::GlobalUnlock(hData);
    ::CloseClipboard();

    char szPath[MAX_PATH];
    char szFolder[MAX_PATH];
    ::GetTempPathA(MAX_PATH, szFolder);
    ::GetTempFileNameA(szFolder, "kgf", 0, szPath);
    ASSERT_TRUE(m_grid.ExportToFile(szPath, CGridFrame::EXPORT_TEXT));
    std::string file;
    if (FILE* pFile = fopen(szPath, "rb"))
    {
        char buffer[256];
        file.assign(buffer, fread(buffer, 1, sizeof(buffer), pFile));
        fclose(pFile);
    }
    ::DeleteFileA(szPath);
    EXPECT_EQ(pszText, file);

    EXPECT_FALSE(m_grid.ExportToFile(NULL, CGridFrame::EXPORT_CSV));
    EXPECT_FALSE(m_grid.ExportToClipboard(static_cast<CGridFrame::EXPORTFORMAT>(7)));
}
} // namespace
