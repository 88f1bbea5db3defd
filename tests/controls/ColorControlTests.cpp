// The colour controls in real windows: the combo's list and its custom entry, the swatch
// static's text and contrast, and the colour button's notifications, with the colour dialog
// answered by the import recorder.
#include "capture/WindowImage.h"
#include "tests/controls/ControlHost.h"

namespace
{
enum
{
    IDC_COLOR = 100
};

class CColorTest : public CControlHost
{
protected:
    CImportRecorder& m_recorder = CImportRecorder::Get();

    const std::vector<CImportRecorder::CChooseColorCall>& Dialogs() const { return Records().m_chooseColors; }
    // Runs what the controls posted themselves (the colour dialog of the custom entry).
    static void DispatchPosted()
    {
        MSG msg;
        while (::PeekMessage(&msg, NULL, 0, 0, PM_REMOVE))
            ::DispatchMessage(&msg);
    }
    // How many selection changes reached the parent.
    int SelChanges() const
    {
        int nCount = 0;
        for (const auto& command : m_parent.GetCommands())
            nCount += command.m_uNotifyCode == CBN_SELCHANGE;
        return nCount;
    }
};

std::vector<std::string> Entries(CColorComboBox& combo)
{
    std::vector<std::string> entries;
    for (int i = 0; i < combo.GetCount(); ++i)
        entries.push_back(std::string(combo.GetAt(i)) + "=" + std::to_string(combo.GetItemData(i)));
    return entries;
}

TEST_F(CColorTest, TheComboListsTheStandardColoursAndAddsOthersBeforeTheCustomEntry)
{
    CColorComboBox combo;
    ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN | CBS_SORT, CRect(10, 10, 200, 200), &m_host, IDC_COLOR));
    EXPECT_EQ(static_cast<DWORD>(CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS),
              combo.GetStyle() & (0x3 | CBS_SORT | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS));
    std::vector<std::string> expected = {
        "Black=0",          "Maroon=128",       "Green=32768",     "Olive=32896",    "Navy=8388608",
        "Purple=8388736",   "Teal=8421376",     "Silver=12632256", "Gray=8421504",   "Red=255",
        "Lime=65280",       "Yellow=65535",     "Blue=16711680",   "Fuchsia=16711935", "Aqua=16776960",
        "White=16777215",   "Custom...=4278190080",
    };
    EXPECT_EQ(expected, Entries(combo));
    EXPECT_GE(combo.GetItemHeight(0), 16);

    EXPECT_EQ(16, combo.SetSelectedColor(RGB(1, 2, 3)));
    EXPECT_EQ(16, combo.SetSelectedColor(RGB(1, 2, 3))); // found, not added again
    expected.insert(expected.end() - 1, "RGB(1,2,3)=197121");
    EXPECT_EQ(expected, Entries(combo));
    EXPECT_EQ(RGB(1, 2, 3), combo.GetSelectedColor());
    EXPECT_EQ(-1, combo.AddColor(CLR_NONE, "None"));
    EXPECT_EQ(-1, combo.AddColor(CColorComboBox::CUSTOM_ENTRY_DATA, "Marker"));
    combo.EnableCustomColor(FALSE);
    EXPECT_EQ(17, combo.GetCount());
    EXPECT_EQ(-1, combo.SetSelectedColor(CLR_NONE));
    EXPECT_EQ(CB_ERR, combo.CComboBox::GetCurSel());

    combo.SetControlName("Gel");
    COLORREF crColor = 5;
    EXPECT_FALSE(combo.ValidateAndGet(crColor, NULL));
    EXPECT_EQ(5u, crColor);
    ASSERT_EQ(1u, m_recorder.GetRecords().m_messageBoxes.size());
    EXPECT_EQ(" A Gel must be selected!", m_recorder.GetRecords().m_messageBoxes[0].m_strText);

    combo.SetSelectedColor(RGB(0, 0, 128));
    combo.DestroyWindow();
    EXPECT_EQ(RGB(0, 0, 128), combo.GetSelectedColor()); // as the window last had it

    // A plain combo subclassed (a dialog's) gets the list too, and the colour given before.
    HWND hWndPlain = ::CreateWindowA("COMBOBOX", "", WS_CHILD | CBS_DROPDOWNLIST, 10, 10, 150, 150, m_host.m_hWnd,
                                     NULL, NULL, NULL);
    ASSERT_TRUE(combo.SubclassWindow(hWndPlain));
    EXPECT_EQ(16, combo.GetCount()); // the custom entry still off
    EXPECT_EQ(4, combo.CComboBox::GetCurSel());
}

TEST_F(CColorTest, TheCustomEntryOpensTheDialogAndNeverReachesTheParent)
{
    CColorComboBox combo;
    ASSERT_TRUE(combo.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 200, 200), &m_host, IDC_COLOR));
    combo.SetSelectedColor(RGB(255, 255, 255));
    const struct
    {
        const char* pszName;
        bool bOk;
        COLORREF crChosen;
        int nSelChanges;
        int nSel;
        COLORREF crSelected;
    } aCases[] = {
        {"cancelled", false, 0, 0, 15, RGB(255, 255, 255)},
        {"the same colour", true, RGB(255, 255, 255), 0, 15, RGB(255, 255, 255)},
        {"a new colour", true, RGB(10, 20, 30), 1, 16, RGB(10, 20, 30)},
    };
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.pszName);
        if (c.bOk)
            m_recorder.PushChooseColorOk(c.crChosen);
        combo.SetSelectedColor(RGB(255, 255, 255));
        m_parent.Clear();
        m_recorder.ClearRecords();
        combo.SendMessage(WM_KEYDOWN, VK_END); // the closed combo moves to "Custom..." at once
        EXPECT_TRUE(Dialogs().empty());       // not while the combo is still notifying
        DispatchPosted();
        ASSERT_EQ(1u, Dialogs().size());
        EXPECT_EQ(m_host.m_hWnd, Dialogs()[0].m_hWndOwner);
        EXPECT_EQ(static_cast<DWORD>(CC_RGBINIT | CC_ANYCOLOR), Dialogs()[0].m_dwFlags);
        EXPECT_EQ(RGB(255, 255, 255), Dialogs()[0].m_crInitial); // the previous entry's colour
        EXPECT_EQ(c.nSelChanges, SelChanges());
        EXPECT_EQ(c.nSel, combo.CComboBox::GetCurSel());
        EXPECT_EQ(c.crSelected, combo.GetSelectedColor());
    }
    // An ordinary entry is passed on as usual.
    m_parent.Clear();
    combo.SendMessage(WM_KEYDOWN, VK_HOME);
    EXPECT_EQ(1, SelChanges());
    EXPECT_EQ(RGB(0, 0, 0), combo.GetSelectedColor());
}

TEST_F(CColorTest, TheSwatchStaticShowsItsColoursTextInTheContrastingColour)
{
    const COLORREF crFace = ::GetSysColor(COLOR_BTNFACE), crGray = ::GetSysColor(COLOR_GRAYTEXT);
    const struct
    {
        COLORREF crColor;
        int nMode;
        const char* pszText;
        COLORREF crInk; // text, or the hatching
    } aCases[] = {
        {RGB(255, 128, 0), 2, "#FF8000", RGB(0, 0, 0)},
        {RGB(0, 0, 128), 1, "RGB(0,0,128)", RGB(255, 255, 255)},
        {CLR_NONE, 2, "", crGray},
    };
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.pszText);
        CColorStatic swatch;
        ASSERT_TRUE(swatch.SetTextMode(c.nMode));
        EXPECT_FALSE(swatch.SetTextMode(3));
        swatch.SetColor(c.crColor);
        ASSERT_TRUE(swatch.Create("", WS_CHILD | WS_VISIBLE, CRect(10, 10, 130, 40), &m_host, IDC_COLOR));
        EXPECT_EQ(c.pszText, std::string(swatch.GetWindowText()));
        COLORREF crValue = 7;
        EXPECT_EQ(c.crColor != CLR_NONE, swatch.GetValue(crValue) == 1);

        CWindowImage image;
        ASSERT_TRUE(image.Capture(swatch.m_hWnd));
        EXPECT_EQ(::GetSysColor(COLOR_WINDOWFRAME), image.GetPixel(0, 0)); // the border
        const RECT rcInside = {1, 1, 119, 29};
        COLORREF crFill = c.crColor != CLR_NONE ? c.crColor : crFace;
        EXPECT_GT(image.CountPixels(crFill, rcInside), 1000);
        EXPECT_GT(image.CountPixels(c.crInk, rcInside), 10);
        EXPECT_EQ(0, image.CountPixels(GetRValue(c.crInk) != 0 ? RGB(0, 0, 0) : RGB(255, 255, 255), rcInside));
    }
}

TEST_F(CColorTest, TheColourButtonReportsANewColourBeforeTheClickAndSharesTheCustomColours)
{
    CColorButton button;
    button.SetColor(RGB(0, 128, 0));
    ASSERT_TRUE(button.Create("", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, CRect(10, 10, 60, 40), &m_host, IDC_COLOR));
    EXPECT_EQ(static_cast<DWORD>(BS_OWNERDRAW), button.GetStyle() & BS_TYPEMASK);

    m_recorder.PushChooseColorOk(RGB(0, 128, 0)); // the same colour: a click only
    m_recorder.PushChooseColorOk(RGB(200, 0, 0));
    m_parent.SetPayloadSize(CLRN_COLORCHANGED, sizeof(NMKELCOLOR));
    size_t nClicksBefore = 0; // the clicks the parent had heard when the change came
    m_parent.SetHandler(CLRN_COLORCHANGED, [&](NMHDR*) {
        nClicksBefore = m_parent.GetCommands().size();
        return LRESULT(0);
    });
    button.SendMessage(BM_CLICK);
    button.SendMessage(BM_CLICK);
    ASSERT_EQ(2u, m_parent.GetCommands().size());
    EXPECT_EQ(static_cast<UINT>(BN_CLICKED), m_parent.GetCommands()[1].m_uNotifyCode);
    EXPECT_EQ(1, m_parent.GetCount(CLRN_COLORCHANGED));
    EXPECT_EQ(1u, nClicksBefore);
    const NMKELCOLOR* pChange = m_parent.GetLast<NMKELCOLOR>(CLRN_COLORCHANGED);
    ASSERT_NE(nullptr, pChange);
    EXPECT_EQ(button.m_hWnd, pChange->hdr.hwndFrom);
    EXPECT_EQ(RGB(0, 128, 0), pChange->crOldColor);
    EXPECT_EQ(RGB(200, 0, 0), pChange->crNewColor);
    EXPECT_EQ(RGB(200, 0, 0), button.GetColor());

    CWindowImage image;
    ASSERT_TRUE(image.Capture(button.m_hWnd));
    EXPECT_EQ(RGB(200, 0, 0), image.GetPixel(25, 15));
    EXPECT_EQ(RGB(0, 0, 0), image.GetPixel(4, 15)); // the swatch's frame, 4 pixels in

    // The colours mixed in one control are offered by the next; no colour starts at white.
    CColorButton next;
    ASSERT_TRUE(next.Create("", WS_CHILD | WS_VISIBLE, CRect(70, 10, 120, 40), &m_host, IDC_COLOR + 1));
    next.SendMessage(BM_CLICK);
    const auto& dialogs = Dialogs();
    ASSERT_EQ(3u, dialogs.size());
    EXPECT_EQ(RGB(0, 128, 0), dialogs[0].m_crInitial);
    EXPECT_EQ(dialogs[0].m_pCustColors, dialogs[2].m_pCustColors);
    EXPECT_EQ(RGB(255, 255, 255), dialogs[2].m_crInitial);
    EXPECT_EQ(CLR_NONE, next.GetColor()); // cancelled

    button.SetColor(CLR_NONE);
    COLORREF crColor = 0;
    button.SetDisplayErrMsg(0);
    EXPECT_FALSE(button.ValidateAndGet(crColor, NULL));
    EXPECT_TRUE(m_recorder.GetRecords().m_messageBoxes.empty());
}
} // namespace
