#ifndef ORVIKMESH_CONTENT_PATCHBUILDER_H
#define ORVIKMESH_CONTENT_PATCHBUILDER_H

#include <TambVizCore/Geometry.h>

#include <memory>

namespace OrvikMesh {

/// The angle between neighbouring triangles from which on there is an edge between them.
inline constexpr double kCreaseAngleDegrees = 30.0;
/// The bend of an edge from which on there is a vertex in it.
inline constexpr double kCornerAngleDegrees = 50.0;

/// Gives the triangles of a geometry faces, edges and vertices, so that a mesh is picked and
/// selected like a solid.
///
/// A face is a smooth patch: triangles that hang together by sides where two of them meet at less
/// than the crease angle. An edge is a line of sides along which the same two faces meet, or one
/// ends; sides where more than two triangles meet belong to edges too. A vertex is where edges
/// meet, or bend by more than the corner angle; a closed smooth loop has none. Points count as one
/// when their coordinates are the same bits.
///
/// Faces, edges and vertices are numbered from 0 by their first triangle, first side and first
/// point in @p plain: the same file always gives the same numbers. The part ids are those of
/// TambVizCore::MakePartId.
///
/// @param plain  Only its triangles count; its vertex arrays are shared by the result.
/// @return a geometry with the same triangles sorted by face, and IsClosed() where every side has
///         two triangles that run along it in opposite directions.
/// @throws std::bad_alloc
std::shared_ptr<const TambVizCore::Geometry> BuildPatches(const TambVizCore::Geometry& plain);

} // namespace OrvikMesh

#endif
