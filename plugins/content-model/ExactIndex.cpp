#include "OrvikModel/ExactIndex.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace OrvikModel {

using TambVizCore::Geometry;
using TambVizCore::GeometryHit;
using TambVizCore::GeometryQuery;
using TambVizCore::IGeometryIndex;

namespace {

/// How far along the line a surface may lie from its triangle and still be compared with another,
/// in multiples of the deviation: where it is grazed it is farther than across.
constexpr double kReach = 8.0;

double lengthOf(const double* vector)
{
    return std::hypot(vector[0], vector[1], vector[2]);
}

/// Whether a line meets a triangle from the side to which its corners turn counter-clockwise.
bool isFromOutside(const Geometry& geometry, std::uint32_t triangle, const double* direction)
{
    const float* corners[3];
    for (std::size_t i = 0; i < 3; ++i)
        corners[i] = geometry.Positions().Data() +
                     std::size_t{geometry.Triangles()[std::size_t{triangle} * 3 + i]} * 3;
    double a[3];
    double b[3];
    for (int i = 0; i < 3; ++i) {
        a[i] = static_cast<double>(corners[1][i]) - static_cast<double>(corners[0][i]);
        b[i] = static_cast<double>(corners[2][i]) - static_cast<double>(corners[0][i]);
    }
    return (a[1] * b[2] - a[2] * b[1]) * direction[0] + (a[2] * b[0] - a[0] * b[2]) * direction[1] +
               (a[0] * b[1] - a[1] * b[0]) * direction[2] <
           0.0;
}

class ExactIndex final : public IGeometryIndex
{
public:
    ExactIndex(std::unique_ptr<const IGeometryIndex> facets,
               std::shared_ptr<const IExactFaces> faces, const Geometry& shown)
        : m_facets(std::move(facets)), m_faces(std::move(faces)), m_geometry(shown)
    {
    }

    bool FindFace(const GeometryQuery& query, GeometryHit& hit) const override;
    bool FindEdge(const GeometryQuery& query, GeometryHit& hit) const override
    {
        return m_facets->FindEdge(query, hit);
    }
    bool FindVertex(const GeometryQuery& query, GeometryHit& hit) const override
    {
        return m_facets->FindVertex(query, hit);
    }
    std::size_t MemoryBytes() const override
    {
        return sizeof *this + m_facets->MemoryBytes() + m_faces->MemoryBytes();
    }
    float Deviation() const override { return static_cast<float>(m_faces->Deviation()); }

private:
    void refine(FacetHit& line, GeometryHit& hit) const;

    std::unique_ptr<const IGeometryIndex> m_facets;
    std::shared_ptr<const IExactFaces> m_faces;
    const Geometry& m_geometry; ///< Not owned; it owns this index.
};

/// Moves a hit from its triangle to the exact surface where there is one.
void ExactIndex::refine(FacetHit& line, GeometryHit& hit) const
{
    if (hit.partIndex == TambVizCore::kNoPart)
        return;
    line.facePartId = m_geometry.Parts()[hit.partIndex].id;
    line.parameter = static_cast<double>(hit.distance);
    line.isFromOutside = isFromOutside(m_geometry, hit.primitive, line.direction);
    RefinedHit exact;
    if (!m_faces->Refine(line, exact) || !std::isfinite(exact.parameter))
        return;
    const double side = exact.normal[0] * line.direction[0] + exact.normal[1] * line.direction[1] +
                        exact.normal[2] * line.direction[2];
    hit.distance = static_cast<float>(exact.parameter);
    for (int i = 0; i < 3; ++i) {
        hit.position[i] = static_cast<float>(exact.position[i]);
        hit.normal[i] = static_cast<float>(side > 0.0 ? -exact.normal[i] : exact.normal[i]);
    }
}

bool ExactIndex::FindFace(const GeometryQuery& query, GeometryHit& hit) const
{
    if (query.facetsOnly)
        return m_facets->FindFace(query, hit);
    FacetHit line;
    for (int i = 0; i < 3; ++i) {
        line.origin[i] = static_cast<double>(query.origin[i]);
        line.direction[i] = static_cast<double>(query.direction[i]);
    }
    const double length = lengthOf(line.direction);
    if (!(length > 0.0))
        return false;
    const auto reach = static_cast<float>(kReach * m_faces->Deviation() / length);
    GeometryQuery facets = query;
    facets.minDistance -= reach;
    facets.maxDistance += reach;
    bool isFound = false;
    GeometryHit candidate;
    while (m_facets->FindFace(facets, candidate)) {
        facets.minDistance =
            std::nextafter(candidate.distance, std::numeric_limits<float>::infinity());
        refine(line, candidate);
        const bool isNearer = !isFound || candidate.distance < hit.distance;
        if (!isNearer || candidate.distance < query.minDistance ||
            candidate.distance > query.maxDistance)
            continue;
        hit = candidate;
        isFound = true;
        facets.maxDistance = std::min(facets.maxDistance, hit.distance + reach);
    }
    return isFound;
}

} // namespace

IExactFaces::~IExactFaces() = default;

std::unique_ptr<const IGeometryIndex> MakeExactIndex(std::unique_ptr<const IGeometryIndex> facets,
                                                     std::shared_ptr<const IExactFaces> faces,
                                                     const Geometry& shown)
{
    return std::make_unique<ExactIndex>(std::move(facets), std::move(faces), shown);
}

} // namespace OrvikModel
