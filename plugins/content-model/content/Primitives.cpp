#include "content/Primitives.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace OrvikModel {

using TambVizCore::Geometry;
using TambVizCore::PartKind;

Primitives::Primitives(std::shared_ptr<const Geometry> geometry, std::uint64_t partId,
                       const double* world)
    : m_geometry(std::move(geometry))
{
    std::copy_n(world, 16, m_world);
    if (partId != 0) {
        const std::int64_t found = m_geometry->FindPart(partId);
        if (found < 0)
            return;
        const auto& part = m_geometry->Parts()[static_cast<std::size_t>(found)];
        m_kind = part.kind;
        m_first = part.first;
        m_count = part.count;
        return;
    }
    if (m_geometry->TriangleCount() != 0) {
        m_kind = PartKind::Face;
        m_count = m_geometry->TriangleCount();
    } else if (m_geometry->SegmentCount() != 0) {
        m_kind = PartKind::Edge;
        m_count = m_geometry->SegmentCount();
    } else if (m_geometry->PointCount() != 0) {
        m_kind = PartKind::Vertex;
        m_count = m_geometry->PointCount();
    }
}

Primitive Primitives::At(std::uint32_t index) const
{
    const std::uint32_t* vertices = nullptr;
    Primitive primitive;
    const std::size_t position = m_first + index;
    switch (m_kind) {
    case PartKind::Face:
        primitive.corners = 3;
        vertices = m_geometry->Triangles().Data() + position * 3;
        break;
    case PartKind::Edge:
        primitive.corners = 2;
        vertices = m_geometry->Segments().Data() + position * 2;
        break;
    case PartKind::Vertex:
        primitive.corners = 1;
        vertices = m_geometry->Points().Data() + position;
        break;
    case PartKind::None:
        return primitive;
    }
    for (int i = 0; i < primitive.corners; ++i)
        primitive.corner[i] =
            PlacePoint(m_world, m_geometry->Positions().Data() + std::size_t{vertices[i]} * 3);
    return primitive;
}

double Primitives::Noise() const
{
    const TambVizCore::VizBox& box = m_geometry->BoundingBox();
    double farthest = 0.0;
    double enlarged = 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        farthest = std::max({farthest, std::abs(box.Lo()[axis]), std::abs(box.Hi()[axis])});
        enlarged = std::max(enlarged, Length(Vector3{m_world[axis * 4], m_world[axis * 4 + 1],
                                                     m_world[axis * 4 + 2]}));
    }
    return static_cast<double>(std::numeric_limits<float>::epsilon()) * farthest * enlarged;
}

} // namespace OrvikModel
