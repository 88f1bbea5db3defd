#include "gallery/GalleryPage.h"

#include "gallery/GalleryApp.h"

namespace
{
const TCHAR PAGE_CLASS[] = _T("KelGalleryPage");
} // namespace

IMPLEMENT_DYNAMIC(CGalleryPage, CWnd)

BEGIN_MESSAGE_MAP(CGalleryPage, CWnd)
ON_WM_SIZE()
END_MESSAGE_MAP()

CGalleryPage::CGalleryPage() : m_pFont(NULL), m_bSnapshot(FALSE) {}

BOOL CGalleryPage::CreatePage(CWnd* pParentWnd, const RECT& rect, UINT nID, CFont* pFont, BOOL bSnapshot)
{
    m_pFont = pFont;
    m_bSnapshot = bSnapshot;
    return CreateEx(WS_EX_CONTROLPARENT, PAGE_CLASS, NULL, WS_CHILD | WS_CLIPCHILDREN, rect, pParentWnd, nID);
}

BOOL CGalleryPage::PreCreateWindow(CREATESTRUCT& cs)
{
    return RegisterGalleryClass(PAGE_CLASS, 0, reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1)));
}

void CGalleryPage::PostNcDestroy()
{
    delete this;
}

BOOL CGalleryPage::CreateLabel(CStatic& label, LPCTSTR lpszText, DWORD dwStyle)
{
    if (!label.Create(lpszText, WS_CHILD | WS_VISIBLE | dwStyle, CRect(0, 0, 0, 0), this))
        return FALSE;
    UseFont(label);
    return TRUE;
}

void CGalleryPage::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    LayoutControls(cx, cy);
}

int CGalleryPage::PlaceIntro(CStatic& intro, int cx, int nLines)
{
    intro.MoveWindow(MARGIN, MARGIN, cx - 2 * MARGIN, nLines * LINE_HEIGHT);
    return MARGIN + nLines * LINE_HEIGHT + 2 * GAP;
}

LPCTSTR CGalleryPage::EnterSnapshotState(int, HWND* phWndPopup)
{
    *phWndPopup = NULL;
    return NULL;
}
