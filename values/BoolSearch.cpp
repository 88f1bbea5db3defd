#include "BoolSearch.h"
