#ifndef ORVIKMESH_READERS_PCDROWS_H
#define ORVIKMESH_READERS_PCDROWS_H

#include "readers/MeshReader.h"
#include "readers/PcdHeader.h"

#include <cstdint>
#include <string_view>

namespace OrvikMesh {

// Each reads the points of a PCD file of one format into the arrays of a mesh and gives their
// number: fewer than the header announces when the file ended. A point that cannot be read becomes
// not-a-number.

std::uint64_t ReadPcdText(std::string_view content, const PcdHeader& header,
                          const ReadOptions& options, MeshData& mesh, ReadMessages& messages);

std::uint64_t ReadPcdBinary(std::string_view content, const PcdHeader& header,
                            const ReadOptions& options, MeshData& mesh);

/// Unpacks first. Data that announce much more than the file could make good use of are refused.
///
/// @return 0 with an error when the data are damaged; then no point can be told from another.
std::uint64_t ReadPcdCompressed(std::string_view content, const PcdHeader& header,
                                const ReadOptions& options, MeshData& mesh, ReadMessages& messages);

} // namespace OrvikMesh

#endif
