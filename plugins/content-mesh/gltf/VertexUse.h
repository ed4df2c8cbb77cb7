#ifndef ORVIKMESH_GLTF_VERTEXUSE_H
#define ORVIKMESH_GLTF_VERTEXUSE_H

#include "readers/MeshArray.h"

#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

/// Numbers the vertices that corners name by their place in the list of those used, which is in
/// ascending order. The work follows the number of corners where these are few.
///
/// @param corners      Vertex numbers, all below @p vertexCount; receives the new ones.
/// @param vertexCount  Vertices that there are.
/// @param used         receives the old number of each new vertex; empty when all are used.
/// @return true when all vertices are used; @p corners are then unchanged.
/// @throws std::bad_alloc
bool ListUsedVertices(MeshArray<std::uint32_t>& corners, std::size_t vertexCount,
                      MeshArray<std::uint32_t>& used);

/// Leaves out the triangles, segments or points with a corner that @p isGood refuses.
///
/// @param arity  Corners of one: 3, 2 or 1.
/// @return how many were left out.
template <class IsGood>
std::size_t KeepGoodPieces(MeshArray<std::uint32_t>& corners, std::size_t arity,
                           const IsGood& isGood)
{
    std::size_t kept = 0;
    for (std::size_t begin = 0; begin + arity <= corners.Size(); begin += arity) {
        bool allGood = true;
        for (std::size_t k = 0; k < arity; ++k)
            allGood = allGood && isGood(corners[begin + k]);
        if (!allGood)
            continue;
        for (std::size_t k = 0; k < arity; ++k)
            corners[kept + k] = corners[begin + k];
        kept += arity;
    }
    const std::size_t leftOut = (corners.Size() - kept) / arity;
    corners.Resize(kept);
    return leftOut;
}

} // namespace OrvikMesh

#endif
