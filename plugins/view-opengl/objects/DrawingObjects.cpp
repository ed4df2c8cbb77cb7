#include "objects/DrawingObjects.h"

#include "objects/ObjectGeometry.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Matrix.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace ViewOpenGl {

using TambVizCore::GeometryBuilder;
using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::RGBAColor;
using TambVizCore::SharedArray;

namespace {

constexpr float kMarkupPixels = 2.0f;

/// One geometry of several polylines, relative to a point near them.
class MarkupBuilder
{
public:
    explicit MarkupBuilder(const double* center) { std::copy_n(center, 3, m_center); }

    void Add(const std::vector<double>& polyline, bool closed, bool filled)
    {
        const auto first = static_cast<std::uint32_t>(m_positions.size() / 3);
        const auto count = static_cast<std::uint32_t>(polyline.size() / 3);
        std::vector<float> points;
        for (std::size_t i = 0; i < std::size_t{3} * count; ++i)
            points.push_back(static_cast<float>(polyline[i] - m_center[i % 3]));
        for (std::uint32_t i = 0; i + 1 < count; ++i)
            m_segments.insert(m_segments.end(), {first + i, first + i + 1});
        if (closed && count > 2)
            m_segments.insert(m_segments.end(), {first + count - 1, first});
        if (closed && filled)
            for (const std::uint32_t corner : FillPolygon(points))
                m_triangles.push_back(first + corner);
        m_positions.insert(m_positions.end(), points.begin(), points.end());
    }

    std::shared_ptr<const TambVizCore::Geometry> Build()
    {
        GeometryBuilder builder;
        builder.SetPositions(SharedArray<float>(std::move(m_positions)))
            .SetSegments(SharedArray<std::uint32_t>(std::move(m_segments)))
            .SetTriangles(SharedArray<std::uint32_t>(std::move(m_triangles)));
        return BuildGeometry(builder);
    }

private:
    double m_center[3] = {};
    std::vector<float> m_positions;
    std::vector<std::uint32_t> m_segments;
    std::vector<std::uint32_t> m_triangles;
};

GeoNode* addNode(Node& parent, std::uint64_t id, const char* name,
                 std::shared_ptr<const TambVizCore::Geometry> geometry)
{
    if (geometry == nullptr)
        return nullptr;
    GeoNode* const node = parent.CreateChildGeoNode(id, name);
    node->SetGeometry(std::move(geometry));
    return node;
}

} // namespace

MarkupObject::MarkupObject(Node& parent, bool isClosed, bool isFilled, const RGBAColor& markupColor)
    : NodeObject(parent, isClosed, isFilled, markupColor)
{
    name = "Markup";
}

void MarkupObject::AddPolyline(std::vector<double> const& polyline)
{
    if (std::all_of(polyline.begin(), polyline.end(), [](double v) { return std::isfinite(v); }))
        m_polylines.push_back(polyline);
}

void MarkupObject::RemovePolylines()
{
    m_polylines.clear();
}

int MarkupObject::CountPolylines() const
{
    return static_cast<int>(m_polylines.size());
}

Node* MarkupObject::build(Node& parent)
{
    const auto first = std::find_if(m_polylines.begin(), m_polylines.end(),
                                    [](const auto& polyline) { return polyline.size() >= 3; });
    if (first == m_polylines.end())
        return nullptr;
    MarkupBuilder builder(first->data());
    for (const std::vector<double>& polyline : m_polylines)
        builder.Add(polyline, GetClosed(), GetFilled());
    GeoNode* const node = addNode(parent, Id(), "Markup", builder.Build());
    if (node == nullptr)
        return nullptr;
    double place[16];
    TambVizCore::SetIdentity(place);
    std::copy_n(first->data(), 3, place + 12);
    node->SetTransform(place);
    node->SetColor(GetColor());
    node->SetLineWidthPixels(kMarkupPixels);
    return node;
}

ArrowObject::ArrowObject(Node& parent, const double* from, const double* to, const RGBAColor& color)
    : NodeObject(parent), m_color(color)
{
    std::copy_n(from, 3, m_from);
    std::copy_n(to, 3, m_to);
    name = "Arrow";
}

Node* ArrowObject::build(Node& parent)
{
    double place[16];
    if (!PlaceArrow(m_from, m_to, place))
        return nullptr;
    GeoNode* const node = addNode(parent, Id(), "Arrow", MakeArrow());
    if (node != nullptr) {
        node->SetTransform(place);
        node->SetColor(m_color);
    }
    return node;
}

TessellationObject::TessellationObject(Node& parent,
                                       std::shared_ptr<const TambVizCore::Geometry> geometry)
    : NodeObject(parent), m_geometry(std::move(geometry))
{
    name = "Tessellation";
}

Node* TessellationObject::build(Node& parent)
{
    return addNode(parent, Id(), "Tessellation", m_geometry);
}

bool PlaceArrow(const double* from, const double* to, double* matrix)
{
    double z[3];
    for (int i = 0; i < 3; ++i)
        z[i] = to[i] - from[i];
    const double length = std::hypot(z[0], z[1], z[2]);
    if (!(length > 0.0) || !std::isfinite(length))
        return false;
    // x across z and the axis that z has least of; y completes them.
    int least = 0;
    for (int i = 1; i < 3; ++i)
        if (std::abs(z[i]) < std::abs(z[least]))
            least = i;
    double x[3] = {0.0, 0.0, 0.0};
    x[(least + 1) % 3] = z[(least + 2) % 3];
    x[(least + 2) % 3] = -z[(least + 1) % 3];
    const double across = std::hypot(x[0], x[1], x[2]);
    TambVizCore::SetIdentity(matrix);
    for (int i = 0; i < 3; ++i) {
        x[i] *= length / across;
        matrix[i] = x[i];
        matrix[8 + i] = z[i];
        matrix[12 + i] = from[i];
    }
    for (int i = 0; i < 3; ++i)
        matrix[4 + i] =
            (z[(i + 1) % 3] * x[(i + 2) % 3] - z[(i + 2) % 3] * x[(i + 1) % 3]) / length;
    return true;
}

} // namespace ViewOpenGl
