#ifndef ORVIKMODEL_CONTENT_LINEPIERCER_H
#define ORVIKMODEL_CONTENT_LINEPIERCER_H

#include "content/Visibility.h"

#include "OrvikCore/IEntityProperties.h"

#include <TambVizCore/Ray.h>

#include <cstddef>
#include <vector>

namespace OrvikModel {

/// A half line in the world.
struct WorldLine
{
    double origin[3];
    double direction[3]; ///< Unit length.
};

/// Copies origin and direction and makes the latter one unit long.
///
/// @return false when that is not possible, or a number is not finite.
bool MakeWorldLine(const double* origin, const double* direction, WorldLine& line);

/// @return the line as a ray with an aperture that makes up for the coarser numbers of a ray.
TambVizCore::Ray ToRay(const WorldLine& line);

/// Appends every place where a line passes through a face of a placed shape, nearest first; on the
/// exact surface where there is one. Places where the line meets several triangles at once, as on
/// the side between two, count once.
///
/// @param position  Of the instance, for @p seen.
/// @param seen      Its hidden parts are not met, nor what its planes cut away; where they cut a
///                  closed body open, that place is met.
void PierceShape(const Model& model, std::size_t position, const ModelInstance& instance,
                 const WorldLine& line, const Visibility& seen,
                 std::vector<OrvikCore::LineHit>& hits);

} // namespace OrvikModel

#endif
