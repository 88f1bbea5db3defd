// The portable core of the MFC-compatible layer: base types, exceptions, strings.
#pragma once

#include "afxplatform.h"
#include "afxexcept.h"
#include "afxstr.h"
