// What the tests of the controls, listings and calendars share: one host fixture, dialogs from
// templates in memory, the library set up as a host sets it up, and small readers.
#pragma once

#include "KelControls.h"
#include "tests/harness/ImportRecorder.h"
#include "tests/harness/Input.h"
#include "tests/harness/NotifyRecorder.h"

#include <gtest/gtest.h>

#include <string.h>

#include <initializer_list>
#include <string>
#include <vector>

struct CDialogItem
{
    WORD wClass; // 0x80 button, 0x81 edit, 0x82 static, 0x85 combo box
    WORD nID;
    DWORD dwStyle; // WS_CHILD | WS_VISIBLE are added
    WORD y, cy;
    const char* pszText;
};

// A hidden 200 by 150 dialog of the items, each 80 wide at x 10, so that tests reach the
// subclassing and data exchange paths of a real dialog.
inline std::vector<WORD> DialogTemplate(std::initializer_list<CDialogItem> items)
{
    const DWORD dwDlgStyle = WS_POPUP | DS_MODALFRAME;
    std::vector<WORD> words = {LOWORD(dwDlgStyle), HIWORD(dwDlgStyle), 0, 0, static_cast<WORD>(items.size()),
                               0, 0, 200, 150, 0, 0, 0};
    for (const CDialogItem& item : items)
    {
        if (words.size() % 2 != 0) // items start on a DWORD
            words.push_back(0);
        const DWORD dwStyle = item.dwStyle | WS_CHILD | WS_VISIBLE;
        // Style, extended style, x, y, cx, cy, id, the class, the text, no creation data.
        words.insert(words.end(), {LOWORD(dwStyle), HIWORD(dwStyle), 0, 0, 10, item.y, 80, item.cy, item.nID, 0xFFFF,
                                   item.wClass});
        for (const char* p = item.pszText; *p != '\0'; ++p)
            words.push_back(static_cast<BYTE>(*p));
        words.insert(words.end(), {0, 0});
    }
    return words;
}

inline double Day(int y, int m, int d)
{
    return CKelDate::JulianValue(static_cast<short>(y), static_cast<short>(m), static_cast<short>(d));
}

// The cell of a day a calendar shows.
inline CRect CellOf(const CKelCalendar& cal, double dDay)
{
    return cal.GetCellRect(static_cast<int>(dDay - cal.GetFirstShownDay()));
}

inline void InitListingLibrary()
{
    KelControlsInit init = {::LoadCursorA(NULL, MAKEINTRESOURCEA(32649)), ::LoadCursorA(NULL, MAKEINTRESOURCEA(32515)),
                            0, 0};
    ASSERT_NE(0, InitKelControlsInterface(0, &init));
}

inline std::vector<std::string> ListTexts(HWND hList)
{
    std::vector<std::string> texts;
    int nCount = static_cast<int>(::SendMessageA(hList, LB_GETCOUNT, 0, 0));
    for (int i = 0; i < nCount; ++i)
    {
        std::string strText(static_cast<size_t>(::SendMessageA(hList, LB_GETTEXTLEN, i, 0)) + 1, '\0');
        ::SendMessageA(hList, LB_GETTEXT, i, reinterpret_cast<LPARAM>(&strText[0]));
        texts.push_back(strText.c_str());
    }
    return texts;
}

inline void FillList(HWND hList, std::initializer_list<const char*> texts)
{
    for (const char* pszText : texts)
        ::SendMessageA(hList, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(pszText));
}

// A recording parent, shown without activation, with a CWnd over it, so that the controls'
// notifications are reflected to them first as in a dialog and what they let through is
// recorded; the library's message boxes and beeps are recorded too.
class CControlHost : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_GT(CImportRecorder::Get().Install(::GetModuleHandleA("KelControls.dll")), 0);
        ASSERT_TRUE(m_parent.Create(400, 300, true));
        ASSERT_TRUE(m_host.SubclassWindow(m_parent));
    }

    void TearDown() override
    {
        m_host.UnsubclassWindow();
        CImportRecorder::Get().Uninstall();
    }

    // The edits of a test sit one under the other, numbered from 101.
    void CreateEdit(CEdit& edit)
    {
        int y = 10 + 30 * m_nEdits++;
        ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(10, y, 200, y + 24), &m_host,
                                100 + m_nEdits));
    }

    static const CImportRecorder::CRecords& Records() { return CImportRecorder::Get().GetRecords(); }
    static const std::vector<CImportRecorder::CMessageBoxCall>& Boxes() { return Records().m_messageBoxes; }
    static std::string Text(HWND hWnd) { return CInput::GetText(hWnd); }

    // Puts the text on the clipboard and sends the edit WM_PASTE.
    static void Paste(HWND hWnd, const char* pszText)
    {
        ASSERT_TRUE(::OpenClipboard(NULL));
        ::EmptyClipboard();
        size_t cb = strlen(pszText) + 1;
        HGLOBAL hText = ::GlobalAlloc(GMEM_MOVEABLE, cb);
        memcpy(::GlobalLock(hText), pszText, cb);
        ::GlobalUnlock(hText);
        ::SetClipboardData(CF_TEXT, hText);
        ::CloseClipboard();
        ::SendMessage(hWnd, WM_PASTE, 0, 0);
    }

    CNotifyRecorder m_parent;
    CWnd m_host;
    int m_nEdits = 0;
};
