#include "readers/ScalarKernel.h"

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
void readFloats(const ScalarColumn& column, std::size_t count, float* target, std::size_t step)
{
    const std::byte* at = column.first;
    for (std::size_t i = 0; i < count; ++i) {
        target[i * step] = static_cast<float>(load<T, IsSwapped>(at));
        at += column.rowBytes;
    }
}

template <class T>
void readFloatsEither(const ScalarColumn& column, std::size_t count, float* target,
                      std::size_t step)
{
    if (column.isSwapped)
        readFloats<T, true>(column, count, target, step);
    else
        readFloats<T, false>(column, count, target, step);
}

} // namespace

std::size_t SizeOf(ScalarType type)
{
    switch (type) {
    case ScalarType::Int8:
    case ScalarType::UInt8:
        return 1;
    case ScalarType::Int16:
    case ScalarType::UInt16:
        return 2;
    case ScalarType::Float64:
        return 8;
    default:
        return 4;
    }
}

void ReadScalars(const ScalarColumn& column, std::size_t count, float* target, std::size_t step)
{
    switch (column.type) {
    case ScalarType::Int8:
        return readFloatsEither<std::int8_t>(column, count, target, step);
    case ScalarType::UInt8:
        return readFloatsEither<std::uint8_t>(column, count, target, step);
    case ScalarType::Int16:
        return readFloatsEither<std::int16_t>(column, count, target, step);
    case ScalarType::UInt16:
        return readFloatsEither<std::uint16_t>(column, count, target, step);
    case ScalarType::Int32:
        return readFloatsEither<std::int32_t>(column, count, target, step);
    case ScalarType::UInt32:
        return readFloatsEither<std::uint32_t>(column, count, target, step);
    case ScalarType::Float32:
        return readFloatsEither<float>(column, count, target, step);
    case ScalarType::Float64:
        return readFloatsEither<double>(column, count, target, step);
    }
}

void CopyBytes(const ScalarColumn& column, std::size_t count, std::uint8_t* target)
{
    const std::byte* at = column.first;
    for (std::size_t i = 0; i < count; ++i) {
        target[i * 4] = std::to_integer<std::uint8_t>(*at);
        at += column.rowBytes;
    }
}

double ReadScalar(const std::byte* at, ScalarType type, bool isSwapped)
{
    switch (type) {
    case ScalarType::Int8:
        return loadEither<std::int8_t>(at, isSwapped);
    case ScalarType::UInt8:
        return loadEither<std::uint8_t>(at, isSwapped);
    case ScalarType::Int16:
        return loadEither<std::int16_t>(at, isSwapped);
    case ScalarType::UInt16:
        return loadEither<std::uint16_t>(at, isSwapped);
    case ScalarType::Int32:
        return loadEither<std::int32_t>(at, isSwapped);
    case ScalarType::UInt32:
        return loadEither<std::uint32_t>(at, isSwapped);
    case ScalarType::Float32:
        return static_cast<double>(loadEither<float>(at, isSwapped));
    case ScalarType::Float64:
        return loadEither<double>(at, isSwapped);
    }
    return 0.0;
}

std::uint32_t ReadIndex(const std::byte* at, ScalarType type, bool isSwapped)
{
    const double value = ReadScalar(at, type, isSwapped);
    // The comparisons are also false for not-a-number.
    if (!(value >= 0.0 && value < kNone))
        return kNone;
    const auto index = static_cast<std::uint32_t>(value);
    return index == value ? index : kNone;
}

} // namespace OrvikMesh
