#include "OrvikCore/ProcessGlobals.h"

std::uint32_t Orvik_mainThreadId = 0;
bool Orvik_inSingleThreadMode = false;
