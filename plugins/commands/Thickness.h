#ifndef PLUGINCOMMANDS_THICKNESS_H
#define PLUGINCOMMANDS_THICKNESS_H

#include <TambVizCore/EntityId.h>

#include <array>
#include <optional>
#include <vector>

namespace OrvikCore {
class IEntityProperties;
} // namespace OrvikCore

namespace OrvikCommands {

/// A piece of a line inside one body, mm.
struct ThicknessResult
{
    double thickness = 0.0;
    double entry[3] = {0.0, 0.0, 0.0};
    double exit[3] = {0.0, 0.0, 0.0};
    bool isExact = false; ///< Both ends come from exact surfaces.
    TambVizCore::EntityId body;
};

/// Measures the material of the first body that a ray enters, as the 3D view shows it: what is
/// hidden or cut away by section planes does not count, and a cut through a closed body is its
/// surface.
///
/// @param direction    Of any length but 0.
/// @param alongNormal  Measures from the entry against the face's normal, not along the ray.
/// @return nothing when the ray enters no body or does not leave it again.
std::optional<ThicknessResult>
MeasureThickness(const std::vector<const OrvikCore::IEntityProperties*>& contents,
                 const std::array<double, 3>& origin, const std::array<double, 3>& direction,
                 bool alongNormal);

} // namespace OrvikCommands

#endif
