#include "Candidate.h"
#include "EmbreeDevice.h"
#include "FaceTree.h"
#include "ThinTree.h"

#include <TambVizCore/Geometry.h>

#include <OrvikRay/RayIndex.h>

#include <cmath>

namespace OrvikRay {

using TambVizCore::Geometry;
using TambVizCore::GeometryHit;
using TambVizCore::GeometryQuery;
using TambVizCore::PartKind;

namespace {

std::unique_ptr<const IFaceTree> makeFaces(const Geometry& geometry)
{
    const EmbreeDevice* const device = SuitsEmbree(geometry) ? EmbreeDevice::Shared() : nullptr;
    return device != nullptr ? MakeEmbreeFaces(geometry, *device) : MakeBoxFaces(geometry);
}

class RayIndex final : public TambVizCore::IGeometryIndex
{
public:
    explicit RayIndex(const Geometry& geometry)
        : m_geometry(geometry),
          m_faces(makeFaces(geometry)),
          m_edges(geometry, PartKind::Edge),
          m_vertices(geometry, PartKind::Vertex)
    {
    }

    bool FindFace(const GeometryQuery& query, GeometryHit& hit) const override;
    bool FindEdge(const GeometryQuery& query, GeometryHit& hit) const override;
    bool FindVertex(const GeometryQuery& query, GeometryHit& hit) const override;
    std::size_t MemoryBytes() const override;

private:
    bool findThin(const ThinTree& tree, PartKind kind, const GeometryQuery& query,
                  GeometryHit& hit) const;
    void fill(PartKind kind, const Candidate& candidate, GeometryHit& hit) const;

    const Geometry& m_geometry; ///< Not owned; it owns this index.
    std::unique_ptr<const IFaceTree> m_faces;
    ThinTree m_edges;
    ThinTree m_vertices;
};

void RayIndex::fill(PartKind kind, const Candidate& candidate, GeometryHit& hit) const
{
    hit.kind = kind;
    hit.partIndex = m_geometry.PartOfPrimitive(kind, candidate.primitive);
    hit.primitive = candidate.primitive;
    hit.distance = static_cast<float>(candidate.distance);
    hit.facetDistance = hit.distance;
    hit.deviation = static_cast<float>(candidate.deviation);
    Store(candidate.position, hit.position);
}

bool RayIndex::FindFace(const GeometryQuery& query, GeometryHit& hit) const
{
    const Line line(query);
    if (!line.HasDirection())
        return false;
    NearestFace nearest(m_geometry, line, query);
    m_faces->Search(nearest);
    if (!nearest.IsFound())
        return false;
    fill(PartKind::Face, nearest.Best(), hit);
    const std::uint32_t* corners =
        m_geometry.Triangles().Data() + std::size_t{nearest.Best().primitive} * 3;
    const Vector3 a = VertexAt(m_geometry, corners[0]);
    const Vector3 normal =
        Cross(VertexAt(m_geometry, corners[1]) - a, VertexAt(m_geometry, corners[2]) - a);
    const double size = Length(normal);
    const double sign = Dot(normal, line.direction) > 0.0 ? -1.0 : 1.0;
    Store(size > 0.0 ? normal * (sign / size) : line.direction * (-1.0 / Length(line.direction)),
          hit.normal);
    return true;
}

bool RayIndex::findThin(const ThinTree& tree, PartKind kind, const GeometryQuery& query,
                        GeometryHit& hit) const
{
    Candidate best;
    if (!tree.Find(query, best))
        return false;
    fill(kind, best, hit);
    const Vector3 direction = ToVector3(query.direction);
    Store(direction * (-1.0 / Length(direction)), hit.normal);
    return true;
}

bool RayIndex::FindEdge(const GeometryQuery& query, GeometryHit& hit) const
{
    return findThin(m_edges, PartKind::Edge, query, hit);
}

bool RayIndex::FindVertex(const GeometryQuery& query, GeometryHit& hit) const
{
    return findThin(m_vertices, PartKind::Vertex, query, hit);
}

std::size_t RayIndex::MemoryBytes() const
{
    return sizeof *this + m_faces->MemoryBytes() + m_edges.MemoryBytes() + m_vertices.MemoryBytes();
}

} // namespace

std::unique_ptr<const TambVizCore::IGeometryIndex>
BuildRayIndex(const TambVizCore::Geometry& geometry)
{
    return std::make_unique<RayIndex>(geometry);
}

} // namespace OrvikRay
