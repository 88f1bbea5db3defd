#include "tests/controls/ControlHost.h"

#include "capture/WindowImage.h"

namespace
{
const UINT IDC_LIST = 30;
const COLORREF RED = RGB(255, 0, 0);
const COLORREF GREEN = RGB(0, 128, 0);
const COLORREF LILAC = RGB(200, 200, 255);

// Counts the records given back as entries go.
class CCountingListBox : public CKelListBox
{
public:
    void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct) override
    {
        m_nRecordsFreed += lpDeleteItemStruct->itemData != 0;
        CKelListBox::DeleteItem(lpDeleteItemStruct);
    }
    int m_nRecordsFreed = 0;
};

class CKelListBoxTest : public CControlHost
{
protected:
    void SetUp() override
    {
        CControlHost::SetUp();
        InitListingLibrary();
    }

    BOOL CreateList(CKelListBox& list, DWORD dwStyle, std::initializer_list<const char*> texts)
    {
        if (!list.Create(WS_CHILD | WS_VISIBLE | dwStyle, CRect(0, 0, 200, 150), &m_host, IDC_LIST))
            return FALSE;
        for (const char* pszText : texts)
            list.AddString(pszText);
        return TRUE;
    }

    // A point of the entry far right of its text.
    static COLORREF EntryColor(const CWindowImage& image, CKelListBox& list, int nIndex)
    {
        CRect rect;
        list.GetItemRect(nIndex, &rect);
        return image.GetPixel(rect.right - 3, rect.CenterPoint().y);
    }
};
} // namespace

TEST_F(CKelListBoxTest, EntriesAreDrawnInTheirOwnOrTheListsColours)
{
    CKelListBox list;
    ASSERT_TRUE(CreateList(list, 0, {"plain"}));
    EXPECT_EQ(1, list.AddString("red", RGB(255, 255, 255), RED));
    EXPECT_EQ(2, list.AddString("selected"));
    EXPECT_EQ(1, list.SetSelColors(RGB(255, 255, 0), GREEN));
    list.SetCurSel(2);
    CWindowImage image;
    ASSERT_TRUE(image.Capture(list.m_hWnd));
    EXPECT_EQ(::GetSysColor(COLOR_WINDOW), EntryColor(image, list, 0));
    EXPECT_EQ(RED, EntryColor(image, list, 1));
    EXPECT_EQ(GREEN, EntryColor(image, list, 2));

    // New defaults apply at once to every entry without colours of its own.
    EXPECT_EQ(1, list.SetDefaultColors(RGB(0, 0, 0), LILAC));
    list.SetCurSel(-1);
    ASSERT_TRUE(image.Capture(list.m_hWnd));
    EXPECT_EQ(LILAC, EntryColor(image, list, 0));
    EXPECT_EQ(RED, EntryColor(image, list, 1));
    EXPECT_EQ(LILAC, EntryColor(image, list, 2));
    list.EnableWindow(FALSE);
    ASSERT_TRUE(image.Capture(list.m_hWnd));
    CRect rcEntry;
    list.GetItemRect(0, &rcEntry);
    EXPECT_GT(image.CountPixels(::GetSysColor(COLOR_GRAYTEXT), rcEntry), 0);
    EXPECT_EQ(0, image.CountPixels(RGB(0, 0, 0), rcEntry));
}

TEST_F(CKelListBoxTest, RecordsHoldColoursAndDataAndTravelThroughASort)
{
    CCountingListBox list;
    ASSERT_TRUE(CreateList(list, 0, {"c", "a", "b"}));
    for (int i = 0; i < 3; ++i)
        list.SetItemData(i, 100 + i);
    EXPECT_EQ(1, list.SetItemColors(0, RED, GREEN));
    DWORD_PTR pRecord = list.CListBox::GetItemData(0);
    ASSERT_NE(0u, pRecord);
    EXPECT_EQ(0, list.SetItemColors(3, RED, GREEN));
    EXPECT_EQ(LB_ERR, list.SetItemData(3, 1));

    EXPECT_EQ(1, list.Sort(0));
    EXPECT_EQ((std::vector<std::string>{"a", "b", "c"}), ListTexts(list.m_hWnd));
    const DWORD aData[] = {101, 102, 100};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(aData[i], list.GetItemData(i)) << i;
    EXPECT_EQ(pRecord, list.CListBox::GetItemData(2)); // the same record
    EXPECT_EQ(0, list.m_nRecordsFreed);
    COLORREF crText = 0, crBack = 0;
    ASSERT_EQ(1, list.GetItemColors(2, crText, crBack));
    EXPECT_EQ(RED, crText);
    EXPECT_EQ(GREEN, crBack);
    ASSERT_EQ(1, list.GetItemColors(0, crText, crBack));
    EXPECT_EQ(KEL_NO_COLOR, crText);
    EXPECT_EQ(0, list.Sort(6));
    list.DeleteString(2);
    EXPECT_EQ(1, list.m_nRecordsFreed);
}

TEST_F(CKelListBoxTest, WithoutOwnerDrawItIsAPlainListBox)
{
    HWND hPlain = ::CreateWindowExA(0, "LISTBOX", "", WS_CHILD | LBS_MULTIPLESEL, 0, 0, 100, 100, m_host.m_hWnd,
                                    reinterpret_cast<HMENU>(IDC_LIST), NULL, NULL);
    CKelListBox list;
    ASSERT_TRUE(list.SubclassWindow(hPlain));
    EXPECT_EQ(0, list.AddString("a", RED));
    list.AddString("b");
    list.AddString("c");
    EXPECT_EQ(0, list.SetItemColors(0, RED, GREEN));
    EXPECT_EQ(0, list.SetDefaultColors(RED, GREEN));
    KEL_LISTING_COLORS colors = {1, 2};
    EXPECT_EQ(LB_ERR, list.SendMessage(KLM_GETITEMCOLORS, 0, reinterpret_cast<LPARAM>(&colors)));
    EXPECT_NE(LB_ERR, list.SetItemData(1, 42));
    EXPECT_EQ(42u, list.CListBox::GetItemData(1)); // the item data itself

    list.SetControlName("Fixture");
    CUIntArray selected;
    EXPECT_FALSE(list.ValidateAndGet(selected));
    ASSERT_EQ(1u, Boxes().size());
    EXPECT_EQ(" A Fixture must be selected!", Boxes()[0].m_strText);
    list.SetSel(0);
    list.SetSel(2);
    ASSERT_TRUE(list.ValidateAndGet(selected));
    EXPECT_EQ((std::vector<UINT>{0, 2}), std::vector<UINT>(selected.GetData(), selected.GetData() + selected.GetSize()));
}

TEST_F(CKelListBoxTest, TheFontSetsTheEntryHeightAndTheSelectionOutlivesTheWindow)
{
    CKelListBox list;
    ASSERT_TRUE(CreateList(list, 0, {"a", "b"}));
    list.SetFont(240, "Arial");
    HDC hDC = ::GetDC(list.m_hWnd);
    HGDIOBJ hOld = ::SelectObject(hDC, reinterpret_cast<HFONT>(list.SendMessage(WM_GETFONT)));
    TEXTMETRICA tm;
    ASSERT_TRUE(::GetTextMetricsA(hDC, &tm));
    ::SelectObject(hDC, hOld);
    ::ReleaseDC(list.m_hWnd, hDC);
    EXPECT_EQ(tm.tmHeight + 2, list.GetItemHeight(0));
    EXPECT_GT(tm.tmHeight, 20);

    list.SetCurSel(1);
    list.DestroyWindow();
    EXPECT_EQ(1, list.GetCurSel());
}
