#include "gallery/TransportPage.h"

#include "kelutil/KEL_Util.h"

namespace
{
const UINT IDC_FIRST_FACE = 100;
const UINT IDC_FIRST_STATE = 200;

struct BUTTON_FACE
{
    LPCTSTR lpszName;
    LPCTSTR lpszCaption; // drawn by the text face only
    DWORD dwGlyph;
    COLORREF crFace;
};

// The faces and face colours of KelControls' transport buttons.
const BUTTON_FACE s_aFaces[] = {
    {_T("Text"), _T("Go"), KEL_GLYPH_TEXT, CLR_NONE},
    {_T("Play"), _T("Play"), KEL_GLYPH_PLAY, 0x00FF00},
    {_T("Stop"), _T("Stop"), KEL_GLYPH_STOP, 0x0000FF},
    {_T("Fast forward"), _T("Fast forward"), KEL_GLYPH_FFORWARD, 0xFFFF00},
    {_T("Rewind"), _T("Rewind"), KEL_GLYPH_REWIND, 0xFFFF00},
    // Record is green as play is, not red: the library's buttons draw it so.
    {_T("Record"), _T("Record"), KEL_GLYPH_RECORD, 0x00FF00},
};

// Each state on the text face and on the play face; shown statically, so the snapshot has them.
const struct
{
    LPCTSTR lpszName;
    UINT nFixedState; // drawn always
    BOOL bDisabled;   // disabled for real, so the button itself reports ODS_DISABLED
    int nFace;
} s_aStates[] = {
    {_T("Pressed"), ODS_SELECTED, FALSE, 0}, {_T("Focused"), ODS_FOCUS, FALSE, 0}, {_T("Disabled"), 0, TRUE, 0},
    {_T("Pressed"), ODS_SELECTED, FALSE, 1}, {_T("Focused"), ODS_FOCUS, FALSE, 1}, {_T("Disabled"), 0, TRUE, 1},
};

const int BUTTON_WIDTH = 80;
const int BUTTON_HEIGHT = 48;
const int BUTTON_STEP = BUTTON_WIDTH + 12;
} // namespace

IMPLEMENT_DYNCREATE(CTransportPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CTransportPage, CGalleryPage)
ON_WM_CREATE()
ON_COMMAND_RANGE(IDC_FIRST_FACE, IDC_FIRST_FACE + FACE_COUNT - 1, OnButtonClicked)
ON_COMMAND_RANGE(IDC_FIRST_STATE, IDC_FIRST_STATE + STATE_COUNT - 1, OnButtonClicked)
END_MESSAGE_MAP()

int CTransportPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    static_assert(sizeof(s_aFaces) / sizeof(s_aFaces[0]) == FACE_COUNT, "one button per face");
    static_assert(sizeof(s_aStates) / sizeof(s_aStates[0]) == STATE_COUNT, "one button per state");
    const CRect rectNone(0, 0, 0, 0);
    if (!CreateLabel(m_wndFacesTitle, _T("Owner-drawn buttons whose faces KEL_Util paints (PaintButtonEx2):")) ||
        !CreateLabel(m_wndStatesTitle, _T("Item states, painted as the button would be drawn in them:")) ||
        !CreateLabel(m_wndStatus, _T("Click a button.")))
        return -1;
    for (int i = 0; i < FACE_COUNT; ++i)
    {
        const BUTTON_FACE& face = s_aFaces[i];
        if (!m_aFaces[i].Create(face.lpszCaption, face.dwGlyph, face.crFace, rectNone, this, IDC_FIRST_FACE + i) ||
            !CreateLabel(m_awndFaceNames[i], face.lpszName, SS_CENTER))
            return -1;
        UseFont(m_aFaces[i]);
    }
    for (int i = 0; i < STATE_COUNT; ++i)
    {
        const BUTTON_FACE& face = s_aFaces[s_aStates[i].nFace];
        if (!m_aStates[i].Create(face.lpszCaption, face.dwGlyph, face.crFace, rectNone, this, IDC_FIRST_STATE + i) ||
            !CreateLabel(m_awndStateNames[i], s_aStates[i].lpszName, SS_CENTER))
            return -1;
        UseFont(m_aStates[i]);
        m_aStates[i].SetFixedState(s_aStates[i].nFixedState);
        if (s_aStates[i].bDisabled)
            m_aStates[i].EnableWindow(FALSE);
    }
    return 0;
}

void CTransportPage::LayoutControls(int cx, int cy)
{
    int y = MARGIN;
    m_wndFacesTitle.MoveWindow(MARGIN, y, cx - 2 * MARGIN, LINE_HEIGHT);
    y += LINE_HEIGHT + GAP;
    for (int i = 0; i < FACE_COUNT; ++i)
    {
        m_aFaces[i].MoveWindow(MARGIN + i * BUTTON_STEP, y, BUTTON_WIDTH, BUTTON_HEIGHT);
        m_awndFaceNames[i].MoveWindow(MARGIN + i * BUTTON_STEP - 6, y + BUTTON_HEIGHT + 4, BUTTON_WIDTH + 12,
                                      LINE_HEIGHT);
    }
    y += BUTTON_HEIGHT + 4 + LINE_HEIGHT + 3 * GAP;

    m_wndStatesTitle.MoveWindow(MARGIN, y, cx - 2 * MARGIN, LINE_HEIGHT);
    y += LINE_HEIGHT + GAP;
    for (int i = 0; i < STATE_COUNT; ++i)
    {
        // A gap between the text faces and the play faces.
        int x = MARGIN + i * BUTTON_STEP + (s_aStates[i].nFace != 0 ? BUTTON_STEP / 2 : 0);
        m_aStates[i].MoveWindow(x, y, BUTTON_WIDTH, BUTTON_HEIGHT);
        m_awndStateNames[i].MoveWindow(x - 6, y + BUTTON_HEIGHT + 4, BUTTON_WIDTH + 12, LINE_HEIGHT);
    }
    y += BUTTON_HEIGHT + 4 + LINE_HEIGHT + 3 * GAP;
    m_wndStatus.MoveWindow(MARGIN, y, cx - 2 * MARGIN, LINE_HEIGHT);
}

void CTransportPage::OnButtonClicked(UINT nID)
{
    LPCTSTR lpszName = nID < IDC_FIRST_STATE ? s_aFaces[nID - IDC_FIRST_FACE].lpszName
                                             : s_aFaces[s_aStates[nID - IDC_FIRST_STATE].nFace].lpszName;
    m_wndStatus.SetWindowText(CString(_T("Clicked: ")) + lpszName);
}
