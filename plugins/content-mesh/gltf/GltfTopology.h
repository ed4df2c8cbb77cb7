#ifndef ORVIKMESH_GLTF_GLTFTOPOLOGY_H
#define ORVIKMESH_GLTF_GLTFTOPOLOGY_H

#include "readers/MeshArray.h"

#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

/// How vertices hang together, by the numbers that stand in files.
enum class GltfMode
{
    Points = 0,
    Lines = 1,
    LineLoop = 2,
    LineStrip = 3,
    Triangles = 4,
    TriangleStrip = 5,
    TriangleFan = 6,
};

/// @return the corners of one piece: 3 for triangles, 2 for segments, 1 for points.
std::size_t ArityOf(GltfMode mode);

/// @return what messages call the pieces.
const wchar_t* WordFor(GltfMode mode);

/// @return how many corners each index becomes at most.
std::size_t GrowthOf(GltfMode mode);

/// Turns strips, loops and fans into single segments and triangles; what is left over of the others
/// is dropped.
///
/// @throws std::bad_alloc
MeshArray<std::uint32_t> Unfold(GltfMode mode, MeshArray<std::uint32_t>&& run);

} // namespace OrvikMesh

#endif
