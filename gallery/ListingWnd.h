// A listing window of KEL_Util as the gallery uses it: the gallery's own listing class, whose
// procedure is WndListingProc, or KelControls' event list, which extends the listing with
// drag and drop. It answers the list-box messages; every entry has its own colours.
#pragma once

#include <afxwin.h>

class CListingWnd : public CWnd
{
public:
    CListingWnd();

    BOOL CreateListing(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    // The event list's class is KelControls' own (InitKelControlsInterface registers it).
    BOOL CreateEventList(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // The colours of entries added from now on and of the area below the last entry.
    void SetDefaultColors(COLORREF crText, COLORREF crBack);
    // Appends an entry; its index, or a negative value on failure.
    int AddEntry(LPCTSTR lpszText, COLORREF crText, COLORREF crBack);
    int GetCount() const { return static_cast<int>(SendMessage(LB_GETCOUNT)); }
    int GetCurSel() const { return static_cast<int>(SendMessage(LB_GETCURSEL)); }
    int SetCurSel(int nSelect) { return static_cast<int>(SendMessage(LB_SETCURSEL, nSelect)); }
    // The entry's text, empty for an index out of range.
    CString GetText(int nIndex) const;

protected:
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;

private:
    BOOL m_bEventList;
};
