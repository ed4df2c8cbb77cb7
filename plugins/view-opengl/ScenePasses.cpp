// What a picture consists of, in the order in which it is drawn.
#include "SceneRenderer.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <string>
#include <utility>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::PartKind;
using TambVizCore::SharedArray;
using TambVizCore::VizBox;

/// How far lines and points come toward the eye, so that the faces below do not cover them. Faces
/// that lean away from the eye go back by their slope on top.
constexpr float kLinePixels = 1.0f;
constexpr float kPointPixels = 1.5f;
constexpr float kFaceSlopeOffset = 1.0f;

/// A node below a root of its own: the box from 0 to 1, facing outwards.
std::unique_ptr<Node> makeUnitBox()
{
    std::vector<float> corners;
    for (int corner = 0; corner < 8; ++corner)
        for (int axis = 0; axis < 3; ++axis)
            corners.push_back(static_cast<float>((corner >> axis) & 1));
    std::string error;
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::move(corners)))
        .SetTriangles(SharedArray<std::uint32_t>(
            std::vector<std::uint32_t>{0, 2, 1, 1, 2, 3, 4, 5, 6, 5, 7, 6, 0, 1, 4, 1, 5, 4,
                                       2, 6, 3, 3, 6, 7, 0, 4, 2, 2, 4, 6, 1, 3, 5, 3, 7, 5}))
        .SetSegments(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{
            0, 1, 2, 3, 4, 5, 6, 7, 0, 2, 1, 3, 4, 6, 5, 7, 0, 4, 1, 5, 2, 6, 3, 7}))
        .SetClosed(true);
    auto root = std::make_unique<Node>(1);
    root->CreateChildGeoNode(1)->SetGeometry(builder.Build(error));
    return root;
}

/// Places the unit box where the box of a body is.
void stretch(const VizBox& box, float* modelView)
{
    double place[16];
    TambVizCore::SetIdentity(place);
    double full[16];
    std::copy(modelView, modelView + 16, full);
    for (int i = 0; i < 3; ++i) {
        place[5 * i] = box.Hi()[i] - box.Lo()[i];
        place[12 + i] = box.Lo()[i];
    }
    double product[16];
    TambVizCore::MultiplyMatrices(full, place, product);
    std::transform(product, product + 16, modelView,
                   [](double value) { return static_cast<float>(value); });
}

PaintStyle faceStyle(const FrameItem& item, Layer layer)
{
    PaintStyle style;
    style.color = item.color;
    style.useVertexColors = !item.hasColor;
    style.lit = true;
    style.layer = layer;
    style.mixed = item.hasTransparency && item.hasOpacity;
    style.mayCull = true;
    return style;
}

void beginBlending()
{
    glEnable(GL_BLEND);
    // The picture's own alpha is that of what lies behind, made denser.
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_FALSE);
}

void endBlending()
{
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
}

} // namespace

void SceneRenderer::drawBackground()
{
    glDisable(GL_BLEND);
    glDepthMask(GL_TRUE);
    glClear(GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    m_painter.DrawBackground(m_background.top, m_background.bottom);
    glEnable(GL_DEPTH_TEST);
}

bool SceneRenderer::drawFaces(const Items& items, Layer layer, FrameBudget& budget)
{
    const bool isOpaque = layer == Layer::Opaque;
    if (isOpaque) {
        glEnable(GL_POLYGON_OFFSET_FILL);
        glPolygonOffset(kFaceSlopeOffset, 0.0f);
    } else {
        beginBlending();
    }
    bool isDone = true;
    for (; isDone && m_next < items.size(); m_next += isDone ? 1 : 0) {
        const FrameItem& item = *items[m_next];
        if (item.leftOut || (isOpaque && !item.hasOpacity))
            continue;
        isDone = drawFacesOf(item, layer, budget);
    }
    glDisable(GL_POLYGON_OFFSET_FILL);
    if (!isOpaque)
        endBlending();
    return isDone;
}

/// The cap of what is transparent lies in front of all its faces that are seen, so it comes next.
bool SceneRenderer::drawFacesOf(const FrameItem& item, Layer layer, FrameBudget& budget)
{
    if (item.asBox)
        return drawAsBox(item, layer);
    if (!m_areFacesDrawn &&
        !m_painter.DrawPieces(item, faceStyle(item, layer), m_nextPrimitive, budget))
        return false;
    if (layer == Layer::Opaque || !item.cut || !m_options->GetShowCaps() ||
        !CapPainter::IsTransparent(item))
        return true;
    m_areFacesDrawn = !m_caps.Draw(item, budget);
    beginBlending();
    return !m_areFacesDrawn;
}

bool SceneRenderer::drawCaps(FrameBudget& budget)
{
    for (; m_next < m_inOrder.size(); ++m_next) {
        const FrameItem& item = *m_inOrder[m_next];
        if (item.cut && !item.leftOut && !CapPainter::IsTransparent(item) &&
            !m_caps.Draw(item, budget))
            return false;
    }
    return true;
}

bool SceneRenderer::drawEdges(const Items& items, FrameBudget& budget)
{
    PaintStyle style;
    style.kind = PartKind::Edge;
    style.towardEyePixels = kLinePixels;
    for (; m_next < items.size(); ++m_next) {
        const FrameItem& item = *items[m_next];
        if (item.leftOut || !ShowsEdges(item, *m_options, m_drawsEdges))
            continue;
        style.color = item.isOwnColored ? item.color : m_options->GetDefaultEdgeColor();
        style.lineWidth = item.node->LineWidthPixels();
        if (item.node->GetCategory() == GeoNode::Category::Model)
            style.lineWidth *= m_options->GetLineWidth();
        if (item.asBox)
            drawEdgesOfBox(item, style);
        else if (!m_painter.DrawPieces(item, style, m_nextPrimitive, budget))
            return false;
    }
    return true;
}

bool SceneRenderer::drawVertices(const Items& items, FrameBudget& budget)
{
    PaintStyle style;
    style.kind = PartKind::Vertex;
    style.towardEyePixels = kPointPixels;
    for (; m_next < items.size(); ++m_next) {
        const FrameItem& item = *items[m_next];
        const bool isCloud = item.node->GetCategory() == GeoNode::Category::PointCloud;
        if (item.leftOut || item.asBox || !ShowsVertices(item, *m_options))
            continue;
        style.color = item.isOwnColored ? item.color : m_options->GetDefaultVertexColor();
        style.useVertexColors = isCloud && !item.hasColor;
        if (!m_painter.DrawPieces(item, style, m_nextPrimitive, budget))
            return false;
    }
    return true;
}

bool SceneRenderer::drawTessellation(FrameBudget& budget)
{
    PaintStyle style;
    style.color = m_options->GetDefaultTessEdgeColor();
    style.usePartColors = false;
    style.towardEyePixels = kLinePixels;
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    m_painter.SetLineWidth(1.0f);
    bool isDone = true;
    for (; isDone && m_next < m_inOrder.size(); m_next += isDone ? 1 : 0) {
        const FrameItem& item = *m_inOrder[m_next];
        if (!item.leftOut && !item.asBox)
            isDone = m_painter.DrawPieces(item, style, m_nextPrimitive, budget);
    }
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    return isDone;
}

/// @return true.
bool SceneRenderer::drawAsBox(const FrameItem& item, Layer layer)
{
    FrameItem box = boxOf(item);
    box.hasColor = true;
    m_painter.DrawWhole(box, faceStyle(box, layer));
    return true;
}

/// A box is seen by its faces, without them by its edges.
void SceneRenderer::drawEdgesOfBox(const FrameItem& item, const PaintStyle& style)
{
    if (!m_options->GetShowFaces())
        m_painter.DrawWhole(boxOf(item), style);
}

FrameItem SceneRenderer::boxOf(const FrameItem& item)
{
    const VizBox& bounds = item.node->GetGeometry()->BoundingBox();
    FrameItem box = item;
    box.node = &boxNode();
    box.geometry = &m_gpu.Geometry(*box.node);
    box.states = &m_boxStates;
    box.level = nullptr;
    stretch(bounds, box.modelView);
    return box;
}

GeoNode& SceneRenderer::boxNode()
{
    if (m_boxRoot == nullptr)
        m_boxRoot = makeUnitBox();
    m_gpu.SetUploadSlice(TimeSlice());
    return *m_boxRoot->ChildAt(0)->AsGeoNode();
}

/// What is opaque of a small scene.
void SceneRenderer::drawInTurn(const std::vector<FrameItem>& items)
{
    m_objectsInTurn.clear();
    for (const FrameItem& item : items)
        m_objectsInTurn.push_back(&item);
    const bool drawsEdges = std::exchange(m_drawsEdges, true);
    FrameBudget all;
    m_next = 0;
    drawFaces(m_objectsInTurn, Layer::Opaque, all);
    m_next = 0;
    drawEdges(m_objectsInTurn, all);
    m_next = 0;
    drawVertices(m_objectsInTurn, all);
    m_drawsEdges = drawsEdges;
}

void SceneRenderer::drawTransparentInTurn(const std::vector<FrameItem>& items)
{
    m_objectsInTurn.clear();
    for (const FrameItem& item : items)
        if (item.hasTransparency)
            m_objectsInTurn.push_back(&item);
    std::sort(m_objectsInTurn.begin(), m_objectsInTurn.end(), IsBehind);
    FrameBudget all;
    m_next = 0;
    drawFaces(m_objectsInTurn, Layer::Transparent, all);
}

} // namespace ViewOpenGl
