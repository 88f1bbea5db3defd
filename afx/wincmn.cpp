#include <afxwin.h>
#include <afxcmn.h>

#include <limits.h>
#include <string.h>

namespace
{
typedef CHandleMap<CImageList, HIMAGELIST, &CImageList::m_hImageList> CImageListMap;

// Registers the common-control window classes before the first window of them.
void InitCommonClasses(DWORD dwICC)
{
    INITCOMMONCONTROLSEX icc = {sizeof(icc), dwICC};
    ::InitCommonControlsEx(&icc);
}

LVITEMA MakeItem(UINT nMask, int nItem, int nSubItem, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                 LPARAM lParam)
{
    LVITEMA item;
    memset(&item, 0, sizeof(item));
    item.mask = nMask;
    item.iItem = nItem;
    item.iSubItem = nSubItem;
    item.pszText = const_cast<LPSTR>(lpszItem);
    item.state = nState;
    item.stateMask = nStateMask;
    item.iImage = nImage;
    item.lParam = lParam;
    return item;
}

// Selected items are walked with positions of index + 1, so that no item is NULL.
POSITION PositionOf(int nItem)
{
    return reinterpret_cast<POSITION>(static_cast<INT_PTR>(nItem) + 1);
}
} // namespace

// ---------------------------------------------------------------------------------------------
// CImageList

IMPLEMENT_DYNCREATE(CImageList, CObject)

CImageList::CImageList() : m_hImageList(NULL) {}

CImageList::~CImageList()
{
    DeleteImageList();
}

CImageList* PASCAL CImageList::FromHandle(HIMAGELIST hImageList)
{
    return CImageListMap::FromHandle(hImageList);
}

CImageList* PASCAL CImageList::FromHandlePermanent(HIMAGELIST hImageList)
{
    return CImageListMap::FromHandlePermanent(hImageList);
}

void PASCAL CImageList::DeleteTempMap()
{
    CImageListMap::DeleteTempMap();
}

BOOL CImageList::Attach(HIMAGELIST hImageList)
{
    return CImageListMap::Attach(this, hImageList);
}

HIMAGELIST CImageList::Detach()
{
    return CImageListMap::Detach(this);
}

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow)
{
    return m_hImageList == NULL && Attach(ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
}

BOOL CImageList::Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask)
{
    return Create(MAKEINTRESOURCEA(nBitmapID), cx, nGrow, crMask);
}

BOOL CImageList::Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask)
{
    return m_hImageList == NULL && lpszBitmapID != NULL &&
           Attach(ImageList_LoadImageA(AfxFindResourceHandle(lpszBitmapID, RT_BITMAP), lpszBitmapID, cx, nGrow,
                                       crMask, IMAGE_BITMAP, 0));
}

BOOL CImageList::DeleteImageList()
{
    if (m_hImageList == NULL)
        return FALSE;
    return ImageList_Destroy(Detach());
}

int CImageList::Add(CBitmap* pbmImage, CBitmap* pbmMask)
{
    ASSERT(m_hImageList != NULL);
    return ImageList_Add(m_hImageList, static_cast<HBITMAP>(pbmImage->GetSafeHandle()),
                         static_cast<HBITMAP>(pbmMask->GetSafeHandle()));
}

int CImageList::Add(CBitmap* pbmImage, COLORREF crMask)
{
    ASSERT(m_hImageList != NULL);
    return ImageList_AddMasked(m_hImageList, static_cast<HBITMAP>(pbmImage->GetSafeHandle()), crMask);
}

BOOL CImageList::Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask)
{
    ASSERT(m_hImageList != NULL);
    return ImageList_Replace(m_hImageList, nImage, static_cast<HBITMAP>(pbmImage->GetSafeHandle()),
                             static_cast<HBITMAP>(pbmMask->GetSafeHandle()));
}

BOOL CImageList::Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle)
{
    ASSERT(m_hImageList != NULL);
    return ImageList_Draw(m_hImageList, nImage, pDC->GetSafeHdc(), pt.x, pt.y, nStyle);
}

// ---------------------------------------------------------------------------------------------
// CHeaderCtrl

IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)

BOOL CHeaderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    InitCommonClasses(ICC_LISTVIEW_CLASSES);
    return CWnd::Create(WC_HEADERA, NULL, dwStyle, rect, pParentWnd, nID);
}

// ---------------------------------------------------------------------------------------------
// CListCtrl

IMPLEMENT_DYNAMIC(CListCtrl, CWnd)

BEGIN_MESSAGE_MAP(CListCtrl, CWnd)
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

CListCtrl::~CListCtrl()
{
    DestroyWindow();
    m_wndHeader.m_hWnd = NULL; // the wrapper must not destroy a header it never owned
}

BOOL CListCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    InitCommonClasses(ICC_LISTVIEW_CLASSES);
    return CWnd::Create(WC_LISTVIEWA, NULL, dwStyle, rect, pParentWnd, nID);
}

int CListCtrl::InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat, int nWidth, int nSubItem)
{
    ASSERT(::IsWindow(m_hWnd));
    LVCOLUMNA column;
    memset(&column, 0, sizeof(column));
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.fmt = nFormat;
    column.pszText = const_cast<LPSTR>(lpszColumnHeading);
    if (nWidth != -1)
    {
        column.mask |= LVCF_WIDTH;
        column.cx = nWidth;
    }
    if (nSubItem != -1)
    {
        column.mask |= LVCF_SUBITEM;
        column.iSubItem = nSubItem;
    }
    return InsertColumn(nCol, &column);
}

int CListCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage,
                          LPARAM lParam)
{
    ASSERT(::IsWindow(m_hWnd));
    LVITEMA item = MakeItem(nMask, nItem, 0, lpszItem, nImage, nState, nStateMask, lParam);
    return InsertItem(&item);
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                        UINT nStateMask, LPARAM lParam)
{
    ASSERT(::IsWindow(m_hWnd));
    LVITEMA item = MakeItem(nMask, nItem, nSubItem, lpszItem, nImage, nState, nStateMask, lParam);
    return SetItem(&item);
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText)
{
    ASSERT(::IsWindow(m_hWnd));
    LVITEMA item = MakeItem(LVIF_TEXT, nItem, nSubItem, lpszText, 0, 0, 0, 0);
    return static_cast<BOOL>(SendMessage(LVM_SETITEMTEXTA, nItem, reinterpret_cast<LPARAM>(&item)));
}

int CListCtrl::GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const
{
    ASSERT(::IsWindow(m_hWnd));
    if (lpszText == NULL || nLen <= 0)
        return 0;
    // Read whole and cut here: the control may write a character past a buffer that is too short.
    ::lstrcpynA(lpszText, GetItemText(nItem, nSubItem), nLen);
    return ::lstrlenA(lpszText);
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const
{
    ASSERT(::IsWindow(m_hWnd));
    // The control tells only how much it copied: a full buffer may have cut the text, so try
    // again with a larger one. Each buffer has a place to spare after the nLen it admits to.
    CString str;
    for (int nLen = 256;; nLen *= 2)
    {
        LVITEMA item = MakeItem(LVIF_TEXT, nItem, nSubItem, str.GetBuffer(nLen), 0, 0, 0, 0);
        item.pszText[0] = '\0'; // the control leaves the buffer alone for no such item
        item.cchTextMax = nLen;
        int nCopied = static_cast<int>(SendMessage(LVM_GETITEMTEXTA, nItem, reinterpret_cast<LPARAM>(&item)));
        str.ReleaseBuffer();
        if (nCopied < nLen - 1 || nLen > INT_MAX / 2)
            return str;
    }
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const
{
    ASSERT(::IsWindow(m_hWnd));
    LVITEMA item = MakeItem(LVIF_PARAM, nItem, 0, NULL, 0, 0, 0, 0);
    return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask)
{
    ASSERT(::IsWindow(m_hWnd));
    LVITEMA item = MakeItem(LVIF_STATE, nItem, 0, NULL, 0, nState, nMask, 0);
    return SetItemState(nItem, &item);
}

POSITION CListCtrl::GetFirstSelectedItemPosition() const
{
    ASSERT(::IsWindow(m_hWnd));
    return PositionOf(GetNextItem(-1, LVNI_SELECTED));
}

int CListCtrl::GetNextSelectedItem(POSITION& pos) const
{
    ASSERT(::IsWindow(m_hWnd));
    if (pos == NULL)
        return -1;
    int nItem = static_cast<int>(reinterpret_cast<INT_PTR>(pos) - 1);
    pos = PositionOf(GetNextItem(nItem, LVNI_SELECTED));
    return nItem;
}

BOOL CListCtrl::GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const
{
    ASSERT(::IsWindow(m_hWnd));
    if (lpRect == NULL)
        return FALSE;
    lpRect->left = static_cast<LONG>(nCode);
    return static_cast<BOOL>(SendMessage(LVM_GETITEMRECT, nItem, reinterpret_cast<LPARAM>(lpRect)));
}

BOOL CListCtrl::GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const
{
    ASSERT(::IsWindow(m_hWnd));
    ref.top = iSubItem;
    ref.left = nArea;
    return static_cast<BOOL>(SendMessage(LVM_GETSUBITEMRECT, iItem, reinterpret_cast<LPARAM>(static_cast<LPRECT>(ref))));
}

int CListCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    ASSERT(::IsWindow(m_hWnd));
    LVHITTESTINFO info;
    memset(&info, 0, sizeof(info));
    info.pt = pt;
    int nItem = HitTest(&info);
    if (pFlags != NULL)
        *pFlags = info.flags;
    return nItem;
}

CImageList* CListCtrl::SetImageList(CImageList* pImageList, int nImageList)
{
    ASSERT(::IsWindow(m_hWnd));
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(
        SendMessage(LVM_SETIMAGELIST, nImageList, reinterpret_cast<LPARAM>(pImageList->GetSafeHandle()))));
}

CImageList* CListCtrl::GetImageList(int nImageList) const
{
    ASSERT(::IsWindow(m_hWnd));
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(SendMessage(LVM_GETIMAGELIST, nImageList)));
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl()
{
    ASSERT(::IsWindow(m_hWnd));
    HWND hWndHeader = reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER));
    if (hWndHeader == NULL)
        return NULL;
    CWnd* pWnd = CWnd::FromHandlePermanent(hWndHeader);
    if (pWnd != NULL && pWnd->IsKindOf(RUNTIME_CLASS(CHeaderCtrl)))
        return static_cast<CHeaderCtrl*>(pWnd);
    // Not attached, so that a caller may still subclass the header with an object of its own.
    m_wndHeader.m_hWnd = hWndHeader;
    return &m_wndHeader;
}

void CListCtrl::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    if (pResult != NULL)
        *pResult = TRUE;
    return TRUE;
}

void CListCtrl::RemoveImageList(int nImageList)
{
    HIMAGELIST hImageList = reinterpret_cast<HIMAGELIST>(SendMessage(LVM_GETIMAGELIST, nImageList));
    if (CImageList::FromHandlePermanent(hImageList) != NULL)
        SendMessage(LVM_SETIMAGELIST, nImageList, 0);
}

void CListCtrl::OnNcDestroy()
{
    RemoveImageList(LVSIL_NORMAL);
    RemoveImageList(LVSIL_SMALL);
    RemoveImageList(LVSIL_STATE);
    m_wndHeader.m_hWnd = NULL;
    CWnd::OnNcDestroy();
}

// ---------------------------------------------------------------------------------------------
// CProgressCtrl

IMPLEMENT_DYNAMIC(CProgressCtrl, CWnd)

BOOL CProgressCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    InitCommonClasses(ICC_PROGRESS_CLASS);
    return CWnd::Create(PROGRESS_CLASSA, NULL, dwStyle, rect, pParentWnd, nID);
}

void CProgressCtrl::GetRange(int& nLower, int& nUpper) const
{
    ASSERT(::IsWindow(m_hWnd));
    PBRANGE range = {0, 0};
    SendMessage(PBM_GETRANGE, TRUE, reinterpret_cast<LPARAM>(&range));
    nLower = range.iLow;
    nUpper = range.iHigh;
}

// ---------------------------------------------------------------------------------------------
// CToolTipCtrl

IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle)
{
    InitCommonClasses(ICC_BAR_CLASSES);
    return CWnd::CreateEx(0, TOOLTIPS_CLASSA, NULL, WS_POPUP | dwStyle, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                          CW_USEDEFAULT, pParentWnd->GetSafeHwnd(), NULL);
}

void CToolTipCtrl::FillInToolInfo(TTTOOLINFOA& ti, CWnd* pWnd, UINT_PTR nIDTool) const
{
    memset(&ti, 0, sizeof(ti));
    // The size of the record before comctl32 6 grew it: version 5 refuses the larger one.
    ti.cbSize = TTTOOLINFOA_V2_SIZE;
    HWND hWnd = pWnd->GetSafeHwnd();
    if (nIDTool == 0)
    {
        ti.hwnd = ::GetParent(hWnd);
        ti.uFlags = TTF_IDISHWND;
        ti.uId = reinterpret_cast<UINT_PTR>(hWnd);
    }
    else
    {
        ti.hwnd = hWnd;
        ti.uId = nIDTool;
    }
}

BOOL CToolTipCtrl::SendToolText(UINT nMsg, CWnd* pWnd, UINT_PTR nIDTool, HINSTANCE hInstText, LPCTSTR lpszText,
                                LPCRECT lpRectTool)
{
    TTTOOLINFOA ti;
    FillInToolInfo(ti, pWnd, nIDTool);
    if (lpRectTool != NULL)
        ti.rect = *lpRectTool;
    ti.hinst = hInstText;
    ti.lpszText = const_cast<LPSTR>(lpszText);
    return static_cast<BOOL>(SendMessage(nMsg, 0, reinterpret_cast<LPARAM>(&ti)));
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR nIDTool)
{
    ASSERT(::IsWindow(m_hWnd));
    return pWnd->GetSafeHwnd() != NULL && lpszText != NULL &&
           SendToolText(TTM_ADDTOOLA, pWnd, nIDTool, NULL, lpszText, lpRectTool);
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, UINT nIDText, LPCRECT lpRectTool, UINT_PTR nIDTool)
{
    ASSERT(::IsWindow(m_hWnd));
    return pWnd->GetSafeHwnd() != NULL && nIDText != 0 &&
           SendToolText(TTM_ADDTOOLA, pWnd, nIDTool, AfxFindStringResourceHandle(nIDText), MAKEINTRESOURCEA(nIDText),
                        lpRectTool);
}

void CToolTipCtrl::DelTool(CWnd* pWnd, UINT_PTR nIDTool)
{
    ASSERT(::IsWindow(m_hWnd));
    TTTOOLINFOA ti;
    FillInToolInfo(ti, pWnd, nIDTool);
    SendMessage(TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&ti));
}

void CToolTipCtrl::UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool)
{
    ASSERT(::IsWindow(m_hWnd));
    if (lpszText != NULL)
        SendToolText(TTM_UPDATETIPTEXTA, pWnd, nIDTool, NULL, lpszText, NULL);
}

void CToolTipCtrl::UpdateTipText(UINT nIDText, CWnd* pWnd, UINT_PTR nIDTool)
{
    ASSERT(::IsWindow(m_hWnd));
    if (nIDText != 0)
        SendToolText(TTM_UPDATETIPTEXTA, pWnd, nIDTool, AfxFindStringResourceHandle(nIDText),
                     MAKEINTRESOURCEA(nIDText), NULL);
}

void CToolTipCtrl::SetToolRect(CWnd* pWnd, UINT_PTR nIDTool, LPCRECT lpRect)
{
    ASSERT(::IsWindow(m_hWnd));
    if (lpRect == NULL)
        return;
    TTTOOLINFOA ti;
    FillInToolInfo(ti, pWnd, nIDTool);
    ti.rect = *lpRect;
    SendMessage(TTM_NEWTOOLRECTA, 0, reinterpret_cast<LPARAM>(&ti));
}

void CToolTipCtrl::GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool) const
{
    ASSERT(::IsWindow(m_hWnd));
    // The ANSI message copies at most 80 bytes of the text; the wide one copies all of it, up
    // to INFOTIPSIZE characters. The two records differ only in the type of the text pointer.
    static_assert(sizeof(TTTOOLINFOA) == sizeof(TTTOOLINFOW), "tool records of one layout");
    TTTOOLINFOA ti;
    FillInToolInfo(ti, pWnd, nIDTool);
    TTTOOLINFOW tiW;
    memcpy(&tiW, &ti, sizeof(tiW));
    WCHAR szText[INFOTIPSIZE + 1];
    szText[0] = L'\0'; // the control leaves the buffer alone for no such tool
    szText[INFOTIPSIZE] = L'\0';
    tiW.lpszText = szText;
    SendMessage(TTM_GETTEXTW, INFOTIPSIZE, reinterpret_cast<LPARAM>(&tiW));
    int nSize = ::WideCharToMultiByte(CP_ACP, 0, szText, -1, NULL, 0, NULL, NULL);
    if (nSize <= 1)
    {
        str.Empty();
        return;
    }
    ::WideCharToMultiByte(CP_ACP, 0, szText, -1, str.GetBuffer(nSize - 1), nSize, NULL, NULL);
    str.ReleaseBuffer(nSize - 1);
}
