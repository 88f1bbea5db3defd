// CColorComboBox: a drop-down list of named colour swatches. It starts with the sixteen
// standard colours (black, maroon, green, olive, navy, purple, teal, silver, gray, red, lime,
// yellow, blue, fuchsia, aqua and white, in that order), and an entry "Custom..." last that
// opens the colour dialog. Each entry's item data is its COLORREF; the custom entry carries
// CUSTOM_ENTRY_DATA, which is no colour and differs from CLR_NONE.
//
// The custom entry is never reported as selected: its choice is swallowed and the dialog opens
// once the system has sent all its notifications of that choice and no list is dropped (the
// combo posts itself KCBM_CHOOSECUSTOM). OK selects the chosen colour (an entry of that colour,
// or a new "RGB(r,g,b)" entry) and tells the parent CBN_SELCHANGE when the colour changed;
// Cancel returns to the entry selected before, quietly.
#pragma once

#include "controls/StringComboBox.h"

#define KCBM_CHOOSECUSTOM (WM_USER + 0x502)

class AFX_EXT_CLASS CColorComboBox : public CStringComboBox
{
    DECLARE_DYNAMIC(CColorComboBox)
public:
    static const COLORREF CUSTOM_ENTRY_DATA = 0xFF000000;

    CColorComboBox();

    // The style becomes an owner-drawn, unsorted drop-down list with strings.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Empties the list, adds the standard colours, then the custom entry when it is shown.
    void InitStandardColors();
    // Inserts before the custom entry; the index, or -1 for CLR_NONE, CUSTOM_ENTRY_DATA, a null
    // name or no window.
    int AddColor(COLORREF crColor, LPCTSTR lpszName);
    // Selects the first entry of the colour, adding an "RGB(r,g,b)" entry when there is none;
    // CLR_NONE selects nothing. The index or -1; without a window the colour is only cached.
    int SetSelectedColor(COLORREF crColor);
    // The selected entry's colour, CLR_NONE for none (the cached colour without a window).
    COLORREF GetSelectedColor();
    void EnableCustomColor(BOOL bEnable);

    // TRUE with the colour when one is selected; otherwise the failure path of the combos.
    int ValidateAndGet(COLORREF& crColor, CDataExchange* pDX);

    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;
    void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct) override;

protected:
    void PreSubclassWindow() override;

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg BOOL OnSelChange();
    afx_msg BOOL OnSelEndOk();
    afx_msg LRESULT OnChooseCustom(WPARAM wParam, LPARAM lParam);
    afx_msg void OnClose();
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

    // Item heights, the standard colours when the list is empty, the cached colour selected.
    void SetUpList();
    // The font's height and a margin, at least 16 pixels.
    int GetSwatchItemHeight();
    BOOL IsCustomEntry(int nIndex) const;
    BOOL HasCustomEntry() const;
    // Opens the colour dialog after the current notifications, once per choice of the entry.
    void ChooseCustomLater();

    int m_bCustomShown;
    COLORREF m_crCached;
    int m_nSwatchWidth;
    int m_nPrevSel;
    int m_bCustomGuard;
};
