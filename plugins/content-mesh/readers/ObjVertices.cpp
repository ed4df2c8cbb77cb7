#include "readers/ObjVertices.h"

#include "readers/MeshFinish.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace OrvikMesh {

void ObjVertices::count(const std::deque<ObjPiece>& pieces)
{
    std::uint64_t points = 0;
    std::uint64_t normals = 0;
    for (const ObjPiece& piece : pieces) {
        const ObjScan& scan = piece.Scan();
        points += scan.vertexCount;
        normals += scan.normalCount;
        m_hasColors = m_hasColors || scan.colors;
        m_hasNonFinite = m_hasNonFinite || scan.nonFiniteVertices > 0;
    }
    if (points > kObjMaxIndex || normals > kObjMaxIndex)
        throw std::length_error("too many points");
    m_pointCount = static_cast<std::uint32_t>(points);
    m_fileNormalCount = static_cast<std::uint32_t>(normals);
}

void ObjVertices::copy(const ObjScan& scan)
{
    const std::size_t at = m_points.Size() / 3;
    m_points.Resize((at + scan.vertexCount) * 3);
    std::copy_n(scan.positions, std::size_t{scan.vertexCount} * 3, m_points.Data() + at * 3);
    const std::size_t normalAt = m_normals.Size();
    m_normals.Resize(normalAt + std::size_t{scan.normalCount} * 3);
    std::copy_n(scan.normals, std::size_t{scan.normalCount} * 3, m_normals.Data() + normalAt);
    if (!m_hasColors)
        return;
    m_pointColors.Resize((at + scan.vertexCount) * 4);
    std::uint8_t* target = m_pointColors.Data() + at * 4;
    if (scan.colors)
        std::copy_n(scan.colors, std::size_t{scan.vertexCount} * 4, target);
    else
        std::fill_n(target, std::size_t{scan.vertexCount} * 4, std::uint8_t{255});
}

void ObjVertices::Take(const std::deque<ObjPiece>& pieces)
{
    count(pieces);
    m_points.Reserve(std::size_t{m_pointCount} * 3);
    m_normals.Reserve(std::size_t{m_fileNormalCount} * 3);
    if (m_hasColors)
        m_pointColors.Reserve(std::size_t{m_pointCount} * 4);
    for (const ObjPiece& piece : pieces)
        copy(piece.Scan());
    m_firstVertex.Resize(m_pointCount);
    std::fill(m_firstVertex.begin(), m_firstVertex.end(), kNone);
    m_nextVertex.Reserve(m_pointCount);
    m_vertexPoint.Reserve(m_pointCount);
    if (m_fileNormalCount > 0)
        m_vertexNormal.Reserve(m_pointCount);
}

bool ObjVertices::AreFinite(std::span<const std::uint32_t> points) const
{
    return !m_hasNonFinite ||
           std::all_of(points.begin(), points.end(), [this](std::uint32_t point) {
               return IsFinitePoint(m_points.Data() + std::size_t{point} * 3);
           });
}

std::uint32_t ObjVertices::addVertex(std::uint32_t point, std::uint32_t normal, std::uint32_t* link)
{
    const auto vertex = static_cast<std::uint32_t>(m_vertexPoint.Size());
    if (vertex == kNone)
        throw std::length_error("too many vertices");
    const std::uint32_t later = *link;
    *link = vertex;
    m_vertexPoint.PushBack(point);
    m_nextVertex.PushBack(later);
    if (m_fileNormalCount > 0)
        m_vertexNormal.PushBack(normal);
    return vertex;
}

std::uint32_t ObjVertices::AddFlatNormal(std::span<const std::uint32_t> border)
{
    float normal[3] = {0.0f, 0.0f, 0.0f};
    const float* from = m_points.Data() + std::size_t{border.back()} * 3;
    for (const std::uint32_t point : border) {
        const float* to = m_points.Data() + std::size_t{point} * 3;
        normal[0] += (from[1] - to[1]) * (from[2] + to[2]);
        normal[1] += (from[2] - to[2]) * (from[0] + to[0]);
        normal[2] += (from[0] - to[0]) * (from[1] + to[1]);
        from = to;
    }
    const auto index = static_cast<std::uint32_t>(m_normals.Size() / 3);
    for (const float component : normal)
        m_normals.PushBack(component);
    return index;
}

void ObjVertices::Fill(MeshData& mesh) const
{
    const std::size_t count = m_vertexPoint.Size();
    mesh.positions.Resize(count * 3);
    for (std::size_t i = 0; i < count; ++i)
        std::memcpy(mesh.positions.Data() + i * 3,
                    m_points.Data() + std::size_t{m_vertexPoint[i]} * 3, 3 * sizeof(float));
    if (!m_pointColors.IsEmpty()) {
        mesh.colors.Resize(count * 4);
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(mesh.colors.Data() + i * 4,
                        m_pointColors.Data() + std::size_t{m_vertexPoint[i]} * 4, 4);
    }
    const bool usesNormals =
        std::any_of(m_vertexNormal.begin(), m_vertexNormal.end(),
                    [this](std::uint32_t normal) { return normal < m_fileNormalCount; });
    if (!usesNormals)
        return;
    mesh.normals.Resize(count * 3);
    for (std::size_t i = 0; i < count; ++i) {
        float* normal = mesh.normals.Data() + i * 3;
        std::memcpy(normal, m_normals.Data() + std::size_t{m_vertexNormal[i]} * 3,
                    3 * sizeof(float));
        NormalizeVector(normal);
    }
}

void ObjVertices::MakeCloud(MeshData& mesh)
{
    mesh.positions = std::move(m_points);
    mesh.colors = std::move(m_pointColors);
    if (m_fileNormalCount == m_pointCount && m_fileNormalCount > 0)
        mesh.normals = std::move(m_normals);
    NormalizeNormals(mesh);
}

} // namespace OrvikMesh
