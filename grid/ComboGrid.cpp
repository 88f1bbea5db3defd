#include "grid/ComboGrid.h"

#include "grid/ComboGridDropDown.h"
#include "kelutil/KEL_Util.h"

#include <afxdlg.h>
#include <string.h>

#include <vector>

IMPLEMENT_DYNAMIC(CComboGrid, CComboBox)

BEGIN_MESSAGE_MAP(CComboGrid, CComboBox)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_CLOSE()
ON_WM_CTLCOLOR()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_KEYDOWN()
ON_WM_SYSKEYDOWN()
ON_WM_CHAR()
ON_WM_GETDLGCODE()
ON_WM_KILLFOCUS()
ON_WM_CANCELMODE()
ON_MESSAGE(KDDM_CLOSEUP, OnCloseUp)
ON_MESSAGE(CB_SHOWDROPDOWN, OnShowDropDownMsg)
ON_MESSAGE(CB_GETDROPPEDSTATE, OnGetDroppedStateMsg)
ON_MESSAGE(CB_GETDROPPEDCONTROLRECT, OnGetDroppedControlRect)
END_MESSAGE_MAP()

namespace
{
const DWORD kNoData = 0xFFFFFFFF;
const int kMaxColumns = 64;
const int kDisplayTextSize = 256;
} // namespace

CComboGrid::CComboGrid()
    : m_crText(::GetSysColor(COLOR_WINDOWTEXT)), m_crBack(::GetSysColor(COLOR_WINDOW)), m_pFont(NULL),
      m_pDropDown(NULL), m_pFieldEdit(NULL), m_nCurRow(-1), m_dwCurData(kNoData), m_nTextCol(0), m_nKeyCol(0),
      m_nDropDownRows(8), m_nDropDownWidth(0), m_bHeaderSort(1), m_bRequired(0), m_bMatchRequired(1),
      m_bAutoComplete(0), m_bDropped(0)
{
    m_brBack.CreateSolidBrush(m_crBack);
}

CComboGrid::~CComboGrid()
{
    // The field edit and the popup go with the combo's window, before their objects.
    if (::IsWindow(m_hWnd))
        DestroyWindow();
    delete m_pDropDown;
    delete m_pFieldEdit;
    delete m_pFont;
}

// ---- Creation and columns ----------------------------------------------------------------------

BOOL CComboGrid::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID)
{
    const DWORD dwType = dwStyle & 3;
    if ((dwType != CBS_DROPDOWN && dwType != CBS_DROPDOWNLIST) ||
        (dwStyle & (CBS_SORT | CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0)
        return FALSE;
    m_bInCreate = true;
    BOOL bCreated = CComboBox::Create(dwStyle | CBS_HASSTRINGS, rect, pParent, nID);
    m_bInCreate = false;
    return bCreated;
}

bool CComboGrid::IsDropDownList() const
{
    return (::GetWindowLong(m_hWnd, GWL_STYLE) & 3) == CBS_DROPDOWNLIST;
}

BOOL CComboGrid::CreateParts()
{
    const DWORD dwStyle = ::GetWindowLong(m_hWnd, GWL_STYLE);
    const DWORD dwType = dwStyle & 3;
    if ((dwType != CBS_DROPDOWN && dwType != CBS_DROPDOWNLIST) ||
        (dwStyle & (CBS_SORT | CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0 || m_pDropDown != NULL)
        return FALSE;
    CComboGridDropDown* pDropDown = new CComboGridDropDown(this);
    if (!pDropDown->Create(m_bColumnsSizable))
    {
        delete pDropDown;
        return FALSE;
    }
    m_pDropDown = pDropDown;
    ConfigureList();
    HWND hWndField = ::GetWindow(m_hWnd, GW_CHILD);
    if (dwType == CBS_DROPDOWN && hWndField != NULL)
    {
        delete m_pFieldEdit;
        m_pFieldEdit = new CComboGridEdit(this);
        m_pFieldEdit->SubclassWindow(hWndField);
    }
    // The rows are new: the choice's data and text stay cached until the host chooses again.
    m_nCurRow = -1;
    return TRUE;
}

void CComboGrid::PreSubclassWindow()
{
    CComboBox::PreSubclassWindow();
    // During Create the window is not made yet: OnCreate makes the parts.
    if (!m_bInCreate)
        CreateParts();
}

int CComboGrid::OnCreate(LPCREATESTRUCT)
{
    int nResult = static_cast<int>(Default());
    if (nResult == -1 || !CreateParts())
        return -1;
    return nResult;
}

void CComboGrid::ConfigureList()
{
    CComboGridList& list = m_pDropDown->GetList();
    // Single full-row selection in list style, keyboard find on the key column: a drop-down list.
    list.ModifyStyle(0xFFFFFFFF, CGridList::GS_SINGLESEL | CGridList::GS_LIST | CGridList::GS_FULLROWSELECT |
                                     CGridList::GS_KEYBOARDFIND | CGridList::GS_FINDONSORTCOLUMN |
                                     (m_bHeaderSort ? CGridList::GS_SORTONHDR : 0));
    // The list never keeps the focus, yet its highlight must look focused.
    list.SetGraySelectionOnKillFocus(false);
    list.HideCaret(false);
    list.EnableCCP(false);
    for (DWORD dwTrigger = CGridList::GET_CLICK; dwTrigger <= CGridList::GET_INSERT; dwTrigger <<= 1)
        list.SetGridEditStyle(dwTrigger, CGridList::GES_NONE);
    list.SetKeyboardFindColumn(m_nKeyCol);
    list.AddScrollWnd(m_pDropDown->GetHeader().GetSafeHwnd(), 0);
}

BOOL CComboGrid::SetColumnCount(int nCols)
{
    if (m_pDropDown == NULL || nCols < 1 || nCols > kMaxColumns)
        return FALSE;
    CloseDropDown(FALSE);
    CComboGridList& list = m_pDropDown->GetList();
    if (!list.SetFixedRowCol(0, nCols, 0, 0))
        return FALSE;
    if (m_nTextCol >= nCols)
        m_nTextCol = 0;
    if (m_nKeyCol >= nCols)
        m_nKeyCol = 0;
    ConfigureList();
    list.SetAllColsToWidth(80);
    m_pDropDown->ResetHeader(nCols, m_bColumnsSizable);
    MakeCurrent(-1);
    return TRUE;
}

int CComboGrid::GetColumnCount() const
{
    return m_pDropDown != NULL ? m_pDropDown->GetList().GetColCount() : 0;
}

BOOL CComboGrid::SetColumn(int nCol, const char* pszTitle, int nWidth, int nFormat, short nSortClass)
{
    if (nCol < 0 || nCol >= GetColumnCount() || nWidth < 0 || nFormat < 0 || nFormat > 2 || nSortClass < 0 ||
        nSortClass > 2)
        return FALSE;
    CGridHeader& header = m_pDropDown->GetHeader();
    CString strTitle = pszTitle != NULL ? pszTitle : "";
    HD_ITEM item;
    memset(&item, 0, sizeof(item));
    item.mask = HDI_TEXT | HDI_FORMAT | HDI_WIDTH;
    item.pszText = strTitle.GetBuffer(strTitle.GetLength());
    item.cchTextMax = strTitle.GetLength() + 1;
    item.fmt = nFormat; // HDF_LEFT, HDF_RIGHT and HDF_CENTER are 0, 1 and 2
    item.cxy = nWidth;
    header.SetItem(nCol, &item);
    strTitle.ReleaseBuffer();
    header.SetColSortType(nCol, nSortClass);
    CComboGridList& list = m_pDropDown->GetList();
    list.SetColumnWidth(nCol, nWidth);
    list.SetColumnTextFormat(nCol, nFormat);
    return TRUE;
}

void CComboGrid::SetColumnsSizable(BOOL bSizable)
{
    m_bColumnsSizable = bSizable;
    if (m_pDropDown != NULL)
        m_pDropDown->GetHeader().GridModifyStyle(bSizable ? CGridHeader::GHS_NOMOUSETRACK : 0,
                                                 bSizable ? 0 : CGridHeader::GHS_NOMOUSETRACK);
}

BOOL CComboGrid::SetTextColumn(int nCol)
{
    if (nCol < 0 || nCol >= GetColumnCount())
        return FALSE;
    m_nTextCol = nCol;
    MakeCurrent(m_nCurRow);
    return TRUE;
}

BOOL CComboGrid::SetKeyColumn(int nCol)
{
    if (nCol < 0 || nCol >= GetColumnCount())
        return FALSE;
    m_nKeyCol = nCol;
    m_pDropDown->GetList().SetKeyboardFindColumn(nCol);
    return TRUE;
}

void CComboGrid::EnableHeaderSort(int bEnable)
{
    m_bHeaderSort = bEnable != 0;
    if (m_pDropDown != NULL)
        m_pDropDown->GetList().ModifyStyle(m_bHeaderSort ? 0 : CGridList::GS_SORTONHDR,
                                           m_bHeaderSort ? CGridList::GS_SORTONHDR : 0);
}

// ---- Rows --------------------------------------------------------------------------------------

int CComboGrid::GetRowCount() const
{
    return m_pDropDown != NULL ? m_pDropDown->GetList().GetRowCount() : 0;
}

int CComboGrid::AddRow(const char* pszText0, DWORD dwData)
{
    return InsertRow(-1, pszText0, dwData);
}

int CComboGrid::InsertRow(int nRow, const char* pszText0, DWORD dwData)
{
    if (GetColumnCount() == 0)
        return -1;
    CComboGridList& list = m_pDropDown->GetList();
    nRow = list.InsertRow(nRow, !m_bDropped);
    if (nRow < 0)
        return -1;
    list.SetText(nRow, 0, pszText0 != NULL ? pszText0 : "", true);
    list.SetItemData(nRow, 0, dwData);
    if (m_nCurRow >= nRow)
        ++m_nCurRow;
    return nRow;
}

BOOL CComboGrid::SetItemText(int nRow, int nCol, const char* pszText)
{
    if (nRow < 0 || nRow >= GetRowCount() || nCol < 0 || nCol >= GetColumnCount())
        return FALSE;
    if (!m_pDropDown->GetList().SetText(nRow, nCol, pszText != NULL ? pszText : "", !m_bDropped))
        return FALSE;
    if (nRow == m_nCurRow && nCol == m_nTextCol)
        MakeCurrent(nRow);
    return TRUE;
}

CString CComboGrid::GetItemText(int nRow, int nCol) const
{
    if (nRow < 0 || nRow >= GetRowCount() || nCol < 0 || nCol >= GetColumnCount())
        return CString();
    return CString(m_pDropDown->GetList().GetText(nRow, nCol));
}

BOOL CComboGrid::SetRowData(int nRow, DWORD dwData)
{
    if (nRow < 0 || nRow >= GetRowCount())
        return FALSE;
    m_pDropDown->GetList().SetItemData(nRow, 0, dwData);
    if (nRow == m_nCurRow)
        m_dwCurData = dwData;
    return TRUE;
}

DWORD CComboGrid::GetRowData(int nRow) const
{
    if (nRow < 0 || nRow >= GetRowCount())
        return kNoData;
    return m_pDropDown->GetList().GetItemData(nRow, 0);
}

BOOL CComboGrid::SetRowColors(int nRow, COLORREF crText, COLORREF crBack)
{
    if (nRow < 0 || nRow >= GetRowCount())
        return FALSE;
    CComboGridList& list = m_pDropDown->GetList();
    for (int col = 0; col < list.GetColCount(); ++col)
    {
        list.SetItemTextColor(nRow, col, crText);
        list.SetItemTextBkColor(nRow, col, crBack);
        list.SetItemBkColor(nRow, col, crBack);
    }
    return TRUE;
}

BOOL CComboGrid::DeleteRow(int nRow)
{
    if (nRow < 0 || nRow >= GetRowCount() || !m_pDropDown->GetList().DeleteRow(nRow, !m_bDropped))
        return FALSE;
    if (nRow == m_nCurRow)
        MakeCurrent(-1);
    else if (m_nCurRow > nRow)
        --m_nCurRow;
    return TRUE;
}

void CComboGrid::DeleteAllRows()
{
    if (GetColumnCount() == 0)
        return;
    // Rebuilding the list is far cheaper than deleting rows one by one; the columns' widths and
    // formats are carried over.
    CComboGridList& list = m_pDropDown->GetList();
    const int nCols = list.GetColCount();
    std::vector<int> arWidths(nCols);
    std::vector<long> arFormats(nCols);
    for (int col = 0; col < nCols; ++col)
    {
        arWidths[col] = list.GetColumnWidth(col);
        arFormats[col] = list.GetColumnTextFormat(col);
    }
    list.SetFixedRowCol(0, nCols, 0, 0);
    ConfigureList();
    for (int col = 0; col < nCols; ++col)
    {
        list.SetColumnWidth(col, arWidths[col]);
        if (CGridList::IsValidTextFormat(arFormats[col]))
            list.SetColumnTextFormat(col, arFormats[col]);
    }
    MakeCurrent(-1);
}

int CComboGrid::FindRowText(const char* pszText, int nCol, BOOL bPrefix) const
{
    if (nCol == -1)
        nCol = m_nTextCol;
    if (pszText == NULL || nCol < 0 || nCol >= GetColumnCount())
        return -1;
    const CComboGridList& list = m_pDropDown->GetList();
    const size_t nLength = strlen(pszText);
    for (int row = 0; row < list.GetRowCount(); ++row)
    {
        const char* pszCell = list.GetText(row, nCol);
        if (bPrefix ? _strnicmp(pszCell, pszText, nLength) == 0 : _stricmp(pszCell, pszText) == 0)
            return row;
    }
    return -1;
}

int CComboGrid::FindRowData(DWORD dwData) const
{
    for (int row = 0; row < GetRowCount(); ++row)
        if (GetRowData(row) == dwData)
            return row;
    return -1;
}

// ---- Choice ------------------------------------------------------------------------------------

int CComboGrid::SetCurSel(int nRow)
{
    if (nRow < -1 || nRow >= GetRowCount())
        return CB_ERR;
    MakeCurrent(nRow);
    PutListOn(nRow, m_bDropped != 0);
    return nRow;
}

int CComboGrid::SetCurSelByData(DWORD dwData)
{
    int nRow = FindRowData(dwData);
    return nRow >= 0 ? SetCurSel(nRow) : CB_ERR;
}

void CComboGrid::MakeCurrent(int nRow)
{
    m_nCurRow = nRow;
    m_dwCurData = nRow >= 0 ? GetRowData(nRow) : kNoData;
    m_strText = nRow >= 0 ? GetDisplayText(nRow) : CString();
    ShowFieldText(m_strText);
}

CString CComboGrid::GetDisplayText(int nRow)
{
    char szText[kDisplayTextSize];
    strncpy(szText, GetItemText(nRow, m_nTextCol), kDisplayTextSize - 1);
    szText[kDisplayTextSize - 1] = '\0';
    NMCOMBOGRID nm;
    memset(&nm, 0, sizeof(nm));
    nm.nOldRow = -1;
    nm.nNewRow = nRow;
    nm.dwData = GetRowData(nRow);
    nm.nCol = -1;
    nm.nSortType = -1;
    nm.pszText = szText;
    nm.cchText = kDisplayTextSize;
    SendComboNotify(CBGN_GETDISPTEXT, nm);
    szText[kDisplayTextSize - 1] = '\0';
    return CString(szText);
}

void CComboGrid::ShowFieldText(const CString& strText)
{
    if (!::IsWindow(m_hWnd))
        return;
    if (IsDropDownList())
    {
        // The platform combo shows nothing but its selected string: it holds the one text.
        CComboBox::ResetContent();
        if (m_nCurRow >= 0)
        {
            CComboBox::AddString(strText);
            CComboBox::SetCurSel(0);
        }
        return;
    }
    m_bNotifying = true; // the field's own change notification is not the user's typing
    CComboBox::SetWindowText(strText);
    m_bNotifying = false;
    if (m_pFieldEdit != NULL && ::GetFocus() == m_pFieldEdit->m_hWnd)
        m_pFieldEdit->SetSel(0, -1);
}

void CComboGrid::GetWindowText(CString& strText) const
{
    if (::IsWindow(m_hWnd))
        CComboBox::GetWindowText(strText);
    else
        strText = m_strText;
}

CString CComboGrid::GetWindowText() const
{
    CString strText;
    GetWindowText(strText);
    return strText;
}

BOOL CComboGrid::ValidateAndGet(int& nRow, CDataExchange* pDX)
{
    CString strMessage;
    const CString strName = m_strControlName.IsEmpty() ? CString("The value entered") : m_strControlName;
    if (::IsWindow(m_hWnd) && !IsDropDownList())
    {
        CString strText;
        if (pDX != NULL && pDX->m_bSaveAndValidate)
            DDX_CBString(pDX, GetDlgCtrlID(), strText);
        else
            GetWindowText(strText);
        if (strText.IsEmpty())
            MakeCurrent(-1);
        else if (m_nCurRow < 0 || strText != m_strText)
        {
            int nFound = FindRowText(strText, -1, FALSE);
            if (nFound >= 0)
                MakeCurrent(nFound);
            else if (m_bMatchRequired)
                strMessage = strName + " is not in the list!";
            else
            {
                m_nCurRow = -1;
                m_dwCurData = kNoData;
            }
        }
    }
    if (strMessage.IsEmpty() && m_nCurRow < 0 && m_bRequired)
        strMessage.Format(" A %s must be selected!", static_cast<LPCTSTR>(m_strControlName));
    if (!strMessage.IsEmpty())
        return ReportFailure(strMessage, pDX, FOCUS_ALWAYS);
    nRow = m_nCurRow;
    return TRUE;
}

BOOL CComboGrid::Validate()
{
    int nRow = -1;
    return ValidateAndGet(nRow, NULL);
}

// ---- Colours and font --------------------------------------------------------------------------

void CComboGrid::SetTextColor(COLORREF crText)
{
    m_crText = crText;
    if (::IsWindow(m_hWnd))
        Invalidate();
}

void CComboGrid::SetBkColor(COLORREF crBack)
{
    m_crBack = crBack;
    m_brBack.DeleteObject();
    m_brBack.CreateSolidBrush(m_crBack);
    if (::IsWindow(m_hWnd))
        Invalidate();
}

void CComboGrid::SetFont(int nPointSize, const char* pszFace, CDC* pDC)
{
    delete m_pFont;
    m_pFont = new CFont;
    m_pFont->CreatePointFont(nPointSize, pszFace, pDC);
    if (::IsWindow(m_hWnd))
        SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_pFont->GetSafeHandle()), TRUE);
}

BOOL CComboGrid::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    switch (message)
    {
    case WM_COMMAND:
        switch (HIWORD(wParam))
        {
        case CBN_SELENDOK:
        case CBN_SELENDCANCEL:
        case CBN_SELCHANGE:
            // The platform combo's own, sent as it loses the focus: only the combo's own pass.
            if (m_bNotifying)
                return FALSE;
            if (pResult != NULL)
                *pResult = 0;
            return TRUE;
        default:
            break;
        }
        break;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
        ::SetTextColor(reinterpret_cast<HDC>(wParam), m_crText);
        ::SetBkColor(reinterpret_cast<HDC>(wParam), m_crBack);
        if (pResult != NULL)
            *pResult = reinterpret_cast<LRESULT>(m_brBack.GetSafeHandle());
        return TRUE;
    default:
        break;
    }
    return CComboBox::OnChildNotify(message, wParam, lParam, pResult);
}

HBRUSH CComboGrid::OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor)
{
    // The platform combo asks its parent for its field's colours naming the field: answered here.
    if ((nCtlColor == CTLCOLOR_EDIT || nCtlColor == CTLCOLOR_LISTBOX) && pDC != NULL)
    {
        pDC->SetTextColor(m_crText);
        pDC->SetBkColor(m_crBack);
        return static_cast<HBRUSH>(m_brBack.GetSafeHandle());
    }
    return CComboBox::OnCtlColor(pDC, pWnd, nCtlColor);
}

// ---- Lifetime ----------------------------------------------------------------------------------

void CComboGrid::CacheWindowState()
{
    if (::IsWindow(m_hWnd))
        CComboBox::GetWindowText(m_strText);
}

void CComboGrid::OnClose()
{
    CacheWindowState();
    Default();
}

void CComboGrid::OnDestroy()
{
    // Quietly: the parent may be going away too.
    if (m_bDropped)
    {
        m_dropDownHelper.Close();
        m_bDropped = 0;
    }
    CacheWindowState();
    if (m_pDropDown != NULL)
    {
        if (::IsWindow(m_pDropDown->m_hWnd))
            m_pDropDown->DestroyWindow();
        delete m_pDropDown;
        m_pDropDown = NULL;
    }
    Default();
}
