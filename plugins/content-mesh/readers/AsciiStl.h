#ifndef ORVIKMESH_READERS_ASCIISTL_H
#define ORVIKMESH_READERS_ASCIISTL_H

#include "readers/MeshReader.h"

namespace OrvikMesh {

/// Reads the triangles of a text STL file. Words count in any case; lines may be cut anywhere
/// between words.
///
/// @param text  UTF-8, or any other superset of ASCII.
bool ReadAsciiStl(std::string_view text, const ReadOptions& options, MeshData& mesh,
                  ReadMessages& messages);

} // namespace OrvikMesh

#endif
