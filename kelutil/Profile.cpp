// Yes/no values in profile (INI) files.
#include "kelutil/KelUtilPrivate.h"

static const char* const s_aszTrue[] = {"1", "yes", "true", "on"};
static const char* const s_aszFalse[] = {"0", "no", "false", "off"};

static bool IsOneOf(const char* pszText, const char* const* ppszWords, size_t nWords)
{
    for (size_t i = 0; i < nWords; ++i)
    {
        if (lstrcmpiA(pszText, ppszWords[i]) == 0)
            return true;
    }
    return false;
}

BOOL __cdecl GetPrivateProfileBool(LPCSTR lpszSection, LPCSTR lpszKey, BOOL bDefault,
                                   LPCSTR lpszFile)
{
    bDefault = bDefault ? TRUE : FALSE;
    // A null section or key would make the system list the sections or keys instead.
    if (lpszSection == NULL || lpszKey == NULL)
        return bDefault;
    // Longer than any accepted word, so a longer text cannot be cut down to one.
    char szValue[8];
    GetPrivateProfileStringA(lpszSection, lpszKey, "", szValue, sizeof(szValue), lpszFile);
    if (IsOneOf(szValue, s_aszTrue, sizeof(s_aszTrue) / sizeof(s_aszTrue[0])))
        return TRUE;
    if (IsOneOf(szValue, s_aszFalse, sizeof(s_aszFalse) / sizeof(s_aszFalse[0])))
        return FALSE;
    return bDefault;
}

BOOL __cdecl WritePrivateProfileBool(LPCSTR lpszSection, LPCSTR lpszKey, BOOL bValue,
                                     LPCSTR lpszFile)
{
    // A null key would delete the whole section.
    if (lpszSection == NULL || lpszKey == NULL)
        return FALSE;
    return WritePrivateProfileStringA(lpszSection, lpszKey, bValue ? "1" : "0", lpszFile);
}
