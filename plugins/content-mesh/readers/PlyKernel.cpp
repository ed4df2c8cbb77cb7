#include "readers/PlyKernel.h"

#include <bit>
#include <cstring>

namespace OrvikMesh {

static_assert(std::endian::native == std::endian::little, "little-endian files are read as is");

namespace {

template <bool IsSwapped> std::uint32_t load(const std::byte* at)
{
    std::uint32_t value = 0;
    std::memcpy(&value, at, sizeof value);
    return IsSwapped ? __builtin_bswap32(value) : value;
}

template <bool IsSwapped> std::size_t readTriangles(const PlyTriangleRun& run)
{
    const std::byte* at = run.first + run.countOffset;
    std::uint32_t* indices = run.indices;
    for (std::size_t row = 0; row < run.rows; ++row) {
        const auto a = load<IsSwapped>(at + 1);
        const auto b = load<IsSwapped>(at + 5);
        const auto c = load<IsSwapped>(at + 9);
        const bool isSound = (at[0] == std::byte{3}) & (a < run.vertexCount) &
                             (b < run.vertexCount) & (c < run.vertexCount);
        if (!isSound)
            return row;
        indices[0] = a;
        indices[1] = b;
        indices[2] = c;
        indices += 3;
        at += run.rowBytes;
    }
    return run.rows;
}

} // namespace

std::size_t ReadPlyTriangles(const PlyTriangleRun& run)
{
    return run.isSwapped ? readTriangles<true>(run) : readTriangles<false>(run);
}

} // namespace OrvikMesh
