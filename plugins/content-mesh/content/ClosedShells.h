#ifndef ORVIKMESH_CONTENT_CLOSEDSHELLS_H
#define ORVIKMESH_CONTENT_CLOSEDSHELLS_H

#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

/// Tells whether triangles close solids, so that nobody outside ever sees their backs.
///
/// They do when every side is run along as often in one direction as in the other, and every shell
/// (triangles that hang together by their vertices) has its outside outside. A shell that is turned
/// inside out, also one round a cavity, makes the answer false: then backs count as seen.
///
/// Reads every index, a large mesh on several threads; the time is a small part of that of reading
/// the file.
///
/// @param positions  three floats per vertex.
/// @param triangles  three vertex indices each; one out of range makes the answer false.
bool AreClosedShells(const float* positions, std::size_t vertexCount,
                     const std::uint32_t* triangles, std::size_t triangleCount);

} // namespace OrvikMesh

#endif
