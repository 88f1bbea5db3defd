// Resource ids of KelControls.dll. A host's own resource of the same id and type comes first in
// the resource chain, so a host may replace any of them.
#pragma once

// The grid header's sizing cursors: column (horizontal header) and row (vertical header), each
// in a form for revealing an item of extent 0 and a normal form.
#define IDC_GRIDHDR_REVEALHORZ 135
#define IDC_GRIDHDR_REVEALVERT 136
#define IDC_GRIDHDR_SIZEHORZ 137
#define IDC_GRIDHDR_SIZEVERT 138

// The grid's find dialog; the ids of its controls belong beside it.
#define IDD_GRIDFIND 1540
