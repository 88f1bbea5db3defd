#include "KelDate.h"
