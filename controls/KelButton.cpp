#include "controls/KelButton.h"

#include <afxdlg.h>
#include <string.h>

#include "kelutil/KEL_Util.h"

namespace
{
// The transport keywords: a button whose text is exactly one of them shows the glyph, on the
// face colour given here unless the button has a background colour of its own.
const struct
{
    LPCTSTR lpszText;
    DWORD dwGlyph;
    COLORREF crFace;
} s_aTransportFaces[] = {
    {_T("_PLAY_"), KEL_GLYPH_PLAY, 0x00FF00},
    {_T("_STOP_"), KEL_GLYPH_STOP, 0x0000FF},
    {_T("_FFORWARD_"), KEL_GLYPH_FFORWARD, 0xFFFF00},
    {_T("_REWIND_"), KEL_GLYPH_REWIND, 0xFFFF00},
    // Green as play is, not red: applications have always shown record so, keep it.
    {_T("_RECORD_"), KEL_GLYPH_RECORD, 0x00FF00},
};

// Radio buttons and check boxes (and default push buttons) have one of these style bits.
const DWORD CHECKABLE_STYLE_BITS = 0x0D;
} // namespace

COLORREF CKelButton::s_crLastParent = CLR_INVALID;

IMPLEMENT_DYNAMIC(CKelButton, CButton)

BEGIN_MESSAGE_MAP(CKelButton, CButton)
ON_WM_CLOSE()
ON_WM_DESTROY()
END_MESSAGE_MAP()

CKelButton::CKelButton() : m_crText(::GetSysColor(COLOR_WINDOWTEXT)), m_crBack(CLR_NONE), m_pFont(NULL), m_nCheck(0)
{
    m_brBack.CreateSolidBrush(RGB(0xC0, 0xC0, 0xC0));
}

CKelButton::~CKelButton()
{
    delete m_pFont;
}

void CKelButton::SetFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC)
{
    delete m_pFont;
    m_pFont = new CFont;
    m_pFont->CreatePointFont(nPointSize, lpszFaceName, pDC);
    if (::IsWindow(m_hWnd))
        SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_pFont->GetSafeHandle()), TRUE);
}

int CKelButton::GetCheck()
{
    if (::IsWindow(m_hWnd))
        m_nCheck = static_cast<int>(SendMessage(BM_GETCHECK));
    return m_nCheck;
}

void CKelButton::SetCheck(int nCheck)
{
    m_nCheck = nCheck;
    if (::IsWindow(m_hWnd))
        SendMessage(BM_SETCHECK, nCheck);
}

void CKelButton::DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    // The block is the companion's wire format (its header checks the size and offsets): every
    // byte not filled in stays zero.
    KEL_BUTTON_PARAMS params;
    memset(&params, 0, sizeof(params));
    params.cbSize = sizeof(params);
    params.wItemState = static_cast<WORD>(lpDrawItemStruct->itemState);
    params.crText = m_crText;
    params.crSysFace = ::GetSysColor(COLOR_BTNFACE);
    params.crFace = m_crBack != CLR_NONE ? m_crBack : params.crSysFace;
    params.dwGlyph = KEL_GLYPH_TEXT;

    CString strText;
    CWnd::GetWindowText(strText);
    for (const auto& face : s_aTransportFaces)
    {
        if (strText == face.lpszText)
        {
            params.dwGlyph = face.dwGlyph;
            if (m_crBack == CLR_NONE)
                params.crFace = face.crFace;
            break;
        }
    }
    PaintButtonEx2(m_hWnd, lpDrawItemStruct->hDC, &params);
}

void CKelButton::PreSubclassWindow()
{
    CButton::PreSubclassWindow();
    CWnd* pParent = GetParent();
    if (pParent != NULL && pParent->IsKindOf(RUNTIME_CLASS(CDialog)))
        SetCheck(m_nCheck);
}

BOOL CKelButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_CTLCOLORBTN && message != WM_CTLCOLORSTATIC)
        return CButton::OnChildNotify(message, wParam, lParam, pResult);
    CButton::OnChildNotify(message, wParam, lParam, pResult);
    HDC hDC = reinterpret_cast<HDC>(wParam);
    ::SetTextColor(hDC, m_crText);

    COLORREF crBack = m_crBack;
    if (crBack == CLR_NONE)
    {
        // Without a colour of its own the button blends into its parent. A parent that cannot
        // be read (hidden, or not painted yet) lends the colour last read behind any button.
        COLORREF crParent = CLR_INVALID;
        HWND hWndParent = ::GetParent(m_hWnd);
        if (hWndParent != NULL)
        {
            HDC hParentDC = ::GetDC(hWndParent);
            crParent = ::GetPixel(hParentDC, 0, 0);
            ::ReleaseDC(hWndParent, hParentDC);
        }
        if (crParent != CLR_INVALID)
            s_crLastParent = crParent;
        crBack = s_crLastParent;
        if (crBack == CLR_INVALID)
        {
            if (pResult != NULL)
                *pResult = 0;
            return FALSE;
        }
    }
    ::SetBkMode(hDC, TRANSPARENT);
    ::SetBkColor(hDC, crBack);
    m_brBack.DeleteObject();
    m_brBack.CreateSolidBrush(crBack);
    if (pResult != NULL)
        *pResult = reinterpret_cast<LRESULT>(m_brBack.GetSafeHandle());
    return TRUE;
}

void CKelButton::OnClose()
{
    GetCheck();
    Default();
}

void CKelButton::OnDestroy()
{
    GetCheck();
    Default();
}

IMPLEMENT_DYNAMIC(CRadioButton, CKelButton)

CRadioButton::CRadioButton()
{
    m_nCheck = -1;
}

template <class FN>
int CRadioButton::WalkGroup(FN fn) const
{
    int nIndex = 0;
    for (HWND hWnd = m_hWnd; hWnd != NULL; hWnd = ::GetWindow(hWnd, GW_HWNDNEXT))
    {
        LONG_PTR lStyle = ::GetWindowLongPtr(hWnd, GWL_STYLE);
        if (hWnd != m_hWnd && (lStyle & WS_GROUP) != 0)
            break;
        char szClass[16];
        if (::GetClassNameA(hWnd, szClass, sizeof(szClass)) == 0 || _stricmp(szClass, "BUTTON") != 0 ||
            (lStyle & CHECKABLE_STYLE_BITS) == 0)
            continue;
        if (fn(hWnd, nIndex))
            return nIndex;
        ++nIndex;
    }
    return -1;
}

int CRadioButton::GetCheck()
{
    if (::IsWindow(m_hWnd))
        m_nCheck = WalkGroup([](HWND hWnd, int) { return ::SendMessage(hWnd, BM_GETCHECK, 0, 0) == BST_CHECKED; });
    return m_nCheck;
}

void CRadioButton::SetCheck(int nIndex)
{
    m_nCheck = nIndex;
    if (::IsWindow(m_hWnd))
        WalkGroup([nIndex](HWND hWnd, int nButton) {
            ::SendMessage(hWnd, BM_SETCHECK, nButton == nIndex ? BST_CHECKED : BST_UNCHECKED, 0);
            return false;
        });
}

int CRadioButton::ValidateAndGet(int& nIndex)
{
    nIndex = GetCheck();
    if (nIndex >= 0)
        return TRUE;
    return ReportFailure(FormatChoiceMessage(), NULL, FOCUS_WHEN_SHOWN);
}

int CRadioButton::Validate()
{
    int nIndex = -1;
    return ValidateAndGet(nIndex);
}
