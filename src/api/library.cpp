// The shared library's entry. The exported C functions join it as their families land.
#include "platform/platform.h"
