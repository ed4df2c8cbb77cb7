#include "FrameItems.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/PartState.h>
#include <TambVizCore/RenderingOptions.h>

#include <algorithm>
#include <cmath>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::PartState;
using TambVizCore::RenderingOptions;
using TambVizCore::VizBox;

/// What is left of the opacity of what is not selected in an x-ray picture.
constexpr float kXRayOpacity = 0.15f;

/// How far lines come toward the eye, which in perspective is away from the middle of the picture.
constexpr double kReachPixels = 2.0;

/// Share of the numbers that make up a distance from a plane by which it may be wrong.
constexpr double kPlaneMargin = 1e-5;

bool isShown(const GeoNode& node, const RenderingOptions& options)
{
    switch (node.GetCategory()) {
    case GeoNode::Category::PointCloud:
        return options.GetShowPointClouds();
    case GeoNode::Category::PMI:
        return options.GetShowPMI();
    case GeoNode::Category::Model:
        break;
    }
    return true;
}

/// Writes the matrix for normals: the cofactors of the upper left 3x3 part, turned so that a mirror
/// keeps normals outside. Their length does not matter.
void writeNormalMatrix(const double* m, float* normal)
{
    double cofactors[9];
    double largest = 0.0;
    for (int i = 0; i < 9; ++i) {
        const double* const a = m + 4 * ((i / 3 + 1) % 3);
        const double* const b = m + 4 * ((i / 3 + 2) % 3);
        const int next = (i + 1) % 3;
        const int last = (i + 2) % 3;
        cofactors[i] = a[next] * b[last] - a[last] * b[next];
        largest = std::max(largest, std::abs(cofactors[i]));
    }
    const double sign = TambVizCore::Determinant3x3(m) < 0.0 ? -1.0 : 1.0;
    for (int i = 0; i < 9; ++i)
        normal[i] = static_cast<float>(largest > 0.0 ? sign * cofactors[i] / largest : 0.0);
}

} // namespace

FrameItems::FrameItems(GpuScene& gpu, const RenderingOptions& options, const Projection& projection,
                       std::span<const float[4]> clipPlanes)
    : m_gpu(gpu), m_options(options), m_projection(projection), m_clipPlanes(clipPlanes)
{
}

void FrameItems::Collect(Node& root, std::vector<FrameItem>& items, VizBox& drawn)
{
    m_items = &items;
    m_drawn = &drawn;
    Inherited top = {};
    TambVizCore::SetIdentity(top.world);
    collect(root, top);
}

void FrameItems::collect(Node& node, const Inherited& above)
{
    if (!node.IsVisible())
        return;
    Inherited state = above;
    TambVizCore::MultiplyMatrices(above.world, node.Transform(), state.world);
    if (node.Color()) {
        state.color = *node.Color();
        state.hasColor = true;
    }
    state.auxiliary |= node.IsAuxiliary();
    state.opacity *= node.Opacity();
    state.flags |= node.IsHighlighted() ? PartState::kHighlighted : 0u;
    state.flags |= node.IsSelected() ? PartState::kSelected : 0u;
    state.flags |= node.IsPicked() ? PartState::kPicked : 0u;
    GeoNode* const geoNode = node.AsGeoNode();
    if (geoNode != nullptr && geoNode->GetGeometry() != nullptr && isShown(*geoNode, m_options))
        addItem(*geoNode, state);
    for (std::size_t i = 0; i < node.ChildCount(); ++i)
        collect(*node.ChildAt(i), state);
}

void FrameItems::addItem(GeoNode& node, const Inherited& state)
{
    double modelView[16];
    TambVizCore::MultiplyMatrices(m_projection.view, state.world, modelView);
    const VizBox box = node.GetGeometry()->BoundingBox().Transformed(modelView);
    const double reach =
        m_projection.lineScale *
        (kReachPixels + std::max<double>(node.LineWidthPixels(), node.PointSizePixels()));
    bool isCut = false;
    if (!IsInSight(m_projection, box, reach) || (!state.auxiliary && isCutAway(box, isCut)))
        return;
    m_drawn->Add(box);
    FrameItem& item = m_items->emplace_back();
    item.node = &node;
    item.geometry = &m_gpu.Geometry(node);
    item.states = &m_gpu.Node(node);
    item.asBox = !item.geometry->isComplete;
    std::transform(modelView, modelView + 16, item.modelView,
                   [](double value) { return static_cast<float>(value); });
    writeNormalMatrix(modelView, item.normalMatrix);
    item.flags = state.flags;
    item.auxiliary = state.auxiliary;
    item.cut = isCut;
    setColors(item, state);
    item.mirrored = TambVizCore::Determinant3x3(modelView) < 0.0;
    item.box = box;
    item.culled = mayCull(item);
    item.depth = -(box.Lo()[2] + box.Hi()[2]) / 2.0;
    item.pixels = PixelsAcross(m_projection, box);
    item.covered = PixelsCovered(m_projection, box);
    for (int column = 0; column < 3; ++column)
        item.scale = std::max(column == 0 ? 0.0 : item.scale,
                              std::hypot(modelView[4 * column], modelView[4 * column + 1],
                                         modelView[4 * column + 2]));
}

/// @param isCut  receives whether a section plane passes through the box.
/// @return true when section planes leave nothing of the box.
bool FrameItems::isCutAway(const VizBox& box, bool& isCut) const
{
    for (const float* const plane : m_clipPlanes) {
        double most = plane[3];
        double least = plane[3];
        double size = std::abs(static_cast<double>(plane[3]));
        for (int i = 0; i < 3; ++i) {
            const double a = static_cast<double>(plane[i]) * box.Lo()[i];
            const double b = static_cast<double>(plane[i]) * box.Hi()[i];
            most += std::max(a, b);
            least += std::min(a, b);
            size += std::abs(a) + std::abs(b);
        }
        // The graphics processor computes with fewer digits.
        const double margin = kPlaneMargin * size;
        if (most < -margin)
            return true;
        isCut |= least < margin;
    }
    return false;
}

void FrameItems::setColors(FrameItem& item, const Inherited& state) const
{
    item.hasColor = state.hasColor;
    item.color = state.hasColor ? state.color : m_options.GetDefaultBodyColor();
    item.isOwnColored =
        state.hasColor && (state.auxiliary || item.node->GetCategory() != GeoNode::Category::Model);
    item.opacity = state.opacity;
    const bool isSelected = (state.flags & PartState::kSelected) != 0;
    if (m_options.GetXRay() && !state.auxiliary && !isSelected)
        item.unselectedOpacity = kXRayOpacity;
    const bool usesColors = !item.hasColor && item.geometry->colors;
    const bool isThinned = item.opacity < 1.0f || item.unselectedOpacity < 1.0f;
    item.hasTransparency = isThinned || item.states->hasTransparentParts ||
                           (usesColors ? item.geometry->hasTransparentColors : item.color.a != 255);
    // In a body that is thinned only selected faces may be opaque.
    item.hasOpacity = item.opacity == 1.0f &&
                      (isThinned ? item.states->needsParts
                                 : usesColors || item.color.a == 255 || item.states->needsParts);
}

bool FrameItems::mayCull(const FrameItem& item) const
{
    // Whoever looks into a body through a gap sees its backs.
    const bool eyeInside = !m_projection.orthographic && item.box.Hi()[2] >= 0.0;
    return item.node->GetGeometry()->IsClosed() && !item.states->hasHiddenParts && !item.cut &&
           !eyeInside;
}

} // namespace ViewOpenGl
