#include "controls/ComboBoxAutoComplete.h"

#include <string.h>

CNewComboBoxRecord::CNewComboBoxRecord() : m_pCombo(NULL), m_lComboID(0), m_lRecordID(-1) {}

CNewComboBoxRecord::CNewComboBoxRecord(const CString& strText, CComboBoxAutoComplete* pCombo, long lComboID)
    : m_strText(strText), m_pCombo(pCombo), m_lComboID(lComboID), m_lRecordID(-1)
{
}

CNewComboBoxRecord::CNewComboBoxRecord(const CNewComboBoxRecord& other) = default;
CNewComboBoxRecord& CNewComboBoxRecord::operator=(const CNewComboBoxRecord& other) = default;

IMPLEMENT_DYNAMIC(CComboBoxAutoComplete, CComboBox)

// The parent hears every notification too (the handlers return FALSE).
BEGIN_MESSAGE_MAP(CComboBoxAutoComplete, CComboBox)
ON_CONTROL_REFLECT_EX(CBN_EDITUPDATE, OnEditUpdate)
ON_CONTROL_REFLECT_EX(CBN_SELCHANGE, OnSelChange)
ON_CONTROL_REFLECT_EX(CBN_SETFOCUS, OnSetFocus)
ON_CONTROL_REFLECT_EX(CBN_KILLFOCUS, OnKillFocus)
ON_CONTROL_REFLECT_EX(CBN_DROPDOWN, OnDropDown)
END_MESSAGE_MAP()

CComboBoxAutoComplete::CComboBoxAutoComplete(CWnd* pNotifyWnd, long lComboID, BOOL bAutoComplete)
    : m_pNotifyWnd(pNotifyWnd), m_lComboID(lComboID), m_nItemData(-1), m_bAutoComplete(bAutoComplete),
      m_bLoaded(FALSE), m_bEntering(FALSE), m_nEditKey(VK_F5), m_bAllowBlank(1), m_bKeysCurrent(TRUE)
{
}

LRESULT CComboBoxAutoComplete::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT lResult = CComboBox::WindowProc(message, wParam, lParam);
    FollowListChange(message, wParam, lParam, lResult);
    return lResult;
}

void CComboBoxAutoComplete::FollowListChange(UINT message, WPARAM wParam, LPARAM lParam, LRESULT lResult)
{
    switch (message)
    {
    case CB_ADDSTRING:
    case CB_INSERTSTRING:
    {
        if (lResult < 0 || !m_bKeysCurrent)
            break;
        size_t nIndex = static_cast<size_t>(lResult);
        // A sorted list puts most items in the middle: reading the texts once afterwards is
        // cheaper than moving the copy up each time.
        if (nIndex > m_itemKeys.size() || (nIndex < m_itemKeys.size() && message == CB_ADDSTRING))
        {
            m_bKeysCurrent = FALSE;
            break;
        }
        CString strKey(reinterpret_cast<LPCTSTR>(lParam));
        strKey.MakeUpper();
        m_itemKeys.insert(m_itemKeys.begin() + static_cast<std::ptrdiff_t>(nIndex), strKey);
        break;
    }
    case CB_DELETESTRING:
        if (lResult >= 0 && m_bKeysCurrent && wParam < m_itemKeys.size())
            m_itemKeys.erase(m_itemKeys.begin() + static_cast<std::ptrdiff_t>(wParam));
        break;
    case CB_RESETCONTENT:
    case WM_NCDESTROY:
        m_itemKeys.clear();
        m_bKeysCurrent = TRUE;
        break;
    case CB_DIR:
        m_bKeysCurrent = FALSE;
        break;
    }
}

int CComboBoxAutoComplete::FindPrefix(const CString& strText)
{
    DWORD dwStyle = GetStyle();
    if ((dwStyle & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0 && (dwStyle & CBS_HASSTRINGS) == 0)
        return FindString(-1, strText);
    if (!m_bKeysCurrent)
    {
        int nCount = GetCount();
        m_itemKeys.assign(static_cast<size_t>(nCount > 0 ? nCount : 0), CString());
        for (int nIndex = 0; nIndex < nCount; ++nIndex)
        {
            GetLBText(nIndex, m_itemKeys[nIndex]);
            m_itemKeys[nIndex].MakeUpper();
        }
        m_bKeysCurrent = TRUE;
    }
    CString strKey = strText;
    strKey.MakeUpper();
    size_t nLength = static_cast<size_t>(strKey.GetLength());
    for (size_t nIndex = 0; nIndex < m_itemKeys.size(); ++nIndex)
    {
        const CString& strItem = m_itemKeys[nIndex];
        if (static_cast<size_t>(strItem.GetLength()) >= nLength &&
            memcmp(static_cast<LPCTSTR>(strItem), static_cast<LPCTSTR>(strKey), nLength) == 0)
            return static_cast<int>(nIndex);
    }
    return -1;
}

LRESULT CComboBoxAutoComplete::Notify(UINT message, WPARAM wParam, LPARAM lParam)
{
    HWND hWndNotify = m_pNotifyWnd->GetSafeHwnd();
    return ::IsWindow(hWndNotify) ? ::SendMessageA(hWndNotify, message, wParam, lParam) : 0;
}

CString CComboBoxAutoComplete::GetTrimmedText() const
{
    CString strText;
    GetWindowText(strText);
    strText.TrimLeft();
    strText.TrimRight();
    return strText;
}

int CComboBoxAutoComplete::FindExact(const CString& strText) const
{
    // The list's own search ignores case: it finds the candidates, the comparison decides.
    int nFirst = FindStringExact(-1, strText);
    int nIndex = nFirst;
    while (nIndex != CB_ERR)
    {
        CString strItem;
        GetLBText(nIndex, strItem);
        if (strItem == strText)
            return nIndex;
        nIndex = FindStringExact(nIndex, strText);
        if (nIndex <= nFirst) // wrapped round to the start
            break;
    }
    return -1;
}

void CComboBoxAutoComplete::SelectItemData(int nData)
{
    int nCount = GetCount();
    for (int nIndex = 0; nIndex < nCount; ++nIndex)
    {
        if (static_cast<int>(GetItemData(nIndex)) == nData)
        {
            SetCurSel(nIndex);
            return;
        }
    }
}

void CComboBoxAutoComplete::RememberSelection()
{
    int nSel = GetCurSel();
    m_nItemData = nSel >= 0 ? static_cast<int>(GetItemData(nSel)) : -1;
}

void CComboBoxAutoComplete::EnsureLoaded()
{
    if (m_bLoaded)
        return;
    // Marked first, so that a notify window that types or drops the list down meanwhile is
    // not asked again.
    m_bLoaded = TRUE;
    CNewComboBoxRecord record(CString(), this, m_lComboID);
    Notify(WM_LOAD_LIST, 0, reinterpret_cast<LPARAM>(&record));
}

int CComboBoxAutoComplete::CheckNewRecord()
{
    m_bEntering = TRUE;
    CString strText = GetTrimmedText();
    if (strText.IsEmpty() && m_bAllowBlank)
    {
        SelectItemData(-1);
        return 1;
    }
    int nIndex = FindExact(strText);
    if (nIndex >= 0)
    {
        SetCurSel(nIndex);
        return 1;
    }
    CNewComboBoxRecord record(strText, this, m_lComboID);
    if (Notify(WM_NEW_RECORD, 0, reinterpret_cast<LPARAM>(&record)) < 1)
        SelectItemData(m_nItemData);
    return 0;
}

BOOL CComboBoxAutoComplete::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->message != WM_KEYDOWN)
    {
        m_bEntering = FALSE;
        return CComboBox::PreTranslateMessage(pMsg);
    }
    int nKey = static_cast<int>(pMsg->wParam);
    if (nKey == m_nEditKey)
    {
        int nIndex = FindExact(GetTrimmedText());
        if (nIndex >= 0)
            SetCurSel(nIndex);
        Notify(WM_EDIT_KEY, static_cast<WPARAM>(m_lComboID), GetCurSel());
        return TRUE;
    }
    if (nKey == VK_ESCAPE && GetCurSel() == CB_ERR)
    {
        CString strText;
        GetWindowText(strText);
        if (!strText.IsEmpty() || m_nItemData >= 0)
        {
            SelectItemData(m_nItemData);
            return TRUE;
        }
    }
    // The list is loaded before Enter is judged, so that a text already in the list is never
    // offered as a new record.
    if (nKey != VK_ESCAPE && nKey != VK_TAB && nKey != VK_SHIFT && nKey != VK_CONTROL)
        EnsureLoaded();
    // Deleting never completes again, or Backspace could not take back the completed part.
    m_bAutoComplete = nKey != VK_DELETE && nKey != VK_BACK;
    if (nKey != VK_RETURN)
    {
        m_bEntering = FALSE;
        return CComboBox::PreTranslateMessage(pMsg);
    }
    return CheckNewRecord() == 0 || CComboBox::PreTranslateMessage(pMsg);
}

BOOL CComboBoxAutoComplete::OnEditUpdate()
{
    if (!m_bAutoComplete)
        return FALSE;
    CString strTyped;
    GetWindowText(strTyped);
    // A field emptied (cut, say) has nothing to complete: every item would match.
    if (strTyped.IsEmpty())
        return FALSE;
    DWORD dwSel = GetEditSel();
    BOOL bSelKnown = dwSel != static_cast<DWORD>(CB_ERR);
    int nStart = LOWORD(dwSel);
    int nEnd = HIWORD(dwSel);
    // Without a match the text stays as typed; the search itself changes nothing.
    int nMatch = FindPrefix(strTyped);
    if (nMatch >= 0)
        SetCurSel(nMatch); // the edit field takes the item's text
    int nTyped = strTyped.GetLength();
    if (!bSelKnown || nEnd >= nTyped)
        SetEditSel(nTyped, -1);
    else
        SetEditSel(nStart, nEnd);
    return FALSE;
}

BOOL CComboBoxAutoComplete::OnSelChange()
{
    RememberSelection();
    return FALSE;
}

BOOL CComboBoxAutoComplete::OnSetFocus()
{
    if (!m_bEntering)
        RememberSelection();
    return FALSE;
}

BOOL CComboBoxAutoComplete::OnKillFocus()
{
    if (!m_bEntering)
        CheckNewRecord();
    return FALSE;
}

BOOL CComboBoxAutoComplete::OnDropDown()
{
    EnsureLoaded();
    return FALSE;
}
