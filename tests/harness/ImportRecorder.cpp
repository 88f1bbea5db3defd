#include "tests/harness/ImportRecorder.h"

#include <stdio.h>
#include <string.h>

#include <algorithm>

namespace
{
// A formatted 1.44 MB diskette: the drive the library spans files over.
const ULONGLONG DISKETTE_BYTES = 1457664;
const DWORD SECTOR_BYTES = 512;

std::string Text(LPCSTR psz)
{
    return psz != NULL ? std::string(psz) : std::string();
}

DWORD Clusters(ULONGLONG ullBytes)
{
    ULONGLONG ullClusters = ullBytes / SECTOR_BYTES;
    return ullClusters > 0xFFFFFFFFull ? 0xFFFFFFFF : static_cast<DWORD>(ullClusters);
}

void Store(PULARGE_INTEGER pValue, ULONGLONG ullValue)
{
    if (pValue != NULL)
        pValue->QuadPart = ullValue;
}

void Store(LPDWORD pValue, DWORD dwValue)
{
    if (pValue != NULL)
        *pValue = dwValue;
}

// Checks at compile time that a stand-in has the system function's exact type (calling
// convention included, which matters on 32-bit Windows).
template <class PFN>
ULONG_PTR Address(PFN pfn)
{
    return reinterpret_cast<ULONG_PTR>(pfn);
}
} // namespace

struct CStandIns
{
    static int WINAPI MessageBoxA(HWND hWnd, LPCSTR pszText, LPCSTR pszCaption, UINT uType)
    {
        return CImportRecorder::Get().AnswerMessageBox(hWnd, Text(pszText), Text(pszCaption), uType);
    }

    static BOOL WINAPI GetDiskFreeSpaceExA(LPCSTR pszRoot, PULARGE_INTEGER pAvailable, PULARGE_INTEGER pTotal,
                                           PULARGE_INTEGER pTotalFree)
    {
        CImportRecorder::CDiskFreeSpace answer;
        if (!CImportRecorder::Get().AnswerDiskFreeSpace(pszRoot, true, answer))
            return FALSE;
        Store(pAvailable, answer.m_ullAvailable);
        Store(pTotal, answer.m_ullTotal);
        Store(pTotalFree, answer.m_ullTotalFree);
        return TRUE;
    }

    static BOOL WINAPI TrackPopupMenu(HMENU hMenu, UINT uFlags, int x, int y, int, HWND hWnd, const RECT*)
    {
        return CImportRecorder::Get().AnswerPopupMenu(hMenu, uFlags, x, y, hWnd);
    }

    static BOOL WINAPI MessageBeep(UINT uType)
    {
        CImportRecorder::Get().m_records.m_beeps.push_back(uType);
        return TRUE;
    }

    static BOOL WINAPI GetDiskFreeSpaceA(LPCSTR pszRoot, LPDWORD pSectorsPerCluster, LPDWORD pBytesPerSector,
                                         LPDWORD pFreeClusters, LPDWORD pTotalClusters)
    {
        CImportRecorder::CDiskFreeSpace answer;
        if (!CImportRecorder::Get().AnswerDiskFreeSpace(pszRoot, false, answer))
            return FALSE;
        Store(pSectorsPerCluster, 1);
        Store(pBytesPerSector, SECTOR_BYTES);
        Store(pFreeClusters, Clusters(answer.m_ullAvailable));
        Store(pTotalClusters, Clusters(answer.m_ullTotal));
        return TRUE;
    }

    static BOOL WINAPI ChooseColorA(LPCHOOSECOLORA pChooseColor)
    {
        return CImportRecorder::Get().AnswerChooseColor(pChooseColor);
    }

    [[noreturn]] static void WINAPI ExitProcess(UINT uExitCode)
    {
        CImportRecorder::Get().AnswerExitProcess(uExitCode);
    }
};

namespace
{
struct CHook
{
    LPCSTR m_pszDll;
    LPCSTR m_pszFunction;
    ULONG_PTR m_ulStandIn;
};

#define KEL_HOOK(dll, fn) {dll, #fn, Address<decltype(&::fn)>(&CStandIns::fn)}

bool IsImport(LPCSTR pszDll, LPCSTR pszFunction, LPCSTR pszWantedDll, LPCSTR pszWantedFunction)
{
    return lstrcmpiA(pszDll, pszWantedDll) == 0 && strcmp(pszFunction, pszWantedFunction) == 0;
}

const CHook* FindHook(LPCSTR pszDll, LPCSTR pszFunction)
{
    static const CHook s_hooks[] = {
        KEL_HOOK("user32.dll", MessageBoxA),
        KEL_HOOK("user32.dll", TrackPopupMenu),
        KEL_HOOK("user32.dll", MessageBeep),
        KEL_HOOK("comdlg32.dll", ChooseColorA),
        KEL_HOOK("kernel32.dll", GetDiskFreeSpaceExA),
        KEL_HOOK("kernel32.dll", GetDiskFreeSpaceA),
        KEL_HOOK("kernel32.dll", ExitProcess),
    };
    for (const CHook& hook : s_hooks)
    {
        if (IsImport(pszDll, pszFunction, hook.m_pszDll, hook.m_pszFunction))
            return &hook;
    }
    return NULL;
}

#undef KEL_HOOK

template <class T>
T* At(BYTE* pBase, DWORD dwRva)
{
    return reinterpret_cast<T*>(pBase + dwRva);
}

// Calls visit(dll, function, slot) for every function the module imports by name.
template <class F>
void ForEachImport(HMODULE hModule, F visit)
{
    if (hModule == NULL)
        return;
    BYTE* pBase = reinterpret_cast<BYTE*>(hModule);
    const IMAGE_DOS_HEADER* pDos = At<IMAGE_DOS_HEADER>(pBase, 0);
    if (pDos->e_magic != IMAGE_DOS_SIGNATURE)
        return;
    const IMAGE_NT_HEADERS* pNt = At<IMAGE_NT_HEADERS>(pBase, pDos->e_lfanew);
    if (pNt->Signature != IMAGE_NT_SIGNATURE)
        return;
    const IMAGE_DATA_DIRECTORY& imports = pNt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (imports.VirtualAddress == 0)
        return;

    for (const IMAGE_IMPORT_DESCRIPTOR* pDesc = At<IMAGE_IMPORT_DESCRIPTOR>(pBase, imports.VirtualAddress);
         pDesc->Name != 0; ++pDesc)
    {
        // Without its name table a descriptor's slots hold bare addresses: nothing to match.
        if (pDesc->OriginalFirstThunk == 0)
            continue;
        LPCSTR pszDll = At<const char>(pBase, pDesc->Name);
        const IMAGE_THUNK_DATA* pName = At<IMAGE_THUNK_DATA>(pBase, pDesc->OriginalFirstThunk);
        IMAGE_THUNK_DATA* pSlot = At<IMAGE_THUNK_DATA>(pBase, pDesc->FirstThunk);
        for (; pName->u1.AddressOfData != 0; ++pName, ++pSlot)
        {
            if (IMAGE_SNAP_BY_ORDINAL(pName->u1.Ordinal))
                continue;
            const IMAGE_IMPORT_BY_NAME* pByName =
                At<IMAGE_IMPORT_BY_NAME>(pBase, static_cast<DWORD>(pName->u1.AddressOfData));
            visit(pszDll, reinterpret_cast<LPCSTR>(pByName->Name), reinterpret_cast<ULONG_PTR*>(&pSlot->u1.Function));
        }
    }
}
} // namespace

CImportRecorder& CImportRecorder::Get()
{
    static CImportRecorder s_recorder;
    return s_recorder;
}

CImportRecorder::CImportRecorder() : m_pfnExitHandler(NULL)
{
    ResetScript();
}

CImportRecorder::~CImportRecorder()
{
    Uninstall();
}

int CImportRecorder::Install(HMODULE hModule)
{
    int nPatched = 0;
    ForEachImport(hModule, [&](LPCSTR pszDll, LPCSTR pszFunction, ULONG_PTR* pSlot) {
        const CHook* pHook = FindHook(pszDll, pszFunction);
        if (pHook != NULL && *pSlot != pHook->m_ulStandIn)
        {
            Patch(pSlot, pHook->m_ulStandIn);
            ++nPatched;
        }
    });
    return nPatched;
}

void* CImportRecorder::Redirect(HMODULE hModule, LPCSTR pszDll, LPCSTR pszFunction, void* pfnReplacement)
{
    ULONG_PTR ulOriginal = 0;
    if (pszDll == NULL || pszFunction == NULL)
        return NULL;
    ForEachImport(hModule, [&](LPCSTR pszImportDll, LPCSTR pszImport, ULONG_PTR* pSlot) {
        if (IsImport(pszImportDll, pszImport, pszDll, pszFunction))
        {
            ULONG_PTR ulPrevious = Patch(pSlot, reinterpret_cast<ULONG_PTR>(pfnReplacement));
            if (ulOriginal == 0)
                ulOriginal = ulPrevious;
        }
    });
    return reinterpret_cast<void*>(ulOriginal);
}

ULONG_PTR CImportRecorder::Patch(ULONG_PTR* pSlot, ULONG_PTR ulValue)
{
    ULONG_PTR ulOriginal = *pSlot;
    auto it = std::find_if(m_patches.begin(), m_patches.end(), [&](const CPatch& patch) { return patch.m_pSlot == pSlot; });
    if (it != m_patches.end())
    {
        ulOriginal = it->m_ulOriginal;
    }
    else
    {
        CPatch patch = {pSlot, ulOriginal};
        m_patches.push_back(patch);
    }
    WriteSlot(pSlot, ulValue);
    return ulOriginal;
}

void CImportRecorder::Uninstall()
{
    for (auto it = m_patches.rbegin(); it != m_patches.rend(); ++it)
    {
        // A module unloaded since it was patched has no slot left to restore.
        HMODULE hOwner;
        if (GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                               reinterpret_cast<LPCSTR>(it->m_pSlot), &hOwner))
            WriteSlot(it->m_pSlot, it->m_ulOriginal);
    }
    m_patches.clear();
    ResetScript();
    ClearRecords();
}

void CImportRecorder::WriteSlot(ULONG_PTR* pSlot, ULONG_PTR ulValue)
{
    DWORD dwOld;
    if (!VirtualProtect(pSlot, sizeof(*pSlot), PAGE_READWRITE, &dwOld))
        return;
    *pSlot = ulValue;
    VirtualProtect(pSlot, sizeof(*pSlot), dwOld, &dwOld);
}

void CImportRecorder::ResetScript()
{
    m_messageBoxReplies.clear();
    m_nDefaultMessageBoxReply = IDOK;
    m_diskFreeSpaceAnswers.clear();
    m_menuCommands.clear();
    m_chooseColorAnswers.clear();
    CDiskFreeSpace diskette = {TRUE, 0, DISKETTE_BYTES, DISKETTE_BYTES, DISKETTE_BYTES};
    m_defaultDiskFreeSpace = diskette;
}

void CImportRecorder::PushMessageBoxReply(int nReply)
{
    m_messageBoxReplies.push_back(nReply);
}

void CImportRecorder::SetDefaultMessageBoxReply(int nReply)
{
    m_nDefaultMessageBoxReply = nReply;
}

void CImportRecorder::PushDiskFreeSpace(ULONGLONG ullAvailable, ULONGLONG ullTotal, ULONGLONG ullTotalFree)
{
    CDiskFreeSpace answer = {TRUE, 0, ullAvailable, ullTotal, ullTotalFree};
    m_diskFreeSpaceAnswers.push_back(answer);
}

void CImportRecorder::PushDiskFreeSpaceFailure(DWORD dwError)
{
    CDiskFreeSpace answer = {FALSE, dwError, 0, 0, 0};
    m_diskFreeSpaceAnswers.push_back(answer);
}

void CImportRecorder::PushMenuCommand(UINT uCommand)
{
    m_menuCommands.push_back(uCommand);
}

void CImportRecorder::PushChooseColorOk(COLORREF crChosen)
{
    m_chooseColorAnswers.push_back(std::make_pair(TRUE, crChosen));
}

void CImportRecorder::PushChooseColorCancel()
{
    m_chooseColorAnswers.push_back(std::make_pair(FALSE, COLORREF(0)));
}

void CImportRecorder::SetDefaultDiskFreeSpace(const CDiskFreeSpace& answer)
{
    m_defaultDiskFreeSpace = answer;
}

int CImportRecorder::AnswerMessageBox(HWND hWndOwner, std::string strText, std::string strCaption, UINT uType)
{
    int nReply = m_nDefaultMessageBoxReply;
    if (!m_messageBoxReplies.empty())
    {
        nReply = m_messageBoxReplies.front();
        m_messageBoxReplies.pop_front();
    }
    CMessageBoxCall call = {hWndOwner, std::move(strText), std::move(strCaption), uType, nReply};
    m_records.m_messageBoxes.push_back(std::move(call));
    return nReply;
}

BOOL CImportRecorder::AnswerDiskFreeSpace(LPCSTR pszRoot, bool bEx, CDiskFreeSpace& answer)
{
    CDiskFreeSpaceCall call = {Text(pszRoot), bEx};
    m_records.m_diskFreeSpaceCalls.push_back(call);
    answer = m_defaultDiskFreeSpace;
    if (!m_diskFreeSpaceAnswers.empty())
    {
        answer = m_diskFreeSpaceAnswers.front();
        m_diskFreeSpaceAnswers.pop_front();
    }
    if (!answer.m_bOk)
        SetLastError(answer.m_dwError);
    return answer.m_bOk;
}

void CImportRecorder::AnswerExitProcess(UINT uExitCode)
{
    m_records.m_exitCodes.push_back(uExitCode);
    if (m_pfnExitHandler != NULL)
    {
        m_pfnExitHandler(uExitCode);
    }
    else
    {
        fprintf(stderr, "ExitProcess(%u) called outside CChildRun::Run: the test program ends here\n", uExitCode);
        uExitCode = 1;
    }
    ExitForReal(uExitCode);
}

void CImportRecorder::ExitForReal(UINT uExitCode)
{
    // Not ::ExitProcess: the test program's own import of it may be the stand-in.
    FARPROC pfn = GetProcAddress(GetModuleHandleA("kernel32.dll"), "ExitProcess");
    fflush(NULL);
    reinterpret_cast<decltype(&::ExitProcess)>(reinterpret_cast<ULONG_PTR>(pfn))(uExitCode);
    __builtin_unreachable();
}

BOOL CImportRecorder::AnswerPopupMenu(HMENU hMenu, UINT uFlags, int x, int y, HWND hWndOwner)
{
    if (!(uFlags & TPM_NONOTIFY) && hWndOwner != NULL)
        SendMessageA(hWndOwner, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(hMenu), 0);

    CPopupMenuCall call = {hWndOwner, uFlags, x, y, {}, 0};
    int nItems = GetMenuItemCount(hMenu);
    for (int i = 0; i < nItems; ++i)
    {
        MENUITEMINFOA info = {};
        info.cbSize = sizeof(info);
        info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE | MIIM_STRING;
        if (!GetMenuItemInfoA(hMenu, i, TRUE, &info))
            continue;
        std::string strText(info.cch + 1, '\0');
        info.dwTypeData = &strText[0];
        info.cch = static_cast<UINT>(strText.size());
        GetMenuItemInfoA(hMenu, i, TRUE, &info);
        strText.resize(strlen(strText.c_str()));
        CMenuItem item = {info.wID, info.fType, info.fState, strText};
        call.m_items.push_back(item);
    }
    if (!m_menuCommands.empty())
    {
        call.m_uCommand = m_menuCommands.front();
        m_menuCommands.pop_front();
    }
    m_records.m_popupMenus.push_back(call);

    if (uFlags & TPM_RETURNCMD)
        return static_cast<BOOL>(call.m_uCommand);
    if (call.m_uCommand != 0)
        PostMessageA(hWndOwner, WM_COMMAND, MAKEWPARAM(call.m_uCommand, 0), 0);
    return TRUE;
}

BOOL CImportRecorder::AnswerChooseColor(LPCHOOSECOLORA pChooseColor)
{
    std::pair<BOOL, COLORREF> answer(FALSE, 0);
    if (!m_chooseColorAnswers.empty())
    {
        answer = m_chooseColorAnswers.front();
        m_chooseColorAnswers.pop_front();
    }
    if (pChooseColor == NULL)
        return FALSE;
    CChooseColorCall call = {pChooseColor->hwndOwner,    pChooseColor->Flags, pChooseColor->rgbResult,
                             pChooseColor->lpCustColors, answer.first,        answer.second};
    m_records.m_chooseColors.push_back(call);
    if (answer.first)
        pChooseColor->rgbResult = answer.second;
    return answer.first;
}
