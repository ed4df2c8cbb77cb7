#include "FuzzReading.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

using OrvikMesh::MeshData;
using OrvikMesh::MeshRange;
using OrvikMesh::MeshThin;
using OrvikMesh::ReadMessages;

namespace {

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken promise of a reader: %s\n", what);
    std::abort();
}

bool isIndexed(const MeshData& mesh)
{
    return std::all_of(mesh.triangles.begin(), mesh.triangles.end(),
                       [&](std::uint32_t vertex) { return vertex < mesh.VertexCount(); });
}

bool isCovered(const MeshData& mesh)
{
    std::uint64_t covered = 0;
    for (const MeshRange& range : mesh.ranges) {
        if (range.firstTriangle != covered || range.triangleCount == 0)
            return false;
        covered += range.triangleCount;
    }
    return covered == mesh.TriangleCount();
}

bool isNamed(const MeshData& mesh)
{
    return std::all_of(mesh.ranges.begin(), mesh.ranges.end(), [&](const MeshRange& range) {
        const auto isIn = [](std::uint32_t index, std::size_t size) {
            return index == OrvikMesh::kNone || index < size;
        };
        return isIn(range.object, mesh.objects.size()) && isIn(range.group, mesh.groups.size()) &&
               isIn(range.material, mesh.materials.size());
    });
}

bool isFinite(const OrvikMesh::MeshArray<float>& values)
{
    return std::all_of(values.begin(), values.end(),
                       [](float value) { return std::isfinite(value); });
}

bool isSound(const MeshThin& thin, const MeshData& mesh)
{
    const auto isIn = [](std::uint32_t index, std::size_t size) {
        return index == OrvikMesh::kNone || index < size;
    };
    const std::size_t segments = thin.segments.Size() / 2;
    return thin.VertexCount() > 0 && isFinite(thin.positions) && thin.areLines == (segments > 0) &&
           thin.areLines == (thin.runs.Size() > 0) &&
           (thin.colors.IsEmpty() || thin.colors.Size() == thin.VertexCount() * 4) &&
           std::all_of(thin.segments.begin(), thin.segments.end(),
                       [&](std::uint32_t vertex) { return vertex < thin.VertexCount(); }) &&
           std::is_sorted(thin.runs.begin(), thin.runs.end()) &&
           std::all_of(thin.runs.begin(), thin.runs.end(),
                       [&](std::uint32_t run) { return run < segments; }) &&
           isIn(thin.object, mesh.objects.size()) && isIn(thin.group, mesh.groups.size()) &&
           isIn(thin.material, mesh.materials.size());
}

} // namespace

void FuzzReader(const OrvikMesh::ContentReader& reader, const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    MeshData mesh;
    ReadMessages messages(L"fuzz");
    const bool isRead = OrvikMesh::ReadGuarded(
        [&] { return reader(bytes, OrvikMesh::ReadOptions{}, mesh, messages); }, messages);
    require(isRead != messages.HasError(), "an error exactly when nothing was read");
    if (!isRead)
        return;
    require(mesh.VertexCount() > 0 || !mesh.thin.empty(), "vertices");
    require(mesh.isPointCloud == (mesh.TriangleCount() == 0 && mesh.thin.empty()),
            "triangles, or a point cloud");
    for (const MeshThin& thin : mesh.thin)
        require(isSound(thin, mesh), "sound lines and points");
    require(isIndexed(mesh), "indices in range");
    require(isCovered(mesh), "runs that cover the triangles");
    require(isNamed(mesh), "names in range");
    require(isFinite(mesh.positions), "finite positions");
    require(isFinite(mesh.normals), "finite normals");
    require(mesh.normals.IsEmpty() || mesh.normals.Size() == mesh.positions.Size(),
            "a normal for each vertex");
    require(mesh.colors.IsEmpty() || mesh.colors.Size() == mesh.VertexCount() * 4,
            "a colour for each vertex");
}
