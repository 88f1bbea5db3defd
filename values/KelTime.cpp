#include "KelTime.h"
