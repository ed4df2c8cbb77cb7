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

FrameItems::FrameItems(GpuScene& gpu, const RenderingOptions& options, const Projection& projection)
    : m_gpu(gpu), m_options(options), m_projection(projection)
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
    if (!IsInSight(m_projection, box))
        return;
    m_drawn->Add(box);
    FrameItem& item = m_items->emplace_back();
    item.node = &node;
    item.geometry = &m_gpu.Geometry(node);
    item.states = &m_gpu.Node(node);
    std::transform(modelView, modelView + 16, item.modelView,
                   [](double value) { return static_cast<float>(value); });
    writeNormalMatrix(modelView, item.normalMatrix);
    item.hasColor = state.hasColor;
    item.color = state.hasColor ? state.color : m_options.GetDefaultBodyColor();
    item.isOwnColored =
        state.hasColor && (state.auxiliary || node.GetCategory() != GeoNode::Category::Model);
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
    item.flags = state.flags;
    item.mirrored = TambVizCore::Determinant3x3(modelView) < 0.0;
    item.auxiliary = state.auxiliary;
    item.box = box;
    item.culled = mayCull(item);
    item.depth = -(box.Lo()[2] + box.Hi()[2]) / 2.0;
}

bool FrameItems::mayCull(const FrameItem& item) const
{
    // Whoever looks into a body through a gap sees its backs.
    const bool eyeInside = !m_projection.orthographic && item.box.Hi()[2] >= 0.0;
    return item.node->GetGeometry()->IsClosed() && !item.states->hasHiddenParts &&
           (m_options.GetClipPlanes().empty() || item.auxiliary) && !eyeInside;
}

} // namespace ViewOpenGl
