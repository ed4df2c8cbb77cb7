#ifndef ORVIKCAD_KERNEL_STEPNAMESWRITER_H
#define ORVIKCAD_KERNEL_STEPNAMESWRITER_H

#include "kernel/CadDocument.h"

#include <XSControl_WorkSession.hxx>

namespace OrvikCad {

/// Names the placements of a STEP model that is to be written. The kernel leaves those without a
/// name whose body or assembly is placed without a move.
///
/// @param session  The document's shapes as they were transferred.
void NamePlacements(const Handle(XSControl_WorkSession) & session, const CadDocument& document);

} // namespace OrvikCad

#endif
