#include "SceneRenderer.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <utility>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::PartKind;
using TambVizCore::RenderingOptions;
using TambVizCore::SharedArray;
using TambVizCore::VizBox;

/// How far lines and points come toward the eye, so that the faces below do not cover them. Faces
/// that lean away from the eye go back by their slope on top.
constexpr float kLinePixels = 1.0f;
constexpr float kPointPixels = 1.5f;
constexpr float kFaceSlopeOffset = 1.0f;

std::shared_ptr<const TambVizCore::Geometry> build(TambVizCore::GeometryBuilder& builder)
{
    std::string error;
    return builder.Build(error);
}

/// A node below a root of its own: one triangle with its edges and corners.
std::unique_ptr<Node> makeSample()
{
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0}))
        .SetTriangles(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1, 2}))
        .SetSegments(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1}))
        .SetPoints(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0}));
    auto root = std::make_unique<Node>(1);
    root->CreateChildGeoNode(1)->SetGeometry(build(builder));
    return root;
}

/// A node below a root of its own: the box from 0 to 1, facing outwards.
std::unique_ptr<Node> makeUnitBox()
{
    std::vector<float> corners;
    for (int corner = 0; corner < 8; ++corner)
        for (int axis = 0; axis < 3; ++axis)
            corners.push_back(static_cast<float>((corner >> axis) & 1));
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::move(corners)))
        .SetTriangles(SharedArray<std::uint32_t>(
            std::vector<std::uint32_t>{0, 2, 1, 1, 2, 3, 4, 5, 6, 5, 7, 6, 0, 1, 4, 1, 5, 4,
                                       2, 6, 3, 3, 6, 7, 0, 4, 2, 2, 4, 6, 1, 3, 5, 3, 7, 5}))
        .SetClosed(true);
    auto root = std::make_unique<Node>(1);
    root->CreateChildGeoNode(1)->SetGeometry(build(builder));
    return root;
}

/// Looks at the sample.
Projection sampleProjection()
{
    Projection projection;
    TambVizCore::SetIdentity(projection.view);
    projection.halfHeight = 1.0;
    projection.pixelSize = 1.0;
    return projection;
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

// Equal depths keep the order of the scene, which is that of their addresses.

bool isBefore(const FrameItem* a, const FrameItem* b)
{
    return a->depth != b->depth ? a->depth < b->depth : a < b;
}

bool isBehind(const FrameItem* a, const FrameItem* b)
{
    return a->depth != b->depth ? a->depth > b->depth : a < b;
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

SceneRenderer::SceneRenderer() : m_painter(m_gpu), m_caps(m_painter) {}

SceneRenderer::~SceneRenderer() = default;

void SceneRenderer::Prepare(const RenderingOptions& options)
{
    Node nothing(1);
    const auto sample = makeSample();
    Begin(*sample, nothing, options, sampleProjection(), {}, {}, TimeSlice());
    Continue(FrameBudget());
    EndFrame();
    glFinish();
}

void SceneRenderer::Begin(Node& root, Node& objects, const RenderingOptions& options,
                          const Projection& projection, const Background& background,
                          const VizBox& beyond, const TimeSlice& upload)
{
    m_gpu.BeginFrame();
    m_items.clear();
    m_objects.clear();
    m_options = &options;
    m_background = background;
    m_drawsEdges = options.GetShowEdges();
    m_sceneStamp = root.Stamps().subtree + objects.Stamps().subtree;
    m_painter.Use(options, projection);
    m_painter.UseClipPlanes(true);
    VizBox drawn = beyond;
    FrameItems collector(m_gpu, options, m_painter.GetProjection(), m_painter.ClipPlanes());
    collector.Collect(objects, m_objects, drawn);
    m_gpu.SetUploadSlice(upload);
    collector.Collect(root, m_items, drawn);
    m_isUploaded = std::all_of(m_items.begin(), m_items.end(),
                               [](const FrameItem& item) { return item.geometry->isComplete; });
    m_painter.FitDepth(drawn);
    m_projection = m_painter.GetProjection();
    sort();
    m_pass = Pass::Background;
    m_next = 0;
    m_nextPrimitive = 0;
}

/// Bodies in front hide what lies behind before its pixels are computed.
void SceneRenderer::sort()
{
    m_inOrder.clear();
    m_transparent.clear();
    for (const FrameItem& item : m_items) {
        m_inOrder.push_back(&item);
        if (item.hasTransparency)
            m_transparent.push_back(&item);
    }
    std::sort(m_inOrder.begin(), m_inOrder.end(), isBefore);
    std::sort(m_transparent.begin(), m_transparent.end(), isBehind);
}

FrameWork SceneRenderer::FullWork() const
{
    return WorkOf(m_items, *m_options, true);
}

void SceneRenderer::FitBudget(const CostModel& model, double milliseconds, const FrameWork& rest)
{
    m_drawsEdges = m_options->GetShowEdges() &&
                   ViewOpenGl::FitBudget(model, milliseconds, rest, *m_options, m_items).edges;
}

void SceneRenderer::WantLevels()
{
    for (const FrameItem& item : m_items)
        item.geometry->wantsLevels = true;
}

void SceneRenderer::beginDrawing()
{
    m_painter.ResetWork();
    m_painter.Use(*m_options, m_projection);
    m_painter.UseClipPlanes(true);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_PROGRAM_POINT_SIZE);
}

void SceneRenderer::DrawIds(Node& root, const RenderingOptions& options,
                            const Projection& projection, std::vector<const GeoNode*>& nodes)
{
    Node nothing(1);
    Begin(root, nothing, options, projection, {}, {}, TimeSlice());
    nodes.clear();
    for (FrameItem& item : m_items) {
        nodes.push_back(item.node);
        item.number = static_cast<std::uint32_t>(nodes.size());
        item.hasOpacity = true;
        item.hasTransparency = false;
    }
    beginDrawing();
    glDisable(GL_BLEND);
    glDepthMask(GL_TRUE);
    m_painter.WriteIds(true);
    for (const Pass pass : {Pass::Faces, Pass::Caps, Pass::Edges, Pass::Vertices}) {
        m_pass = pass;
        m_next = 0;
        drawBodies(FrameBudget());
        m_painter.Rest();
    }
    m_painter.WriteIds(false);
    m_pass = Pass::Done;
}

bool SceneRenderer::Continue(const FrameBudget& budget)
{
    beginDrawing();
    while (m_pass != Pass::Done) {
        const bool isPassDone = runPass(budget);
        m_painter.Rest();
        if (!isPassDone)
            return false;
        m_pass = static_cast<Pass>(static_cast<int>(m_pass) + 1);
        m_next = 0;
        m_nextPrimitive = 0;
    }
    return true;
}

bool SceneRenderer::runPass(const FrameBudget& budget)
{
    switch (m_pass) {
    case Pass::Background:
        drawBackground();
        return true;
    case Pass::Objects:
        m_painter.UseClipPlanes(false);
        drawInTurn(m_objects);
        m_painter.UseClipPlanes(true);
        return true;
    case Pass::TransparentObjects:
        m_painter.UseClipPlanes(false);
        drawTransparentInTurn(m_objects);
        return true;
    case Pass::Done:
        return true;
    default:
        return drawBodies(budget);
    }
}

bool SceneRenderer::drawBodies(const FrameBudget& budget)
{
    switch (m_pass) {
    case Pass::Faces:
        return !m_options->GetShowFaces() || drawFaces(m_inOrder, Layer::Opaque, budget);
    case Pass::Caps:
        return !m_options->GetShowFaces() || drawCaps(budget);
    case Pass::Edges:
        return drawEdges(m_inOrder, budget);
    case Pass::Vertices:
        return drawVertices(m_inOrder, budget);
    case Pass::Tessellation:
        return !m_options->GetShowTessellation() || drawTessellation(budget);
    case Pass::Transparent:
        return !m_options->GetShowFaces() || drawFaces(m_transparent, Layer::Transparent, budget);
    default:
        return true;
    }
}

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

bool SceneRenderer::drawFaces(const Items& items, Layer layer, const FrameBudget& budget)
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
        isDone =
            item.asBox ? drawAsBox(item, layer) : drawPieces(item, faceStyle(item, layer), budget);
    }
    glDisable(GL_POLYGON_OFFSET_FILL);
    if (!isOpaque)
        endBlending();
    return isDone;
}

bool SceneRenderer::drawCaps(const FrameBudget& budget)
{
    for (; m_next < m_inOrder.size(); ++m_next) {
        const FrameItem& item = *m_inOrder[m_next];
        if (!item.cut || item.leftOut)
            continue;
        if (budget.IsSpent(m_painter.Work()))
            return false;
        m_caps.Draw(item);
    }
    return true;
}

bool SceneRenderer::drawEdges(const Items& items, const FrameBudget& budget)
{
    PaintStyle style;
    style.kind = PartKind::Edge;
    style.towardEyePixels = kLinePixels;
    for (; m_next < items.size(); ++m_next) {
        const FrameItem& item = *items[m_next];
        const bool follows =
            !item.isOwnColored && item.node->GetCategory() == GeoNode::Category::Model;
        if (item.leftOut || item.asBox || (!m_drawsEdges && follows))
            continue;
        style.color = item.isOwnColored ? item.color : m_options->GetDefaultEdgeColor();
        style.lineWidth = item.node->LineWidthPixels();
        if (!drawPieces(item, style, budget))
            return false;
    }
    return true;
}

bool SceneRenderer::drawVertices(const Items& items, const FrameBudget& budget)
{
    PaintStyle style;
    style.kind = PartKind::Vertex;
    style.towardEyePixels = kPointPixels;
    for (; m_next < items.size(); ++m_next) {
        const FrameItem& item = *items[m_next];
        const bool isCloud = item.node->GetCategory() == GeoNode::Category::PointCloud;
        if (item.leftOut || item.asBox ||
            (!m_options->GetShowVertices() && !isCloud && !item.isOwnColored))
            continue;
        style.color = item.isOwnColored ? item.color : m_options->GetDefaultVertexColor();
        style.useVertexColors = isCloud && !item.hasColor;
        if (!drawPieces(item, style, budget))
            return false;
    }
    return true;
}

bool SceneRenderer::drawTessellation(const FrameBudget& budget)
{
    PaintStyle style;
    style.color = m_options->GetDefaultTessEdgeColor();
    style.towardEyePixels = kLinePixels;
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    glLineWidth(1.0f);
    bool isDone = true;
    for (; isDone && m_next < m_inOrder.size(); m_next += isDone ? 1 : 0) {
        const FrameItem& item = *m_inOrder[m_next];
        if (!item.leftOut && !item.asBox)
            isDone = drawPieces(item, style, budget);
    }
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    return isDone;
}

/// Draws what is left of a kind of primitives of a body.
/// @return false when the budget ended before.
bool SceneRenderer::drawPieces(const FrameItem& item, const PaintStyle& style,
                               const FrameBudget& budget)
{
    const int count = m_painter.Count(item, style.kind);
    while (m_nextPrimitive < count) {
        if (budget.IsSpent(m_painter.Work()))
            return false;
        const int piece = budget.Piece(style.kind, count - m_nextPrimitive, m_painter.Work());
        m_painter.Draw(item, style, {m_nextPrimitive, piece});
        m_nextPrimitive += piece;
    }
    m_nextPrimitive = 0;
    return true;
}

/// @return true.
bool SceneRenderer::drawAsBox(const FrameItem& item, Layer layer)
{
    const VizBox& bounds = item.node->GetGeometry()->BoundingBox();
    FrameItem box = item;
    box.node = &boxNode();
    box.geometry = &m_gpu.Geometry(*box.node);
    box.states = &m_boxStates;
    box.level = nullptr;
    box.hasColor = true;
    stretch(bounds, box.modelView);
    m_painter.DrawWhole(box, faceStyle(box, layer));
    return true;
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
    const bool drawsEdges = std::exchange(m_drawsEdges, m_options->GetShowEdges());
    m_next = 0;
    drawFaces(m_objectsInTurn, Layer::Opaque, FrameBudget());
    m_next = 0;
    drawEdges(m_objectsInTurn, FrameBudget());
    m_next = 0;
    drawVertices(m_objectsInTurn, FrameBudget());
    m_drawsEdges = drawsEdges;
}

void SceneRenderer::drawTransparentInTurn(const std::vector<FrameItem>& items)
{
    m_objectsInTurn.clear();
    for (const FrameItem& item : items)
        if (item.hasTransparency)
            m_objectsInTurn.push_back(&item);
    std::sort(m_objectsInTurn.begin(), m_objectsInTurn.end(), isBehind);
    m_next = 0;
    drawFaces(m_objectsInTurn, Layer::Transparent, FrameBudget());
}

void SceneRenderer::DrawInset(Node& root, const RenderingOptions& options,
                              const Projection& projection)
{
    m_inset.clear();
    m_options = &options;
    m_sceneStamp += root.Stamps().subtree;
    m_painter.Use(options, projection);
    m_gpu.SetUploadSlice(TimeSlice());
    VizBox drawn;
    FrameItems(m_gpu, options, m_painter.GetProjection(), {}).Collect(root, m_inset, drawn);
    m_painter.FitDepth(drawn);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_PROGRAM_POINT_SIZE);
    glClear(GL_DEPTH_BUFFER_BIT);
    // A picture that is half drawn goes on where it was.
    const std::size_t next = m_next;
    const int nextPrimitive = std::exchange(m_nextPrimitive, 0);
    drawInTurn(m_inset);
    drawTransparentInTurn(m_inset);
    m_next = next;
    m_nextPrimitive = nextPrimitive;
    m_painter.Rest();
}

void SceneRenderer::EndFrame()
{
    m_gpu.EndFrame(m_sceneStamp);
}

void SceneRenderer::Clear()
{
    m_pass = Pass::Done;
    m_items.clear();
    m_objects.clear();
    m_inset.clear();
    m_inOrder.clear();
    m_transparent.clear();
    m_gpu.Clear();
    m_painter.Clear();
    m_caps.Clear();
}

} // namespace ViewOpenGl
