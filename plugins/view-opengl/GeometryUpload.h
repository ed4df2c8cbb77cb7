#ifndef VIEWOPENGL_GEOMETRYUPLOAD_H
#define VIEWOPENGL_GEOMETRYUPLOAD_H

#include "GpuScene.h"
#include "TimeSlice.h"

#include <TambVizCore/PartKind.h>

#include <cstdint>
#include <vector>

namespace TambVizCore {
class Geometry;
}

namespace ViewOpenGl {

/// Brings a geometry into graphics memory, in pieces of some megabytes. The context is current.
///
/// @param readsOwnMemory  makes no copies: buffers lie over the arrays of the geometry.
/// @return true when it is complete; else it goes on in the next call.
bool UploadGeometry(const TambVizCore::Geometry& geometry, bool readsOwnMemory,
                    const TimeSlice& slice, GpuGeometry& gpu);

/// Brings coarser versions into graphics memory, one after the other. The context is current.
/// @return true when all are there; else it goes on in the next call.
bool UploadLevels(std::vector<DetailLevel>& levels, const TimeSlice& slice, GpuGeometry& gpu);

/// @return the part index of every primitive of a kind; all ones where it belongs to none.
std::vector<std::uint32_t> PartIndices(const TambVizCore::Geometry& geometry,
                                       TambVizCore::PartKind kind);

} // namespace ViewOpenGl

#endif
