// KelControls.dll loaded on demand and freed again, as a host may do. This program does not
// import the library, so that FreeLibrary really unmaps it.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <string>

#include "frame/EventList.h"
#include "frame/KelControlsFrame.h"
#include "tests/frame/EditTipProbe.h"
#include "tests/harness/Input.h"

namespace
{
const char LIBRARY[] = "KelControls.dll";

bool IsLinked(HMODULE hModule)
{
    for (CDynLinkLibrary* pDLL = CDynLinkLibrary::GetFirst(); pDLL != NULL; pDLL = pDLL->m_pNextDLL)
        if (pDLL->m_hModule == hModule)
            return true;
    return false;
}
} // namespace

TEST(CUnloadTest, FreeingTheLibraryLeavesTheSystemsEditAndNothingOfItsOwn)
{
    WNDCLASSEXA standard = {};
    standard.cbSize = sizeof(standard);
    ASSERT_TRUE(::GetClassInfoExA(NULL, "edit", &standard));
    HWND hParent = ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 400, 100, NULL, NULL, NULL, NULL);
    const std::string strLong(200, 'w');
    // Twice: loading again after an unload must install everything afresh.
    for (int nRound = 1; nRound <= 2; ++nRound)
    {
        SCOPED_TRACE(nRound);
        HMODULE hLibrary = ::LoadLibraryA(LIBRARY);
        ASSERT_NE(nullptr, hLibrary);
        auto pfnInit = reinterpret_cast<decltype(&InitKelControlsInterface)>(
            reinterpret_cast<void*>(::GetProcAddress(hLibrary, "InitKelControlsInterface")));
        ASSERT_NE(nullptr, pfnInit);
        KelControlsInit init = {};
        EXPECT_NE(0, pfnInit(0, &init));
        WNDCLASSA wc;
        EXPECT_TRUE(::GetClassInfoA(hLibrary, EVENT_LIST_CLASS, &wc));
        EXPECT_TRUE(IsLinked(hLibrary));

        HWND hEdit = ::CreateWindowExA(0, "edit", strLong.c_str(), WS_CHILD | ES_AUTOHSCROLL, 0, 0, 100, 24, hParent,
                                       NULL, NULL, NULL);
        ASSERT_NE(nullptr, hEdit);
        EXPECT_EQ(reinterpret_cast<ULONG_PTR>(hLibrary), ::GetClassLongPtrA(hEdit, GCLP_HMODULE));
        EXPECT_EQ(strLong, CEditTipProbe::AskText(hEdit));
        ::DestroyWindow(hEdit);

        ASSERT_TRUE(::FreeLibrary(hLibrary));
        ASSERT_EQ(nullptr, ::GetModuleHandleA(LIBRARY)); // really gone, or the rest proves nothing
        EXPECT_FALSE(::GetClassInfoA(hLibrary, EVENT_LIST_CLASS, &wc));
        EXPECT_FALSE(IsLinked(hLibrary));

        hEdit = ::CreateWindowExA(0, "edit", strLong.c_str(), WS_CHILD | ES_AUTOHSCROLL, 0, 0, 100, 24, hParent, NULL,
                                  NULL, NULL);
        ASSERT_NE(nullptr, hEdit);
        EXPECT_EQ(reinterpret_cast<ULONG_PTR>(standard.lpfnWndProc), ::GetClassLongPtrA(hEdit, GCLP_WNDPROC));
        EXPECT_EQ("(no tip)", CEditTipProbe::AskText(hEdit));
        ::SetWindowTextA(hEdit, "");
        CInput::TypeText(hEdit, "typed");
        EXPECT_EQ("typed", CInput::GetText(hEdit));
        ::DestroyWindow(hEdit);
    }
    ::DestroyWindow(hParent);
}
