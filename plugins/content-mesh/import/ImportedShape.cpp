#include "import/ImportedShape.h"

#include "gltf/VertexUse.h"
#include "readers/MeshFinish.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace OrvikMesh {

namespace {

/// Copies the values of the vertices that are used.
template <class T>
MeshArray<T> pick(const T* values, std::size_t perVertex, const MeshArray<std::uint32_t>& used)
{
    MeshArray<T> picked;
    if (!values)
        return picked;
    picked.Resize(used.Size() * perVertex);
    for (std::size_t i = 0; i < used.Size(); ++i)
        std::copy_n(values + std::size_t{used[i]} * perVertex, perVertex,
                    picked.Data() + i * perVertex);
    return picked;
}

} // namespace

bool CopyImportedMesh(const ImportedMesh& mesh, ShapeArrays& shape, std::size_t& leftOut)
{
    MeshArray<std::uint32_t> corners;
    corners.Resize(mesh.cornerCount - mesh.cornerCount % mesh.arity);
    std::copy_n(mesh.corners, corners.Size(), corners.begin());
    leftOut = KeepGoodPieces(corners, mesh.arity, [&](std::uint32_t vertex) {
        return vertex < mesh.vertexCount && IsFinitePoint(mesh.positions + std::size_t{vertex} * 3);
    });
    if (corners.IsEmpty())
        return false;
    MeshArray<std::uint32_t> used;
    if (ListUsedVertices(corners, mesh.vertexCount, used)) {
        used.Resize(mesh.vertexCount);
        std::iota(used.begin(), used.end(), 0u);
    }
    shape.mesh.positions = pick(mesh.positions, 3, used);
    shape.mesh.colors = pick(mesh.colors, 4, used);
    if (mesh.arity == 3) {
        shape.mesh.normals = pick(mesh.normals, 3, used);
        NormalizeNormals(shape.mesh);
    }
    MeshArray<std::uint32_t>& target = mesh.arity == 3   ? shape.mesh.triangles
                                       : mesh.arity == 2 ? shape.segments
                                                         : shape.points;
    target = std::move(corners);
    return true;
}

} // namespace OrvikMesh
