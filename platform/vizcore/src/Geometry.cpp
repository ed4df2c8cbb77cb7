#include "TambVizCore/Geometry.h"

#include <algorithm>

namespace TambVizCore {

namespace {

std::size_t slot(PartKind kind)
{
    return static_cast<std::size_t>(kind) - 1;
}

std::uint32_t narrow(std::size_t count)
{
    return static_cast<std::uint32_t>(count); // The builder has checked the size.
}

} // namespace

Geometry::Geometry() = default;

Geometry::~Geometry()
{
    delete m_index.load(std::memory_order_acquire);
}

std::uint32_t Geometry::VertexCount() const
{
    return narrow(m_positions.Size() / 3);
}

std::uint32_t Geometry::TriangleCount() const
{
    return narrow(m_triangles.Size() / 3);
}

std::uint32_t Geometry::SegmentCount() const
{
    return narrow(m_segments.Size() / 2);
}

std::uint32_t Geometry::PointCount() const
{
    return narrow(m_points.Size());
}

std::int64_t Geometry::FindPart(std::uint64_t id) const
{
    const auto found =
        std::lower_bound(m_parts.begin(), m_parts.end(), id,
                         [](const GeometryPart& part, std::uint64_t key) { return part.id < key; });
    if (found == m_parts.end() || found->id != id) {
        return -1;
    }
    return found - m_parts.begin();
}

std::uint32_t Geometry::PartOfPrimitive(PartKind kind, std::uint32_t primitive) const
{
    if (kind == PartKind::None) {
        return kNoPart;
    }
    const std::vector<std::uint32_t>& order = m_byFirst[slot(kind)];
    auto next = std::upper_bound(order.begin(), order.end(), primitive,
                                 [this](std::uint32_t key, std::uint32_t partIndex) {
                                     return key < m_parts[partIndex].first;
                                 });
    if (next == order.begin()) {
        return kNoPart;
    }
    const std::uint32_t candidate = *--next;
    const GeometryPart& part = m_parts[candidate];
    return primitive - part.first < part.count ? candidate : kNoPart;
}

VizBox Geometry::PartBox(std::uint32_t partIndex) const
{
    VizBox box;
    if (partIndex >= m_parts.size()) {
        return box;
    }
    const GeometryPart& part = m_parts[partIndex];
    const SharedArray<std::uint32_t>& indices = part.kind == PartKind::Face   ? m_triangles
                                                : part.kind == PartKind::Edge ? m_segments
                                                                              : m_points;
    const std::size_t width = part.kind == PartKind::Face ? 3 : part.kind == PartKind::Edge ? 2 : 1;
    const std::size_t end = (static_cast<std::size_t>(part.first) + part.count) * width;
    for (std::size_t i = part.first * width; i < end; ++i) {
        box.Add(m_positions.Data() + static_cast<std::size_t>(indices[i]) * 3);
    }
    return box;
}

std::size_t Geometry::MemoryBytes() const
{
    std::size_t bytes = sizeof(Geometry) + m_positions.MemoryBytes() + m_normals.MemoryBytes() +
                        m_colors.MemoryBytes() + m_triangles.MemoryBytes() +
                        m_segments.MemoryBytes() + m_points.MemoryBytes() +
                        m_parts.capacity() * sizeof(GeometryPart);
    for (const std::vector<std::uint32_t>& order : m_byFirst) {
        bytes += order.capacity() * sizeof(std::uint32_t);
    }
    return bytes;
}

const IGeometryIndex* Geometry::Index() const
{
    return m_index.load(std::memory_order_acquire);
}

bool Geometry::PublishIndex(std::unique_ptr<const IGeometryIndex> index) const
{
    const IGeometryIndex* none = nullptr;
    if (!m_index.compare_exchange_strong(none, index.get(), std::memory_order_acq_rel)) {
        return false;
    }
    // Owned by m_index from here on.
    static_cast<void>(index.release());
    return true;
}

} // namespace TambVizCore
