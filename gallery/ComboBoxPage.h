// Page "Combo boxes": the text combo coloured by its owner, the typed combos with their items
// and bounds, and an auto-completing gel list that the page supplies when the combo first needs
// it, taking new gels as they are entered. "Check values" validates every typed combo with its
// message boxes; the status line tells what the auto-complete combo asked of the page.
#pragma once

#include "gallery/GalleryPage.h"

#include "KelControls.h"

class CComboBoxPage : public CGalleryPage
{
    DECLARE_DYNCREATE(CComboBoxPage)
public:
    CComboBoxPage();

    LPCTSTR EnterSnapshotState(int nState, HWND* phWndPopup) override;

protected:
    void LayoutControls(int cx, int cy) override;
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg LRESULT OnNewRecord(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnLoadList(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnEditKey(WPARAM wParam, LPARAM lParam);
    afx_msg void OnCheckValues();
    DECLARE_MESSAGE_MAP()

private:
    // A caption and its combo, one row of the page.
    BOOL CreateRow(CStatic& caption, LPCTSTR lpszCaption, CComboBox& combo, UINT nID);
    void SetStatus(LPCTSTR lpszStatus);

    CStatic m_wndIntro;
    CStatic m_wndTextCaption;
    CStringComboBox m_wndText;
    CStatic m_wndLevelCaption;
    CShortComboBox m_wndLevel;
    CStatic m_wndFadeCaption;
    CDoubleComboBox m_wndFade;
    CStatic m_wndDateCaption;
    CDateComboBox m_wndDate;
    CStatic m_wndGelCaption;
    CComboBoxAutoComplete m_wndGels;
    CButton m_wndCheck;
    CStatic m_wndStatus;
    int m_nNextGel; // the item data of the next new gel
};
