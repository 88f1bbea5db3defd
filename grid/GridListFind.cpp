// CGridList: type-ahead search and the find dialog.
#include "grid/GridList.h"

#include "grid/GridFind.h"
#include "values/BoolSearch.h"

#include <algorithm>
#include <new>
#include <string>

DWORD CGridList::m_stdwLastFindKey = 0;
HWND CGridList::m_sthFindDlg = NULL;

namespace
{
char FoldAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Whether the text begins with the prefix, ASCII letters compared without case. Type-ahead
// runs this over a million rows, so it neither allocates nor consults the locale.
bool StartsWithNoCase(const char* pszText, const char* pszPrefix, int nLength)
{
    for (int i = 0; i < nLength; ++i)
    {
        if (pszText[i] == '\0' || FoldAscii(pszText[i]) != FoldAscii(pszPrefix[i]))
            return false;
    }
    return true;
}

} // namespace

// ---- Type-ahead -------------------------------------------------------------------------------

void CGridList::SetKeyboardFindColumn(int col)
{
    if (col >= 0 && col < m_nCols)
        m_nKeyboardFindCol = col;
}

void CGridList::KeyboardFind(UINT nChar)
{
    if (nChar < 32 || nChar > 126)
    {
        m_stdwLastFindKey = 0;
        return;
    }
    const DWORD dwNow = ::GetTickCount();
    const bool bNew = dwNow - m_stdwLastFindKey > 1000 || m_nFindBufferLen >= 300;
    if (bNew)
        m_nFindBufferLen = 0;
    m_szFindBuffer[m_nFindBufferLen++] = static_cast<char>(nChar);
    m_szFindBuffer[m_nFindBufferLen] = '\0';
    m_stdwLastFindKey = dwNow;

    const int col = IsFindOnSortColumn() ? m_nKeyboardFindCol : m_CaretCell.col;
    if (m_nRows == 0 || col < 0 || col >= m_nCols)
        return;
    // A new search starts after the caret row; a longer text first tries the row it found.
    const int nCaret = std::max(0, std::min(m_CaretCell.row, m_nRows - 1));
    const int nStart = bNew && m_CaretCell.row >= 0 ? (nCaret + 1) % m_nRows : nCaret;
    int row = nStart;
    do
    {
        if (StartsWithNoCase(GetText(row, col), m_szFindBuffer, m_nFindBufferLen))
        {
            // Typing on while the row still matches changes nothing: no notifications then.
            const Cell found(row, IsStyleList() ? GetFirstDataCol() : col);
            if (found != m_CaretCell || GetSelectedCount() != (IsNoSelection() ? 0 : 1) ||
                (!IsNoSelection() && !IsSelectedCell(found, true)))
                SetCurSel(found.row, found.col, true);
            return;
        }
        if (++row == m_nRows)
            row = 0;
    } while (row != nStart);
    SimpleBeep();
}

// ---- Find dialog ------------------------------------------------------------------------------

BOOL CGridList::ShowFindDlg(CStringArray& arColumnNames)
{
    if (GetSafeHwnd() == NULL)
        return FALSE;
    if (m_pFindDlg != NULL)
    {
        m_pFindDlg->SetFocus();
        return FALSE;
    }
    if (m_sthFindDlg != NULL && ::IsWindow(m_sthFindDlg))
        ::DestroyWindow(m_sthFindDlg);
    CGridFind* pDlg = new (std::nothrow) CGridFind(this, arColumnNames, m_nCols);
    if (pDlg == NULL)
        return FALSE;
    m_pFindDlg = pDlg;
    // On failure the dialog is already gone and has told the grid.
    if (!pDlg->Create(m_strLastFind))
        return FALSE;
    m_sthFindDlg = pDlg->GetSafeHwnd();
    return TRUE;
}

void CGridList::OnFindDlgGone(CGridFind* pDlg)
{
    if (m_pFindDlg != pDlg)
        return;
    m_strLastFind = pDlg->GetFindString();
    m_pFindDlg = NULL;
    m_sthFindDlg = NULL;
}

LRESULT CGridList::OnFindReplaceMessage(WPARAM, LPARAM lParam)
{
    if (m_pFindDlg == NULL || CFindReplaceDialog::GetNotifier(lParam) != m_pFindDlg)
        return 0;
    if (m_pFindDlg->IsTerminating())
        m_strLastFind = m_pFindDlg->GetFindString();
    else if (m_pFindDlg->FindNext())
        FindNext(m_pFindDlg);
    return 0;
}

BOOL CGridList::FindNext(CGridFind* pDlg)
{
    const CGridFind::eScope scope = pDlg->GetScope();
    const int nColumn = pDlg->GetColumn();
    if (scope == CGridFind::SCOPE_NONE || (scope == CGridFind::SCOPE_COLUMN && (nColumn < 0 || nColumn >= m_nCols)))
        return FALSE;
    const CString strFind = pDlg->GetFindString();
    CBoolSearch search;
    search.SetMatchCase(pDlg->MatchCase());
    Cell found;
    if (search.InitSearch(strFind) && m_nRows > 0 && m_nCols > 0)
    {
        if (scope == CGridFind::SCOPE_CELL)
        {
            // Row by row from the cell after the caret; the caret cell itself comes last.
            const long long nCells = static_cast<long long>(m_nRows) * m_nCols;
            const long long nCaret = IsValidCell(m_CaretCell.row, m_CaretCell.col)
                                         ? static_cast<long long>(m_CaretCell.row) * m_nCols + m_CaretCell.col
                                         : -1;
            for (long long i = 1; i <= nCells && found.row < 0; ++i)
            {
                const long long nCell = (nCaret + i) % nCells;
                const int row = static_cast<int>(nCell / m_nCols);
                const int col = static_cast<int>(nCell % m_nCols);
                if (search.Search(GetText(row, col)))
                    found = Cell(row, col);
            }
        }
        else
        {
            const int nCaret = m_CaretCell.row >= 0 && m_CaretCell.row < m_nRows ? m_CaretCell.row : m_nRows - 1;
            // One buffer for every row's texts, so that a million rows allocate nothing.
            std::string strRow;
            for (int i = 1; i <= m_nRows && found.row < 0; ++i)
            {
                const int row = (nCaret + i) % m_nRows;
                LPCTSTR lpszText;
                if (scope == CGridFind::SCOPE_COLUMN)
                    lpszText = GetText(row, nColumn);
                else
                {
                    strRow.clear();
                    for (int col = 0; col < m_nCols; ++col)
                        strRow.append(GetText(row, col)).push_back(' ');
                    lpszText = strRow.c_str();
                }
                if (search.Search(lpszText))
                    found = Cell(row, scope == CGridFind::SCOPE_COLUMN ? nColumn : GetFirstDataCol());
            }
        }
    }
    if (found.row < 0)
    {
        CString strMessage;
        strMessage.Format("Unable to find %s.", static_cast<LPCTSTR>(strFind));
        ::MessageBoxA(pDlg->GetSafeHwnd(), strMessage, "Find", MB_OK | MB_ICONINFORMATION);
        return FALSE;
    }
    if (IsStyleList())
        found.col = GetFirstDataCol();
    SetCurSel(found.row, found.col, true);
    return TRUE;
}
