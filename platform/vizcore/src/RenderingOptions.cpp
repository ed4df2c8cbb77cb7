#include "TambVizCore/RenderingOptions.h"

#include "TambVizCore/Settings.h"
#include "TambVizCore/VisibilityStamp.h"

#include <algorithm>

namespace TambVizCore {

namespace {

constexpr float kMinLineWidth = 1.0f;
constexpr float kMaxLineWidth = 16.0f;
/// Every OpenGL 3.3 implementation has at least this many clip distances to spare.
constexpr std::size_t kMaxClipPlanes = 6;

} // namespace

RenderingOptions::RenderingOptions()
    : m_bodyColor(Settings::Default().GetDefaultFaceColor()),
      m_faceColor(Settings::Default().GetDefaultFaceColor()),
      m_edgeColor(Settings::Default().GetDefaultEdgeColor()),
      m_tessEdgeColor(Settings::Default().GetDefaultTessEdgeColor()),
      m_vertexColor(Settings::Default().GetDefaultVertexColor()),
      m_highlightColor(Settings::Default().GetHighlightColor())
{
}

RenderingOptions RenderingOptions::CreateDefault()
{
    return RenderingOptions();
}

template <class T> void RenderingOptions::assignSeen(T& field, const T& value)
{
    const std::uint64_t before = m_revision;
    assign(field, value);
    if (m_revision != before) {
        AdvanceVisibilityStamp();
    }
}

template <class T> void RenderingOptions::assign(T& field, const T& value)
{
    if (!(field == value)) {
        field = value;
        ++m_revision;
    }
}

PartKinds RenderingOptions::ShownKinds() const
{
    return (m_showFaces ? ToPartKinds(PartKind::Face) : 0u) |
           (m_showEdges ? ToPartKinds(PartKind::Edge) : 0u) |
           (m_showVertices ? ToPartKinds(PartKind::Vertex) : 0u);
}

void RenderingOptions::SetShowFaces(bool show)
{
    assignSeen(m_showFaces, show);
}

void RenderingOptions::SetShowEdges(bool show)
{
    assignSeen(m_showEdges, show);
}

void RenderingOptions::SetShowVertices(bool show)
{
    assignSeen(m_showVertices, show);
}

void RenderingOptions::SetShowTessellation(bool show)
{
    assign(m_showTessellation, show);
}

void RenderingOptions::SetShowPointClouds(bool show)
{
    assignSeen(m_showPointClouds, show);
}

void RenderingOptions::SetShowPMI(bool show)
{
    assignSeen(m_showPMI, show);
}

void RenderingOptions::SetDefaultBodyColor(const RGBAColor& color)
{
    assign(m_bodyColor, color);
}

void RenderingOptions::SetDefaultFaceColor(const RGBAColor& color)
{
    assign(m_faceColor, color);
}

void RenderingOptions::SetDefaultEdgeColor(const RGBAColor& color)
{
    assign(m_edgeColor, color);
}

void RenderingOptions::SetDefaultTessEdgeColor(const RGBAColor& color)
{
    assign(m_tessEdgeColor, color);
}

void RenderingOptions::SetDefaultVertexColor(const RGBAColor& color)
{
    assign(m_vertexColor, color);
}

void RenderingOptions::SetHighlightColor(const RGBAColor& color)
{
    assign(m_highlightColor, color);
}

void RenderingOptions::SetXRay(bool xRay)
{
    assign(m_xRay, xRay);
}

void RenderingOptions::SetAntialiasLevel(int level)
{
    assign(m_antialiasLevel, std::clamp(level, kAutomaticAntialiasing, kMostAntialiasSamples));
}

void RenderingOptions::SetLineWidth(float factor)
{
    assign(m_lineWidth, factor > kMinLineWidth ? std::min(factor, kMaxLineWidth) : kMinLineWidth);
}

void RenderingOptions::SetClipPlanes(const std::vector<ClipPlane>& planes)
{
    std::vector<ClipPlane> kept = planes;
    kept.resize(std::min(kept.size(), kMaxClipPlanes));
    assignSeen(m_clipPlanes, kept);
}

void RenderingOptions::SetShowCaps(bool show)
{
    assign(m_showCaps, show);
}

} // namespace TambVizCore
