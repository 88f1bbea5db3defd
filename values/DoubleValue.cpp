#include "DoubleValue.h"
