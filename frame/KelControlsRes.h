// Resource ids of KelControls.dll. A host's own resource of the same id and type comes first in
// the resource chain, so a host may replace any of them.
#pragma once

// The grid header's sizing cursors: column (horizontal header) and row (vertical header), each
// in a form for revealing an item of extent 0 and a normal form.
#define IDC_GRIDHDR_REVEALHORZ 135
#define IDC_GRIDHDR_REVEALVERT 136
#define IDC_GRIDHDR_SIZEHORZ 137
#define IDC_GRIDHDR_SIZEVERT 138

// The grid's find dialog. Its text edit (1152), match-case box (1041), Find Next (IDOK) and
// Cancel (IDCANCEL) carry the ids the system's find dialog works with.
#define IDD_GRIDFIND 1540
#define IDC_GRIDFIND_FULLROW 1005 // scope radio buttons
#define IDC_GRIDFIND_CELL 1006
#define IDC_GRIDFIND_COLUMN 1007
#define IDC_GRIDFIND_COLUMNS 1008 // the column names
#define IDC_GRIDFIND_TEXT 1152
#define IDC_GRIDFIND_MATCHCASE 1041
