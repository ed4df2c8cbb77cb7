#ifndef ORVIKMESH_WRITERS_POOLEDMESH_H
#define ORVIKMESH_WRITERS_POOLEDMESH_H

#include "writers/BodyPlacement.h"
#include "writers/FileSink.h"

#include <functional>

namespace OrvikMesh {

// What PLY and OFF have in common: one pool of vertices, then one of faces, and points alone.

/// Calls @p write for each vertex of all bodies, in order.
void ForEachVertex(const WritableBodies& chosen, FileSink& sink,
                   const std::function<void(const BodyPlacement& body, std::size_t vertex)>& write);

/// Calls @p write for each triangle of all bodies, with indices into the pool.
void ForEachTriangle(const WritableBodies& chosen, FileSink& sink,
                     const std::function<void(const std::array<std::uint32_t, 3>&)>& write);

/// Chooses the bodies for such a format.
///
/// @return false with an error when there is nothing to write, or more than 2^31 - 1 vertices or
///         triangles, the most that readers of signed numbers take.
bool ChoosePooledBodies(const MeshToWrite& mesh, WritableBodies& chosen, ReadMessages& messages);

} // namespace OrvikMesh

#endif
