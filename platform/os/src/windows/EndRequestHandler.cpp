#include "common/EndRequestHandler.h"

namespace OrvikOs {

bool InstallEndRequestHandler()
{
    return false;
}

void RemoveEndRequestHandler() {}

} // namespace OrvikOs
