#ifndef ORVIKMESH_GLTF_GLTFSCENE_H
#define ORVIKMESH_GLTF_GLTFSCENE_H

#include "gltf/GltfFile.h"
#include "gltf/ShapeArrays.h"

#include <OrvikModel/Model.h>

#include <cstddef>

namespace OrvikMesh {

/// How deep nodes may be nested: whoever walks a model later does so on the stack.
inline constexpr std::size_t kMaxNodeDepth = 1000;

/// Builds the nodes of a file's scene: the default one, else the first; without any scene, all
/// nodes that have no parent.
///
/// A node with one primitive and no children becomes a body; any other an assembly with a body for
/// each primitive and its children.
///
/// @return false with an error in the file's messages.
/// @throws std::bad_alloc, ReadCancelled
bool BuildGltfScene(GltfFile& file, const ShapeMaker& make, OrvikModel::Model& model);

} // namespace OrvikMesh

#endif
