#ifndef ORVIKMESH_GLTF_SHAPEARRAYS_H
#define ORVIKMESH_GLTF_SHAPEARRAYS_H

#include "readers/MeshData.h"

#include <OrvikModel/ModelShape.h>

#include <cstdint>
#include <functional>
#include <memory>

namespace OrvikMesh {

/// The vertices of one shape and what they form: triangles, line segments or points.
///
/// Every index is in range, every vertex is used, every coordinate is finite.
struct ShapeArrays
{
    MeshData mesh;                     ///< Without ranges and names; its triangles may be none.
    MeshArray<std::uint32_t> segments; ///< Two vertex indices per segment.
    MeshArray<std::uint32_t> runs;     ///< The first segment of each edge; empty: one of all.
    MeshArray<std::uint32_t> points;   ///< One vertex index per point.
};

/// Makes a shape, never null. Called on the thread that reads.
/// @throws std::bad_alloc
using ShapeMaker = std::function<std::shared_ptr<const OrvikModel::ModelShape>(ShapeArrays&&)>;

} // namespace OrvikMesh

#endif
