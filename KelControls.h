// KelControls: the public headers of the library that the platform provides.
#pragma once

#include "values/IntegerValues.h"
#include "values/DoubleValue.h"
#include "values/StringEx.h"
#include "values/KelDate.h"
#include "values/KelTime.h"
#include "values/BoolSearch.h"
#include "values/DmxCommand.h"
#include "values/MaskText.h"

#ifdef _WIN32
#include "frame/KelControlsFrame.h"
#include "frame/EditTip.h"
#include "frame/EventList.h"
#include "grid/GridList.h"
#include "grid/GridHeader.h"
#include "grid/TGrid.h"
#include "controls/Control.h"
#include "controls/StringEdit.h"
#include "controls/NumericEdit.h"
#include "controls/StringComboBox.h"
#include "controls/NumericComboBox.h"
#include "controls/DateComboBox.h"
#include "controls/ComboBoxAutoComplete.h"
#include "controls/DateEdit.h"
#include "controls/TimeEdit.h"
#include "controls/MaskEdit.h"
#include "controls/NoEdit.h"
#include "values/SpanFloppies.h"
#endif
