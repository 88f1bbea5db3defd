#include "StringEx.h"
