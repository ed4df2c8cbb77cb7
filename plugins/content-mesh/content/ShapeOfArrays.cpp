#include "content/ShapeOfArrays.h"

#include "content/ArraySharing.h"
#include "content/ClosedShells.h"
#include "content/MeshShape.h"
#include "readers/VertexWelder.h"

#include <TambVizCore/Geometry.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrvikMesh {

using TambVizCore::GeometryBuilder;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;

namespace {

/// Replaces each corner by the first vertex at its place.
void weldCorners(const MeshArray<float>& positions, MeshArray<std::uint32_t>& corners)
{
    const std::size_t count = positions.Size() / 3;
    MeshArray<std::uint32_t> placeOf;
    WeldPoints(positions.Data(), count, placeOf);
    MeshArray<std::uint32_t> firstAt;
    firstAt.Reserve(count);
    for (std::uint32_t vertex = 0; vertex < count; ++vertex)
        if (placeOf[vertex] == firstAt.Size())
            firstAt.PushBack(vertex);
    for (std::uint32_t& corner : corners)
        corner = firstAt[placeOf[corner]];
}

bool isClosed(const MeshData& mesh)
{
    const auto areClosed = [&](const MeshArray<std::uint32_t>& corners) {
        return AreClosedShells(mesh.positions.Data(), mesh.VertexCount(), corners.Data(),
                               corners.Size() / 3);
    };
    if (mesh.triangles.IsEmpty())
        return false;
    if (areClosed(mesh.triangles))
        return true;
    MeshArray<std::uint32_t> corners;
    corners.Resize(mesh.triangles.Size());
    std::copy(mesh.triangles.begin(), mesh.triangles.end(), corners.begin());
    weldCorners(mesh.positions, corners);
    return areClosed(corners);
}

void addEdges(const ShapeArrays& arrays, GeometryBuilder& builder)
{
    const auto count = static_cast<std::uint32_t>(arrays.segments.Size() / 2);
    if (count > 0 && arrays.runs.IsEmpty())
        builder.AddPart({PartKind::Edge, 0, count, MakePartId(PartKind::Edge, 0)});
    for (std::uint32_t i = 0; i < arrays.runs.Size(); ++i) {
        const std::uint32_t end = i + 1 < arrays.runs.Size() ? arrays.runs[i + 1] : count;
        builder.AddPart(
            {PartKind::Edge, arrays.runs[i], end - arrays.runs[i], MakePartId(PartKind::Edge, i)});
    }
}

} // namespace

std::shared_ptr<const OrvikModel::ModelShape> MakeShape(ShapeArrays&& arrays)
{
    GeometryBuilder builder;
    builder.SetClosed(isClosed(arrays.mesh));
    addEdges(arrays, builder);
    builder.SetPositions(Share(std::move(arrays.mesh.positions)));
    builder.SetNormals(Share(std::move(arrays.mesh.normals)));
    builder.SetColors(Share(std::move(arrays.mesh.colors)));
    builder.SetTriangles(Share(std::move(arrays.mesh.triangles)));
    builder.SetSegments(Share(std::move(arrays.segments)));
    builder.SetPoints(Share(std::move(arrays.points)));
    std::string error;
    auto geometry = builder.Build(error);
    if (!geometry)
        throw std::logic_error(error);
    return std::make_shared<MeshShape>(std::move(geometry));
}

} // namespace OrvikMesh
