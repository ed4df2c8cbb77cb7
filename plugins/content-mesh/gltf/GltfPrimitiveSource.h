#ifndef ORVIKMESH_GLTF_GLTFPRIMITIVESOURCE_H
#define ORVIKMESH_GLTF_GLTFPRIMITIVESOURCE_H

#include "gltf/GltfAccessor.h"
#include "gltf/GltfFile.h"
#include "gltf/GltfPrimitive.h"
#include "gltf/GltfTopology.h"

#include <cstddef>
#include <optional>
#include <string>

namespace OrvikMesh {

/// Where the numbers of a primitive are, and what they form.
struct PrimitiveSource
{
    GltfMode mode = GltfMode::Triangles;
    GltfAccessor positions;              ///< Of three components.
    std::optional<GltfAccessor> indices; ///< Without them all vertices in their order.

    std::size_t VertexCount() const { return positions.values.count; }
};

/// @return false with a reason when the primitive has no positions or cannot be read.
bool FindPrimitiveSource(GltfFile& file, const JsonValue& primitive, PrimitiveSource& source,
                         std::wstring& reason);

/// Finds an attribute other than the positions.
///
/// @param vertexCount  How many elements it must have.
/// @return false when there is none, or with a warning when it cannot be used.
bool FindAttribute(GltfFile& file, const JsonValue& primitive, const char* name,
                   std::size_t vertexCount, GltfAccessor& accessor, PrimitiveNotes& notes);

} // namespace OrvikMesh

#endif
