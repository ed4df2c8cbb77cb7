#include "SceneRenderer.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/PartState.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <cmath>

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

GLenum primitiveOf(PartKind kind)
{
    return kind == PartKind::Face ? GL_TRIANGLES : kind == PartKind::Edge ? GL_LINES : GL_POINTS;
}

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
    Draw(*makeSample(), options, sampleProjection(), {});
    glFinish();
}

void SceneRenderer::Draw(Node& root, const RenderingOptions& options, Projection projection,
                         const Background& background)
{
    beginFrame(options, projection);
    Inherited top = {};
    TambVizCore::SetIdentity(top.world);
    VizBox drawn;
    collect(root, top, drawn);
    FitDepth(m_frame.projection, drawn);

    glDisable(GL_BLEND);
    glDepthMask(GL_TRUE);
    glClear(GL_DEPTH_BUFFER_BIT);
    drawBackground(background);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_PROGRAM_POINT_SIZE);
    for (int i = 0; i < m_frame.clipPlaneCount; ++i)
        glEnable(GL_CLIP_DISTANCE0 + static_cast<GLenum>(i));
    if (options.GetShowFaces())
        drawOpaqueFaces();
    if (options.GetShowTessellation())
        drawTessellation();
    drawEdges();
    drawVertices();
    if (options.GetShowFaces())
        drawTransparentFaces();
    for (int i = 0; i < m_frame.clipPlaneCount; ++i)
        glDisable(GL_CLIP_DISTANCE0 + static_cast<GLenum>(i));
    m_gpu.EndFrame();
    m_items.clear();
}

void SceneRenderer::Clear()
{
    m_gpu.Clear();
    m_shaders = Shaders();
    m_emptyArray = GlVertexArray();
}

void SceneRenderer::beginFrame(const RenderingOptions& options, const Projection& projection)
{
    m_gpu.BeginFrame();
    m_items.clear();
    m_transparent.clear();
    ++m_frame.number;
    m_frame.options = &options;
    m_frame.projection = projection;
    const auto& planes = options.GetClipPlanes();
    m_frame.clipPlaneCount = std::min(static_cast<int>(planes.size()), kMaxClipPlanes);
    for (int i = 0; i < m_frame.clipPlaneCount; ++i)
        writeEyePlane(planes[static_cast<std::size_t>(i)], projection.view, m_frame.clipPlanes[i]);
}

void SceneRenderer::collect(Node& node, const Inherited& above, VizBox& drawn)
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
    state.flags |= node.IsHighlighted() ? PartState::kHighlighted : 0u;
    state.flags |= node.IsSelected() ? PartState::kSelected : 0u;
    GeoNode* const geoNode = node.AsGeoNode();
    if (geoNode != nullptr && geoNode->GetGeometry() != nullptr &&
        isShown(*geoNode, *m_frame.options))
        addItem(*geoNode, state, drawn);
    for (std::size_t i = 0; i < node.ChildCount(); ++i)
        collect(*node.ChildAt(i), state, drawn);
}

void SceneRenderer::addItem(GeoNode& node, const Inherited& state, VizBox& drawn)
{
    double modelView[16];
    TambVizCore::MultiplyMatrices(m_frame.projection.view, state.world, modelView);
    const VizBox box = node.GetGeometry()->BoundingBox().Transformed(modelView);
    if (!IsInSight(m_frame.projection, box))
        return;
    drawn.Add(box);
    Item item;
    item.node = &node;
    item.geometry = &m_gpu.Geometry(node);
    item.states = &m_gpu.Node(node);
    std::transform(modelView, modelView + 16, item.modelView,
                   [](double value) { return static_cast<float>(value); });
    writeNormalMatrix(modelView, item.normalMatrix);
    item.hasColor = state.hasColor;
    item.color = state.hasColor ? state.color : m_frame.options->GetDefaultBodyColor();
    item.isOwnColored =
        state.hasColor && (state.auxiliary || node.GetCategory() != GeoNode::Category::Model);
    const bool usesColors = !item.hasColor && item.geometry->colors;
    item.hasTransparency = item.states->hasTransparentParts ||
                           (usesColors ? item.geometry->hasTransparentColors : item.color.a != 255);
    item.hasOpacity = usesColors || item.color.a == 255 || item.states->needsParts;
    item.flags = state.flags;
    item.mirrored = TambVizCore::Determinant3x3(modelView) < 0.0;
    item.culled = mayCull(item, box);
    item.depth = -(box.Lo()[2] + box.Hi()[2]) / 2.0;
    m_items.push_back(item);
}

bool SceneRenderer::mayCull(const Item& item, const VizBox& box) const
{
    // Whoever looks into a body through a gap sees its backs.
    const bool eyeInside = !m_frame.projection.orthographic && box.Hi()[2] >= 0.0;
    return item.node->GetGeometry()->IsClosed() && !item.states->hasHiddenParts &&
           m_frame.clipPlaneCount == 0 && !eyeInside;
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

void SceneRenderer::drawOpaqueFaces()
{
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(kFaceSlopeOffset, 0.0f);
    for (const Item& item : m_items) {
        if (item.hasTransparency)
            m_transparent.push_back(&item);
        if (item.hasOpacity)
            drawFaces(item, Layer::Opaque);
    }
    glDisable(GL_POLYGON_OFFSET_FILL);
    glDisable(GL_CULL_FACE);
}

void SceneRenderer::drawTransparentFaces()
{
    if (m_transparent.empty())
        return;
    std::sort(m_transparent.begin(), m_transparent.end(),
              [](const Item* a, const Item* b) { return a->depth > b->depth; });
    glEnable(GL_BLEND);
    // The picture's own alpha is that of what lies behind, made denser.
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_FALSE);
    for (const Item* const item : m_transparent)
        drawFaces(*item, Layer::Transparent);
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
    glDisable(GL_CULL_FACE);
}

void SceneRenderer::drawFaces(const Item& item, Layer layer)
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

void SceneRenderer::drawTessellation()
{
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    Style style;
    style.color = m_frame.options->GetDefaultTessEdgeColor();
    style.towardEyePixels = kLinePixels;
    glLineWidth(1.0f);
    for (const Item& item : m_items)
        drawKind(item, style);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
}

void SceneRenderer::drawEdges()
{
    Style style;
    style.kind = PartKind::Edge;
    style.towardEyePixels = kLinePixels;
    for (const Item& item : m_items) {
        if (!m_frame.options->GetShowEdges() && !item.isOwnColored &&
            item.node->GetCategory() == GeoNode::Category::Model)
            continue;
        style.color = item.isOwnColored ? item.color : m_frame.options->GetDefaultEdgeColor();
        glLineWidth(item.node->LineWidthPixels());
        drawKind(item, style);
    }
}

void SceneRenderer::drawVertices()
{
    Style style;
    style.kind = PartKind::Vertex;
    style.towardEyePixels = kPointPixels;
    for (const Item& item : m_items) {
        const bool isCloud = item.node->GetCategory() == GeoNode::Category::PointCloud;
        if (!m_frame.options->GetShowVertices() && !isCloud && !item.isOwnColored)
            continue;
        style.color = item.isOwnColored ? item.color : m_frame.options->GetDefaultVertexColor();
        style.useVertexColors = isCloud && !item.hasColor;
        drawKind(item, style);
    }
}

void SceneRenderer::drawKind(const Item& item, const Style& style)
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
    Shader* const shader = m_shaders.Get(features);
    if (shader == nullptr)
        return;
    if (features.parts) {
        glActiveTexture(GL_TEXTURE0 + kPartOfPrimitiveUnit);
        glBindTexture(GL_TEXTURE_BUFFER, m_gpu.PartOfPrimitive(*item.node, style.kind).Get());
        glActiveTexture(GL_TEXTURE0 + kPartStateUnit);
        glBindTexture(GL_TEXTURE_BUFFER, item.states->texture.Get());
    }
    glUseProgram(shader->program.Get());
    setFrameUniforms(*shader);
    setUniforms(*shader, item, style);
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

void SceneRenderer::setUniforms(Shader& shader, const Item& item, const Style& style)
{
    glUniformMatrix4fv(shader.modelView, 1, GL_FALSE, item.modelView);
    glUniformMatrix3fv(shader.normalMatrix, 1, GL_FALSE, item.normalMatrix);
    setColor(shader.baseColor, style.color);
    glUniform1ui(shader.nodeFlags, item.flags);
    glUniform1f(shader.towardEye,
                style.towardEyePixels * static_cast<float>(m_frame.projection.pixelSize));
    glUniform1i(shader.transparentLayer, style.layer == Layer::Transparent ? 1 : 0);
    if (style.kind == PartKind::Vertex) {
        const float size = item.node->PointSizePixels();
        const bool cloud = item.node->GetCategory() == GeoNode::Category::PointCloud;
        glUniform1f(shader.pointSize, cloud ? size : std::max(kVertexPixels, size));
    }
}

} // namespace ViewOpenGl
