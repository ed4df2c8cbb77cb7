#include "readers/WeldKernel.h"

#include <algorithm>
#include <cstring>

namespace OrvikMesh {

namespace {

/// Triangles whose table entries are fetched ahead together; 48 fetches keep the memory busy.
constexpr std::size_t kBatch = 16;

/// The bits of one point's coordinates.
struct Point
{
    std::uint64_t xy; ///< x in the low half.
    std::uint32_t z;
};

/// 0 for both zeros, else the bits themselves.
std::uint32_t foldZero(std::uint32_t bits)
{
    return (bits << 1) == 0 ? 0u : bits;
}

/// 1 for infinities and what is not a number, else 0.
std::uint32_t isNotFinite(std::uint32_t bits)
{
    return (bits & 0x7F800000u) == 0x7F800000u;
}

std::uint64_t hashOf(const Point& point)
{
    std::uint64_t mixed = (point.xy ^ (point.xy >> 29)) * 0x9E3779B97F4A7C15u;
    mixed ^= point.z * 0xD6E8FEB86659FD93u;
    mixed ^= mixed >> 32;
    return mixed * 0x9E3779B97F4A7C15u;
}

bool isSame(const float* position, const Point& point)
{
    std::uint64_t xy;
    std::uint32_t z;
    std::memcpy(&xy, position, sizeof xy);
    std::memcpy(&z, position + 2, sizeof z);
    return xy == point.xy && z == point.z;
}

std::uint32_t findOrAdd(WeldTable& table, const Point& point, std::uint64_t slot)
{
    const std::uint64_t mask = ~std::uint64_t{0} >> table.shift;
    for (;; slot = (slot + 1) & mask) {
        const std::uint32_t entry = table.slots[slot];
        if (entry == 0) {
            const std::uint32_t vertex = table.vertexCount++;
            float* position = table.positions + std::size_t{vertex} * 3;
            std::memcpy(position, &point.xy, sizeof point.xy);
            std::memcpy(position + 2, &point.z, sizeof point.z);
            table.slots[slot] = vertex + 1;
            return vertex;
        }
        if (isSame(table.positions + std::size_t{entry - 1} * 3, point))
            return entry - 1;
    }
}

Point makePoint(std::uint32_t x, std::uint32_t y, std::uint32_t z)
{
    return {foldZero(x) | (static_cast<std::uint64_t>(foldZero(y)) << 32), foldZero(z)};
}

Point loadPoint(const float* position)
{
    std::uint32_t bits[3];
    std::memcpy(bits, position, sizeof bits);
    return makePoint(bits[0], bits[1], bits[2]);
}

} // namespace

void WeldTriangles(WeldTable& table, WeldRun& run)
{
    Point points[kBatch * 3];
    std::uint64_t slots[kBatch * 3];
    while (run.remaining > 0) {
        if (table.vertexLimit - table.vertexCount < kBatch * 3)
            return;
        const std::size_t batch = std::min(run.remaining, kBatch);

        // 1. Read the points and start fetching their slots.
        std::size_t kept = 0;
        for (std::size_t i = 0; i < batch; ++i, run.records += run.stride) {
            std::uint32_t bits[9];
            std::memcpy(bits, run.records, sizeof bits);
            std::uint32_t notFinite = 0;
            for (std::size_t corner = 0; corner < 3; ++corner) {
                const std::uint32_t* c = bits + corner * 3;
                notFinite |= isNotFinite(c[0]) | isNotFinite(c[1]) | isNotFinite(c[2]);
                const Point point = makePoint(c[0], c[1], c[2]);
                points[kept + corner] = point;
                slots[kept + corner] = hashOf(point) >> table.shift;
                __builtin_prefetch(table.slots + slots[kept + corner]);
            }
            kept += notFinite ? 0 : 3;
            run.dropped += notFinite;
        }
        // 2. Start fetching the vertices that the slots point to.
        for (std::size_t i = 0; i < kept; ++i) {
            const std::uint32_t entry = table.slots[slots[i]];
            __builtin_prefetch(table.positions + std::size_t{entry == 0 ? 0 : entry - 1} * 3);
        }
        // 3. Find or add.
        for (std::size_t i = 0; i < kept; ++i)
            run.indices[i] = findOrAdd(table, points[i], slots[i]);
        run.indices += kept;
        run.remaining -= batch;
    }
}

void FindOrAddPoints(WeldTable& table, const float* points, std::size_t count,
                     std::uint32_t* newIndex)
{
    Point batchPoints[kBatch];
    std::uint64_t slots[kBatch];
    for (std::size_t first = 0; first < count; first += kBatch) {
        const std::size_t batch = std::min(count - first, kBatch);
        for (std::size_t i = 0; i < batch; ++i) {
            batchPoints[i] = loadPoint(points + (first + i) * 3);
            slots[i] = hashOf(batchPoints[i]) >> table.shift;
            __builtin_prefetch(table.slots + slots[i]);
        }
        for (std::size_t i = 0; i < batch; ++i)
            newIndex[first + i] = findOrAdd(table, batchPoints[i], slots[i]);
    }
}

void RefillTable(WeldTable& table)
{
    const std::uint64_t mask = ~std::uint64_t{0} >> table.shift;
    std::uint64_t slots[kBatch];
    for (std::uint32_t first = 0; first < table.vertexCount; first += kBatch) {
        const std::uint32_t batch =
            std::min(table.vertexCount - first, static_cast<std::uint32_t>(kBatch));
        for (std::uint32_t i = 0; i < batch; ++i) {
            slots[i] =
                hashOf(loadPoint(table.positions + std::size_t{first + i} * 3)) >> table.shift;
            __builtin_prefetch(table.slots + slots[i]);
        }
        for (std::uint32_t i = 0; i < batch; ++i) {
            std::uint64_t slot = slots[i];
            while (table.slots[slot] != 0)
                slot = (slot + 1) & mask;
            table.slots[slot] = first + i + 1;
        }
    }
}

} // namespace OrvikMesh
