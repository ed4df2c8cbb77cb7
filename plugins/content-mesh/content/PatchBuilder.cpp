#include "content/PatchBuilder.h"

#include "content/EdgeTracer.h"
#include "content/TriangleSides.h"

#include <numeric>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace OrvikMesh {

using TambVizCore::Geometry;
using TambVizCore::GeometryBuilder;
using TambVizCore::GeometryPart;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::SharedArray;

namespace {

/// Sorts the triangles by patch, keeping their order within, and adds a face for each patch.
std::vector<std::uint32_t> sortByPatch(const Geometry& plain, const TriangleSides& sides,
                                       std::vector<GeometryPart>& parts)
{
    std::vector<std::uint32_t> next(std::size_t{sides.patchCount} + 1, 0);
    for (const std::uint32_t patch : sides.patch)
        ++next[patch + 1];
    std::partial_sum(next.begin(), next.end(), next.begin());
    for (std::uint32_t patch = 0; patch < sides.patchCount; ++patch)
        parts.push_back({PartKind::Face, next[patch], next[patch + 1] - next[patch],
                         MakePartId(PartKind::Face, patch)});
    const std::uint32_t* source = plain.Triangles().Data();
    std::vector<std::uint32_t> triangles(plain.Triangles().Size());
    for (const std::uint32_t patch : sides.patch) {
        std::uint32_t* target = triangles.data() + std::size_t{next[patch]++} * 3;
        for (std::size_t corner = 0; corner < 3; ++corner)
            target[corner] = *source++;
    }
    return triangles;
}

} // namespace

std::shared_ptr<const Geometry> BuildPatches(const Geometry& plain)
{
    const TriangleSides sides = FindSides(plain, kCreaseAngleDegrees);
    TracedEdges edges = TraceEdges(sides, plain.Positions().Data(), kCornerAngleDegrees);

    std::vector<GeometryPart> parts;
    parts.reserve(sides.patchCount + edges.edges.size() + edges.vertices.size());
    std::vector<std::uint32_t> triangles = sortByPatch(plain, sides, parts);
    for (std::uint32_t i = 0; i < edges.edges.size(); ++i)
        parts.push_back({PartKind::Edge, edges.edges[i].first, edges.edges[i].count,
                         MakePartId(PartKind::Edge, i)});
    for (std::uint32_t i = 0; i < edges.vertices.size(); ++i)
        parts.push_back({PartKind::Vertex, i, 1, MakePartId(PartKind::Vertex, i)});

    GeometryBuilder builder;
    builder.SetPositions(plain.Positions());
    builder.SetNormals(plain.Normals());
    builder.SetColors(plain.Colors());
    builder.SetTriangles(SharedArray<std::uint32_t>(std::move(triangles)));
    builder.SetSegments(SharedArray<std::uint32_t>(std::move(edges.segments)));
    builder.SetPoints(SharedArray<std::uint32_t>(std::move(edges.vertices)));
    builder.SetParts(std::move(parts));
    builder.SetClosed(sides.isClosed);
    std::string error;
    std::shared_ptr<const Geometry> geometry = builder.Build(error);
    if (!geometry)
        throw std::logic_error(error);
    return geometry;
}

} // namespace OrvikMesh
