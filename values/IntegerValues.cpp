#include "IntegerValues.h"
