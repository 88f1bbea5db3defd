// Identifiers of the layer's own string resources (in KelAfx.dll, the system library of the
// resource chain). The values are MFC's.
#pragma once

#define AFX_IDP_INTERNAL_FAILURE 0xF108
#define AFX_IDP_NO_ERROR_AVAILABLE 0xF121
