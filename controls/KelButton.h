// CKelButton: a button with its own text and background colours and a check state kept in the
// object as well as in the window, so that a state set before a dialog creates the button is
// shown when it is subclassed, and the last state can still be read after the window has gone.
// An owner-drawn button (BS_OWNERDRAW) has its face painted by the companion library
// (PaintButtonEx2); the texts "_PLAY_", "_STOP_", "_FFORWARD_", "_REWIND_" and "_RECORD_" turn
// it into a media-transport button with the matching glyph on a face of its own colour.
//
// CRadioButton: the first button of a dialog's radio group, standing for the whole group, whose
// value is the index of the checked button (-1 for none). The group is this button and the
// buttons after it, up to the next window with WS_GROUP.
#pragma once

#include <afxwin.h>

#include "controls/Control.h"

class AFX_EXT_CLASS CKelButton : public CButton, public CControl
{
    DECLARE_DYNAMIC(CKelButton)
public:
    CKelButton();
    virtual ~CKelButton();

    void SetTextColor(COLORREF crText) { m_crText = crText; }
    // CLR_NONE (the default): the parent's colour behind the button, the system's button face
    // on an owner-drawn face.
    void SetBkColor(COLORREF crBack) { m_crBack = crBack; }
    // Replaces the owned font by CFont::CreatePointFont(nPointSize, lpszFaceName, pDC) and gives
    // it to the window, which must exist for WM_SETFONT to take effect.
    void SetFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = NULL);

    // From the window, caching the result; without a window the cached state.
    virtual int GetCheck();
    // Caches the state and gives it to the window when there is one.
    virtual void SetCheck(int nCheck);
    operator int() { return GetCheck(); }
    CKelButton& operator=(int nCheck)
    {
        SetCheck(nCheck);
        return *this;
    }

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

protected:
    // In a dialog, the cached state is given to the window being subclassed.
    void PreSubclassWindow() override;
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

    afx_msg void OnClose();
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

    COLORREF m_crText;
    COLORREF m_crBack;
    CFont* m_pFont;
    CBrush m_brBack;
    int m_nCheck;

    // The colour last read behind any button, for a parent whose pixel cannot be read.
    static COLORREF s_crLastParent;
};

class AFX_EXT_CLASS CRadioButton : public CKelButton
{
    DECLARE_DYNAMIC(CRadioButton)
public:
    CRadioButton();

    // The index of the checked button of the group, or -1.
    int GetCheck() override;
    // Checks the button at nIndex and unchecks the others (all of them for an index outside
    // the group).
    void SetCheck(int nIndex) override;
    int GetCurSel() { return GetCheck(); }
    void SetCurSel(int nIndex) { SetCheck(nIndex); }
    CRadioButton& operator=(int nIndex)
    {
        SetCheck(nIndex);
        return *this;
    }

    // TRUE with the index when a button is checked; otherwise the control takes the focus and
    // tells the user that a choice is needed (when the display-error switch is on).
    int ValidateAndGet(int& nIndex);
    int Validate();

private:
    // Calls fn(hWndButton, nIndex) for each radio button of the group in order; stops when fn
    // returns true and answers that index, else -1.
    template <class FN>
    int WalkGroup(FN fn) const;
};
