#ifndef ORVIKMESH_GLTF_DATAURI_H
#define ORVIKMESH_GLTF_DATAURI_H

#include "readers/MeshReader.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace OrvikMesh {

/// Turns "%20" and the like into the bytes that they stand for; what is no such code stays.
std::string DecodePercents(std::string_view text);

/// Decodes base64, with or without the "=" at its end.
///
/// @param options       Asked now and then whether to stop.
/// @param badCharacter  receives the position of the first character that is none of base64.
/// @return false when there is one, or a character too many or too few.
bool DecodeBase64(std::string_view text, const ReadOptions& options, std::string& bytes,
                  std::size_t& badCharacter);

} // namespace OrvikMesh

#endif
