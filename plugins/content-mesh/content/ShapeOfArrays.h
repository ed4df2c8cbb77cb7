#ifndef ORVIKMESH_CONTENT_SHAPEOFARRAYS_H
#define ORVIKMESH_CONTENT_SHAPEOFARRAYS_H

#include "gltf/ShapeArrays.h"

#include <memory>

namespace OrvikMesh {

/// Makes the shape of what a reader read, a MeshShape; takes the arrays over without copying them.
///
/// Triangles that close a solid make it closed, also where its vertices are split for normals or
/// colours: points count as one when their coordinates are the same bits. All segments together are
/// one edge unless the arrays tell of several.
///
/// @throws std::bad_alloc
std::shared_ptr<const OrvikModel::ModelShape> MakeShape(ShapeArrays&& arrays);

} // namespace OrvikMesh

#endif
