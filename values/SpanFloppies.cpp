#include "values/SpanFloppies.h"

#include <afxcoll.h>
#include <afxwin.h>

#include <limits.h>

namespace
{
// A join takes each segment in one read of at most this many bytes; a longer one is cut.
const UINT SEGMENT_READ_LIMIT = 2000000;
const int HEADER_LIMIT = 200;
const UINT COPY_BLOCK = 16384;

const UINT OPEN_SOURCE = CFile::modeRead | CFile::typeBinary;
const UINT OPEN_SEGMENT = CFile::modeRead | CFile::shareExclusive | CFile::typeBinary;
const UINT CREATE_EXCLUSIVE = CFile::modeCreate | CFile::modeWrite | CFile::shareExclusive | CFile::typeBinary;

// Shown as AfxMessageBox shows a plain box, but always owned by the main window.
int ShowMessage(LPCTSTR lpszText, UINT nType = MB_OK | MB_ICONEXCLAMATION)
{
    return ::MessageBoxA(AfxGetMainWnd()->GetSafeHwnd(), lpszText, AfxGetAppName(), nType);
}

// Whether the name stays a file of the directory it is put in: no drive, no folders, and not
// a name of dots and blanks, which the system trims to nothing or takes for a parent folder.
bool IsPlainFileName(const CString& strName)
{
    return strName.FindOneOf("\\/:") < 0 && strName.SpanIncluding(". ").GetLength() < strName.GetLength();
}

// Copies up to nCount bytes, fewer when the source ends first. In blocks, so that a segment
// sized to a large free space is never held in memory whole.
void CopyBytes(CFile& source, CFile& target, ULONGLONG nCount)
{
    BYTE buffer[COPY_BLOCK];
    while (nCount > 0)
    {
        UINT nRead = source.Read(buffer, nCount < COPY_BLOCK ? static_cast<UINT>(nCount) : COPY_BLOCK);
        if (nRead == 0)
            break;
        target.Write(buffer, nRead);
        nCount -= nRead;
    }
}
} // namespace

CSpanFloppies::CSpanFloppies(const char* target) : m_strTargetDir(target), m_nMode(MODE_SPAN)
{
    int nLength = m_strTargetDir.GetLength();
    TCHAR chLast = nLength > 0 ? m_strTargetDir[nLength - 1] : '\0';
    if (chLast != '\\' && chLast != '/')
        m_strTargetDir += '\\';
    m_strTargetDir.MakeUpper();
    if (m_strTargetDir.Find(':') < 0)
        m_strTargetDir.Empty();
}

CSpanFloppies::~CSpanFloppies()
{
}

int CSpanFloppies::SpanFile(const char* path)
{
    m_nMode = MODE_SPAN;
    if (m_strTargetDir.IsEmpty())
        return 0;
    CString strPath(path);
    m_strFileName = strPath;
    m_strFileName.MakeUpper();
    m_strFileName = m_strFileName.Mid(m_strFileName.ReverseFind('\\') + 1);
    if (m_strTargetDir[0] != 'A')
        return 0;
    if (!m_file.Open(strPath, OPEN_SOURCE))
    {
        ShowMessage("Could not Open File");
        return 0;
    }
    return RunOnOpenFile(&CSpanFloppies::CreateSegments) != 0 ? 1 : 0;
}

int CSpanFloppies::JoinSegments(const char* firstSegment)
{
    m_nMode = MODE_JOIN;
    m_strFileName = firstSegment;
    if (!m_file.Open(m_strFileName, OPEN_SOURCE))
    {
        ShowMessage("Could not Open File.  Incorrect File Format");
        return 0;
    }
    return RunOnOpenFile(&CSpanFloppies::CreateSingleFile) > 0 ? 1 : 0;
}

// Runs one step over the opened m_file and closes it; a file error ends the step with 0.
int CSpanFloppies::RunOnOpenFile(int (CSpanFloppies::*pfnStep)())
{
    int nResult = 0;
    try
    {
        nResult = (this->*pfnStep)();
    }
    catch (CException* e)
    {
        e->Delete();
    }
    m_file.Abort(); // only read from: nothing to report on closing
    return nResult;
}

int CSpanFloppies::CreateSegments()
{
    ShowMessage("Please Insert Disk 1");
    ULONGLONG nLength = m_file.GetLength();
    ULARGE_INTEGER available;
    // No free byte would mean dividing by zero, and segments past INT_MAX cannot be numbered:
    // both are a drive the series cannot be sized for.
    if (!::GetDiskFreeSpaceExA("a:\\", &available, NULL, NULL) || available.LowPart == 0 ||
        nLength / available.LowPart >= INT_MAX)
    {
        ShowMessage("Failed to Read Floppy Drive");
        return 0;
    }
    int nSegments = static_cast<int>(nLength / available.LowPart + 1);
    // Kept: the remainder is not carried, so the last (length mod segments) bytes are lost.
    ULONGLONG nSegmentSize = nLength / static_cast<ULONGLONG>(nSegments);

    CString strHeader;
    strHeader.Format("%02d%s\n", nSegments, static_cast<LPCTSTR>(m_strFileName));
    for (int i = 0; i < nSegments; ++i)
    {
        if (i > 0)
            ShowMessage("Please Insert Next Disk");
        CFile segment;
        if (!segment.Open(GetFileName(i), CREATE_EXCLUSIVE))
        {
            ShowMessage("Error Creating File");
            break; // kept: the shortened series still counts as written
        }
        if (i == 0)
            segment.Write(static_cast<LPCTSTR>(strHeader), strHeader.GetLength());
        CopyBytes(m_file, segment, nSegmentSize);
        segment.Close();
    }
    return 1;
}

CString CSpanFloppies::GetFileName(int n)
{
    // Kept: a name without '.' contributes nothing, so its segments are ".SP0", ".SP1", ...
    CString strPath;
    strPath.Format("%s%s.SP%d", static_cast<LPCTSTR>(m_nMode == MODE_SPAN ? m_strTargetDir : CString()),
                   static_cast<LPCTSTR>(m_strFileName.Left(m_strFileName.ReverseFind('.'))), n);
    return strPath;
}

int CSpanFloppies::CreateSingleFile()
{
    CByteArray first;
    first.SetSize(SEGMENT_READ_LIMIT);
    const BYTE* pFirst = first.GetData();
    UINT nRead = m_file.Read(first.GetData(), SEGMENT_READ_LIMIT);

    UINT nLineFeed = 0;
    while (nLineFeed < nRead && pFirst[nLineFeed] != '\n')
        ++nLineFeed;
    CString strHeader(reinterpret_cast<LPCTSTR>(pFirst),
                      nLineFeed < static_cast<UINT>(HEADER_LIMIT) ? static_cast<int>(nLineFeed) : HEADER_LIMIT);
    // Kept: the count is the whole leading run of digits, so a name that begins with digits
    // adds to it. Saturated: a count that large is never reached anyway.
    int nSegments = 0;
    for (int i = 0; i < strHeader.GetLength() && strHeader[i] >= '0' && strHeader[i] <= '9'; ++i)
    {
        int nDigit = strHeader[i] - '0';
        nSegments = nSegments > (INT_MAX - nDigit) / 10 ? INT_MAX : nSegments * 10 + nDigit;
    }

    CString strName = strHeader.Mid(2);
    CFile output;
    if (!IsPlainFileName(strName) || !output.Open(m_strTargetDir + strName, CREATE_EXCLUSIVE))
    {
        // Nothing to write the series into: the join ends here.
        ShowMessage("Operation Failed");
        return 0;
    }
    UINT nData = nLineFeed < nRead ? nLineFeed + 1 : nRead;
    output.Write(pFirst + nData, nRead - nData);

    for (int n = 1; n < nSegments; ++n)
    {
        if (!GetNextDisk(n))
            return 0;
        CFile segment;
        if (!segment.Open(GetFileName(n), OPEN_SEGMENT))
        {
            ShowMessage("Error Reading File");
            break; // kept: the shortened file still counts as joined
        }
        CopyBytes(segment, output, SEGMENT_READ_LIMIT);
        segment.Close();
    }
    m_strFileName = output.GetFileName();
    output.Close();
    return 1;
}

int CSpanFloppies::GetNextDisk(int n)
{
    // Kept: only an upper-case 'A' counts as the diskette drive, so "a:..." gets no prompt.
    if (!m_strFileName.IsEmpty() && m_strFileName[0] == 'A')
        ShowMessage("Please Insert Next Disk");
    while (::GetFileAttributesA(GetFileName(n)) == INVALID_FILE_ATTRIBUTES)
    {
        if (ShowMessage("The File Does not Exist.  Would you like to continue?", MB_YESNO | MB_ICONQUESTION) != IDYES)
            return 0;
    }
    return 1;
}
