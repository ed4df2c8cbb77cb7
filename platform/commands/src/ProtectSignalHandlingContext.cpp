#include "TambCommandsInfra/ProtectSignalHandlingContext.h"

#include <OrvikOs/FaultScope.h>

namespace TambCommandsInfra {

ProtectSignalHandlingContext::ProtectSignalHandlingContext()
    : m_scope(std::make_unique<OrvikOs::FaultScope>())
{
}

ProtectSignalHandlingContext::~ProtectSignalHandlingContext() = default;

} // namespace TambCommandsInfra
