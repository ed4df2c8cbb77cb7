#ifndef ORVIKMESH_READERS_OBJVERTICES_H
#define ORVIKMESH_READERS_OBJVERTICES_H

#include "readers/MeshArray.h"
#include "readers/MeshData.h"
#include "readers/ObjPiece.h"

#include <cstdint>
#include <deque>
#include <span>

namespace OrvikMesh {

/// The points and normals of an OBJ file, and the vertices that faces make of them: one for each
/// different pair of point and normal, in the order of first use. One thread.
class ObjVertices
{
public:
    /// Takes the points and normals of all pieces, in their order.
    ///
    /// @throws std::length_error when there are more than 2^30 - 1 points or normals.
    void Take(const std::deque<ObjPiece>& pieces);

    const MeshArray<float>& Points() const { return m_points; }                  ///< Three each.
    const MeshArray<std::uint8_t>& PointColors() const { return m_pointColors; } ///< Four each.
    std::uint32_t PointCount() const { return m_pointCount; }
    /// Normals of the file, without those made by AddFlatNormal().
    std::uint32_t NormalCount() const { return m_fileNormalCount; }

    /// Whether all coordinates of some points are finite.
    bool AreFinite(std::span<const std::uint32_t> points) const;

    /// @return the vertex for a point with a normal (or kNone), made when it is new.
    /// @throws std::length_error beyond 2^32 - 2 vertices.
    std::uint32_t VertexOf(std::uint32_t point, std::uint32_t normal);

    /// Makes a normal for a face from its border, which has one point or more. @return its number.
    std::uint32_t AddFlatNormal(std::span<const std::uint32_t> border);

    /// Gives a mesh its vertices.
    void Fill(MeshData& mesh) const;

    /// Makes a mesh of all points instead, with the normals where there are as many. Nothing is
    /// left here.
    void MakeCloud(MeshData& mesh);

private:
    /// Vertices of a point that are looked at for one with the normal wanted; a hostile file may
    /// give one point a million normals.
    static constexpr int kMaxVerticesTried = 256;

    void count(const std::deque<ObjPiece>& pieces);
    void copy(const ObjScan& scan);
    std::uint32_t addVertex(std::uint32_t point, std::uint32_t normal, std::uint32_t* link);

    MeshArray<float> m_points;
    MeshArray<std::uint8_t> m_pointColors;
    MeshArray<float> m_normals; ///< Of the file, then those made for faces without.
    std::uint32_t m_pointCount = 0;
    std::uint32_t m_fileNormalCount = 0;
    bool m_hasColors = false;
    bool m_hasNonFinite = false;

    MeshArray<std::uint32_t> m_firstVertex; ///< Per point: its first vertex, or kNone.
    MeshArray<std::uint32_t> m_nextVertex;  ///< Per vertex: the next of the same point, or kNone.
    MeshArray<std::uint32_t> m_vertexPoint; ///< Per vertex: its point.
    MeshArray<std::uint32_t> m_vertexNormal;
};

// Asked for every corner of the file.
inline std::uint32_t ObjVertices::VertexOf(std::uint32_t point, std::uint32_t normal)
{
    std::uint32_t* link = &m_firstVertex[point];
    for (int i = 0; i < kMaxVerticesTried && *link != kNone; ++i) {
        if (m_fileNormalCount == 0 || m_vertexNormal[*link] == normal)
            return *link;
        link = &m_nextVertex[*link];
    }
    return addVertex(point, normal, link);
}

} // namespace OrvikMesh

#endif
