#include "gallery/GridPage.h"

#include "grid/GridFind.h"

namespace
{
const UINT IDC_GRID = 100;
const int INTRO_LINES = 4;

enum
{
    COL_NUMBER,
    COL_CUE,
    COL_CHANNEL,
    COL_LEVEL,
    COL_COLOUR,
    COL_FADE,
    COL_NOTES,
    COL_COUNT
};

const struct
{
    LPCTSTR lpszTitle;
    int nWidth;
    short nSortClass; // 0 text, 1 numbers
} s_aColumns[COL_COUNT] = {
    {_T("#"), 32, 1},      {_T("Cue"), 56, 1},  {_T("Channel"), 96, 0}, {_T("Level"), 64, 1},
    {_T("Colour"), 110, 0}, {_T("Fade"), 64, 1}, {_T("Notes"), 170, 0},
};

// The images: a lamp, a warning and a link, each a 16 by 16 shape.
enum
{
    IMAGE_LAMP,
    IMAGE_WARNING,
    IMAGE_LINK,
    IMAGE_COUNT
};
const int IMAGE_SIZE = 16;

const struct
{
    LPCTSTR lpszCue;
    LPCTSTR lpszChannel;
    LPCTSTR lpszLevel;
    LPCTSTR lpszColour;
    COLORREF crColour; // the gel's colour as the cell's background
    LPCTSTR lpszFade;
    LPCTSTR lpszNotes;
} s_aCues[] = {
    {_T("1"), _T("1-12"), _T("100"), _T("Open white"), RGB(255, 255, 255), _T("3.0"), _T("House to half")},
    {_T("2"), _T("13"), _T("85"), _T("Amber"), RGB(255, 191, 0), _T("5.0"), _T("Sunrise")},
    {_T("2.5"), _T("14-16"), _T("70"), _T("Lavender"), RGB(200, 170, 255), _T("2.5"), _T("Follow on")},
    {_T("3"), _T("21"), _T("60"), _T("Steel"), RGB(70, 90, 110), _T("8.0"), _T("Slow build, check the focus of 21")},
    {_T("4"), _T("22-24"), _T("45"), _T("Blue"), RGB(0, 64, 192), _T("10.0"), _T("Night")},
    {_T("5"), _T("31"), _T("100"), _T("Red"), RGB(192, 0, 0), _T("0.0"), _T("Snap")},
    {_T("6"), _T("32-36"), _T("30"), _T("Green"), RGB(0, 128, 0), _T("4.0"), _T("Forest")},
    {_T("7"), _T("41"), _T("90"), _T("Amber"), RGB(255, 191, 0), _T("6.0"), _T("Linked to sound")},
    {_T("8"), _T("42"), _T("15"), _T("Open white"), RGB(255, 255, 255), _T("12.0"), _T("Fade to preset")},
    {_T("9"), _T("1-48"), _T("0"), _T("Open white"), RGB(255, 255, 255), _T("5.0"), _T("Blackout")},
};
const int CUE_COUNT = static_cast<int>(sizeof(s_aCues) / sizeof(s_aCues[0]));

// A dark text on light gels, a white one on dark gels.
COLORREF TextColourOn(COLORREF crBack)
{
    return GetRValue(crBack) * 3 + GetGValue(crBack) * 6 + GetBValue(crBack) < 1000 ? RGB(255, 255, 255)
                                                                                      : RGB(0, 0, 0);
}
} // namespace

IMPLEMENT_DYNCREATE(CGridPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CGridPage, CGalleryPage)
ON_WM_CREATE()
ON_NOTIFY(GN_EDITBEGIN, IDC_GRID, OnGridEditBegin)
ON_NOTIFY(GN_EDITEND, IDC_GRID, OnGridEditEnd)
END_MESSAGE_MAP()

int CGridPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    if (!CreateLabel(m_wndIntro, _T("A grid window as a cue sheet: click a title to sort by it, Ctrl+click to add ")
                                 _T("a key (shown sorted by Colour, then Level downwards). Aligned numbers, gel colours, ")
                                 _T("images, edit icons, a selection (Level to Fade of cues 2.5 to 4) and a pending cut ")
                                 _T("(the colours of cues 6 and 7, drawn plain while cut). Type to find a row by the ")
                                 _T("text of the caret's column, Ctrl+F or F3 to search; double click or Enter to edit a ")
                                 _T("cell (a colour from a list of gels), or type in a note.")) ||
        !m_wndGrid.Create(CUE_COUNT, COL_COUNT, 0, 0, WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(0, 0, 0, 0), this,
                          IDC_GRID) ||
        !CreateImages() || !CreateGelList())
        return -1;
    m_wndGrid.SetGridFont(m_pFont);
    LayoutControls(lpCreateStruct->cx, lpCreateStruct->cy);
    FillGrid();
    return 0;
}

BOOL CGridPage::CreateGelList()
{
    if (!m_wndGels.Create(WS_CHILD | CBS_DROPDOWNLIST, CRect(0, 0, 0, 0), this, IDC_GRID + 1))
        return FALSE;
    // One entry per gel, its data the first cue that uses it: where its colour is found.
    for (int nCue = 0; nCue < CUE_COUNT; ++nCue)
    {
        if (m_wndGels.FindStringExact(-1, s_aCues[nCue].lpszColour) < 0)
            m_wndGels.SetItemData(m_wndGels.AddString(s_aCues[nCue].lpszColour), static_cast<DWORD_PTR>(nCue));
    }
    m_wndGrid.GetList().SetFixedCombo(m_wndGels, false);
    return TRUE;
}

BOOL CGridPage::CreateImages()
{
    if (!m_images.Create(IMAGE_SIZE, IMAGE_SIZE, ILC_COLOR24 | ILC_MASK, IMAGE_COUNT, 0))
        return FALSE;
    CClientDC dcScreen(this);
    CDC dc;
    CBitmap bitmap;
    if (!dc.CreateCompatibleDC(&dcScreen) ||
        !bitmap.CreateCompatibleBitmap(&dcScreen, IMAGE_SIZE * IMAGE_COUNT, IMAGE_SIZE))
        return FALSE;
    // Magenta is the mask: the shapes sit on the cell's own background.
    const COLORREF crMask = RGB(255, 0, 255);
    CBitmap* pOldBitmap = dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, IMAGE_SIZE * IMAGE_COUNT, IMAGE_SIZE, crMask);
    CBrush brLamp(RGB(255, 210, 0)), brWarning(RGB(220, 40, 20)), brLink(RGB(30, 90, 200));
    CBrush* pOldBrush = dc.SelectObject(&brLamp);
    dc.Ellipse(2, 1, 14, 13);
    dc.FillSolidRect(5, 13, 6, 3, RGB(90, 90, 90));
    dc.SelectObject(&brWarning);
    const POINT aTriangle[3] = {{IMAGE_SIZE + 8, 1}, {IMAGE_SIZE + 15, 15}, {IMAGE_SIZE + 1, 15}};
    dc.Polygon(aTriangle, 3);
    dc.FillSolidRect(IMAGE_SIZE + 7, 6, 2, 5, RGB(255, 255, 255));
    dc.FillSolidRect(IMAGE_SIZE + 7, 12, 2, 2, RGB(255, 255, 255));
    dc.SelectObject(&brLink);
    dc.Ellipse(2 * IMAGE_SIZE + 1, 4, 2 * IMAGE_SIZE + 10, 12);
    dc.Ellipse(2 * IMAGE_SIZE + 6, 4, 2 * IMAGE_SIZE + 15, 12);
    dc.SelectObject(pOldBrush);
    dc.SelectObject(pOldBitmap);
    if (m_images.Add(&bitmap, crMask) < 0)
        return FALSE;
    m_wndGrid.GetList().SetImageList(&m_images, LVSIL_SMALL);
    return TRUE;
}

void CGridPage::FillGrid()
{
    CGridList& list = m_wndGrid.GetList();
    for (int nCol = 0; nCol < COL_COUNT; ++nCol)
    {
        m_wndGrid.SetColumnTitle(nCol, s_aColumns[nCol].lpszTitle);
        m_wndGrid.SetColumnSortClass(nCol, s_aColumns[nCol].nSortClass);
        list.SetColumnWidth(nCol, s_aColumns[nCol].nWidth);
    }
    list.SetColumnTextFormat(COL_CUE, LVCFMT_CENTER);
    list.SetColumnTextFormat(COL_LEVEL, LVCFMT_RIGHT);
    list.SetColumnTextFormat(COL_FADE, LVCFMT_RIGHT);
    list.SetEditIconStyle(CGridList::EIS_SHOW);
    for (int nRow = 0; nRow < CUE_COUNT; ++nRow)
    {
        CString strNumber;
        strNumber.Format(_T("%d"), nRow + 1);
        list.SetText(nRow, COL_NUMBER, strNumber, true);
        list.SetText(nRow, COL_CUE, s_aCues[nRow].lpszCue, true);
        list.SetText(nRow, COL_CHANNEL, s_aCues[nRow].lpszChannel, true);
        list.SetText(nRow, COL_LEVEL, s_aCues[nRow].lpszLevel, true);
        list.SetText(nRow, COL_COLOUR, s_aCues[nRow].lpszColour, true);
        list.SetText(nRow, COL_FADE, s_aCues[nRow].lpszFade, true);
        list.SetText(nRow, COL_NOTES, s_aCues[nRow].lpszNotes, true);
        SetGelColours(nRow, nRow);
        list.SetCellImage(nRow, COL_CHANNEL, IMAGE_LAMP, CGridList::IMAGE_BEFORE_TEXT);
        list.SetCellEditIcon(nRow, COL_COLOUR, CGridList::EDITICON_DROPDOWN, 0, 0);
        list.SetCellEditIcon(nRow, COL_NOTES, CGridList::EDITICON_DIALOG, 0, 0);
    }
    // A full level is left-aligned in its own cell; the long note keeps its warning image in
    // front and ends in dots; the link image follows its text.
    list.SetCellTextFormat(5, COL_LEVEL, LVCFMT_LEFT);
    list.SetItemTextColor(3, COL_NOTES, RGB(192, 0, 0));
    list.SetCellImage(3, COL_NOTES, IMAGE_WARNING, CGridList::IMAGE_BEFORE_TEXT);
    list.SetCellImage(7, COL_NOTES, IMAGE_LINK, CGridList::IMAGE_AFTER_TEXT);

    // The page is shown without the focus: the selection keeps its highlight colours.
    list.ModifyStyle(0, CGridList::GS_SHOWCARETALWAYS | CGridList::GS_SORTONHDR | CGridList::GS_KEYBOARDFIND);
    list.SetGridEditStyle(CGridList::GET_DBLCLK, CGridList::GES_EDIT);
    list.SetGridEditStyle(CGridList::GET_RETURN, CGridList::GES_EDIT);
    list.SetGridEditStyle(CGridList::GET_CHAR, CGridList::GES_EDIT);
    list.SetGraySelectionOnKillFocus(false);
    CArray<Cell> cutCells;
    cutCells.Add(Cell(6, COL_COLOUR));
    cutCells.Add(Cell(7, COL_COLOUR));
    list.SetCCP(2, 6, COL_COLOUR, cutCells);
    list.SetCurSel(2, COL_LEVEL, 4, COL_FADE);

    // Sorted as the header's clicks would sort it: by colour, then level downwards. The
    // selection and the cut travel with their rows.
    m_wndGrid.SortOnColumn(COL_COLOUR, false);
    m_wndGrid.SortOnColumn(COL_LEVEL, true);
    m_wndGrid.SortOnColumn(COL_LEVEL, true);
}

void CGridPage::SetGelColours(int row, int nCue)
{
    CGridList& list = m_wndGrid.GetList();
    const COLORREF crGel = s_aCues[nCue].crColour;
    list.SetItemBkColor(row, COL_COLOUR, crGel);
    list.SetItemTextBkColor(row, COL_COLOUR, crGel);
    list.SetItemTextColor(row, COL_COLOUR, TextColourOn(crGel));
}

void CGridPage::OnGridEditBegin(NMHDR* pHdr, LRESULT* pResult)
{
    // The running number is not edited, and a typed character edits only a note: elsewhere it
    // finds a row. A double click on a colour chooses a gel from the list instead of typing one.
    NMGRIDEDITBEGIN* pBegin = reinterpret_cast<NMGRIDEDITBEGIN*>(pHdr);
    *pResult = pBegin->col == COL_NUMBER || (pBegin->nTrigger == CGridList::GET_CHAR && pBegin->col != COL_NOTES);
    if (*pResult == 0 && pBegin->col == COL_COLOUR && pBegin->nTrigger == CGridList::GET_DBLCLK)
    {
        pBegin->nEditType = CGridList::GES_COMBO;
        pBegin->hWndEdit = NULL;
        pBegin->bInitText = 0;
    }
}

void CGridPage::OnGridEditEnd(NMHDR* pHdr, LRESULT* pResult)
{
    // A gel chosen from the list brings its colour; the text goes in as the grid sets it.
    const NMGRIDEDITEND* pEnd = reinterpret_cast<NMGRIDEDITEND*>(pHdr);
    if (pEnd->nEditType == CGridList::GES_COMBO && pEnd->dwData < static_cast<DWORD>(CUE_COUNT))
        SetGelColours(pEnd->row, static_cast<int>(pEnd->dwData));
    *pResult = 0;
}

LPCTSTR CGridPage::EnterSnapshotState(int nState, HWND* phWndPopup)
{
    CGridList& list = m_wndGrid.GetList();
    *phWndPopup = NULL;
    if (list.GetFindDlg() != NULL)
        list.GetFindDlg()->DestroyWindow();
    if (list.IsEditing())
        list.OnGridEdit_Close(list.GetEditCell().row, list.GetEditCell().col, list.GetEditStyle(), FALSE, 0);
    switch (nState)
    {
    case 1:
    {
        // The find dialog as F3 or Ctrl+F opens it, a word of the notes to look for.
        m_wndGrid.SendMessage(GM_FINDDIALOG);
        CGridFind* pDlg = list.GetFindDlg();
        if (pDlg == NULL)
            return NULL;
        pDlg->SetDlgItemText(IDC_GRIDFIND_TEXT, _T("focus"));
        *phWndPopup = pDlg->GetSafeHwnd();
        return _T("find");
    }
    case 2:
        // A note opened for editing by Enter, its text whole.
        list.GridEdit(3, COL_NOTES, CGridList::GES_EDIT, CGridList::GET_RETURN, true);
        return list.IsEditing() ? _T("editing") : NULL;
    default:
        return NULL;
    }
}

void CGridPage::LayoutControls(int cx, int cy)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    int nHeight = cy - y - MARGIN;
    m_wndGrid.MoveWindow(MARGIN, y, cx - 2 * MARGIN, nHeight > 0 ? nHeight : 0);
}
