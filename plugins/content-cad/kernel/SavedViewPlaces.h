#ifndef ORVIKCAD_KERNEL_SAVEDVIEWPLACES_H
#define ORVIKCAD_KERNEL_SAVEDVIEWPLACES_H

#include "kernel/CadDocument.h"

#include <XSControl_WorkSession.hxx>

namespace OrvikCad {

/// Puts the saved views of a STEP file into the world, in millimetres.
///
/// The kernel hands views on without the origin of their reference system and in the file's unit.
/// Afterwards the projection point of each is its eye in the world, its direction looks from the
/// eye through the middle of the window, and its zoom factor is the distance of the window's plane
/// from the eye.
///
/// The format defines the direction by the projection point and the window: they are told in the
/// view's reference system, whose z axis files point away from the viewer.
///
/// @param session  The file as it was parsed and transferred into @p document.
void PlaceSavedViews(const Handle(XSControl_WorkSession) & session, CadDocument& document);

} // namespace OrvikCad

#endif
