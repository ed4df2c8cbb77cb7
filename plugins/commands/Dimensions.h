#ifndef PLUGINCOMMANDS_DIMENSIONS_H
#define PLUGINCOMMANDS_DIMENSIONS_H

#include "Triples.h"

#include <OrvikCore/IDimensionDrawer.h>
#include <TambVizCore/EntityId.h>

#include <optional>
#include <vector>

namespace OrvikCommands {

/// The line along which an entity runs, or the plane that it lies in.
struct Bearing
{
    Triple vector{}; ///< Along the line, or normal to the plane; unit length.
    bool isPlane = false;
    bool isExact = false;
    Triple place{}; ///< A point of the line or the plane, within or near the entity.
};

/// Whether measures leave dimensions in the picture; they do at first.
///
/// @thread  Any thread.
bool LeavesDimensions();
void SetLeavesDimensions(bool leaves);

/// The dimension of a distance or a thickness.
///
/// @param isExact  Exact lengths are those of CAD models, in millimetres; others have no unit.
OrvikCore::Dimension LengthDimension(const double* from, const double* to, double length,
                                     bool isExact);

/// The dimension of a radius: from the centre, or from the axis, to a point of what is round.
OrvikCore::Dimension RadiusDimension(const Triple& center, const Triple& end, double radius,
                                     bool isExact);

/// The dimension of a diameter, between two points of what is round that face each other.
OrvikCore::Dimension DiameterDimension(const Triple& from, const Triple& to, double diameter,
                                       bool isExact);

/// The dimension of the angle between two lines, two planes or a line and a plane, 0 to 90 degrees:
/// an arc around the place where they meet, between the directions that lead nearest to both. Where
/// they do not meet within twenty times their distance, the text alone, between the two.
OrvikCore::Dimension AngleDimension(const Bearing& first, const Bearing& second, double degrees);

/// Draws a dimension in the current view, where that draws dimensions and measures leave them.
///
/// @param measured  What it goes with.
/// @thread  Worker thread; crosses the call gate.
void LeaveDimension(OrvikCore::Dimension dimension,
                    const std::vector<TambVizCore::EntityId>& measured);

} // namespace OrvikCommands

#endif
