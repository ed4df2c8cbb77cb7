#ifndef ORVIKMESH_GLTF_GLTFTRANSFORM_H
#define ORVIKMESH_GLTF_GLTFTRANSFORM_H

#include "gltf/GltfJson.h"

namespace OrvikMesh {

/// Reads where a node stands in its parent: a matrix, or a translation, rotation and scale.
///
/// @param matrix  receives double[16], column-major; the identity where the node says nothing.
/// @return false, with the identity, when the numbers place nothing: they are not finite, too large
///         for single precision, or not affine.
bool ReadNodeTransform(const JsonValue& node, double* matrix);

} // namespace OrvikMesh

#endif
