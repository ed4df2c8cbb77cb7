#include "readers/VertexWelder.h"

#include "readers/WeldKernel.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <stdexcept>

namespace OrvikMesh {

namespace {

constexpr std::size_t kMinSlots = 256;
constexpr std::size_t kMaxVertices = 0xFFFFFFFEu;
/// Fewest vertices for which there must be room before triangles are welded: one batch of them.
constexpr std::size_t kHeadRoom = 48;

/// Vertices that a table of @p slots may hold: five eighths keep the chains short.
std::size_t limitOf(std::size_t slots)
{
    return slots / 8 * 5;
}

WeldTable tableOf(MeshArray<std::uint32_t>& slots, MeshArray<float>& positions,
                  std::size_t vertexCount)
{
    WeldTable table;
    table.slots = slots.Data();
    table.shift = 64u - static_cast<unsigned>(std::countr_zero(slots.Size()));
    table.positions = positions.Data();
    table.vertexCount = static_cast<std::uint32_t>(vertexCount);
    table.vertexLimit = static_cast<std::uint32_t>(std::min(limitOf(slots.Size()), kMaxVertices));
    return table;
}

} // namespace

VertexWelder::VertexWelder(std::size_t expectedVertices)
{
    grow(std::min(expectedVertices, kMaxVertices - kHeadRoom) + kHeadRoom);
}

void VertexWelder::AddTriangles(const std::byte* records, std::size_t stride, std::size_t count,
                                MeshArray<std::uint32_t>& triangles)
{
    const std::size_t first = triangles.Size();
    triangles.Resize(first + count * 3);
    WeldRun run;
    run.records = records;
    run.stride = stride;
    run.remaining = count;
    run.indices = triangles.Data() + first;
    for (;;) {
        WeldTable table = tableOf(m_slots, m_positions, m_vertexCount);
        WeldTriangles(table, run);
        m_vertexCount = table.vertexCount;
        if (run.remaining == 0)
            break;
        grow(m_vertexCount * 2);
    }
    m_droppedCount += run.dropped;
    triangles.Resize(first + (count - run.dropped) * 3);
}

void VertexWelder::Append(const VertexWelder& later, MeshArray<std::uint32_t>& newIndex)
{
    AddPoints(later.m_positions.Data(), later.m_vertexCount, newIndex);
    m_droppedCount += later.m_droppedCount;
}

void VertexWelder::AddPoints(const float* points, std::size_t count,
                             MeshArray<std::uint32_t>& newIndex)
{
    newIndex.Resize(count);
    const std::size_t needed = m_vertexCount + count + kHeadRoom;
    if (needed > limitOf(m_slots.Size()))
        grow(needed);
    WeldTable table = tableOf(m_slots, m_positions, m_vertexCount);
    FindOrAddPoints(table, points, count, newIndex.Data());
    m_vertexCount = table.vertexCount;
}

MeshArray<float> VertexWelder::TakePositions()
{
    m_slots = MeshArray<std::uint32_t>();
    m_positions.Resize(m_vertexCount * 3);
    m_positions.ShrinkToFit();
    m_vertexCount = 0;
    return std::move(m_positions);
}

void VertexWelder::grow(std::size_t neededVertices)
{
    if (m_vertexCount + kHeadRoom > kMaxVertices)
        throw std::length_error("too many vertices");
    std::size_t slots = std::max(kMinSlots, m_slots.Size());
    while (limitOf(slots) < std::min(neededVertices, kMaxVertices))
        slots *= 2;

    MeshArray<std::uint32_t> emptySlots;
    emptySlots.Resize(slots);
    std::memset(emptySlots.Data(), 0, slots * sizeof(std::uint32_t));
    m_slots.Swap(emptySlots);
    emptySlots = MeshArray<std::uint32_t>();

    m_positions.Resize(limitOf(slots) * 3);
    WeldTable table = tableOf(m_slots, m_positions, m_vertexCount);
    RefillTable(table);
}

std::size_t FindNonFiniteTriangle(const std::byte* records, std::size_t stride, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        float corners[9];
        std::memcpy(corners, records + i * stride, sizeof corners);
        if (!std::all_of(std::begin(corners), std::end(corners),
                         [](float value) { return std::isfinite(value); }))
            return i;
    }
    return count;
}

void WeldPoints(const float* points, std::size_t count, MeshArray<std::uint32_t>& numberOf)
{
    VertexWelder(count).AddPoints(points, count, numberOf);
}

} // namespace OrvikMesh
