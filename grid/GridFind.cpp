// CGridFind: the grid's find dialog on the library's own template.
#include "grid/GridFind.h"

#include "grid/GridList.h"

IMPLEMENT_DYNAMIC(CGridFind, CFindReplaceDialog)

CGridFind::CGridFind(CGridList* pGrid, const CStringArray& arColumnNames, int nColumns)
    : m_pGrid(pGrid), m_nColumns(nColumns)
{
    m_arColumnNames.Copy(arColumnNames);
}

BOOL CGridFind::Create(LPCTSTR lpszFindWhat)
{
    // The template is looked up along the resource chain, so a host may replace it.
    LPCTSTR lpszTemplate = MAKEINTRESOURCE(IDD_GRIDFIND);
    m_fr.hInstance = AfxFindResourceHandle(lpszTemplate, RT_DIALOG);
    m_fr.lpTemplateName = lpszTemplate;
    return CFindReplaceDialog::Create(TRUE, lpszFindWhat, NULL, FR_DOWN | FR_ENABLETEMPLATE, m_pGrid);
}

BOOL CGridFind::OnInitDialog()
{
    CDialog::OnInitDialog();
    CComboBox* pList = static_cast<CComboBox*>(GetDlgItem(IDC_GRIDFIND_COLUMNS));
    if (pList != NULL)
    {
        for (int col = 0; col < m_nColumns; ++col)
        {
            CString strName;
            if (col < m_arColumnNames.GetSize())
                strName = m_arColumnNames[col];
            else
                strName.Format("%d", col + 1);
            int nIndex = pList->AddString(strName);
            if (nIndex >= 0)
                pList->SetItemData(nIndex, static_cast<DWORD_PTR>(col));
        }
        pList->SetCurSel(0);
    }
    CheckDlgButton(IDC_GRIDFIND_FULLROW, BST_CHECKED);
    return TRUE;
}

CGridFind::eScope CGridFind::GetScope() const
{
    if (IsDlgButtonChecked(IDC_GRIDFIND_FULLROW))
        return SCOPE_FULLROW;
    if (IsDlgButtonChecked(IDC_GRIDFIND_CELL))
        return SCOPE_CELL;
    if (IsDlgButtonChecked(IDC_GRIDFIND_COLUMN))
        return SCOPE_COLUMN;
    return SCOPE_NONE;
}

int CGridFind::GetColumn() const
{
    CComboBox* pList = static_cast<CComboBox*>(GetDlgItem(IDC_GRIDFIND_COLUMNS));
    int nIndex = pList == NULL ? CB_ERR : pList->GetCurSel();
    return nIndex == CB_ERR ? -1 : static_cast<int>(pList->GetItemData(nIndex));
}

void CGridFind::PostNcDestroy()
{
    if (m_pGrid != NULL)
        m_pGrid->OnFindDlgGone(this);
    CFindReplaceDialog::PostNcDestroy();
}
