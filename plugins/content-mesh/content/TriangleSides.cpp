#include "content/TriangleSides.h"

#include "content/ClosedShells.h"
#include "readers/VertexWelder.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <span>

namespace OrvikMesh {

namespace {

using TambVizCore::Geometry;

struct Normal
{
    float x;
    float y;
    float z;

    bool IsZero() const { return x == 0.0f && y == 0.0f && z == 0.0f; }
    float Dot(const Normal& other) const { return x * other.x + y * other.y + z * other.z; }
};

/// One side of one triangle, sorted under its lower point.
struct HalfSide
{
    std::uint32_t upperPoint;
    std::uint32_t side; ///< 3 * triangle + corner that it starts at.
};

class SideFinder
{
public:
    SideFinder(const Geometry& geometry, double creaseAngleDegrees);

    TriangleSides Run();

private:
    void weldPoints();
    void computeNormals();
    bool isOutsideOut() const;
    void sortSides();
    void matchSides();
    void matchGroup(std::span<const HalfSide> group);
    void joinSmooth(const HalfSide& a, const HalfSide& b);
    void addCrease(std::uint32_t side, std::uint32_t otherTriangle);
    void numberPatches();
    std::uint32_t rootOf(std::uint32_t triangle);
    void unite(std::uint32_t a, std::uint32_t b);

    std::size_t triangleCount() const { return m_geometry.TriangleCount(); }
    std::uint32_t startOf(std::uint32_t side) const { return m_corners[side]; }
    std::uint32_t endOf(std::uint32_t side) const
    {
        return m_corners[side % 3 == 2 ? side - 2 : side + 1];
    }

    const Geometry& m_geometry;
    const float m_smoothCosine;
    TriangleSides m_sides;
    MeshArray<std::uint32_t> m_corners; ///< Point per corner.
    std::vector<Normal> m_normals;
    std::vector<std::uint32_t> m_first; ///< Per point: where its sides begin in m_sorted.
    MeshArray<HalfSide> m_sorted;
    std::vector<std::uint32_t> m_parent; ///< Of triangles that hang together.
    std::vector<bool> m_isAttached;      ///< Triangles without area that have joined a neighbour.
};

SideFinder::SideFinder(const Geometry& geometry, double creaseAngleDegrees)
    : m_geometry(geometry),
      m_smoothCosine(static_cast<float>(std::cos(creaseAngleDegrees * std::numbers::pi / 180.0)))
{
}

/// Numbers places by their bits, so that vertices split for normals or colours meet again.
void SideFinder::weldPoints()
{
    const std::size_t vertexCount = m_geometry.VertexCount();
    MeshArray<std::uint32_t> pointOf;
    WeldPoints(m_geometry.Positions().Data(), vertexCount, pointOf);
    for (std::uint32_t vertex = 0; vertex < vertexCount; ++vertex)
        if (pointOf[vertex] == m_sides.pointVertex.size())
            m_sides.pointVertex.push_back(vertex);
    m_corners.Resize(triangleCount() * 3);
    const std::uint32_t* vertices = m_geometry.Triangles().Data();
    for (std::size_t i = 0; i < m_corners.Size(); ++i)
        m_corners[i] = pointOf[vertices[i]];
}

/// Whether no shell is turned inside out; asked of a closed mesh.
bool SideFinder::isOutsideOut() const
{
    MeshArray<std::uint32_t> corners;
    corners.Resize(m_corners.Size());
    for (std::size_t i = 0; i < corners.Size(); ++i)
        corners[i] = m_sides.pointVertex[m_corners[i]];
    return AreClosedShells(m_geometry.Positions().Data(), m_geometry.VertexCount(), corners.Data(),
                           triangleCount());
}

void SideFinder::computeNormals()
{
    m_normals.resize(triangleCount());
    const float* positions = m_geometry.Positions().Data();
    const std::uint32_t* corners = m_geometry.Triangles().Data();
    for (std::size_t i = 0; i < m_normals.size(); ++i, corners += 3) {
        const float* a = positions + std::size_t{corners[0]} * 3;
        const float* b = positions + std::size_t{corners[1]} * 3;
        const float* c = positions + std::size_t{corners[2]} * 3;
        const double ab[3] = {double{b[0]} - a[0], double{b[1]} - a[1], double{b[2]} - a[2]};
        const double ac[3] = {double{c[0]} - a[0], double{c[1]} - a[1], double{c[2]} - a[2]};
        const double x = ab[1] * ac[2] - ab[2] * ac[1];
        const double y = ab[2] * ac[0] - ab[0] * ac[2];
        const double z = ab[0] * ac[1] - ab[1] * ac[0];
        const double length = std::sqrt(x * x + y * y + z * z);
        const double scale = length > 0.0 ? 1.0 / length : 0.0;
        m_normals[i] = {static_cast<float>(x * scale), static_cast<float>(y * scale),
                        static_cast<float>(z * scale)};
    }
}

/// Puts each side under the lower of its two points, in the order of triangles.
void SideFinder::sortSides()
{
    m_first.assign(m_sides.pointVertex.size() + 1, 0);
    const auto sideCount = static_cast<std::uint32_t>(m_corners.Size());
    for (std::uint32_t side = 0; side < sideCount; ++side)
        if (startOf(side) != endOf(side))
            ++m_first[std::min(startOf(side), endOf(side)) + 1];
    std::partial_sum(m_first.begin(), m_first.end(), m_first.begin());
    m_sorted.Resize(m_first.back());
    std::vector<std::uint32_t> next(m_first.begin(), m_first.end() - 1);
    for (std::uint32_t side = 0; side < sideCount; ++side) {
        const std::uint32_t start = startOf(side);
        const std::uint32_t end = endOf(side);
        if (start != end)
            m_sorted[next[std::min(start, end)]++] = {std::max(start, end), side};
    }
}

void SideFinder::matchSides()
{
    m_sides.isClosed = triangleCount() > 0;
    m_parent.resize(triangleCount());
    std::iota(m_parent.begin(), m_parent.end(), 0u);
    m_isAttached.assign(triangleCount(), false);
    for (std::size_t point = 0; point + 1 < m_first.size(); ++point) {
        HalfSide* begin = m_sorted.Data() + m_first[point];
        HalfSide* end = m_sorted.Data() + m_first[point + 1];
        std::sort(begin, end, [](const HalfSide& a, const HalfSide& b) {
            return a.upperPoint < b.upperPoint || (a.upperPoint == b.upperPoint && a.side < b.side);
        });
        while (begin != end) {
            HalfSide* groupEnd = begin + 1;
            while (groupEnd != end && groupEnd->upperPoint == begin->upperPoint)
                ++groupEnd;
            matchGroup({begin, groupEnd});
            begin = groupEnd;
        }
    }
    std::sort(m_sides.creases.begin(), m_sides.creases.end(),
              [](const CreaseSide& a, const CreaseSide& b) {
                  return a.firstTriangle < b.firstTriangle ||
                         (a.firstTriangle == b.firstTriangle && a.from < b.from);
              });
}

/// All sides between the same two points.
void SideFinder::matchGroup(std::span<const HalfSide> group)
{
    if (group.size() == 2) {
        joinSmooth(group[0], group[1]);
        return;
    }
    m_sides.isClosed = false;
    addCrease(group.front().side, kNoTriangle);
}

void SideFinder::joinSmooth(const HalfSide& a, const HalfSide& b)
{
    const std::uint32_t first = a.side / 3;
    const std::uint32_t second = b.side / 3;
    // Two triangles that run along a side in the same direction are wound differently.
    const bool isOpposite = startOf(a.side) != startOf(b.side);
    if (!isOpposite)
        m_sides.isClosed = false;
    const Normal& firstNormal = m_normals[first];
    const Normal& secondNormal = m_normals[second];
    if (firstNormal.IsZero() || secondNormal.IsZero()) {
        const std::uint32_t thin = firstNormal.IsZero() ? first : second;
        if (!m_isAttached[thin]) {
            m_isAttached[thin] = true;
            unite(first, second);
            return;
        }
    } else {
        const float cosine = firstNormal.Dot(secondNormal);
        if ((isOpposite ? cosine : -cosine) >= m_smoothCosine) {
            unite(first, second);
            return;
        }
    }
    addCrease(a.side, second);
}

void SideFinder::addCrease(std::uint32_t side, std::uint32_t otherTriangle)
{
    m_sides.creases.push_back({startOf(side), endOf(side), side / 3, otherTriangle});
}

std::uint32_t SideFinder::rootOf(std::uint32_t triangle)
{
    while (m_parent[triangle] != triangle) {
        m_parent[triangle] = m_parent[m_parent[triangle]];
        triangle = m_parent[triangle];
    }
    return triangle;
}

/// The lower triangle becomes the root, so that a root is the first triangle of its patch.
void SideFinder::unite(std::uint32_t a, std::uint32_t b)
{
    const std::uint32_t rootA = rootOf(a);
    const std::uint32_t rootB = rootOf(b);
    m_parent[std::max(rootA, rootB)] = std::min(rootA, rootB);
}

void SideFinder::numberPatches()
{
    m_sides.patch.resize(triangleCount());
    for (std::uint32_t triangle = 0; triangle < triangleCount(); ++triangle) {
        const std::uint32_t root = rootOf(triangle);
        m_sides.patch[triangle] = root == triangle ? m_sides.patchCount++ : m_sides.patch[root];
    }
}

TriangleSides SideFinder::Run()
{
    weldPoints();
    computeNormals();
    sortSides();
    matchSides();
    m_sides.isClosed = m_sides.isClosed && isOutsideOut();
    numberPatches();
    return std::move(m_sides);
}

} // namespace

TriangleSides FindSides(const Geometry& geometry, double creaseAngleDegrees)
{
    return SideFinder(geometry, creaseAngleDegrees).Run();
}

} // namespace OrvikMesh
