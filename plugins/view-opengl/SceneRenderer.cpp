#include "SceneRenderer.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/PartState.h>
#include <TambVizCore/RenderingOptions.h>

#include <algorithm>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::PartKind;
using TambVizCore::PartState;
using TambVizCore::RenderingOptions;
using TambVizCore::RGBAColor;

/// How far lines and points come forward in clip space, so that the faces below do not cover them.
constexpr float kLineDepthBias = 0.0004f;
constexpr float kPointDepthBias = 0.0006f;

/// Smallest size of a vertex marker, pixels.
constexpr float kVertexPixels = 4.0f;

void setColor(GLint place, const RGBAColor& color)
{
    if (place >= 0)
        glUniform4f(place, static_cast<float>(color.r) / 255.0f,
                    static_cast<float>(color.g) / 255.0f, static_cast<float>(color.b) / 255.0f,
                    static_cast<float>(color.a) / 255.0f);
}

void setColor3(GLint place, const RGBAColor& color)
{
    if (place >= 0)
        glUniform3f(place, static_cast<float>(color.r) / 255.0f,
                    static_cast<float>(color.g) / 255.0f, static_cast<float>(color.b) / 255.0f);
}

GLenum primitiveOf(PartKind kind)
{
    return kind == PartKind::Face ? GL_TRIANGLES : kind == PartKind::Edge ? GL_LINES : GL_POINTS;
}

/// Of what is drawn over faces: edges, borders of triangles, vertices.
float biasOf(PartKind kind)
{
    return kind == PartKind::Vertex ? kPointDepthBias : kLineDepthBias;
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

/// Culls backs of closed bodies; a mirrored body has its front the other way round.
void setCulling(const GeoNode& node, const float* modelView)
{
    double matrix[16];
    std::copy_n(modelView, 16, matrix);
    if (node.GetGeometry()->IsClosed()) {
        glEnable(GL_CULL_FACE);
        glFrontFace(TambVizCore::Determinant3x3(matrix) < 0.0 ? GL_CW : GL_CCW);
    } else {
        glDisable(GL_CULL_FACE);
    }
}

} // namespace

void SceneRenderer::Prepare()
{
    m_emptyArray = MakeVertexArray();
    glBindVertexArray(m_emptyArray.Get());
    for (const Shader* const shader :
         {m_shaders.Background(), m_shaders.Get({}), m_shaders.Get({.lit = false})}) {
        if (shader == nullptr)
            continue;
        glUseProgram(shader->program.Get());
        glDrawArrays(GL_TRIANGLES, 0, 3);
    }
    glFinish();
}

void SceneRenderer::Draw(const Node& root, const RenderingOptions& options,
                         const Projection& projection, const Background& background)
{
    m_gpu.BeginFrame();
    m_items.clear();
    Inherited top = {};
    TambVizCore::SetIdentity(top.world);
    collect(root, top, projection, options);

    glDisable(GL_BLEND);
    glClear(GL_DEPTH_BUFFER_BIT);
    drawBackground(background);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_PROGRAM_POINT_SIZE);
    if (options.GetShowFaces())
        drawFaces(options, projection);
    glDisable(GL_CULL_FACE);
    for (const Item& item : m_items)
        drawLines(item, options, projection);
    m_gpu.EndFrame();
}

void SceneRenderer::Clear()
{
    m_gpu.Clear();
    m_shaders = Shaders();
    m_emptyArray = GlVertexArray();
}

void SceneRenderer::collect(const Node& node, const Inherited& above, const Projection& projection,
                            const RenderingOptions& options)
{
    if (!node.IsVisible())
        return;
    Inherited state = above;
    TambVizCore::MultiplyMatrices(above.world, node.Transform(), state.world);
    if (node.Color()) {
        state.color = *node.Color();
        state.hasColor = true;
    }
    state.flags |= node.IsHighlighted() ? PartState::kHighlighted : 0u;
    state.flags |= node.IsSelected() ? PartState::kSelected : 0u;
    const GeoNode* const drawn = node.AsGeoNode();
    if (drawn != nullptr && drawn->GetGeometry() != nullptr && isShown(*drawn, options))
        addItem(*drawn, state, projection, options);
    for (std::size_t i = 0; i < node.ChildCount(); ++i)
        collect(*node.ChildAt(i), state, projection, options);
}

void SceneRenderer::addItem(const GeoNode& node, const Inherited& state,
                            const Projection& projection, const RenderingOptions& options)
{
    Item item;
    item.node = &node;
    item.hasColor = state.hasColor;
    item.color = state.hasColor ? state.color : options.GetDefaultBodyColor();
    item.flags = state.flags;
    double modelView[16];
    TambVizCore::MultiplyMatrices(projection.view, state.world, modelView);
    std::transform(modelView, modelView + 16, item.modelView,
                   [](double value) { return static_cast<float>(value); });
    float center[3];
    node.GetGeometry()->BoundingBox().GetCenter(center);
    TambVizCore::TransformPoint(modelView, center, center);
    item.depth = -static_cast<double>(center[2]);
    m_items.push_back(item);
}

void SceneRenderer::drawBackground(const Background& background)
{
    const Shader* const shader = m_shaders.Background();
    if (shader == nullptr)
        return;
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    glUseProgram(shader->program.Get());
    setColor(shader->baseColor, background.bottom);
    setColor3(shader->highlightColor, background.top);
    glBindVertexArray(m_emptyArray.Get());
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void SceneRenderer::drawFaces(const RenderingOptions& options, const Projection& projection)
{
    const auto draw = [&](const Item& item) {
        setCulling(*item.node, item.modelView);
        drawKind(item, {.color = item.color, .useVertexColors = !item.hasColor, .lit = true},
                 options, projection);
    };
    std::vector<const Item*> transparent;
    for (const Item& item : m_items) {
        if (item.color.a == 255)
            draw(item);
        else
            transparent.push_back(&item);
    }
    std::sort(transparent.begin(), transparent.end(),
              [](const Item* a, const Item* b) { return a->depth > b->depth; });
    glEnable(GL_BLEND);
    // The picture's own alpha is that of what lies behind, made denser.
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_FALSE);
    for (const Item* const item : transparent)
        draw(*item);
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
}

void SceneRenderer::drawLines(const Item& item, const RenderingOptions& options,
                              const Projection& projection)
{
    const GeoNode::Category category = item.node->GetCategory();
    if (options.GetShowTessellation()) {
        glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
        drawKind(item, {.color = options.GetDefaultTessEdgeColor()}, options, projection);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    }
    if (options.GetShowEdges() || category == GeoNode::Category::PMI)
        drawKind(item, {.kind = PartKind::Edge, .color = options.GetDefaultEdgeColor()}, options,
                 projection);
    if (options.GetShowVertices() || category == GeoNode::Category::PointCloud)
        drawKind(item,
                 {.kind = PartKind::Vertex,
                  .color = item.hasColor ? item.color : options.GetDefaultVertexColor(),
                  .useVertexColors = true},
                 options, projection);
}

void SceneRenderer::drawKind(const Item& item, const Style& style, const RenderingOptions& options,
                             const Projection& projection)
{
    GpuGeometry& gpu = m_gpu.Geometry(*item.node);
    const GpuPrimitives& primitives = gpu.primitives[PrimitiveSlot(style.kind)];
    if (primitives.count == 0)
        return;
    const GpuNode& node = m_gpu.Node(*item.node);
    ShaderFeatures features;
    features.lit = style.lit;
    features.normals = style.lit && static_cast<bool>(gpu.normals);
    features.colors = style.useVertexColors && static_cast<bool>(gpu.colors);
    features.parts = node.needsParts;
    const Shader* const shader = m_shaders.Get(features);
    if (shader == nullptr)
        return;
    if (features.parts) {
        glActiveTexture(GL_TEXTURE0 + kPartOfPrimitiveUnit);
        glBindTexture(GL_TEXTURE_BUFFER, m_gpu.PartOfPrimitive(*item.node, style.kind).Get());
        glActiveTexture(GL_TEXTURE0 + kPartStateUnit);
        glBindTexture(GL_TEXTURE_BUFFER, node.texture.Get());
    }
    glUseProgram(shader->program.Get());
    setUniforms(*shader, item, style, options, projection);
    glBindVertexArray(gpu.vertexArray.Get());
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, primitives.indices.Get());
    glDrawElements(primitiveOf(style.kind), primitives.count, GL_UNSIGNED_INT, nullptr);
}

void SceneRenderer::setUniforms(const Shader& shader, const Item& item, const Style& style,
                                const RenderingOptions& options, const Projection& projection)
{
    glUniformMatrix4fv(shader.modelView, 1, GL_FALSE, item.modelView);
    glUniformMatrix4fv(shader.projection, 1, GL_FALSE, projection.projection);
    setColor(shader.baseColor, style.color);
    setColor3(shader.highlightColor, options.GetHighlightColor());
    glUniform1ui(shader.nodeFlags, item.flags);
    glUniform1i(shader.orthographic, projection.orthographic ? 1 : 0);
    glUniform1i(shader.useVertexColors, style.useVertexColors ? 1 : 0);
    glUniform1f(shader.depthBias, style.lit ? 0.0f : biasOf(style.kind));
    const bool cloud = item.node->GetCategory() == GeoNode::Category::PointCloud;
    glUniform1f(shader.pointSize, cloud ? item.node->PointSizePixels()
                                        : std::max(kVertexPixels, item.node->PointSizePixels()));
    if (style.kind == PartKind::Edge)
        glLineWidth(item.node->LineWidthPixels());
}

} // namespace ViewOpenGl
