#include "readers/PlyKernel.h"

#include "readers/MeshData.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace OrvikMesh {

static_assert(std::endian::native == std::endian::little, "little-endian files are read as is");

namespace {

template <class T, bool IsSwapped> T load(const std::byte* at)
{
    std::array<std::byte, sizeof(T)> bytes;
    std::memcpy(bytes.data(), at, sizeof(T));
    if constexpr (IsSwapped)
        std::reverse(bytes.begin(), bytes.end());
    return std::bit_cast<T>(bytes);
}

template <class T> T loadEither(const std::byte* at, bool isSwapped)
{
    return isSwapped ? load<T, true>(at) : load<T, false>(at);
}

template <class T, bool IsSwapped>
void readFloats(const PlyColumn& column, std::size_t count, float* target, std::size_t step)
{
    const std::byte* at = column.first;
    for (std::size_t i = 0; i < count; ++i) {
        target[i * step] = static_cast<float>(load<T, IsSwapped>(at));
        at += column.rowBytes;
    }
}

template <class T>
void readFloatsEither(const PlyColumn& column, std::size_t count, float* target, std::size_t step)
{
    if (column.isSwapped)
        readFloats<T, true>(column, count, target, step);
    else
        readFloats<T, false>(column, count, target, step);
}

template <bool IsSwapped> std::size_t readTriangles(const PlyTriangleRun& run)
{
    const std::byte* at = run.first + run.countOffset;
    std::uint32_t* indices = run.indices;
    for (std::size_t row = 0; row < run.rows; ++row) {
        const auto a = load<std::uint32_t, IsSwapped>(at + 1);
        const auto b = load<std::uint32_t, IsSwapped>(at + 5);
        const auto c = load<std::uint32_t, IsSwapped>(at + 9);
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

void ReadPlyFloats(const PlyColumn& column, std::size_t count, float* target, std::size_t step)
{
    switch (column.type) {
    case PlyType::Int8:
        return readFloatsEither<std::int8_t>(column, count, target, step);
    case PlyType::UInt8:
        return readFloatsEither<std::uint8_t>(column, count, target, step);
    case PlyType::Int16:
        return readFloatsEither<std::int16_t>(column, count, target, step);
    case PlyType::UInt16:
        return readFloatsEither<std::uint16_t>(column, count, target, step);
    case PlyType::Int32:
        return readFloatsEither<std::int32_t>(column, count, target, step);
    case PlyType::UInt32:
        return readFloatsEither<std::uint32_t>(column, count, target, step);
    case PlyType::Float32:
        return readFloatsEither<float>(column, count, target, step);
    case PlyType::Float64:
        return readFloatsEither<double>(column, count, target, step);
    }
}

void CopyPlyBytes(const PlyColumn& column, std::size_t count, std::uint8_t* target)
{
    const std::byte* at = column.first;
    for (std::size_t i = 0; i < count; ++i) {
        target[i * 4] = std::to_integer<std::uint8_t>(*at);
        at += column.rowBytes;
    }
}

double ReadPlyValue(const std::byte* at, PlyType type, bool isSwapped)
{
    switch (type) {
    case PlyType::Int8:
        return loadEither<std::int8_t>(at, isSwapped);
    case PlyType::UInt8:
        return loadEither<std::uint8_t>(at, isSwapped);
    case PlyType::Int16:
        return loadEither<std::int16_t>(at, isSwapped);
    case PlyType::UInt16:
        return loadEither<std::uint16_t>(at, isSwapped);
    case PlyType::Int32:
        return loadEither<std::int32_t>(at, isSwapped);
    case PlyType::UInt32:
        return loadEither<std::uint32_t>(at, isSwapped);
    case PlyType::Float32:
        return static_cast<double>(loadEither<float>(at, isSwapped));
    case PlyType::Float64:
        return loadEither<double>(at, isSwapped);
    }
    return 0.0;
}

std::uint32_t ReadPlyIndex(const std::byte* at, PlyType type, bool isSwapped)
{
    const double value = ReadPlyValue(at, type, isSwapped);
    // The comparisons are also false for not-a-number.
    if (!(value >= 0.0 && value < kNone))
        return kNone;
    const auto index = static_cast<std::uint32_t>(value);
    return index == value ? index : kNone;
}

std::size_t ReadPlyTriangles(const PlyTriangleRun& run)
{
    return run.isSwapped ? readTriangles<true>(run) : readTriangles<false>(run);
}

} // namespace OrvikMesh
