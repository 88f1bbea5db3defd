#include "gallery/TransportPage.h"

namespace
{
const UINT IDC_FIRST_FACE = 100;
const UINT IDC_FIRST_CHECK = 200;
const UINT IDC_FIRST_MODE = 300;
const UINT IDC_CLEAR_MODE = 310;
const UINT IDC_VALIDATE_MODE = 311;

// Two rows of faces: the transport keywords on the face colours the button gives them, then
// faces on colours of their own and in the pressed and disabled states.
const struct
{
    LPCTSTR lpszName;
    LPCTSTR lpszText;
    COLORREF crText;
    COLORREF crBack; // CLR_NONE: the button's own choice
    BOOL bPressed;
    BOOL bDisabled;
} s_aFaces[] = {
    {_T("Text"), _T("Go"), RGB(0, 0, 0), CLR_NONE, FALSE, FALSE},
    {_T("_PLAY_"), _T("_PLAY_"), RGB(0, 0, 0), CLR_NONE, FALSE, FALSE},
    {_T("_STOP_"), _T("_STOP_"), RGB(0, 0, 0), CLR_NONE, FALSE, FALSE},
    {_T("_FFORWARD_"), _T("_FFORWARD_"), RGB(0, 0, 0), CLR_NONE, FALSE, FALSE},
    {_T("_REWIND_"), _T("_REWIND_"), RGB(0, 0, 0), CLR_NONE, FALSE, FALSE},
    {_T("_RECORD_"), _T("_RECORD_"), RGB(0, 0, 0), CLR_NONE, FALSE, FALSE},
    {_T("Own colour"), _T("_STOP_"), RGB(255, 255, 255), RGB(70, 90, 140), FALSE, FALSE},
    {_T("Coloured text"), _T("Blackout"), RGB(255, 255, 255), RGB(150, 0, 0), FALSE, FALSE},
    {_T("Pressed"), _T("_PLAY_"), RGB(0, 0, 0), CLR_NONE, TRUE, FALSE},
    {_T("Disabled"), _T("_PLAY_"), RGB(0, 0, 0), CLR_NONE, FALSE, TRUE},
    {_T("Pressed"), _T("Go"), RGB(0, 0, 0), CLR_NONE, TRUE, FALSE},
    {_T("Disabled"), _T("Go"), RGB(0, 0, 0), CLR_NONE, FALSE, TRUE},
};
const int FACES_PER_ROW = 6;

// Check boxes in their own text colours, on the page's colour or a colour of their own.
const struct
{
    LPCTSTR lpszText;
    COLORREF crText;
    COLORREF crBack;
    int nCheck;
} s_aChecks[] = {
    {_T("Loop the cue list"), RGB(0, 0, 160), CLR_NONE, BST_CHECKED},
    {_T("Fade on Go"), RGB(0, 120, 0), CLR_NONE, BST_UNCHECKED},
    {_T("Snap to levels"), RGB(120, 0, 0), RGB(255, 230, 150), BST_CHECKED},
};

const LPCTSTR s_apszModes[] = {_T("Live"), _T("Blind"), _T("Preview")};

const int BUTTON_WIDTH = 88;
const int BUTTON_HEIGHT = 44;
const int BUTTON_STEP = BUTTON_WIDTH + 12;
const int CHECK_WIDTH = 150;
const int MODE_WIDTH = 80;
const int COMMAND_WIDTH = 80;
} // namespace

IMPLEMENT_DYNCREATE(CTransportPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CTransportPage, CGalleryPage)
ON_WM_CREATE()
ON_COMMAND_RANGE(IDC_FIRST_FACE, IDC_FIRST_FACE + FACE_COUNT - 1, OnFaceClicked)
ON_COMMAND_RANGE(IDC_FIRST_MODE, IDC_FIRST_MODE + MODE_COUNT - 1, OnModeClicked)
ON_BN_CLICKED(IDC_CLEAR_MODE, OnClearMode)
ON_BN_CLICKED(IDC_VALIDATE_MODE, OnValidateMode)
END_MESSAGE_MAP()

int CTransportPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    static_assert(sizeof(s_aFaces) / sizeof(s_aFaces[0]) == FACE_COUNT, "one button per face");
    static_assert(sizeof(s_aChecks) / sizeof(s_aChecks[0]) == CHECK_COUNT, "one check box per entry");
    static_assert(sizeof(s_apszModes) / sizeof(s_apszModes[0]) == MODE_COUNT, "one radio button per mode");
    const CRect rectNone(0, 0, 0, 0);
    if (!CreateLabel(m_wndFacesTitle, _T("Owner-drawn CKelButtons: the transport keywords, own colours, states:")) ||
        !CreateLabel(m_wndChecksTitle, _T("Check boxes with their own text and background colours:")))
        return -1;
    for (int i = 0; i < FACE_COUNT; ++i)
    {
        CKelButton& button = m_aFaces[i];
        button.SetTextColor(s_aFaces[i].crText);
        button.SetBkColor(s_aFaces[i].crBack);
        if (!button.Create(s_aFaces[i].lpszText, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, rectNone, this,
                           IDC_FIRST_FACE + i) ||
            !CreateLabel(m_awndFaceNames[i], s_aFaces[i].lpszName, SS_CENTER))
            return -1;
        UseFont(button);
        // Shown statically, so that the snapshot has them.
        if (s_aFaces[i].bPressed)
            button.SendMessage(BM_SETSTATE, TRUE);
        if (s_aFaces[i].bDisabled)
            button.EnableWindow(FALSE);
    }
    for (int i = 0; i < CHECK_COUNT; ++i)
    {
        CKelButton& check = m_aChecks[i];
        check.SetTextColor(s_aChecks[i].crText);
        check.SetBkColor(s_aChecks[i].crBack);
        if (!check.Create(s_aChecks[i].lpszText, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX, rectNone, this,
                          IDC_FIRST_CHECK + i))
            return -1;
        UseFont(check);
        check.SetCheck(s_aChecks[i].nCheck);
    }

    // The radio group: its first button, the others, then the value, which starts a new group.
    if (!CreateLabel(m_wndModeTitle, _T("A radio group read as one value (CRadioButton), named \"Mode\":")) ||
        !m_wndMode.Create(s_apszModes[0], WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_GROUP | BS_AUTORADIOBUTTON, rectNone,
                          this, IDC_FIRST_MODE))
        return -1;
    UseFont(m_wndMode);
    for (int i = 1; i < MODE_COUNT; ++i)
    {
        if (!m_awndOtherModes[i - 1].Create(s_apszModes[i], WS_CHILD | WS_VISIBLE | BS_AUTORADIOBUTTON, rectNone, this,
                                            IDC_FIRST_MODE + i))
            return -1;
        UseFont(m_awndOtherModes[i - 1]);
    }
    if (!CreateLabel(m_wndModeValue, _T(""), SS_LEFT | WS_GROUP) ||
        !m_wndClearMode.Create(_T("Clear"), WS_CHILD | WS_VISIBLE | WS_TABSTOP, rectNone, this, IDC_CLEAR_MODE) ||
        !m_wndValidateMode.Create(_T("Validate"), WS_CHILD | WS_VISIBLE | WS_TABSTOP, rectNone, this,
                                  IDC_VALIDATE_MODE) ||
        !CreateLabel(m_wndStatus, _T("Click a button.")))
        return -1;
    UseFont(m_wndClearMode);
    UseFont(m_wndValidateMode);
    m_wndMode.SetControlName(_T("Mode"));
    m_wndMode.SetCurSel(1);
    ShowMode();
    return 0;
}

void CTransportPage::LayoutControls(int cx, int)
{
    int y = MARGIN;
    m_wndFacesTitle.MoveWindow(MARGIN, y, cx - 2 * MARGIN, LINE_HEIGHT);
    y += LINE_HEIGHT + GAP;
    for (int i = 0; i < FACE_COUNT; ++i)
    {
        int x = MARGIN + (i % FACES_PER_ROW) * BUTTON_STEP;
        int yRow = y + (i / FACES_PER_ROW) * (BUTTON_HEIGHT + LINE_HEIGHT + 2 * GAP);
        m_aFaces[i].MoveWindow(x, yRow, BUTTON_WIDTH, BUTTON_HEIGHT);
        m_awndFaceNames[i].MoveWindow(x - 6, yRow + BUTTON_HEIGHT + 4, BUTTON_WIDTH + 12, LINE_HEIGHT);
    }
    y += 2 * (BUTTON_HEIGHT + LINE_HEIGHT + 2 * GAP) + GAP;

    m_wndChecksTitle.MoveWindow(MARGIN, y, cx - 2 * MARGIN, LINE_HEIGHT);
    y += LINE_HEIGHT + GAP;
    for (int i = 0; i < CHECK_COUNT; ++i)
        m_aChecks[i].MoveWindow(MARGIN + i * (CHECK_WIDTH + GAP), y, CHECK_WIDTH, EDIT_HEIGHT);
    y += EDIT_HEIGHT + 3 * GAP;

    m_wndModeTitle.MoveWindow(MARGIN, y, cx - 2 * MARGIN, LINE_HEIGHT);
    y += LINE_HEIGHT + GAP;
    m_wndMode.MoveWindow(MARGIN, y, MODE_WIDTH, EDIT_HEIGHT);
    for (int i = 1; i < MODE_COUNT; ++i)
        m_awndOtherModes[i - 1].MoveWindow(MARGIN + i * (MODE_WIDTH + GAP), y, MODE_WIDTH, EDIT_HEIGHT);
    int x = MARGIN + MODE_COUNT * (MODE_WIDTH + GAP) + GAP;
    m_wndClearMode.MoveWindow(x, y, COMMAND_WIDTH, EDIT_HEIGHT);
    m_wndValidateMode.MoveWindow(x + COMMAND_WIDTH + GAP, y, COMMAND_WIDTH, EDIT_HEIGHT);
    y += EDIT_HEIGHT + GAP;
    m_wndModeValue.MoveWindow(MARGIN, y, cx - 2 * MARGIN, LINE_HEIGHT);
    y += LINE_HEIGHT + 3 * GAP;
    m_wndStatus.MoveWindow(MARGIN, y, cx - 2 * MARGIN, LINE_HEIGHT);
}

void CTransportPage::ShowMode()
{
    int nMode = m_wndMode.GetCurSel();
    CString strValue;
    if (nMode >= 0 && nMode < MODE_COUNT)
        strValue.Format(_T("Value: %d (%s)"), nMode, s_apszModes[nMode]);
    else
        strValue.Format(_T("Value: %d (none)"), nMode);
    m_wndModeValue.SetWindowText(strValue);
}

void CTransportPage::OnFaceClicked(UINT nID)
{
    m_wndStatus.SetWindowText(CString(_T("Clicked: ")) + s_aFaces[nID - IDC_FIRST_FACE].lpszName);
}

void CTransportPage::OnModeClicked(UINT)
{
    ShowMode();
}

void CTransportPage::OnClearMode()
{
    m_wndMode.SetCurSel(-1);
    ShowMode();
}

void CTransportPage::OnValidateMode()
{
    int nMode = -1;
    if (m_wndMode.ValidateAndGet(nMode))
        m_wndStatus.SetWindowText(CString(_T("Valid: ")) + s_apszModes[nMode]);
    else
        m_wndStatus.SetWindowText(_T("Not valid: nothing chosen"));
}
