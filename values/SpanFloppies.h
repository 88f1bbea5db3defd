// CSpanFloppies: copies one file onto a series of diskettes in drive A as numbered segment
// files, sized to the free space of the first diskette, and joins such a series back into one
// file. It talks to the user only through message boxes, owned by the application's main
// window (no owner when there is none) and captioned with the application's name.
//
// A source NAME.EXT becomes NAME.SP0, NAME.SP1, ... (the base name up to its last '.', then
// ".SP" and the segment number). NAME.SP0 begins with one header line, the number of segments
// as at least two digits and the upper-case base name of the source ("03REPORT.DAT" and a
// line feed), then data; the other segments hold data only. Every segment carries the same
// number of data bytes, the source length divided by the number of segments.
//
// Series already on users' diskettes were written and read this way, so these stay:
// - the last (length mod segments) bytes of the source are never written;
// - a base name without '.' gives segments named ".SP0", ".SP1", ...;
// - joining takes the whole leading run of digits of the header as the count, so a name that
//   begins with digits corrupts it ("012003.LOG" reads as 12,003 segments);
// - joining takes at most 2,000,000 bytes of each segment;
// - only a first segment whose path begins with an upper-case 'A' prompts for the next disk;
// - a series cut short by "Error Creating File" or "Error Reading File" still returns 1.
//
// No exception leaves the class: a read or write that fails half-way ends the operation with 0.
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CSpanFloppies
{
public:
    // target: the directory segments are written to (drive A only) or a join is written to.
    // A backslash is added unless it ends in '\' or '/'; it is upper-cased; without a ':' it
    // is emptied, and spanning then refuses to start.
    explicit CSpanFloppies(const char* target);
    virtual ~CSpanFloppies();

    // 1 when the segments were written; 0 when it did not start or failed.
    int SpanFile(const char* path);
    // 1 when the join ran; 0 otherwise. The result is written to the target directory under
    // the name in the header; the other segments are looked for beside the first. A name that
    // would lead elsewhere (a drive, a folder, or dots alone) cannot be created there.
    int JoinSegments(const char* firstSegment);

private:
    enum
    {
        MODE_SPAN = 0,
        MODE_JOIN = 1
    };

    CSpanFloppies(const CSpanFloppies&) = delete;
    CSpanFloppies& operator=(const CSpanFloppies&) = delete;

    int RunOnOpenFile(int (CSpanFloppies::*pfnStep)());
    int CreateSegments();
    int CreateSingleFile();
    CString GetFileName(int n);
    int GetNextDisk(int n);

    CFile m_file;               // the source when spanning, the first segment when joining
    CString m_strFileName;      // base name of the source; path of the first segment; joined file
    CString m_strTargetDir;     // upper case, ending in a backslash, or empty
    LONG m_nMode;
};
