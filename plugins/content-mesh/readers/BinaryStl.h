#ifndef ORVIKMESH_READERS_BINARYSTL_H
#define ORVIKMESH_READERS_BINARYSTL_H

#include "readers/MeshReader.h"

namespace OrvikMesh {

inline constexpr std::size_t kBinaryStlHeader = 84; ///< 80 bytes of anything and the count.
inline constexpr std::size_t kBinaryStlRecord = 50; ///< Normal, three corners, two bytes.

/// @return true when the size of the file is the one that the count in its header announces.
bool HasExactBinaryStlSize(std::string_view content);

/// Reads the triangles of a binary STL file, in several pieces at a time where there are many. The
/// result does not depend on the number of pieces.
///
/// @param pieces  How many, at least 1; 0 chooses by the number of triangles and threads.
bool ReadBinaryStl(std::string_view content, const ReadOptions& options, MeshData& mesh,
                   ReadMessages& messages, std::size_t pieces = 0);

} // namespace OrvikMesh

#endif
