#include "gallery/DmxCommandPage.h"

namespace
{
enum
{
    IDC_COMMAND = 100,
    IDC_AUTO_FULL
};

const int INTRO_LINES = 4;
const int CAPTION_WIDTH = 80;
const int COMMAND_WIDTH = 260;
const int CHECK_WIDTH = 300;
const int PARSED_LINES = 6;
} // namespace

IMPLEMENT_DYNCREATE(CDmxCommandPage, CGalleryPage)

BEGIN_MESSAGE_MAP(CDmxCommandPage, CGalleryPage)
ON_WM_CREATE()
ON_EN_CHANGE(IDC_COMMAND, OnCommandChanged)
ON_BN_CLICKED(IDC_AUTO_FULL, OnAutoFull)
END_MESSAGE_MAP()

int CDmxCommandPage::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CGalleryPage::OnCreate(lpCreateStruct) == -1)
        return -1;
    if (!CreateLabel(m_wndIntro,
                     _T("A lighting command: channels 1 to 10240 joined by '+', ranges with '-' (thru), then '*' ")
                     _T("or '@' and a level from 0 to 100 percent. Only digits and those five characters can be ")
                     _T("typed. Clear the field and type '*': the last valid command comes back with its level ")
                     _T("selected, ready for a new one. The lines below show the channels and the level as ")
                     _T("the command is typed.")) ||
        !CreateLabel(m_wndCaption, _T("Command:")) || !CreateLabel(m_wndParsed, NULL) ||
        !m_wndCommand.Create(WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, CRect(0, 0, 0, 0), this,
                             IDC_COMMAND) ||
        !m_wndAutoFull.Create(_T("No level means full (auto-full)"),
                              WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX, CRect(0, 0, 0, 0), this,
                              IDC_AUTO_FULL))
        return -1;
    UseFont(m_wndCommand);
    UseFont(m_wndAutoFull);
    m_wndCommand.SetControlName(_T("Command"));
    m_wndCommand.SetWindowText(_T("1-10+15+101-104*50"));
    OnCommandChanged();
    return 0;
}

void CDmxCommandPage::LayoutControls(int cx, int)
{
    int y = PlaceIntro(m_wndIntro, cx, INTRO_LINES);
    m_wndCaption.MoveWindow(MARGIN, y + (EDIT_HEIGHT - LINE_HEIGHT) / 2, CAPTION_WIDTH, LINE_HEIGHT);
    m_wndCommand.MoveWindow(MARGIN + CAPTION_WIDTH + GAP, y, COMMAND_WIDTH, EDIT_HEIGHT);
    y += EDIT_HEIGHT + GAP;
    m_wndAutoFull.MoveWindow(MARGIN + CAPTION_WIDTH + GAP, y, CHECK_WIDTH, EDIT_HEIGHT);
    y += EDIT_HEIGHT + 2 * GAP;
    m_wndParsed.MoveWindow(MARGIN, y, cx - 2 * MARGIN, PARSED_LINES * LINE_HEIGHT);
}

void CDmxCommandPage::OnAutoFull()
{
    m_wndCommand.SetAutoFullValueFlag(m_wndAutoFull.GetCheck() == BST_CHECKED);
    OnCommandChanged();
}

void CDmxCommandPage::OnCommandChanged()
{
    // Read quietly: a command half typed is not an error yet.
    m_wndCommand.SetDisplayErrMsg(FALSE);
    CUIntArray aChannels;
    long lLevel = -1;
    CString strParsed;
    if (!m_wndCommand.GetValue(aChannels, &lLevel))
        strParsed = _T("Not a command yet (\"Invalid Syntax\").");
    else
    {
        strParsed.Format(_T("Level %ld%%, %d channel%s:"), lLevel, static_cast<int>(aChannels.GetSize()),
                         aChannels.GetSize() == 1 ? _T("") : _T("s"));
        for (INT_PTR i = 0; i < aChannels.GetSize(); ++i)
        {
            CString strChannel;
            strChannel.Format(_T(" %u"), aChannels[i]);
            strParsed += strChannel;
        }
    }
    m_wndParsed.SetWindowText(strParsed);
    m_wndCommand.SetDisplayErrMsg(TRUE);
}
