#ifndef ORVIKMESH_GLTF_GLTFCONTAINER_H
#define ORVIKMESH_GLTF_GLTFCONTAINER_H

#include "readers/ReadMessages.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace OrvikMesh {

/// The pieces of a glTF file; views of its content.
struct GltfContainer
{
    std::string_view json;
    std::uint64_t jsonOffset = 0;
    std::optional<std::string_view> binary; ///< Of a binary file: the data of buffer 0.
};

/// Finds the pieces of a file, binary or text, whatever its name says.
///
/// @return false with an error in @p messages. Data that are cut short are kept, with a warning.
bool SplitGltf(std::string_view content, GltfContainer& container, ReadMessages& messages);

} // namespace OrvikMesh

#endif
