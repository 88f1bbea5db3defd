// CKelListing: the event list (the companion's listing with drag and drop, frame/EventList.h)
// as a control: entries with their own colours, the list-box operations, sorting, printing and
// saving, and the selection kept in the object after the window has gone.
//
// Made by Create, the control is a plain child holding the event list as its inner window
// (KEL_LISTING_INNER_ID), which fills it; the inner list's notifications (LBN_SELCHANGE,
// LBN_DBLCLK, LBN_SETFOCUS, LBN_KILLFOCUS and ELN_DROPPED) reach the parent in the control's own
// name. Subclassed onto an event list of a dialog template, the control is the list itself and
// the list notifies the parent directly; subclassed onto any other window (a static frame as
// a placeholder) it puts the inner list over that window's client area.
//
// The host calls InitKelControlsInterface first: without the event list's class, Create fails.
#pragma once

#include <afxwin.h>

#include "controls/Control.h"
#include "frame/EventList.h" // ELN_DROPPED, GetDragDropEntry and GetDragDropSource for the host
#include "listings/ListFunctions.h"

#define KEL_LISTING_INNER_ID 1000

class CDataExchange;

class AFX_EXT_CLASS CKelListing : public CWnd, public CControl
{
    DECLARE_DYNAMIC(CKelListing)
public:
    CKelListing();
    virtual ~CKelListing();

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID, DWORD dwListStyle = LBS_NOTIFY | WS_VSCROLL);

    // The new entry's index, or a negative value. An entry takes the list's default colours
    // for a colour that is not given.
    int AddString(const char* pszText, COLORREF crText = KEL_NO_COLOR, COLORREF crBack = KEL_NO_COLOR);
    int InsertString(int nIndex, const char* pszText, COLORREF crText = KEL_NO_COLOR, COLORREF crBack = KEL_NO_COLOR);
    int DeleteString(int nIndex);
    void ResetContent();
    int GetCount() const;
    // The window's selection, or the cached one without a window.
    int GetCurSel() const;
    // Caches the index and, with a window, selects it.
    int SetCurSel(int nSelect);
    int GetTopIndex() const;
    int SetTopIndex(int nIndex);

    // 1, or 0 for an index out of range.
    int GetAt(int nIndex, CString& strText) const;
    int GetAt(int nIndex, CString& strText, COLORREF* pcrText, COLORREF* pcrBack) const;
    // From the entry after nStart (the first for -1), wrapping once, without regard to case;
    // LB_ERR when no entry begins with the prefix, or equals the text.
    int FindString(int nStart, const char* pszPrefix) const;
    int FindStringExact(int nStart, const char* pszText) const;

    // 1 on success, 0 for an index out of range or no window.
    int SetItemColors(int nIndex, COLORREF crText, COLORREF crBack);
    int GetItemColors(int nIndex, COLORREF& crText, COLORREF& crBack) const;
    // The colours of entries added from now on.
    int SetDefaultColors(COLORREF crText, COLORREF crBack);
    int SetSelColors(COLORREF crText, COLORREF crBack);

    // Replaces the owned font by CFont::CreatePointFont(nPointSize, pszFaceName, pDC) and gives
    // it to the list window.
    void SetFont(int nPointSize, const char* pszFaceName, CDC* pDC = NULL);
    // The window that answers the list messages: the inner list, or this window.
    HWND GetListingWnd() const { return m_hList; }

    int Sort(int nType) { return SortList(m_hList, nType); }
    int Print(const char* pszTitle, DWORD dwFlags) { return PrintListBoxEx(m_hList, NULL, pszTitle, dwFlags); }
    int SaveAsText(const char* pszFile, DWORD dwFlags) { return SaveListBoxEntryInTextEx(m_hList, pszFile, dwFlags); }

    // TRUE with the selected index; with none selected the control's failure path with
    // " A <name> must be selected!".
    int ValidateAndGet(int& nIndex, CDataExchange* pDX = NULL);

protected:
    void PreSubclassWindow() override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnEnable(BOOL bEnable);
    afx_msg LRESULT OnSetFontMessage(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnGetFontMessage(WPARAM wParam, LPARAM lParam);
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

    // TRUE when the list is a child of this window rather than the window itself.
    bool HasInnerList() const { return m_hList != NULL && m_hList != m_hWnd; }
    // The event list over the whole client area; FALSE when it cannot be created.
    BOOL CreateInnerList();
    int SendToList(UINT nMsg, WPARAM wParam = 0, LPARAM lParam = 0) const;
    int Find(int nStart, const char* pszText, bool bExact) const;

    HWND m_hList;
    DWORD m_dwListStyle;
    CFont* m_pFont;
    int m_nCachedSel;
    bool m_bInCreate; // PreSubclassWindow runs inside Create before the window is made
};
