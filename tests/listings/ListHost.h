// What the listing tests share: the library set up as a host sets it up, and a list's texts.
#pragma once

#include "KelControls.h"
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

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
