#ifndef ORVIKMESH_READERS_MESHDATA_H
#define ORVIKMESH_READERS_MESHDATA_H

#include "readers/MeshArray.h"

#include <cstdint>
#include <string>
#include <vector>

namespace OrvikMesh {

/// Index value that says "none".
inline constexpr std::uint32_t kNone = 0xFFFFFFFFu;

/// A colour; each component from 0 to 1, alpha 1 is opaque.
struct MeshColor
{
    float red = 1.0f;
    float green = 1.0f;
    float blue = 1.0f;
    float alpha = 1.0f;
};

/// A named material of the file; without a colour when its definition could not be found.
struct MeshMaterial
{
    std::wstring name;
    MeshColor color;
    bool hasColor = false;
};

/// A run of triangles that belong to the same object, group and material. The runs of a mesh follow
/// one another without gaps, are never empty, and cover all its triangles.
struct MeshRange
{
    std::uint32_t firstTriangle = 0;
    std::uint32_t triangleCount = 0;
    std::uint32_t object = kNone;   ///< Index into MeshData::objects, or kNone.
    std::uint32_t group = kNone;    ///< Index into MeshData::groups, or kNone.
    std::uint32_t material = kNone; ///< Index into MeshData::materials, or kNone.
};

/// Lines, or points, of one object and group beside the triangles of a mesh.
struct MeshThin
{
    bool areLines = false;
    std::uint32_t object = kNone; ///< As those of a MeshRange.
    std::uint32_t group = kNone;
    std::uint32_t material = kNone;
    MeshArray<float> positions;        ///< Three per vertex; each vertex of points is one.
    MeshArray<std::uint8_t> colors;    ///< Four per vertex, or empty.
    MeshArray<std::uint32_t> segments; ///< Of lines: two vertex indices per segment.
    MeshArray<std::uint32_t> runs;     ///< Of lines: the first segment of each polyline, ascending.

    std::size_t VertexCount() const { return positions.Size() / 3; }
};

/// What a reader makes of a file: one pool of vertices, triangles that index it, and their names.
///
/// Every index is in range and every coordinate is finite. Vertices that no triangle uses may be
/// there. Coordinates are in the units of the file.
///
/// A point cloud has no triangles and no ranges: every vertex is one of its points, with its normal
/// and its colour where there are any.
struct MeshData
{
    bool isPointCloud = false;
    MeshArray<float> positions;         ///< Three per vertex.
    MeshArray<float> normals;           ///< Three per vertex, unit length or zero; or empty.
    MeshArray<std::uint8_t> colors;     ///< Four per vertex: red, green, blue, alpha; or empty.
    MeshArray<std::uint32_t> triangles; ///< Three vertex indices per triangle.
    std::vector<MeshRange> ranges;
    std::vector<MeshThin> thin;        ///< Never empty ones; with vertices of their own.
    std::vector<std::wstring> objects; ///< Names of solids and objects, in order of appearance.
    std::vector<std::wstring> groups;
    std::vector<MeshMaterial> materials;

    std::size_t VertexCount() const { return positions.Size() / 3; }
    std::size_t TriangleCount() const { return triangles.Size() / 3; }
};

} // namespace OrvikMesh

#endif
