#ifndef ORVIKCAD_KERNEL_KERNELCHECKS_H
#define ORVIKCAD_KERNEL_KERNELCHECKS_H

#include "interface/CadMessages.h"

#include <XSControl_WorkSession.hxx>

namespace OrvikCad {

/// Warns of entities that could not be read as the file wants them, and of types that the kernel
/// does not know.
void WarnOfBadEntities(const Handle(XSControl_WorkSession) & session, CadMessages& messages);

/// Warns of entities that could not be turned into shapes.
void WarnOfFailedTransfers(const Handle(XSControl_WorkSession) & session, CadMessages& messages);

} // namespace OrvikCad

#endif
