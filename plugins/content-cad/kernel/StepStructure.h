#ifndef ORVIKCAD_KERNEL_STEPSTRUCTURE_H
#define ORVIKCAD_KERNEL_STEPSTRUCTURE_H

#include <XSControl_WorkSession.hxx>

namespace OrvikCad {

/// Binds an empty shape of its kind to every solid, shell, face, set of curves or points of a
/// parsed STEP file, before it is transferred: the transfer then makes the structure with names,
/// colours and layers alone, and computes no geometry.
///
/// Files that the file refers to have sessions of their own and are transferred whole.
/// @throws TambCommandsInfra::JobCancelled
void BindPlaceholders(const Handle(XSControl_WorkSession) & session);

} // namespace OrvikCad

#endif
