// CKelListBox: the system list box with entries in their own colours, keeping what only the
// system list box has (multiple selection, sorted insertion, the LBS_ styles).
//
// Colours need LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, which Create adds; a list box of a dialog
// template must have them itself, or it works as a plain list box whose colour setters answer 0.
// An entry's colours and the host's data live in a record (CEntry) that the entry's item data
// points to, made on the first write of either; SetItemData and GetItemData reach the host's
// data in it. Records are freed as their entries go (the parent reflects WM_DELETEITEM, as
// a CWnd parent does) and when the window is destroyed.
//
// It answers the companion's listing messages (KLM_SETITEMCOLORS, KLM_GETITEMCOLORS,
// KLM_SETDEFAULTCOLORS, KLM_SETSELCOLORS) as a listing does, except that new default colours
// apply at once to every entry without colours of its own; and it sorts itself on KLBM_SORT.
#pragma once

#include <afxwin.h>
#include <afxcoll.h>

#include "controls/Control.h"
#include "listings/ListFunctions.h"

class CDataExchange;

class AFX_EXT_CLASS CKelListBox : public CListBox, public CControl
{
    DECLARE_DYNAMIC(CKelListBox)
public:
    // The record of an entry.
    struct CEntry
    {
        COLORREF m_crText;
        COLORREF m_crBack;
        DWORD m_dwData;
    };

    CKelListBox();
    virtual ~CKelListBox();

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // The new entry's index, or a negative value.
    int AddString(const char* pszText, COLORREF crText = KEL_NO_COLOR, COLORREF crBack = KEL_NO_COLOR);
    int InsertString(int nIndex, const char* pszText, COLORREF crText = KEL_NO_COLOR, COLORREF crBack = KEL_NO_COLOR);

    // 1 on success; 0 for an index out of range, a list without colours or no window.
    int SetItemColors(int nIndex, COLORREF crText, COLORREF crBack);
    // KEL_NO_COLOR for a colour the entry does not have.
    int GetItemColors(int nIndex, COLORREF& crText, COLORREF& crBack) const;
    int SetDefaultColors(COLORREF crText, COLORREF crBack);
    int SetSelColors(COLORREF crText, COLORREF crBack);
    // The host's data: in the record with colours (0 when there is none), else the item data.
    // SetItemData answers LB_ERR on failure.
    int SetItemData(int nIndex, DWORD dwData);
    DWORD GetItemData(int nIndex) const;

    // The window's selection, or the cached one without a window.
    int GetCurSel() const;
    // Caches the index and, with a window, selects it.
    int SetCurSel(int nSelect);

    // Replaces the owned font by CFont::CreatePointFont(nPointSize, pszFaceName, pDC) and gives
    // it to the window. Any font the window gets sets the entries' height: the font's plus two.
    void SetFont(int nPointSize, const char* pszFaceName, CDC* pDC = NULL);

    int Sort(int nType) { return SortList(m_hWnd, nType); }
    int Print(const char* pszTitle, DWORD dwFlags) { return PrintListBoxEx(m_hWnd, NULL, pszTitle, dwFlags); }
    int SaveAsText(const char* pszFile, DWORD dwFlags) { return SaveListBoxEntryInTextEx(m_hWnd, pszFile, dwFlags); }

    // TRUE with the selected index (or indexes, for the multiple-selection styles); with none
    // selected the control's failure path with " A <name> must be selected!".
    int ValidateAndGet(int& nIndex, CDataExchange* pDX = NULL);
    int ValidateAndGet(CUIntArray& selected, CDataExchange* pDX = NULL);

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;
    void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct) override;

protected:
    void PreSubclassWindow() override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnDestroy();
    afx_msg LRESULT OnSetFontMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSetItemColors(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnGetItemColors(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSetDefaultColors(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSetSelColors(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSort(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    bool HasColors() const;
    bool IsMultipleSel() const;
    // The entry's record; with bCreate made when missing. NULL for an index out of range, a
    // list without colours, or a missing record not to be made.
    CEntry* GetEntry(int nIndex, bool bCreate) const;
    // The entries' height: the font's plus two pixels.
    void FitItemHeight();
    void ApplyCachedSelection();
    int ReportNothingSelected(CDataExchange* pDX);

    COLORREF m_crText;
    COLORREF m_crBack;
    COLORREF m_crSelText;
    COLORREF m_crSelBack;
    CFont* m_pFont;
    int m_nCachedSel;
    CUIntArray m_arCachedSel;
};
