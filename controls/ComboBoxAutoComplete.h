// CComboBoxAutoComplete: a drop-down combo whose list belongs to another window, the notify
// window, and which completes the text as it is typed.
//
// The notify window fills the list when it is first needed, decides whether a text that matches
// no item becomes a new record, and hears the edit key. It is asked with these messages, sent:
//   WM_USER + 300 (lParam: a CNewComboBoxRecord with the trimmed text): the text matches no
//                 item as Enter is pressed or the focus leaves. A reply below 1 refuses it, and
//                 the combo selects again the item it held before.
//   WM_USER + 301 (lParam: a CNewComboBoxRecord with empty text): fill the list now. Asked once;
//                 SetLoadedCombo(FALSE) has it asked again.
//   WM_USER + 302 (wParam: the combo identifier, lParam: the selection): the edit key (F5
//                 unless told) was pressed, after the item equal to the text was selected.
// Items are remembered by their item data, so an owner gives each record an id there; an item
// with data -1 stands for "none" and is chosen by an empty text.
//
// The keys are seen in PreTranslateMessage, which the message loop calls for the edit field.
//
// Completion searches a copy of the item texts that the combo keeps in step with its list, as
// the list's own search costs about 10 ms per 100,000 items under Wine and the list searches
// once more itself on every change of the text. Lists whose texts cannot be followed (owner
// drawn without strings) are searched by the list.
#pragma once

#include <afxwin.h>

#include <vector>

class CComboBoxAutoComplete;

class AFX_EXT_CLASS CNewComboBoxRecord
{
public:
    CNewComboBoxRecord();
    CNewComboBoxRecord(const CString& strText, CComboBoxAutoComplete* pCombo, long lComboID);
    CNewComboBoxRecord(const CNewComboBoxRecord& other);
    CNewComboBoxRecord& operator=(const CNewComboBoxRecord& other);

    CString m_strText;
    CComboBoxAutoComplete* m_pCombo;
    long m_lComboID;
    // Free for the notify window (the new record's id, say); -1 until it sets it.
    long m_lRecordID;
};

class AFX_EXT_CLASS CComboBoxAutoComplete : public CComboBox
{
    DECLARE_DYNAMIC(CComboBoxAutoComplete)
public:
    enum
    {
        WM_NEW_RECORD = WM_USER + 300,
        WM_LOAD_LIST = WM_USER + 301,
        WM_EDIT_KEY = WM_USER + 302
    };

    explicit CComboBoxAutoComplete(CWnd* pNotifyWnd = NULL, long lComboID = 0, BOOL bAutoComplete = TRUE);

    long GetComboID() const { return m_lComboID; }
    void SetLoadedCombo(BOOL bLoaded) { m_bLoaded = bLoaded; }
    void SetEditKey(int nKey) { m_nEditKey = nKey; }
    int GetEditKey() const { return m_nEditKey; }
    void SetAllowBlank(int bAllow) { m_bAllowBlank = bAllow; }

    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    afx_msg BOOL OnEditUpdate();
    afx_msg BOOL OnSelChange();
    afx_msg BOOL OnSetFocus();
    afx_msg BOOL OnKillFocus();
    afx_msg BOOL OnDropDown();
    DECLARE_MESSAGE_MAP()

    // Asks the notify window for the list when it was not loaded yet.
    void EnsureLoaded();
    // Enter or the focus leaving: an empty text (when allowed) or a text equal to an item
    // selects that item and returns 1; another text goes to the notify window, and on its
    // refusal the previous item comes back. Returns 0 then.
    int CheckNewRecord();
    // The first item whose text equals the text, case included; -1 when none does.
    int FindExact(const CString& strText) const;
    // Selects the first item carrying the data, if any.
    void SelectItemData(int nData);
    // Remembers the data of the selected item (-1 with none), for Escape and refusals.
    void RememberSelection();
    CString GetTrimmedText() const;
    // The first item whose text begins with the text, ignoring case, as CB_SELECTSTRING finds
    // it; -1 when none does.
    int FindPrefix(const CString& strText);
    // Follows a change of the list in the copy of its texts.
    void FollowListChange(UINT message, WPARAM wParam, LPARAM lParam, LRESULT lResult);
    LRESULT Notify(UINT message, WPARAM wParam, LPARAM lParam);

    CWnd* m_pNotifyWnd;
    long m_lComboID;
    int m_nItemData;
    BOOL m_bAutoComplete;
    BOOL m_bLoaded;
    BOOL m_bEntering;
    int m_nEditKey;
    int m_bAllowBlank;

    // The item texts in upper case, in list order, while m_bKeysCurrent; otherwise read again
    // from the list when next needed.
    std::vector<CString> m_itemKeys;
    BOOL m_bKeysCurrent;
};
