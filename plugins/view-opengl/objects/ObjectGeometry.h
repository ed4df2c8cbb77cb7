#ifndef VIEWOPENGL_OBJECTS_OBJECTGEOMETRY_H
#define VIEWOPENGL_OBJECTS_OBJECTGEOMETRY_H

#include <TambVizCore/Geometry.h>

#include <memory>
#include <vector>

namespace ViewOpenGl {

/// Builds; what cannot be built is told by the debug output and gives null.
std::shared_ptr<const TambVizCore::Geometry> BuildGeometry(TambVizCore::GeometryBuilder& builder);

/// An arrow from the origin to (0, 0, 1): a round shaft and a cone. Closed.
std::shared_ptr<const TambVizCore::Geometry> MakeArrow();

/// A cone whose base lies around the origin and whose tip is (0, 0, 1). Closed.
std::shared_ptr<const TambVizCore::Geometry> MakeHead();

/// Line segments between pairs of points.
/// @param points  x, y, z triples, two for each segment.
std::shared_ptr<const TambVizCore::Geometry> MakeSegments(std::vector<float> points);

/// The square from (0, 0) to (1, 1) in the plane z = 0.
std::shared_ptr<const TambVizCore::Geometry> MakeUnitSquare();

/// Splits the area of a polygon into triangles by cutting off ears, seen along its own normal. A
/// polygon that crosses itself gives triangles all the same, though not those of its area.
///
/// @param points  x, y, z triples of the corners in order; the last one is joined with the first.
/// @return three corner indices for each triangle; empty for fewer than three corners.
std::vector<std::uint32_t> FillPolygon(const std::vector<float>& points);

} // namespace ViewOpenGl

#endif
