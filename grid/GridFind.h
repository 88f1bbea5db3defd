// CGridFind: the grid's find dialog. The system's find dialog on the library's own template
// (IDD_GRIDFIND), find only and searching down, with a scope: the whole row, single cells, or
// one column chosen from a list of the grid's column names. The text is a boolean search
// expression (CBoolSearch): words, "phrases", AND, OR, NOT and parentheses.
//
// The grid opens it (CGridList::ShowFindDlg), owns it and runs its searches; the object deletes
// itself when its window goes, telling the grid first.
#pragma once

#include <afxcoll.h>
#include <afxdlgs.h>

#include "frame/KelControlsRes.h"

class CGridList;

class AFX_EXT_CLASS CGridFind : public CFindReplaceDialog
{
    DECLARE_DYNAMIC(CGridFind)
public:
    enum eScope
    {
        SCOPE_NONE = 0,
        SCOPE_FULLROW = 1,
        SCOPE_CELL = 2,
        SCOPE_COLUMN = 3,
    };

    // The list offers nColumns entries: the given names, then numbers from 1 up.
    CGridFind(CGridList* pGrid, const CStringArray& arColumnNames, int nColumns);

    // Creates the dialog owned by the grid, showing the text; on failure the object is gone.
    BOOL Create(LPCTSTR lpszFindWhat);

    eScope GetScope() const;
    // The column chosen in the list, -1 for none.
    int GetColumn() const;
    CGridList* GetGrid() const { return m_pGrid; }

protected:
    BOOL OnInitDialog() override;
    void PostNcDestroy() override;

    CGridList* m_pGrid;
    CStringArray m_arColumnNames;
    int m_nColumns;
};
