// The window layer of the MFC-compatible layer (Windows only): windows and message maps,
// the application object and resource chain, device contexts and GDI objects, menus,
// the standard controls, dialogs and dialog data exchange.
#pragma once

#include <afx.h>
#include <afxwnd.h>
#include <afxapp.h>
#include <afxgdi.h>
#include <afxmenu.h>
#include <afxctrl.h>
#include <afxdlg.h>
