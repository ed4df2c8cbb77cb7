#ifndef ORVIKMESH_READERS_MESHFINISH_H
#define ORVIKMESH_READERS_MESHFINISH_H

#include "readers/MeshData.h"
#include "readers/ReadMessages.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

// What readers do to a mesh when all of the file is read.

inline bool IsFinitePoint(const float* point)
{
    return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

/// @return true when no value is infinite or not a number.
bool AreFinite(const MeshArray<float>& values);

/// Makes the length of a vector 1; one that has none or is not finite becomes zero.
void NormalizeVector(float* vector);

/// Brings the normals of a mesh to the length 1. Does nothing without normals.
void NormalizeNormals(MeshData& mesh);

/// Removes the vertices that no triangle uses; the others keep their order.
void KeepUsedVertices(MeshData& mesh);

/// Points that were left out.
struct LeftOutPoints
{
    std::size_t count = 0;
    std::size_t first = 0; ///< Its number, from 0.
};

/// Removes the points of a cloud whose coordinates are not finite; the others keep their order.
LeftOutPoints KeepFinitePoints(MeshData& mesh);

/// Makes a mesh without triangles a point cloud and warns of points that are not finite, and of
/// coordinates so far from zero that single precision moves the points visibly.
///
/// @return false with an error when no point is left.
bool FinishPoints(MeshData& mesh, ReadMessages& messages);

/// Gives each face its colour: a vertex between faces of different colours becomes several. Colours
/// of vertices that the mesh may have are replaced.
///
/// @param colors  Four bytes per triangle.
void ColorFaces(MeshData& mesh, const MeshArray<std::uint8_t>& colors);

/// Gives the vertices of a mesh the colours of a file whose numbers run from 0 to 1, or from 0 to
/// 255: the latter when red, green or blue of any vertex is greater than 1.
///
/// @param components  Four per vertex; not-a-number is full intensity.
void TakeColors(MeshData& mesh, const MeshArray<float>& components);

/// Turns a component of a colour into a byte; what lies outside 0 to @p full is cut off.
///
/// @param full  The value of full intensity.
inline std::uint8_t ToColorByte(float value, float full)
{
    const float scaled = value / full;
    return static_cast<std::uint8_t>(scaled >= 1.0f  ? 255.0f
                                     : scaled > 0.0f ? scaled * 255.0f + 0.5f
                                                     : 0.0f);
}

} // namespace OrvikMesh

#endif
