// The parts of a combo grid (grid/ComboGrid.h) that its host never creates itself:
//   CComboGridDropDown  the popup that drops under the combo: a column header over a cell area,
//                       fed as the grid window feeds them (titles, widths in step, sorting on a
//                       header click); it never takes the activation;
//   CComboGridList      the cell area: a single-selection, full-row list that never keeps the
//                       focus, follows the mouse like a drop-down list and closes the combo on a
//                       click;
//   CComboGridEdit      the edit field of a drop-down style combo grid, which passes the combo's
//                       keys on to it.
#pragma once

#include <afxwin.h>

#include "grid/GridHeader.h"
#include "grid/GridList.h"

class CComboGrid;

class CComboGridList : public CGridList
{
public:
    explicit CComboGridList(CComboGrid* pCombo) : m_pCombo(pCombo) {}
    // The row the mouse is over while no button is held, -1 for none.
    int GetHotRow() const { return m_nHotRow; }
    void SetHotRow(int nRow) { m_nHotRow = nRow; }
    // The selected row is drawn in the selection colours across all its cells, as a drop-down
    // list shows it, though list style selects only its first cell.
    void DrawGridCell(int row, int col, HDC hDC) override;

protected:
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    DECLARE_MESSAGE_MAP()

    CComboGrid* m_pCombo;
    int m_nHotRow = -1;
    int m_nDownRow = -1;
};

class CComboGridDropDown : public CWnd
{
public:
    enum
    {
        IDC_HEADER = 1,
        IDC_LIST = 2,
        IDC_LISTFRAME = 3,
    };

    explicit CComboGridDropDown(CComboGrid* pCombo);

    // The hidden popup, owned by the combo's top-level window, with its header and list.
    BOOL Create(BOOL bColumnsSizable);
    CComboGridList& GetList() { return m_list; }
    CGridHeader& GetHeader() { return m_header; }
    int GetHeaderHeight() const { return m_list.GetRowHeight() + 4; }
    // The header's items again: nCols empty titles of width 80 (the list rebuilt alike).
    void ResetHeader(int nCols, BOOL bColumnsSizable);
    // Places the header and the list in a client area of this size.
    void Layout(int cx, int cy);

protected:
    afx_msg int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message);
    // WM_ACTIVATEAPP: the application losing the activation closes the drop-down.
    afx_msg LRESULT OnActivateAppMsg(WPARAM wParam, LPARAM lParam);
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    DECLARE_MESSAGE_MAP()

    CComboGrid* m_pCombo;
    CGridHeader m_header;
    CWnd m_wndListFrame;
    CComboGridList m_list;
};

class CComboGridEdit : public CEdit
{
public:
    explicit CComboGridEdit(CComboGrid* pCombo) : m_pCombo(pCombo) {}

protected:
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    DECLARE_MESSAGE_MAP()

    CComboGrid* m_pCombo;
};
