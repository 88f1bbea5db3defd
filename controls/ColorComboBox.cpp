#include "controls/ColorComboBox.h"

#include "controls/ColorTools.h"

namespace
{
const struct
{
    LPCTSTR lpszName;
    COLORREF crColor;
} s_aStandardColors[] = {
    {_T("Black"), RGB(0, 0, 0)},       {_T("Maroon"), RGB(128, 0, 0)},     {_T("Green"), RGB(0, 128, 0)},
    {_T("Olive"), RGB(128, 128, 0)},   {_T("Navy"), RGB(0, 0, 128)},       {_T("Purple"), RGB(128, 0, 128)},
    {_T("Teal"), RGB(0, 128, 128)},    {_T("Silver"), RGB(192, 192, 192)}, {_T("Gray"), RGB(128, 128, 128)},
    {_T("Red"), RGB(255, 0, 0)},       {_T("Lime"), RGB(0, 255, 0)},       {_T("Yellow"), RGB(255, 255, 0)},
    {_T("Blue"), RGB(0, 0, 255)},      {_T("Fuchsia"), RGB(255, 0, 255)},  {_T("Aqua"), RGB(0, 255, 255)},
    {_T("White"), RGB(255, 255, 255)},
};

const TCHAR CUSTOM_ENTRY_TEXT[] = _T("Custom...");
} // namespace

IMPLEMENT_DYNAMIC(CColorComboBox, CStringComboBox)

BEGIN_MESSAGE_MAP(CColorComboBox, CStringComboBox)
ON_WM_CREATE()
ON_CONTROL_REFLECT_EX(CBN_SELCHANGE, OnSelChange)
ON_CONTROL_REFLECT_EX(CBN_SELENDOK, OnSelEndOk)
ON_MESSAGE(KCBM_CHOOSECUSTOM, OnChooseCustom)
ON_WM_CLOSE()
ON_WM_DESTROY()
END_MESSAGE_MAP()

CColorComboBox::CColorComboBox() : m_bCustomShown(1), m_crCached(CLR_NONE), m_nSwatchWidth(24), m_nPrevSel(-1), m_bCustomGuard(0)
{
}

BOOL CColorComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    dwStyle = (dwStyle & ~(0x3 | CBS_SORT)) | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS;
    return CStringComboBox::Create(dwStyle, rect, pParentWnd, nID);
}

int CColorComboBox::GetSwatchItemHeight()
{
    CClientDC dc(this);
    HFONT hFont = reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
    HGDIOBJ hOldFont = hFont != NULL ? ::SelectObject(dc.GetSafeHdc(), hFont) : NULL;
    TEXTMETRIC tm = {};
    dc.GetTextMetrics(&tm);
    if (hOldFont != NULL)
        ::SelectObject(dc.GetSafeHdc(), hOldFont);
    return tm.tmHeight + 4 > 16 ? tm.tmHeight + 4 : 16;
}

void CColorComboBox::SetUpList()
{
    // A dialog item's WM_MEASUREITEM came before the object was attached: the heights are set
    // here instead.
    int cyItem = GetSwatchItemHeight();
    SetItemHeight(-1, cyItem);
    SetItemHeight(0, cyItem);
    if (GetCount() == 0)
        InitStandardColors();
    SetSelectedColor(m_crCached);
}

void CColorComboBox::PreSubclassWindow()
{
    CStringComboBox::PreSubclassWindow();
    // Create attaches the object before the combo's first message, when it has no list to set
    // up yet (and answers no item height): OnCreate does it then.
    if (GetItemHeight(-1) > 0)
        SetUpList();
}

int CColorComboBox::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    int nResult = CStringComboBox::OnCreate(lpCreateStruct);
    if (nResult != -1)
        SetUpList();
    return nResult;
}

void CColorComboBox::MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    lpMeasureItemStruct->itemHeight = GetSwatchItemHeight();
}

BOOL CColorComboBox::IsCustomEntry(int nIndex) const
{
    return nIndex >= 0 && nIndex < GetCount() && GetItemData(nIndex) == CUSTOM_ENTRY_DATA;
}

BOOL CColorComboBox::HasCustomEntry() const
{
    return IsCustomEntry(GetCount() - 1);
}

void CColorComboBox::InitStandardColors()
{
    if (!::IsWindow(m_hWnd))
        return;
    ResetContent();
    m_nPrevSel = -1;
    for (const auto& color : s_aStandardColors)
        AddColor(color.crColor, color.lpszName);
    if (m_bCustomShown)
        SetItemData(CComboBox::AddString(CUSTOM_ENTRY_TEXT), CUSTOM_ENTRY_DATA);
}

int CColorComboBox::AddColor(COLORREF crColor, LPCTSTR lpszName)
{
    if (!::IsWindow(m_hWnd) || crColor == CLR_NONE || crColor == CUSTOM_ENTRY_DATA || lpszName == NULL)
        return -1;
    int nIndex = InsertString(HasCustomEntry() ? GetCount() - 1 : GetCount(), lpszName);
    if (nIndex >= 0)
        SetItemData(nIndex, crColor);
    return nIndex;
}

int CColorComboBox::SetSelectedColor(COLORREF crColor)
{
    m_crCached = crColor;
    if (!::IsWindow(m_hWnd))
        return -1;
    int nIndex = -1;
    if (crColor != CLR_NONE && crColor != CUSTOM_ENTRY_DATA)
    {
        int nCount = GetCount();
        for (int nItem = 0; nItem < nCount && nIndex < 0; ++nItem)
            if (GetItemData(nItem) == crColor)
                nIndex = nItem;
        if (nIndex < 0)
        {
            CString strName;
            strName.Format("RGB(%d,%d,%d)", GetRValue(crColor), GetGValue(crColor), GetBValue(crColor));
            nIndex = AddColor(crColor, strName);
        }
    }
    m_nPrevSel = SetCurSel(nIndex);
    return m_nPrevSel;
}

COLORREF CColorComboBox::GetSelectedColor()
{
    if (!::IsWindow(m_hWnd))
        return m_crCached;
    int nSel = CComboBox::GetCurSel();
    return nSel >= 0 && !IsCustomEntry(nSel) ? static_cast<COLORREF>(GetItemData(nSel)) : CLR_NONE;
}

void CColorComboBox::EnableCustomColor(BOOL bEnable)
{
    m_bCustomShown = bEnable;
    if (!::IsWindow(m_hWnd) || bEnable == HasCustomEntry())
        return;
    if (bEnable)
        SetItemData(CComboBox::AddString(CUSTOM_ENTRY_TEXT), CUSTOM_ENTRY_DATA);
    else
        DeleteString(GetCount() - 1);
}

int CColorComboBox::ValidateAndGet(COLORREF& crColor, CDataExchange* pDX)
{
    COLORREF crSelected = GetSelectedColor();
    if (crSelected == CLR_NONE)
        return ReportFailure(FormatChoiceMessage(), pDX, FOCUS_ALWAYS);
    crColor = crSelected;
    return TRUE;
}

void CColorComboBox::ChooseCustomLater()
{
    if (m_bCustomGuard)
        return;
    m_bCustomGuard = 1;
    PostMessage(KCBM_CHOOSECUSTOM);
}

BOOL CColorComboBox::OnSelChange()
{
    int nSel = CComboBox::GetCurSel();
    if (m_bCustomGuard)
        return TRUE;
    if (IsCustomEntry(nSel))
    {
        // Arrow keys on the closed combo choose the entry at once; in a dropped list only
        // CBN_SELENDOK does.
        if (!GetDroppedState())
            ChooseCustomLater();
        return TRUE;
    }
    m_nPrevSel = nSel;
    return FALSE;
}

BOOL CColorComboBox::OnSelEndOk()
{
    if (m_bCustomGuard)
        return TRUE;
    if (!IsCustomEntry(CComboBox::GetCurSel()))
        return FALSE;
    ChooseCustomLater();
    return TRUE;
}

LRESULT CColorComboBox::OnChooseCustom(WPARAM, LPARAM)
{
    COLORREF crPrevious = m_nPrevSel >= 0 ? static_cast<COLORREF>(GetItemData(m_nPrevSel)) : CLR_NONE;
    COLORREF crChosen = crPrevious;
    BOOL bChosen = KelChooseColor(GetParent(), crChosen);
    m_bCustomGuard = 0;
    if (!bChosen)
    {
        CComboBox::SetCurSel(m_nPrevSel);
        return 0;
    }
    SetSelectedColor(crChosen);
    if (crChosen != crPrevious)
        ::SendMessage(::GetParent(m_hWnd), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), CBN_SELCHANGE),
                      reinterpret_cast<LPARAM>(m_hWnd));
    return 0;
}

void CColorComboBox::OnClose()
{
    m_crCached = GetSelectedColor();
    CStringComboBox::OnClose();
}

void CColorComboBox::OnDestroy()
{
    m_crCached = GetSelectedColor();
    CStringComboBox::OnDestroy();
}

void CColorComboBox::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    CDC* pDC = CDC::FromHandle(lpDrawItemStruct->hDC);
    CRect rcItem(lpDrawItemStruct->rcItem);
    UINT uState = lpDrawItemStruct->itemState;
    int nItem = static_cast<int>(lpDrawItemStruct->itemID);
    BOOL bFocusRect = (uState & ODS_FOCUS) != 0 && (uState & ODS_NOFOCUSRECT) == 0;
    if (nItem < 0)
    {
        pDC->FillSolidRect(rcItem, m_crBack);
        if (bFocusRect)
            pDC->DrawFocusRect(rcItem);
        return;
    }

    BOOL bDisabled = (uState & ODS_DISABLED) != 0;
    BOOL bSelected = (uState & ODS_SELECTED) != 0;
    COLORREF crBack = bSelected ? ::GetSysColor(COLOR_HIGHLIGHT) : m_crBack;
    COLORREF crText = bDisabled ? ::GetSysColor(COLOR_GRAYTEXT) : bSelected ? ::GetSysColor(COLOR_HIGHLIGHTTEXT) : m_crText;
    pDC->FillSolidRect(rcItem, crBack);

    if (!IsCustomEntry(nItem))
    {
        CRect rcSwatch(rcItem.left + 2, rcItem.top + 2, rcItem.left + 2 + m_nSwatchWidth, rcItem.bottom - 2);
        KelPaintSwatch(pDC, rcSwatch, static_cast<COLORREF>(lpDrawItemStruct->itemData), TRUE,
                       bDisabled ? ::GetSysColor(COLOR_GRAYTEXT) : RGB(0, 0, 0));
    }
    CString strText;
    GetLBText(nItem, strText);
    CRect rcText(rcItem);
    rcText.left += m_nSwatchWidth + 6;
    int nOldMode = pDC->SetBkMode(TRANSPARENT);
    COLORREF crOldText = pDC->SetTextColor(crText);
    pDC->DrawText(strText, rcText, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    pDC->SetTextColor(crOldText);
    pDC->SetBkMode(nOldMode);
    if (bFocusRect)
        pDC->DrawFocusRect(rcItem);
}
