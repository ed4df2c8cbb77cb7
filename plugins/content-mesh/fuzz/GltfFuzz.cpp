#include "FuzzReading.h"
#include "GltfFiles.h"
#include "gltf/GltfReader.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

using OrvikMesh::MeshArray;
using OrvikMesh::ShapeArrays;
using OrvikModel::ModelNode;

namespace {

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken promise of the glTF reader: %s\n", what);
    std::abort();
}

void requireSound(const ShapeArrays& arrays)
{
    const std::size_t count = arrays.mesh.VertexCount();
    const auto areIn = [count](const MeshArray<std::uint32_t>& corners, std::size_t arity) {
        return corners.Size() % arity == 0 &&
               std::all_of(corners.begin(), corners.end(),
                           [count](std::uint32_t vertex) { return vertex < count; });
    };
    const auto areFinite = [](const MeshArray<float>& values) {
        return std::all_of(values.begin(), values.end(),
                           [](float value) { return std::isfinite(value); });
    };
    require(areIn(arrays.mesh.triangles, 3) && areIn(arrays.segments, 2) && areIn(arrays.points, 1),
            "indices in range");
    require(arrays.mesh.triangles.Size() + arrays.segments.Size() + arrays.points.Size() > 0,
            "something to show");
    require(areFinite(arrays.mesh.positions) && areFinite(arrays.mesh.normals), "finite numbers");
    require(arrays.mesh.normals.IsEmpty() || arrays.mesh.normals.Size() == count * 3,
            "a normal for each vertex");
    require(arrays.mesh.colors.IsEmpty() || arrays.mesh.colors.Size() == count * 4,
            "a colour for each vertex");
}

bool isPlaced(const ModelNode& node)
{
    const bool isFinite =
        !node.transform || std::all_of(node.transform->begin(), node.transform->end(),
                                       [](double number) { return std::isfinite(number); });
    return isFinite && std::all_of(node.children.begin(), node.children.end(),
                                   [](const auto& child) { return isPlaced(*child); });
}

} // namespace

std::vector<std::string> FuzzSeeds()
{
    return {AllSorts().Binary(), AllSorts().Embedded(), OneTriangle().Binary()};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const OrvikMesh::ShapeMaker plain = PlainShapes();
    const OrvikMesh::ShapeMaker make = [&](ShapeArrays&& arrays) {
        requireSound(arrays);
        return plain(std::move(arrays));
    };
    OrvikModel::Model model;
    OrvikMesh::ReadMessages messages(L"fuzz");
    const bool isRead = OrvikMesh::ReadGuarded(
        [&] { return OrvikMesh::ReadGltfContent(L"", bytes, {}, make, model, messages); },
        messages);
    require(isRead != messages.HasError(), "an error exactly when nothing was read");
    if (isRead)
        require(std::all_of(model.nodes.begin(), model.nodes.end(),
                            [](const auto& node) { return isPlaced(*node); }),
                "finite transforms");
    return 0;
}
