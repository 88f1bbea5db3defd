#include "listings/ListFunctions.h"

#include "listings/ListContent.h"

#include <commdlg.h>

#include <stdio.h>

#include <algorithm>

namespace
{
const COLORREF BLACK = RGB(0, 0, 0);
const UINT LINE_FORMAT = DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;

// The printed layout of a list on one device context and page rectangle: where the title, the
// rule, the entries and the footer go, and how many entries a page holds.
class CPageLayout
{
public:
    CPageLayout(HDC hDC, const RECT& rcPage, const char* pszTitle)
        : m_hDC(hDC), m_bTitle(pszTitle != NULL && *pszTitle != '\0'), m_strTitle(m_bTitle ? pszTitle : "")
    {
        int nPixelsX = ::GetDeviceCaps(hDC, LOGPIXELSX);
        int nPixelsY = ::GetDeviceCaps(hDC, LOGPIXELSY);
        m_rcInner = rcPage;
        ::InflateRect(&m_rcInner, -nPixelsX / 2, -nPixelsY / 2);
        m_hBodyFont = CreateCourier(nPixelsY, 10, FW_NORMAL);
        m_hTitleFont = CreateCourier(nPixelsY, 12, FW_BOLD);
        m_nLineHeight = MeasureLine(m_hBodyFont);
        m_nRuleWidth = std::max(nPixelsY / 100, 1);
        int nTop = m_rcInner.top;
        if (m_bTitle)
        {
            m_nTitleHeight = MeasureLine(m_hTitleFont);
            nTop += m_nTitleHeight + m_nRuleWidth + m_nLineHeight / 2;
        }
        m_nBodyTop = nTop;
        m_nFooterTop = m_rcInner.bottom - m_nLineHeight;
        m_nLinesPerPage = std::max((m_nFooterTop - m_nBodyTop) / m_nLineHeight, 1);
    }

    ~CPageLayout()
    {
        ::DeleteObject(m_hBodyFont);
        ::DeleteObject(m_hTitleFont);
    }

    CPageLayout(const CPageLayout&) = delete;
    CPageLayout& operator=(const CPageLayout&) = delete;

    int GetPageCount(size_t nEntries) const
    {
        return static_cast<int>((nEntries + static_cast<size_t>(m_nLinesPerPage) - 1) / static_cast<size_t>(m_nLinesPerPage));
    }

    // The number of entries drawn.
    int DrawPage(const std::vector<const CListContent::CEntry*>& entries, int nPage, bool bColors) const
    {
        int nPages = GetPageCount(entries.size());
        if (nPage > nPages)
            return 0;
        int nSaved = ::SaveDC(m_hDC);
        ::SetBkMode(m_hDC, TRANSPARENT);
        ::SetTextColor(m_hDC, BLACK);
        if (m_bTitle)
            DrawTitle();
        ::SelectObject(m_hDC, m_hBodyFont);
        size_t nFirst = static_cast<size_t>(nPage - 1) * static_cast<size_t>(m_nLinesPerPage);
        size_t nEnd = std::min(nFirst + static_cast<size_t>(m_nLinesPerPage), entries.size());
        RECT rcLine = {m_rcInner.left, m_nBodyTop, m_rcInner.right, m_nBodyTop + m_nLineHeight};
        for (size_t i = nFirst; i < nEnd; ++i)
        {
            COLORREF crText = entries[i]->m_colors.crText;
            ::SetTextColor(m_hDC, bColors && crText != KEL_NO_COLOR ? crText : BLACK);
            ::DrawTextA(m_hDC, entries[i]->m_strText, -1, &rcLine, LINE_FORMAT | DT_LEFT);
            ::OffsetRect(&rcLine, 0, m_nLineHeight);
        }
        char szFooter[64];
        snprintf(szFooter, sizeof(szFooter), "Page %d of %d", nPage, nPages);
        ::SetTextColor(m_hDC, BLACK);
        RECT rcFooter = {m_rcInner.left, m_nFooterTop, m_rcInner.right, m_nFooterTop + m_nLineHeight};
        ::DrawTextA(m_hDC, szFooter, -1, &rcFooter, LINE_FORMAT | DT_CENTER);
        ::RestoreDC(m_hDC, nSaved);
        return static_cast<int>(nEnd - nFirst);
    }

private:
    static HFONT CreateCourier(int nPixelsY, int nPoints, int nWeight)
    {
        return ::CreateFontA(-MulDiv(nPoints, nPixelsY, 72), 0, 0, 0, nWeight, FALSE, FALSE, FALSE, ANSI_CHARSET,
                             OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN,
                             "Courier New");
    }

    int MeasureLine(HFONT hFont) const
    {
        HGDIOBJ hOld = ::SelectObject(m_hDC, hFont);
        TEXTMETRICA tm;
        int nHeight = ::GetTextMetricsA(m_hDC, &tm) ? tm.tmHeight + tm.tmExternalLeading : 0;
        ::SelectObject(m_hDC, hOld);
        return std::max(nHeight, 1);
    }

    void DrawTitle() const
    {
        ::SelectObject(m_hDC, m_hTitleFont);
        RECT rcTitle = {m_rcInner.left, m_rcInner.top, m_rcInner.right, m_rcInner.top + m_nTitleHeight};
        ::DrawTextA(m_hDC, m_strTitle, -1, &rcTitle, LINE_FORMAT | DT_LEFT);
        HPEN hPen = ::CreatePen(PS_SOLID, m_nRuleWidth, BLACK);
        HGDIOBJ hOldPen = ::SelectObject(m_hDC, hPen);
        int y = rcTitle.bottom + m_nRuleWidth / 2;
        ::MoveToEx(m_hDC, m_rcInner.left, y, NULL);
        ::LineTo(m_hDC, m_rcInner.right, y);
        ::SelectObject(m_hDC, hOldPen);
        ::DeleteObject(hPen);
    }

    HDC m_hDC;
    bool m_bTitle;
    CString m_strTitle;
    RECT m_rcInner;
    HFONT m_hBodyFont;
    HFONT m_hTitleFont;
    int m_nLineHeight;
    int m_nTitleHeight = 0;
    int m_nRuleWidth;
    int m_nBodyTop;
    int m_nFooterTop;
    int m_nLinesPerPage;
};

// The print dialog's context, deleted with the object; a context of the caller's stays.
class CPrinterDC
{
public:
    CPrinterDC(HDC hDC) : m_hDC(hDC), m_bOwned(false) {}
    ~CPrinterDC()
    {
        if (m_bOwned)
            ::DeleteDC(m_hDC);
    }
    CPrinterDC(const CPrinterDC&) = delete;
    CPrinterDC& operator=(const CPrinterDC&) = delete;

    // 0, or -1 when the user cancelled the dialog, -2 when it failed.
    int Ask(HWND hOwner)
    {
        PRINTDLGA pd;
        memset(&pd, 0, sizeof(pd));
        pd.lStructSize = sizeof(pd);
        pd.hwndOwner = hOwner;
        pd.Flags = PD_RETURNDC | PD_NOPAGENUMS | PD_NOSELECTION;
        BOOL bOk = ::PrintDlgA(&pd);
        if (pd.hDevMode != NULL)
            ::GlobalFree(pd.hDevMode);
        if (pd.hDevNames != NULL)
            ::GlobalFree(pd.hDevNames);
        if (!bOk)
            return ::CommDlgExtendedError() != 0 ? -2 : -1;
        m_hDC = pd.hDC;
        m_bOwned = true;
        return m_hDC != NULL ? 0 : -2;
    }

    HDC m_hDC;

private:
    bool m_bOwned;
};

int PrintPages(HWND hList, HDC hDC, const char* pszTitle, DWORD dwFlags, int nPages)
{
    DOCINFOA doc;
    memset(&doc, 0, sizeof(doc));
    doc.cbSize = sizeof(doc);
    doc.lpszDocName = pszTitle != NULL && *pszTitle != '\0' ? pszTitle : "List";
    if (::StartDocA(hDC, &doc) <= 0)
        return -2;
    RECT rcPage = {0, 0, ::GetDeviceCaps(hDC, HORZRES), ::GetDeviceCaps(hDC, VERTRES)};
    for (int nPage = 1; nPage <= nPages; ++nPage)
    {
        if (::StartPage(hDC) <= 0 || DrawListBoxPageEx(hList, hDC, &rcPage, nPage, pszTitle, dwFlags) <= 0 ||
            ::EndPage(hDC) <= 0)
        {
            ::AbortDoc(hDC);
            return -2;
        }
    }
    if (::EndDoc(hDC) <= 0)
    {
        ::AbortDoc(hDC);
        return -2;
    }
    return nPages;
}

// 0, or -1 when the user cancelled the dialog, -2 when it failed.
int AskFileName(HWND hOwner, CString& strFile)
{
    char szFile[MAX_PATH] = "";
    OPENFILENAMEA ofn;
    memset(&ofn, 0, sizeof(ofn));
    ofn.lStructSize = sizeof(ofn);
    ofn.hwndOwner = hOwner;
    ofn.lpstrFilter = "Text Files (*.txt)\0*.txt\0All Files (*.*)\0*.*\0";
    ofn.lpstrFile = szFile;
    ofn.nMaxFile = sizeof(szFile);
    ofn.lpstrDefExt = "txt";
    ofn.Flags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST;
    if (!::GetSaveFileNameA(&ofn))
        return ::CommDlgExtendedError() != 0 ? -2 : -1;
    strFile = szFile;
    return 0;
}
} // namespace

int SortList(HWND hList, int nType)
{
    if (!::IsWindow(hList) || nType < 0 || nType > 5)
        return 0;
    if (::SendMessageA(hList, KLBM_SORT, static_cast<WPARAM>(nType), 0) == 1)
        return 1;
    return CListContent::Sort(hList, nType);
}

int DrawListBoxPageEx(HWND hList, HDC hDC, const RECT* prcPage, int nPage, const char* pszTitle, DWORD dwFlags)
{
    CListContent content;
    if (hDC == NULL || prcPage == NULL || nPage < 1 || !content.Read(hList))
        return -1;
    CPageLayout layout(hDC, *prcPage, pszTitle);
    return layout.DrawPage(content.GetEntries((dwFlags & KLP_SELECTEDONLY) != 0), nPage, (dwFlags & KLP_COLORS) != 0);
}

int PrintListBoxEx(HWND hList, HDC hPrinterDC, const char* pszTitle, DWORD dwFlags)
{
    CListContent content;
    if (!content.Read(hList))
        return -2;
    size_t nEntries = content.GetEntries((dwFlags & KLP_SELECTEDONLY) != 0).size();
    if (nEntries == 0)
        return 0;
    CPrinterDC printer(hPrinterDC);
    if (printer.m_hDC == NULL)
    {
        int nResult = printer.Ask(::GetParent(hList));
        if (nResult != 0)
            return nResult;
    }
    RECT rcPage = {0, 0, ::GetDeviceCaps(printer.m_hDC, HORZRES), ::GetDeviceCaps(printer.m_hDC, VERTRES)};
    int nPages = CPageLayout(printer.m_hDC, rcPage, pszTitle).GetPageCount(nEntries);
    return PrintPages(hList, printer.m_hDC, pszTitle, dwFlags, nPages);
}

int SaveListBoxEntryInTextEx(HWND hList, const char* pszFile, DWORD dwFlags)
{
    CListContent content;
    if (!content.Read(hList))
        return -2;
    CString strFile = pszFile != NULL ? pszFile : "";
    if (strFile.IsEmpty())
    {
        int nResult = AskFileName(::GetParent(hList), strFile);
        if (nResult != 0)
            return nResult;
    }
    FILE* pFile = fopen(strFile, (dwFlags & KLS_APPEND) != 0 ? "ab" : "wb");
    if (pFile == NULL)
        return -2;
    int nWritten = 0;
    bool bFailed = false;
    for (const CListContent::CEntry* pEntry : content.GetEntries((dwFlags & KLS_SELECTEDONLY) != 0))
    {
        size_t nLength = static_cast<size_t>(pEntry->m_strText.GetLength());
        if (fwrite(static_cast<LPCTSTR>(pEntry->m_strText), 1, nLength, pFile) != nLength ||
            fwrite("\r\n", 1, 2, pFile) != 2)
        {
            bFailed = true;
            break;
        }
        ++nWritten;
    }
    if (fclose(pFile) != 0 || bFailed)
        return -2;
    return nWritten;
}
