#include "gallery/ListingWnd.h"

#include "gallery/GalleryApp.h"
#include "frame/EventList.h"
#include "frame/KelControlsFrame.h"
#include "kelutil/KEL_Util.h"

namespace
{
const TCHAR LISTING_CLASS[] = _T("KelGalleryListing");
} // namespace

CListingWnd::CListingWnd() : m_bEventList(FALSE) {}

BOOL CListingWnd::CreateListing(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    m_bEventList = FALSE;
    return CreateEx(0, LISTING_CLASS, NULL, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

BOOL CListingWnd::CreateEventList(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    m_bEventList = TRUE;
    return CreateEx(0, _T(EVENT_LIST_CLASS), NULL, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

BOOL CListingWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    // The event-list class is local to KelControls, so it is found only under its instance.
    if (m_bEventList)
    {
        cs.hInstance = CKelControlsModule::GetInstanceHandle();
        return TRUE;
    }
    // Double clicks make LBN_DBLCLK; the listing paints all of its client area itself.
    return RegisterGalleryClass(LISTING_CLASS, CS_DBLCLKS, NULL, WndListingProc);
}

void CListingWnd::SetDefaultColors(COLORREF crText, COLORREF crBack)
{
    KEL_LISTING_COLORS colors = {crText, crBack};
    SendMessage(KLM_SETDEFAULTCOLORS, 0, reinterpret_cast<LPARAM>(&colors));
}

int CListingWnd::AddEntry(LPCTSTR lpszText, COLORREF crText, COLORREF crBack)
{
    int nIndex = static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszText)));
    if (nIndex >= 0)
    {
        KEL_LISTING_COLORS colors = {crText, crBack};
        SendMessage(KLM_SETITEMCOLORS, nIndex, reinterpret_cast<LPARAM>(&colors));
    }
    return nIndex;
}

CString CListingWnd::GetText(int nIndex) const
{
    CString strText;
    int nLength = static_cast<int>(SendMessage(LB_GETTEXTLEN, nIndex));
    if (nLength < 0)
        return strText;
    SendMessage(LB_GETTEXT, nIndex, reinterpret_cast<LPARAM>(strText.GetBuffer(nLength)));
    strText.ReleaseBuffer(nLength);
    return strText;
}
