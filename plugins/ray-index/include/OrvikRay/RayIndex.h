#ifndef ORVIKRAY_RAYINDEX_H
#define ORVIKRAY_RAYINDEX_H

#include <TambVizCore/IGeometryIndex.h>

#include <memory>

namespace TambVizCore {
class Geometry;
}

namespace OrvikRay {

/// Makes the spatial index of a geometry, complete: for its triangles, segments and points. Runs on
/// several threads where there is much to do; the first large geometry loads Embree's library.
///
/// @param geometry  Read by the index as long as it lives: hand the index to
///                  Geometry::PublishIndex, which ties their lives together.
/// @throws std::bad_alloc       when there is not enough memory.
/// @throws std::runtime_error   "Embree failed with error N." for any other failure.
/// @thread Any thread, any number at the same time.
std::unique_ptr<const TambVizCore::IGeometryIndex>
BuildRayIndex(const TambVizCore::Geometry& geometry);

} // namespace OrvikRay

#endif
