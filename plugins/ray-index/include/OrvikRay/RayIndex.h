#ifndef ORVIKRAY_RAYINDEX_H
#define ORVIKRAY_RAYINDEX_H

#include <TambVizCore/IGeometryIndex.h>

#include <memory>

namespace TambVizCore {
class Geometry;
}

namespace OrvikRay {

/// Makes the spatial index of a geometry: one tree of boxes each for its triangles, segments and
/// points. Runs on several threads where there is much to do.
///
/// @param geometry  Read by the index as long as it lives: hand the index to
///                  Geometry::PublishIndex, which ties their lives together.
std::unique_ptr<const TambVizCore::IGeometryIndex>
BuildRayIndex(const TambVizCore::Geometry& geometry);

} // namespace OrvikRay

#endif
