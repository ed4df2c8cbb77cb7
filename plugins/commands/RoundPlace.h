#ifndef PLUGINCOMMANDS_ROUNDPLACE_H
#define PLUGINCOMMANDS_ROUNDPLACE_H

#include "Dimensions.h"

#include <optional>

namespace OrvikCore {
class IEntityProperties;
}

namespace OrvikCommands {

/// What is round about a face or an edge, and where that is seen best.
struct RoundPlace
{
    double radius = 0.0; ///< World units, above 0.
    bool isExact = false;
    Triple center{};  ///< On the axis, beside the middle of the face or edge; a sphere's centre.
    Triple outward{}; ///< From there across the axis to a place that is truly round; unit length.

    /// @return where a way from the centre meets what is round; a negative share is the far side.
    Triple At(double share) const;
};

/// Finds where the radius of a face or an edge can be shown: in its middle, or beside that where it
/// has a hole there.
///
/// @return nothing for what has no radius. A cone has none: it is the one of its edges.
/// @thread  Worker thread.
std::optional<RoundPlace> FindRoundPlace(const OrvikCore::IEntityProperties& content,
                                         const TambVizCore::EntityId& entity);

} // namespace OrvikCommands

#endif
