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

/// Looks at the sample.
Projection sampleProjection(bool orthographic)
{
    Projection projection;
    projection.orthographic = orthographic;
    TambVizCore::SetIdentity(projection.view);
    projection.view[14] = -2.0;
    projection.halfHeight = 1.0;
    projection.pixelSize = 1.0;
    return projection;
}

} // namespace

bool IsBefore(const FrameItem* a, const FrameItem* b)
{
    return a->depth != b->depth ? a->depth < b->depth : a < b;
}

bool IsBehind(const FrameItem* a, const FrameItem* b)
{
    return a->depth != b->depth ? a->depth > b->depth : a < b;
}

SceneRenderer::SceneRenderer() : m_painter(m_gpu), m_caps(m_painter) {}

SceneRenderer::~SceneRenderer() = default;

void SceneRenderer::Prepare(const RenderingOptions& options, bool orthographic)
{
    Node nothing(1);
    const auto sample = makeSample();
    Begin(*sample, nothing, options, sampleProjection(orthographic), {}, {}, TimeSlice());
    DrawAll();
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
    m_drawsEdges = true;
    m_scale = 1.0;
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
    m_areFacesDrawn = false;
    double largest = 0.0;
    for (const FrameItem& item : m_items)
        largest = std::max(largest, item.box.Radius());
    m_caps.Begin(largest);
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
    std::sort(m_inOrder.begin(), m_inOrder.end(), IsBefore);
    std::sort(m_transparent.begin(), m_transparent.end(), IsBehind);
}

FrameWork SceneRenderer::FullWork() const
{
    return WorkOf(m_items, *m_options, true);
}

Coarseness SceneRenderer::FitBudget(const CostModel& model, double milliseconds,
                                    const FrameWork& rest)
{
    const Coarseness coarseness =
        ViewOpenGl::FitBudget(model, milliseconds, rest, *m_options, m_items, m_order);
    m_drawsEdges = coarseness.edges;
    m_scale = coarseness.scale;
    return coarseness;
}

void SceneRenderer::WantLevels()
{
    for (const FrameItem& item : m_items)
        item.geometry->wantsLevels = true;
}

void SceneRenderer::beginDrawing()
{
    m_painter.ResetWork();
    Projection projection = m_projection;
    projection.pixelSize /= m_scale;
    projection.lineScale *= m_scale;
    m_painter.Use(*m_options, projection);
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
        item.color.a = 255;
        item.opacity = item.unselectedOpacity = 1.0f;
    }
    beginDrawing();
    glDisable(GL_BLEND);
    glDepthMask(GL_TRUE);
    m_painter.WriteIds(true);
    FrameBudget all;
    for (const Pass pass : {Pass::Faces, Pass::Caps, Pass::Edges, Pass::Vertices}) {
        m_pass = pass;
        m_next = 0;
        drawBodies(all);
        m_painter.Rest();
    }
    m_painter.WriteIds(false);
    m_pass = Pass::Done;
}

bool SceneRenderer::Continue(FrameBudget& budget)
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

void SceneRenderer::DrawAll()
{
    FrameBudget all;
    Continue(all);
}

bool SceneRenderer::runPass(FrameBudget& budget)
{
    switch (m_pass) {
    case Pass::Background:
        drawBackground();
        budget.Begin();
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

bool SceneRenderer::drawBodies(FrameBudget& budget)
{
    switch (m_pass) {
    case Pass::Faces:
        return !m_options->GetShowFaces() || drawFaces(m_inOrder, Layer::Opaque, budget);
    case Pass::Caps:
        return !m_options->GetShowFaces() || !m_options->GetShowCaps() || drawCaps(budget);
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
