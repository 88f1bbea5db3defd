// CImportRecorder: stands in for the functions through which the library reaches a person or
// ends the process, so that no test shows a box, waits for a click or dies half-way.
//
// It patches the import address table of one module at a time (KelControls.dll, KEL_Util.dll,
// KelAfx.dll or the test program itself): every slot of that module that imports one of the
// functions below by name is pointed at a stand-in, which records the call and answers as the
// test scripted. Calls that do not go through the patched module's imports (GetProcAddress,
// another module, the system's own internal calls) are not seen.
//
//   USER32   MessageBoxA: recorded, never shown; the answer is the next queued reply, or the
//            default reply (IDOK) when the queue is empty.
//            TrackPopupMenu: the menu's items are recorded, no menu is shown; the chosen command
//            is the next queued one, or 0 (menu dismissed). As the real menu does, the owner
//            first gets WM_INITMENUPOPUP (unless TPM_NONOTIFY); the command is returned with
//            TPM_RETURNCMD, else posted to the owner as WM_COMMAND.
//            MessageBeep: the sound type is recorded, nothing sounds.
//   COMDLG32 ChooseColorA: recorded, never shown; the answer is the next queued one (OK with a
//            colour, written into rgbResult, or Cancel), or Cancel when the queue is empty.
//   KERNEL32 GetDiskFreeSpaceExA, GetDiskFreeSpaceA: recorded; the answer is the next queued
//            one, or the default (a formatted 1.44 MB diskette, 1,457,664 bytes, all free).
//            The old call reports 512-byte sectors, one per cluster.
//            ExitProcess: records the code, then calls the exit handler (CChildRun sets one in
//            a child run to send its report) and ends the process for real. Outside a child
//            run it says so on stderr and ends the process with code 1, so the program fails
//            instead of vanishing with the library's code. See ChildRun.h for testing such
//            paths.
//
// Use: Install the modules in SetUp, script replies, run the code, read GetRecords(), and call
// Uninstall in TearDown, which puts every patched slot back and forgets replies and records.
// Redirect replaces any other import of a module by a function of the test's own.
// The recorder is one process-wide object (tests run on one thread).
#pragma once

#include <windows.h>

#include <commdlg.h>

#include <deque>
#include <utility>
#include <string>
#include <vector>

class CImportRecorder
{
public:
    struct CMessageBoxCall
    {
        HWND m_hWndOwner;
        std::string m_strText;
        std::string m_strCaption;
        UINT m_uType;
        int m_nReply;
    };

    struct CDiskFreeSpaceCall
    {
        std::string m_strRoot; // empty for a null root (the current drive)
        bool m_bEx;            // GetDiskFreeSpaceExA rather than GetDiskFreeSpaceA
    };

    // An answer to a free-space query: the figures on success, else the last error.
    struct CDiskFreeSpace
    {
        BOOL m_bOk;
        DWORD m_dwError;
        ULONGLONG m_ullAvailable; // to the caller
        ULONGLONG m_ullTotal;
        ULONGLONG m_ullTotalFree;
    };

    struct CMenuItem
    {
        UINT m_uId;
        UINT m_uType;  // MFT_ flags (MFT_SEPARATOR, ...)
        UINT m_uState; // MFS_ flags (MFS_GRAYED, MFS_CHECKED, ...)
        std::string m_strText;
    };

    struct CPopupMenuCall
    {
        HWND m_hWndOwner;
        UINT m_uFlags;
        int m_x, m_y; // screen coordinates, as passed
        std::vector<CMenuItem> m_items;
        UINT m_uCommand; // the scripted choice, 0 when dismissed
    };

    struct CChooseColorCall
    {
        HWND m_hWndOwner;
        DWORD m_dwFlags;
        COLORREF m_crInitial;          // rgbResult as passed
        const COLORREF* m_pCustColors; // the caller's custom colours
        BOOL m_bOk;                    // the scripted answer
        COLORREF m_crChosen;
    };

    struct CRecords
    {
        std::vector<CMessageBoxCall> m_messageBoxes;
        std::vector<CDiskFreeSpaceCall> m_diskFreeSpaceCalls;
        std::vector<CPopupMenuCall> m_popupMenus;
        std::vector<CChooseColorCall> m_chooseColors;
        std::vector<UINT> m_beeps; // MessageBeep's types
        std::vector<UINT> m_exitCodes;
    };

    typedef void (*PFNEXITHANDLER)(UINT uExitCode);

    static CImportRecorder& Get();

    // Patches the module's imports; returns the number of slots patched (0 for a null module
    // or one that imports none of the functions). Installing a module twice is harmless.
    int Install(HMODULE hModule);
    // Points the module's imports of one more function (by DLL and exported name, as the
    // module imports it) at a replacement of the same type; returns the system function it
    // replaced, for the replacement to call on, or null when the module does not import it.
    // Uninstall restores it with the rest.
    void* Redirect(HMODULE hModule, LPCSTR pszDll, LPCSTR pszFunction, void* pfnReplacement);
    // Restores every patched slot and forgets scripted replies, defaults and records.
    void Uninstall();

    void PushMessageBoxReply(int nReply);
    void SetDefaultMessageBoxReply(int nReply);
    void PushDiskFreeSpace(ULONGLONG ullAvailable, ULONGLONG ullTotal, ULONGLONG ullTotalFree);
    void PushDiskFreeSpaceFailure(DWORD dwError);
    void PushMenuCommand(UINT uCommand);
    void PushChooseColorOk(COLORREF crChosen);
    void PushChooseColorCancel();
    void SetDefaultDiskFreeSpace(const CDiskFreeSpace& answer);

    const CRecords& GetRecords() const { return m_records; }
    void ClearRecords() { m_records = CRecords(); }

    // Called by the ExitProcess stand-in after recording, just before the process ends.
    void SetExitHandler(PFNEXITHANDLER pfnHandler) { m_pfnExitHandler = pfnHandler; }
    // Ends the process through the system's ExitProcess, whatever is patched.
    [[noreturn]] static void ExitForReal(UINT uExitCode);

private:
    struct CPatch
    {
        ULONG_PTR* m_pSlot;
        ULONG_PTR m_ulOriginal;
    };

    CImportRecorder();
    ~CImportRecorder();
    CImportRecorder(const CImportRecorder&) = delete;
    CImportRecorder& operator=(const CImportRecorder&) = delete;

    // Points the slot at the value; returns what it held before it was first patched.
    ULONG_PTR Patch(ULONG_PTR* pSlot, ULONG_PTR ulValue);
    static void WriteSlot(ULONG_PTR* pSlot, ULONG_PTR ulValue);
    void ResetScript();

    // The stand-ins share these, one per family of functions.
    int AnswerMessageBox(HWND hWndOwner, std::string strText, std::string strCaption, UINT uType);
    BOOL AnswerDiskFreeSpace(LPCSTR pszRoot, bool bEx, CDiskFreeSpace& answer);
    BOOL AnswerPopupMenu(HMENU hMenu, UINT uFlags, int x, int y, HWND hWndOwner);
    BOOL AnswerChooseColor(LPCHOOSECOLORA pChooseColor);
    [[noreturn]] void AnswerExitProcess(UINT uExitCode);

    friend struct CStandIns;

    std::vector<CPatch> m_patches;
    CRecords m_records;
    std::deque<int> m_messageBoxReplies;
    int m_nDefaultMessageBoxReply;
    std::deque<CDiskFreeSpace> m_diskFreeSpaceAnswers;
    std::deque<UINT> m_menuCommands;
    std::deque<std::pair<BOOL, COLORREF>> m_chooseColorAnswers;
    CDiskFreeSpace m_defaultDiskFreeSpace;
    PFNEXITHANDLER m_pfnExitHandler;
};
