#include "bench/ControlsBench.h"

#include "controls/ComboBoxAutoComplete.h"

#include <cstdio>
#include <cstring>
#include <vector>

namespace
{
const int RECORDS = 100000;
const int RUNS = 31;

// Supplies "Record 000000" to "Record 099999", with their numbers as item data, when asked.
class CRecordOwner : public CWnd
{
public:
    afx_msg LRESULT OnLoadList(WPARAM, LPARAM lParam)
    {
        CComboBoxAutoComplete* pCombo = reinterpret_cast<CNewComboBoxRecord*>(lParam)->m_pCombo;
        pCombo->InitStorage(RECORDS, 16 * RECORDS);
        char szText[32];
        for (int nRecord = 0; nRecord < RECORDS; ++nRecord)
        {
            snprintf(szText, sizeof(szText), "Record %06d", nRecord);
            pCombo->SetItemData(pCombo->AddString(szText), nRecord);
        }
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CRecordOwner, CWnd)
ON_MESSAGE(CComboBoxAutoComplete::WM_LOAD_LIST, OnLoadList)
END_MESSAGE_MAP()

// A key through the combo's PreTranslateMessage, as the message loop hands it over.
void PreTranslateKey(CComboBoxAutoComplete& combo, HWND hEdit, UINT uKey)
{
    MSG msg = {hEdit, WM_KEYDOWN, uKey, 0, 0, {0, 0}};
    combo.PreTranslateMessage(&msg);
}
} // namespace

double ControlsBench::AutoCompleteKeystrokeMs()
{
    CRecordOwner owner;
    CComboBoxAutoComplete combo(&owner, 1, TRUE);
    if (!owner.CreateEx(0, "STATIC", "", WS_POPUP, 20, 20, 300, 200, NULL, NULL) ||
        !combo.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, CRect(10, 10, 250, 190),
                      &owner, 1))
    {
        fprintf(stderr, "autocomplete: the combo could not be created\n");
        return -1.0;
    }
    owner.ShowWindow(SW_SHOWNOACTIVATE);
    HWND hEdit = ::GetWindow(combo.m_hWnd, GW_CHILD);
    PreTranslateKey(combo, hEdit, 'R'); // the first key loads the list
    if (combo.GetCount() != RECORDS)
    {
        fprintf(stderr, "autocomplete: %d records loaded instead of %d\n", combo.GetCount(), RECORDS);
        return -1.0;
    }

    std::vector<double> times;
    for (int nRun = 0; nRun < RUNS; ++nRun)
    {
        // "Record 0999" typed so far (Backspace turned completion off while it was set), then
        // the last digit: the match lies among the last hundred records.
        PreTranslateKey(combo, hEdit, VK_BACK);
        ::SetWindowTextA(hEdit, "Record 0999");
        ::SendMessageA(hEdit, EM_SETSEL, 11, 11);
        char chDigit = static_cast<char>('0' + nRun % 10);
        PreTranslateKey(combo, hEdit, static_cast<UINT>(chDigit));

        double dStart = NowMs();
        ::SendMessageA(hEdit, WM_CHAR, static_cast<WPARAM>(chDigit), 1);
        times.push_back(NowMs() - dStart);

        char szExpected[32], szText[32];
        snprintf(szExpected, sizeof(szExpected), "Record 0999%c0", chDigit);
        ::GetWindowTextA(hEdit, szText, sizeof(szText));
        if (strcmp(szText, szExpected) != 0)
        {
            fprintf(stderr, "autocomplete: \"%s\" completed instead of \"%s\"\n", szText, szExpected);
            return -1.0;
        }
    }
    return Median(times);
}
