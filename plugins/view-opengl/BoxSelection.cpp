#include "BoxSelection.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RenderingOptions.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <unordered_set>

namespace ViewOpenGl {

using TambVizCore::ClipPlane;
using TambVizCore::EntityId;
using TambVizCore::Geometry;
using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::PartKind;
using TambVizCore::RenderingOptions;

namespace {

/// A vertex on the window.
struct Spot
{
    double x = 0.0; ///< Window pixels, y down.
    double y = 0.0;
    bool inFront = true;   ///< Of the eye.
    std::uint32_t cut = 0; ///< One bit for each section plane that cuts it away.
};

class BoxSearch
{
public:
    BoxSearch(const RenderingOptions& options, const Projection& projection, const BoxQuery& query)
        : m_options(options),
          m_projection(projection),
          m_query(query),
          m_left(std::min(query.rectangle.x1, query.rectangle.x2)),
          m_right(std::max(query.rectangle.x1, query.rectangle.x2)),
          m_top(std::min(query.rectangle.y1, query.rectangle.y2)),
          m_bottom(std::max(query.rectangle.y1, query.rectangle.y2))
    {
    }

    void Visit(const Node& node, const double* above)
    {
        if (!node.IsVisible() || node.IsAuxiliary())
            return;
        double world[16];
        TambVizCore::MultiplyMatrices(above, node.Transform(), world);
        const GeoNode* const geoNode = node.AsGeoNode();
        if (geoNode != nullptr && geoNode->GetGeometry() != nullptr && isShown(*geoNode) &&
            !node.Entity().IsEmpty() && isInBox(*geoNode, world) &&
            m_seen.insert(node.Entity()).second)
            m_found.push_back(node.Entity());
        for (std::size_t i = 0; i < node.ChildCount(); ++i)
            Visit(*node.ChildAt(i), world);
    }

    std::vector<EntityId> Take() { return std::move(m_found); }

private:
    bool isShown(const GeoNode& node) const
    {
        switch (node.GetCategory()) {
        case GeoNode::Category::PointCloud:
            return m_options.GetShowPointClouds();
        case GeoNode::Category::PMI:
            return m_options.GetShowPMI();
        case GeoNode::Category::Model:
            break;
        }
        return true;
    }

    Spot spotOf(const double* world, const float* vertex) const
    {
        float point[3];
        TambVizCore::TransformPoint(world, vertex, point);
        Spot spot;
        const auto& planes = m_options.GetClipPlanes();
        for (std::size_t i = 0; i < planes.size(); ++i)
            if (!planes[i].Keeps(point))
                spot.cut |= 1u << i;
        float eye[3];
        TambVizCore::TransformPoint(m_projection.view, point, eye);
        const double depth = m_projection.orthographic ? 1.0 : -static_cast<double>(eye[2]);
        spot.inFront = depth > 0.0;
        const double half = m_projection.halfHeight * depth;
        const double scale = 0.5 * m_query.height / half;
        spot.x = 0.5 * m_query.width + eye[0] * scale;
        spot.y = 0.5 * m_query.height - eye[1] * scale;
        return spot;
    }

    bool isInside(const Spot& spot) const
    {
        return spot.inFront && spot.x >= m_left && spot.x <= m_right && spot.y >= m_top &&
               spot.y <= m_bottom;
    }

    /// Where the corners of its box lie decides most bodies.
    bool isInBox(const GeoNode& node, const double* world)
    {
        const Geometry& geometry = *node.GetGeometry();
        const TambVizCore::VizBox& box = geometry.BoundingBox();
        if (box.IsEmpty())
            return false;
        bool allInside = true;
        std::array<bool, 4> allBeyond = {true, true, true, true};
        for (int corner = 0; corner < 8; ++corner) {
            float point[3];
            for (int i = 0; i < 3; ++i)
                point[i] = static_cast<float>(((corner >> i) & 1) != 0 ? box.Hi()[i] : box.Lo()[i]);
            const Spot spot = spotOf(world, point);
            allInside &= isInside(spot) && spot.cut == 0;
            allBeyond[0] &= spot.inFront && spot.x < m_left;
            allBeyond[1] &= spot.inFront && spot.x > m_right;
            allBeyond[2] &= spot.inFront && spot.y < m_top;
            allBeyond[3] &= spot.inFront && spot.y > m_bottom;
        }
        if (std::find(allBeyond.begin(), allBeyond.end(), true) != allBeyond.end())
            return false;
        if (allInside)
            return true;
        m_spots.clear();
        for (std::uint32_t i = 0; i < geometry.VertexCount(); ++i)
            m_spots.push_back(spotOf(world, geometry.Positions().Data() + std::size_t{3} * i));
        return m_query.touching ? touches(node) : encloses();
    }

    /// Everything that no plane cuts away lies inside, and there is something.
    bool encloses() const
    {
        bool any = false;
        for (const Spot& spot : m_spots) {
            if (spot.cut != 0)
                continue;
            if (!isInside(spot))
                return false;
            any = true;
        }
        return any;
    }

    bool touches(const GeoNode& node) const
    {
        const Geometry& geometry = *node.GetGeometry();
        return touchesAny(node, PartKind::Face, geometry.Triangles().Span(), 3) ||
               touchesAny(node, PartKind::Edge, geometry.Segments().Span(), 2) ||
               touchesAny(node, PartKind::Vertex, geometry.Points().Span(), 1);
    }

    bool touchesAny(const GeoNode& node, PartKind kind, std::span<const std::uint32_t> indices,
                    std::size_t corners) const
    {
        for (std::size_t i = 0; i + corners <= indices.size(); i += corners)
            if (touchesPrimitive(indices.subspan(i, corners)) &&
                isPartShown(node, kind, static_cast<std::uint32_t>(i / corners)))
                return true;
        return false;
    }

    static bool isPartShown(const GeoNode& node, PartKind kind, std::uint32_t primitive)
    {
        const std::uint32_t part = node.GetGeometry()->PartOfPrimitive(kind, primitive);
        return part == TambVizCore::kNoPart ||
               node.PartStates()[part].Has(TambVizCore::PartState::kShown);
    }

    bool touchesPrimitive(std::span<const std::uint32_t> corners) const
    {
        std::uint32_t cutAll = ~0u;
        for (const std::uint32_t corner : corners) {
            if (!m_spots[corner].inFront)
                return false;
            cutAll &= m_spots[corner].cut;
        }
        if (cutAll != 0)
            return false;
        for (const std::uint32_t corner : corners)
            if (isInside(m_spots[corner]))
                return true;
        for (std::size_t i = 0; corners.size() > 1 && i < corners.size(); ++i)
            if (crosses(m_spots[corners[i]], m_spots[corners[(i + 1) % corners.size()]]))
                return true;
        return corners.size() == 3 && covers(corners);
    }

    /// Whether a piece of the line lies in the rectangle (Liang and Barsky's clipping).
    bool crosses(const Spot& a, const Spot& b) const
    {
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        const double direction[4] = {-dx, dx, -dy, dy};
        const double distance[4] = {a.x - m_left, m_right - a.x, a.y - m_top, m_bottom - a.y};
        double enter = 0.0;
        double leave = 1.0;
        for (int i = 0; i < 4; ++i) {
            if (direction[i] == 0.0 && distance[i] < 0.0)
                return false;
            if (direction[i] < 0.0)
                enter = std::max(enter, distance[i] / direction[i]);
            if (direction[i] > 0.0)
                leave = std::min(leave, distance[i] / direction[i]);
        }
        return enter <= leave;
    }

    /// Whether the rectangle lies inside the triangle, told by one of its corners.
    bool covers(std::span<const std::uint32_t> corners) const
    {
        bool any[2] = {false, false};
        for (std::size_t i = 0; i < 3; ++i) {
            const Spot& a = m_spots[corners[i]];
            const Spot& b = m_spots[corners[(i + 1) % 3]];
            const double side = (b.x - a.x) * (m_top - a.y) - (b.y - a.y) * (m_left - a.x);
            any[0] |= side > 0.0;
            any[1] |= side < 0.0;
        }
        return any[0] != any[1];
    }

    const RenderingOptions& m_options;
    const Projection& m_projection;
    const BoxQuery& m_query;
    const double m_left, m_right, m_top, m_bottom;
    std::vector<Spot> m_spots; ///< Of the body being looked at.
    std::vector<EntityId> m_found;
    std::unordered_set<EntityId> m_seen;
};

} // namespace

std::vector<EntityId> FindInBox(const Node& root, const RenderingOptions& options,
                                const Projection& projection, const BoxQuery& query)
{
    BoxSearch search(options, projection, query);
    double identity[16];
    TambVizCore::SetIdentity(identity);
    search.Visit(root, identity);
    return search.Take();
}

} // namespace ViewOpenGl
