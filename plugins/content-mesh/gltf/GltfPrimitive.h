#ifndef ORVIKMESH_GLTF_GLTFPRIMITIVE_H
#define ORVIKMESH_GLTF_GLTFPRIMITIVE_H

#include "gltf/GltfFile.h"
#include "gltf/GltfMaterial.h"
#include "gltf/ShapeArrays.h"

#include <string>
#include <vector>

namespace OrvikMesh {

/// What reading a primitive has to say, without the place.
struct PrimitiveNotes
{
    std::wstring reason; ///< Why there is no shape.
    std::vector<std::wstring> warnings;
};

/// Reads the shape of a primitive: positions, normals, vertex colours and what they form.
///
/// What names vertices that do not exist, or such as lie nowhere, is left out with a warning;
/// vertices that nothing uses are left out without.
///
/// @param material  Multiplies the vertex colours.
/// @return false with a reason when nothing can be shown.
/// @throws std::bad_alloc, ReadCancelled
bool ReadPrimitive(GltfFile& file, const JsonValue& primitive, const GltfMaterial& material,
                   ShapeArrays& shape, PrimitiveNotes& notes);

} // namespace OrvikMesh

#endif
