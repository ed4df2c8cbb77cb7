#include "SceneRenderer.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/PartState.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::PartKind;
using TambVizCore::PartState;
using TambVizCore::RenderingOptions;
using TambVizCore::RGBAColor;
using TambVizCore::VizBox;

/// How far lines and points come toward the eye, so that the faces below do not cover them. Faces
/// that lean away from the eye go back by their slope on top.
constexpr float kLinePixels = 1.0f;
constexpr float kPointPixels = 1.5f;
constexpr float kFaceSlopeOffset = 1.0f;

/// Smallest size of a vertex marker, pixels.
constexpr float kVertexPixels = 4.0f;

void setColor(GLint place, const RGBAColor& color)
{
    glUniform4f(place, static_cast<float>(color.r) / 255.0f, static_cast<float>(color.g) / 255.0f,
                static_cast<float>(color.b) / 255.0f, static_cast<float>(color.a) / 255.0f);
}

RGBAColor opaque(RGBAColor color)
{
    color.a = 255;
    return color;
}

GLenum primitiveOf(PartKind kind)
{
    return kind == PartKind::Face ? GL_TRIANGLES : kind == PartKind::Edge ? GL_LINES : GL_POINTS;
}

/// A plane of world units in eye space: a point p is kept where plane . (p, 1) is not below 0.
void writeEyePlane(const TambVizCore::ClipPlane& plane, const double* view, float* out)
{
    // The view turns and moves but does not stretch, so its transpose is its inverse.
    double offset = plane.offset;
    for (int row = 0; row < 3; ++row) {
        double component = 0.0;
        for (int i = 0; i < 3; ++i)
            component += view[4 * i + row] * static_cast<double>(plane.normal[i]);
        out[row] = static_cast<float>(component);
        offset -= component * view[12 + row];
    }
    out[3] = static_cast<float>(offset);
}

/// A node below a root of its own: one triangle with its edges and corners.
std::unique_ptr<Node> makeSample()
{
    std::string error;
    TambVizCore::GeometryBuilder builder;
    builder
        .SetPositions(
            TambVizCore::SharedArray<float>(std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0}))
        .SetTriangles(TambVizCore::SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1, 2}))
        .SetSegments(TambVizCore::SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1}))
        .SetPoints(TambVizCore::SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0}));
    auto root = std::make_unique<Node>(1);
    root->CreateChildGeoNode(1)->SetGeometry(builder.Build(error));
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

} // namespace

void SceneRenderer::Prepare(const RenderingOptions& options)
{
    Node nothing(1);
    Draw(*makeSample(), nothing, options, sampleProjection(), {}, {});
    EndFrame();
    glFinish();
}

Projection SceneRenderer::Draw(Node& root, Node& objects, const RenderingOptions& options,
                               const Projection& projection, const Background& background,
                               const VizBox& beyond)
{
    beginFrame(options, projection);
    VizBox drawn = beyond;
    FrameItems collector(m_gpu, options, m_frame.projection);
    collector.Collect(root, m_items, drawn);
    collector.Collect(objects, m_objects, drawn);
    FitDepth(m_frame.projection, drawn);

    glDisable(GL_BLEND);
    glDepthMask(GL_TRUE);
    glClear(GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    drawBackground(background);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_PROGRAM_POINT_SIZE);
    setClipPlanes(options);
    enableClipPlanes(true);
    drawOpaque(m_items, options.GetShowFaces());
    if (options.GetShowTessellation())
        drawTessellation();
    enableClipPlanes(false);
    const int planes = std::exchange(m_frame.clipPlaneCount, 0);
    drawOpaque(m_objects, true);
    m_frame.clipPlaneCount = planes;
    enableClipPlanes(true);
    if (options.GetShowFaces())
        drawTransparent(m_items);
    enableClipPlanes(false);
    m_frame.clipPlaneCount = 0;
    drawTransparent(m_objects);
    return m_frame.projection;
}

void SceneRenderer::DrawIds(Node& root, const RenderingOptions& options,
                            const Projection& projection, std::vector<const GeoNode*>& nodes)
{
    beginFrame(options, projection);
    VizBox drawn;
    FrameItems(m_gpu, options, m_frame.projection).Collect(root, m_items, drawn);
    FitDepth(m_frame.projection, drawn);
    nodes.clear();
    for (FrameItem& item : m_items) {
        nodes.push_back(item.node);
        item.number = static_cast<std::uint32_t>(nodes.size());
        item.hasOpacity = true;
        item.hasTransparency = false;
    }
    glDisable(GL_BLEND);
    glDepthMask(GL_TRUE);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_PROGRAM_POINT_SIZE);
    m_frame.ids = true;
    setClipPlanes(options);
    enableClipPlanes(true);
    drawOpaque(m_items, options.GetShowFaces());
    enableClipPlanes(false);
    m_frame.clipPlaneCount = 0;
    m_frame.ids = false;
}

void SceneRenderer::DrawInset(Node& root, const RenderingOptions& options,
                              const Projection& projection)
{
    m_objects.clear();
    useProjection(options, projection);
    VizBox drawn;
    FrameItems(m_gpu, options, m_frame.projection).Collect(root, m_objects, drawn);
    FitDepth(m_frame.projection, drawn);
    glClear(GL_DEPTH_BUFFER_BIT);
    drawOpaque(m_objects, true);
    drawTransparent(m_objects);
}

void SceneRenderer::EndFrame()
{
    m_gpu.EndFrame();
}

void SceneRenderer::Clear()
{
    m_gpu.Clear();
    m_shaders = Shaders();
    m_cap = SectionCap();
    m_emptyArray = GlVertexArray();
}

void SceneRenderer::beginFrame(const RenderingOptions& options, const Projection& projection)
{
    m_gpu.BeginFrame();
    m_items.clear();
    m_objects.clear();
    useProjection(options, projection);
}

/// What follows is drawn with another camera: every program is told anew.
void SceneRenderer::useProjection(const RenderingOptions& options, const Projection& projection)
{
    ++m_frame.number;
    m_frame.options = &options;
    m_frame.projection = projection;
    m_frame.clipPlaneCount = 0;
}

void SceneRenderer::setClipPlanes(const RenderingOptions& options)
{
    const auto& planes = options.GetClipPlanes();
    m_frame.clipPlaneCount = std::min(static_cast<int>(planes.size()), kMaxClipPlanes);
    for (int i = 0; i < m_frame.clipPlaneCount; ++i)
        writeEyePlane(planes[static_cast<std::size_t>(i)], m_frame.projection.view,
                      m_frame.clipPlanes[i]);
}

void SceneRenderer::enableClipPlanes(bool enable)
{
    for (int i = 0; i < m_frame.clipPlaneCount; ++i)
        if (enable)
            glEnable(GL_CLIP_DISTANCE0 + static_cast<GLenum>(i));
        else
            glDisable(GL_CLIP_DISTANCE0 + static_cast<GLenum>(i));
}

void SceneRenderer::drawBackground(const Background& background)
{
    Shader* const shader = m_shaders.Background();
    if (shader == nullptr)
        return;
    if (!m_emptyArray)
        m_emptyArray = MakeVertexArray();
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    glUseProgram(shader->program.Get());
    setColor(shader->baseColor, background.bottom);
    setColor(shader->highlightColor, background.top);
    glBindVertexArray(m_emptyArray.Get());
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void SceneRenderer::drawOpaque(const std::vector<FrameItem>& items, bool faces)
{
    if (faces) {
        glEnable(GL_POLYGON_OFFSET_FILL);
        glPolygonOffset(kFaceSlopeOffset, 0.0f);
        for (const FrameItem& item : items)
            if (item.hasOpacity)
                drawFaces(item, Layer::Opaque);
        glDisable(GL_CULL_FACE);
        glDisable(GL_POLYGON_OFFSET_FILL);
        drawCaps();
    }
    drawEdges(items);
    drawVertices(items);
}

void SceneRenderer::drawTransparent(const std::vector<FrameItem>& items)
{
    m_transparent.clear();
    for (const FrameItem& item : items)
        if (item.hasTransparency)
            m_transparent.push_back(&item);
    if (m_transparent.empty())
        return;
    std::sort(m_transparent.begin(), m_transparent.end(),
              [](const FrameItem* a, const FrameItem* b) { return a->depth > b->depth; });
    glEnable(GL_BLEND);
    // The picture's own alpha is that of what lies behind, made denser.
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_FALSE);
    for (const FrameItem* const item : m_transparent)
        drawFaces(*item, Layer::Transparent);
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
    glDisable(GL_CULL_FACE);
}

void SceneRenderer::drawFaces(const FrameItem& item, Layer layer)
{
    if (item.culled)
        glEnable(GL_CULL_FACE);
    else
        glDisable(GL_CULL_FACE);
    glFrontFace(item.mirrored ? GL_CW : GL_CCW);
    Style style;
    style.color = item.color;
    style.useVertexColors = !item.hasColor;
    style.lit = true;
    style.layer = layer;
    style.mixed = item.hasTransparency && item.hasOpacity;
    drawKind(item, style);
}

/// Closes the bodies that section planes have cut open: per body and plane, the stencil counts the
/// backs less the fronts behind each pixel of what the plane keeps; where they differ, the plane
/// lies inside the body.
void SceneRenderer::drawCaps()
{
    if (m_frame.clipPlaneCount == 0)
        return;
    const std::span<const float[4]> planes(m_frame.clipPlanes,
                                           static_cast<std::size_t>(m_frame.clipPlaneCount));
    glEnable(GL_STENCIL_TEST);
    for (std::size_t plane = 0; plane < planes.size(); ++plane)
        for (const FrameItem& item : m_items)
            if (item.hasOpacity && item.node->GetGeometry()->IsClosed() &&
                !item.states->hasHiddenParts && m_cap.Place(planes, plane, item.box)) {
                countBehindPlane(item, plane);
                drawCap(item);
            }
    glDisable(GL_STENCIL_TEST);
}

void SceneRenderer::countBehindPlane(const FrameItem& item, std::size_t plane)
{
    // The other planes keep everything for now.
    float all[kMaxClipPlanes][4];
    std::memcpy(all, m_frame.clipPlanes, sizeof(all));
    for (std::size_t i = 0; i < kMaxClipPlanes; ++i)
        if (i != plane)
            std::fill_n(m_frame.clipPlanes[i], 4, 0.0f);
    ++m_frame.number;
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    glDepthMask(GL_FALSE);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    glFrontFace(item.mirrored ? GL_CW : GL_CCW);
    glStencilFunc(GL_ALWAYS, 0, 0xFF);
    glStencilOpSeparate(GL_FRONT, GL_KEEP, GL_KEEP, GL_DECR_WRAP);
    glStencilOpSeparate(GL_BACK, GL_KEEP, GL_KEEP, GL_INCR_WRAP);
    drawKind(item, Style{});
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    std::memcpy(m_frame.clipPlanes, all, sizeof(all));
    ++m_frame.number;
}

/// The cap is cut by the other planes already; the program knows of none.
void SceneRenderer::drawCap(const FrameItem& item)
{
    ShaderFeatures features;
    features.normals = true;
    features.ids = m_frame.ids;
    Shader* const shader = m_shaders.Get(features);
    if (shader == nullptr)
        return;
    FrameItem flat = item;
    std::fill(std::begin(flat.modelView), std::end(flat.modelView), 0.0f);
    for (int i = 0; i < 4; ++i)
        flat.modelView[5 * i] = 1.0f;
    std::fill(std::begin(flat.normalMatrix), std::end(flat.normalMatrix), 0.0f);
    flat.normalMatrix[0] = flat.normalMatrix[4] = flat.normalMatrix[8] = 1.0f;
    enableClipPlanes(false);
    glUseProgram(shader->program.Get());
    setFrameUniforms(*shader);
    setUniforms(*shader, flat, Style{.color = opaque(item.color)});
    if (features.ids)
        glUniform1i(shader->hasParts, 0);
    glStencilFunc(GL_NOTEQUAL, 0, 0xFF);
    glStencilOp(GL_KEEP, GL_KEEP, GL_KEEP);
    m_cap.DrawKept();
    // The counts are cleared for the next body, also where other planes cut the cap away.
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    glDepthMask(GL_FALSE);
    glStencilOp(GL_ZERO, GL_ZERO, GL_ZERO);
    m_cap.DrawWhole();
    glDepthMask(GL_TRUE);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    enableClipPlanes(true);
}

void SceneRenderer::drawTessellation()
{
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    Style style;
    style.color = m_frame.options->GetDefaultTessEdgeColor();
    style.towardEyePixels = kLinePixels;
    glLineWidth(1.0f);
    for (const FrameItem& item : m_items)
        drawKind(item, style);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
}

void SceneRenderer::drawEdges(const std::vector<FrameItem>& items)
{
    Style style;
    style.kind = PartKind::Edge;
    style.towardEyePixels = kLinePixels;
    for (const FrameItem& item : items) {
        if (!m_frame.options->GetShowEdges() && !item.isOwnColored &&
            item.node->GetCategory() == GeoNode::Category::Model)
            continue;
        style.color = item.isOwnColored ? item.color : m_frame.options->GetDefaultEdgeColor();
        glLineWidth(std::min(item.node->LineWidthPixels(), m_maxLineWidth));
        drawKind(item, style);
    }
}

void SceneRenderer::drawVertices(const std::vector<FrameItem>& items)
{
    Style style;
    style.kind = PartKind::Vertex;
    style.towardEyePixels = kPointPixels;
    for (const FrameItem& item : items) {
        const bool isCloud = item.node->GetCategory() == GeoNode::Category::PointCloud;
        if (!m_frame.options->GetShowVertices() && !isCloud && !item.isOwnColored)
            continue;
        style.color = item.isOwnColored ? item.color : m_frame.options->GetDefaultVertexColor();
        style.useVertexColors = isCloud && !item.hasColor;
        drawKind(item, style);
    }
}

void SceneRenderer::drawKind(const FrameItem& item, const Style& style)
{
    GpuGeometry& gpu = *item.geometry;
    const GpuPrimitives& primitives = gpu.primitives[PrimitiveSlot(style.kind)];
    if (primitives.count == 0)
        return;
    ShaderFeatures features;
    features.lit = style.lit;
    features.normals = style.lit && static_cast<bool>(gpu.normals);
    features.colors = style.useVertexColors && static_cast<bool>(gpu.colors);
    features.parts = item.states->needsParts;
    features.mixed = style.mixed;
    features.clip = m_frame.clipPlaneCount > 0;
    features.ids = m_frame.ids;
    Shader* const shader = m_shaders.Get(features);
    if (shader == nullptr)
        return;
    if (features.parts || features.ids) {
        glActiveTexture(GL_TEXTURE0 + kPartOfPrimitiveUnit);
        glBindTexture(GL_TEXTURE_BUFFER, m_gpu.PartOfPrimitive(*item.node, style.kind).Get());
    }
    if (features.parts) {
        glActiveTexture(GL_TEXTURE0 + kPartStateUnit);
        glBindTexture(GL_TEXTURE_BUFFER, item.states->texture.Get());
    }
    glUseProgram(shader->program.Get());
    setFrameUniforms(*shader);
    setUniforms(*shader, item, style);
    if (features.ids)
        glUniform1i(shader->hasParts, 1);
    glBindVertexArray(gpu.vertexArray.Get());
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, primitives.indices.Get());
    glDrawElements(primitiveOf(style.kind), primitives.count, GL_UNSIGNED_INT, nullptr);
}

void SceneRenderer::setFrameUniforms(Shader& shader)
{
    if (shader.frame == m_frame.number)
        return;
    shader.frame = m_frame.number;
    glUniformMatrix4fv(shader.projection, 1, GL_FALSE, m_frame.projection.projection);
    glUniform1i(shader.orthographic, m_frame.projection.orthographic ? 1 : 0);
    setColor(shader.highlightColor, m_frame.options->GetHighlightColor());
    glUniform4fv(shader.clipPlanes, kMaxClipPlanes, m_frame.clipPlanes[0]);
}

void SceneRenderer::setUniforms(Shader& shader, const FrameItem& item, const Style& style)
{
    glUniformMatrix4fv(shader.modelView, 1, GL_FALSE, item.modelView);
    glUniformMatrix3fv(shader.normalMatrix, 1, GL_FALSE, item.normalMatrix);
    setColor(shader.baseColor, style.color);
    glUniform1ui(shader.nodeFlags, item.flags);
    glUniform1f(shader.towardEye,
                style.towardEyePixels * static_cast<float>(m_frame.projection.pixelSize));
    glUniform1i(shader.transparentLayer, style.layer == Layer::Transparent ? 1 : 0);
    // Lines and points are drawn without blending and stay as they are.
    const bool isFace = style.kind == PartKind::Face;
    glUniform1f(shader.opacity, isFace ? item.opacity : 1.0f);
    glUniform1f(shader.unselectedOpacity, isFace ? item.unselectedOpacity : 1.0f);
    if (m_frame.ids)
        glUniform1ui(shader.itemNumber, item.number);
    if (style.kind == PartKind::Vertex) {
        const float size = item.node->PointSizePixels();
        const bool cloud = item.node->GetCategory() == GeoNode::Category::PointCloud;
        glUniform1f(shader.pointSize, cloud ? size : std::max(kVertexPixels, size));
    }
}

} // namespace ViewOpenGl
