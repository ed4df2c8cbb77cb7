#include "gltf/GltfTopology.h"

#include "gltf/GltfTexts.h"

#include <utility>

namespace OrvikMesh {

std::size_t ArityOf(GltfMode mode)
{
    if (mode == GltfMode::Points)
        return 1;
    return mode < GltfMode::Triangles ? 2 : 3;
}

const wchar_t* WordFor(GltfMode mode)
{
    if (mode == GltfMode::Points)
        return kGltfPoints;
    return mode < GltfMode::Triangles ? kGltfSegments : kGltfTriangles;
}

std::size_t GrowthOf(GltfMode mode)
{
    const bool isRun =
        mode != GltfMode::Points && mode != GltfMode::Lines && mode != GltfMode::Triangles;
    return isRun ? ArityOf(mode) : 1;
}

MeshArray<std::uint32_t> Unfold(GltfMode mode, MeshArray<std::uint32_t>&& run)
{
    if (GrowthOf(mode) == 1) {
        run.Resize(run.Size() - run.Size() % ArityOf(mode));
        return std::move(run);
    }
    const std::size_t count = run.Size();
    MeshArray<std::uint32_t> corners;
    if (count < ArityOf(mode))
        return corners;
    corners.Reserve(count * ArityOf(mode));
    const auto add = [&](std::size_t a, std::size_t b) {
        corners.PushBack(run[a]);
        corners.PushBack(run[b]);
    };
    switch (mode) {
    case GltfMode::LineLoop:
    case GltfMode::LineStrip:
        for (std::size_t i = 0; i + 1 < count; ++i)
            add(i, i + 1);
        if (mode == GltfMode::LineLoop)
            add(count - 1, 0);
        break;
    case GltfMode::TriangleStrip:
        for (std::size_t i = 0; i + 2 < count; ++i) {
            add(i, i + 1 + i % 2);
            corners.PushBack(run[i + 2 - i % 2]);
        }
        break;
    default:
        for (std::size_t i = 0; i + 2 < count; ++i) {
            add(i + 1, i + 2);
            corners.PushBack(run[0]);
        }
        break;
    }
    return corners;
}

} // namespace OrvikMesh
