#include "gltf/VertexUse.h"

#include <algorithm>
#include <cstring>

namespace OrvikMesh {

namespace {

/// Where there are more vertices per corner than this, looking at each of them costs more than
/// sorting the corners.
constexpr std::size_t kManyVertices = 16;

void keepFew(MeshArray<std::uint32_t>& corners, MeshArray<std::uint32_t>& used)
{
    used.Resize(corners.Size());
    std::copy(corners.begin(), corners.end(), used.begin());
    std::sort(used.begin(), used.end());
    used.Resize(static_cast<std::size_t>(std::unique(used.begin(), used.end()) - used.begin()));
    for (std::uint32_t& corner : corners)
        corner = static_cast<std::uint32_t>(std::lower_bound(used.begin(), used.end(), corner) -
                                            used.begin());
}

} // namespace

bool ListUsedVertices(MeshArray<std::uint32_t>& corners, std::size_t vertexCount,
                      MeshArray<std::uint32_t>& used)
{
    used.Resize(0);
    if (vertexCount / kManyVertices > corners.Size()) {
        keepFew(corners, used);
        return false;
    }
    MeshArray<std::uint8_t> isUsed;
    isUsed.Resize(vertexCount);
    std::memset(isUsed.Data(), 0, vertexCount);
    for (const std::uint32_t corner : corners)
        isUsed[corner] = 1;
    const auto usedCount =
        static_cast<std::size_t>(std::count(isUsed.begin(), isUsed.end(), std::uint8_t{1}));
    if (usedCount == vertexCount)
        return true;
    used.Reserve(usedCount);
    MeshArray<std::uint32_t> newNumber;
    newNumber.Resize(vertexCount);
    for (std::uint32_t vertex = 0; vertex < vertexCount; ++vertex) {
        newNumber[vertex] = static_cast<std::uint32_t>(used.Size());
        if (isUsed[vertex])
            used.PushBack(vertex);
    }
    for (std::uint32_t& corner : corners)
        corner = newNumber[corner];
    return false;
}

} // namespace OrvikMesh
