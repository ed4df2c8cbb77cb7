#ifndef ORVIKMODEL_CONTENT_TRIANGLEMEASURES_H
#define ORVIKMODEL_CONTENT_TRIANGLEMEASURES_H

#include "OrvikCore/IEntityProperties.h"

#include <TambVizCore/Geometry.h>

#include <cstdint>
#include <memory>

namespace OrvikModel {

/// Measures a placed geometry, or one part of it, by its triangles, segments and points, in double
/// precision and world units.
///
/// Volumes are those of closed geometries, by the divergence theorem. Normals are those of faces
/// that are plane. A face that was made from a cylinder or a sphere, and a closed edge that was
/// made from a circle, are recognised where the fit is tight; their radius is that of the corners.
///
/// @param partId  0 for the whole.
/// @param world   double[16] column-major.
/// @return false, with @p result untouched, when there is nothing of that kind to measure.
bool MeasureTriangles(const std::shared_ptr<const TambVizCore::Geometry>& geometry,
                      std::uint64_t partId, const double* world, OrvikCore::EntityMeasure what,
                      OrvikCore::MeasureResult& result);

} // namespace OrvikModel

#endif
