#ifndef ORVIKMESH_CONTENT_MESHBODIES_H
#define ORVIKMESH_CONTENT_MESHBODIES_H

#include "readers/MeshData.h"
#include "readers/ReadMessages.h"

#include <OrvikModel/Model.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace OrvikMesh {

/// The most bodies that a file is divided into; a file with more objects and groups becomes one.
inline constexpr std::size_t kMaxBodies = 10000;

/// The size in which the points of a cloud are drawn; those of a cloud of a few are larger.
inline float CloudPointPixels(std::size_t points)
{
    constexpr std::size_t kFew = 1000;
    return points <= kFew ? OrvikModel::kPointSetPixels : 2.0f;
}

/// Divides a mesh into bodies: one for each pair of object and group, in order of appearance. A
/// body whose triangles close solids is a NodeKind::PolyBody, another a NodeKind::Mesh; points
/// without triangles become one NodeKind::PointCloud. Lines and points beside triangles follow as
/// NodeKind::Wire, with an edge for each polyline, and NodeKind::PointSet.
///
/// A body is named after its group, its object, or "object / group" when both have names; without
/// any, after @p defaultName. Where all its triangles have the same coloured material, the body has
/// that colour; else its vertices carry the colours of the materials, unless the file gives its
/// vertices colours. Vertices that a body does not use are left out of it.
///
/// @param mesh  Its arrays are taken over where one body uses all of them.
/// @throws std::bad_alloc
std::vector<std::unique_ptr<OrvikModel::ModelNode>>
MakeBodies(MeshData&& mesh, const std::wstring& defaultName, ReadMessages& messages);

} // namespace OrvikMesh

#endif
