#include "Painter.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/PartState.h>
#include <TambVizCore/RenderingOptions.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::PartKind;
using TambVizCore::PartState;
using TambVizCore::RenderingOptions;
using TambVizCore::RGBAColor;

/// Smallest size of a vertex marker, pixels.
constexpr float kVertexPixels = 4.0f;

/// Colours as shaders have them: red, green, blue, opacity.
using FloatColor = std::array<float, 4>;

FloatColor toFloat(const RGBAColor& color)
{
    return {static_cast<float>(color.r) / 255.0f, static_cast<float>(color.g) / 255.0f,
            static_cast<float>(color.b) / 255.0f, static_cast<float>(color.a) / 255.0f};
}

void setColor(GLint place, const RGBAColor& color)
{
    glUniform4fv(place, 1, toFloat(color).data());
}

/// @return what a body of one colour and state shows, as the shader tells it for each part.
FloatColor shownColor(const RGBAColor& color, const RGBAColor& highlight, std::uint32_t flags,
                      float opacity, float unselectedOpacity)
{
    FloatColor shown = toFloat(color);
    const bool isSelected = (flags & PartState::kSelected) != 0;
    shown[3] *= isSelected ? opacity : opacity * unselectedOpacity;
    const bool isHighlighted = (flags & PartState::kHighlighted) != 0;
    const bool isPicked = (flags & PartState::kPicked) != 0;
    const float share = isHighlighted ? 0.85f : isSelected ? 0.5f : isPicked ? 0.85f : 0.0f;
    const FloatColor mark = toFloat(highlight);
    for (std::size_t i = 0; i < 3; ++i)
        shown[i] = shown[i] * (1.0f - share) + mark[i] * share;
    return shown;
}

GLenum primitiveOf(PartKind kind)
{
    return kind == PartKind::Face ? GL_TRIANGLES : kind == PartKind::Edge ? GL_LINES : GL_POINTS;
}

int cornersOf(PartKind kind)
{
    return kind == PartKind::Face ? 3 : kind == PartKind::Edge ? 2 : 1;
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

void setCapability(GLenum capability, bool enable)
{
    if (enable)
        glEnable(capability);
    else
        glDisable(capability);
}

} // namespace

void Painter::Use(const RenderingOptions& options, const Projection& projection)
{
    ++m_number;
    m_options = &options;
    m_projection = projection;
    m_clipPlaneCount = 0;
}

void Painter::FitDepth(const TambVizCore::VizBox& drawn)
{
    ++m_number;
    ViewOpenGl::FitDepth(m_projection, drawn);
}

void Painter::UseClipPlanes(bool use)
{
    ++m_number;
    const auto& planes = m_options->GetClipPlanes();
    m_clipPlaneCount = use ? std::min(static_cast<int>(planes.size()), kMaxClipPlanes) : 0;
    for (int i = 0; i < m_clipPlaneCount; ++i)
        writeEyePlane(planes[static_cast<std::size_t>(i)], m_projection.view, m_clipPlanes[i]);
    for (int i = m_clipPlaneCount; i < kMaxClipPlanes; ++i)
        std::fill_n(m_clipPlanes[i], 4, 0.0f);
}

std::span<const float[4]> Painter::ClipPlanes() const
{
    return {m_clipPlanes, static_cast<std::size_t>(m_clipPlaneCount)};
}

void Painter::UseOneClipPlane(std::size_t plane)
{
    ++m_number;
    std::memcpy(m_savedPlanes, m_clipPlanes, sizeof(m_savedPlanes));
    for (std::size_t i = 0; i < kMaxClipPlanes; ++i)
        if (i != plane)
            std::fill_n(m_clipPlanes[i], 4, 0.0f);
}

void Painter::RestoreClipPlanes()
{
    ++m_number;
    std::memcpy(m_clipPlanes, m_savedPlanes, sizeof(m_clipPlanes));
}

/// Programs that write no clip distances clip wrongly on software renderers while these are
/// enabled.
void Painter::enableClipPlanes(bool enable)
{
    const int wanted = enable ? m_clipPlaneCount : 0;
    for (int i = std::min(wanted, m_enabledPlanes); i < std::max(wanted, m_enabledPlanes); ++i)
        setCapability(GL_CLIP_DISTANCE0 + static_cast<GLenum>(i), i < wanted);
    m_enabledPlanes = wanted;
}

const GpuPrimitives& Painter::primitivesOf(const FrameItem& item, PartKind kind) const
{
    const std::size_t slot = PrimitiveSlot(kind);
    return item.level != nullptr ? item.level->primitives[slot] : item.geometry->primitives[slot];
}

int Painter::Count(const FrameItem& item, PartKind kind) const
{
    return primitivesOf(item, kind).count / cornersOf(kind);
}

void Painter::DrawWhole(const FrameItem& item, const PaintStyle& style)
{
    if (const int count = Count(item, style.kind); count > 0)
        Draw(item, style, {0, count});
}

bool Painter::DrawPieces(const FrameItem& item, const PaintStyle& style, int& next,
                         FrameBudget& budget)
{
    const int count = Count(item, style.kind);
    while (next < count) {
        if (budget.IsSpent(m_work))
            return false;
        const int piece = budget.Piece(style.kind, count - next);
        Draw(item, style, {next, piece});
        next += piece;
    }
    next = 0;
    return true;
}

void Painter::Draw(const FrameItem& item, const PaintStyle& style, const PrimitiveRun& run)
{
    const GpuGeometry& gpu = *item.geometry;
    ShaderFeatures features;
    features.lit = style.lit;
    features.normals = style.lit && static_cast<bool>(gpu.normals);
    features.colors = style.useVertexColors && static_cast<bool>(gpu.colors);
    features.parts = item.states->needsParts;
    features.mixed = style.mixed;
    features.clip = m_clipPlaneCount > 0 && item.cut;
    features.ids = m_ids;
    features.orthographic = m_projection.orthographic;
    features.markers = style.kind == PartKind::Vertex;
    Shader* const shader = m_shaders.Get(features);
    if (shader == nullptr)
        return;
    if (features.parts || features.ids) {
        glActiveTexture(GL_TEXTURE0 + kPartOfPrimitiveUnit);
        glBindTexture(GL_TEXTURE_BUFFER,
                      m_gpu.PartOfPrimitive(*item.node, style.kind, item.level).Get());
    }
    if (features.parts) {
        glActiveTexture(GL_TEXTURE0 + kPartStateUnit);
        glBindTexture(GL_TEXTURE_BUFFER, item.states->texture.Get());
    }
    enableClipPlanes(features.clip);
    setFaceState(item, style);
    glUseProgram(shader->program.Get());
    setFrameUniforms(*shader);
    setUniforms(*shader, item, style);
    if (features.parts || features.ids)
        glUniform1i(shader->firstPrimitive, run.first);
    if (features.ids)
        glUniform1i(shader->hasParts, 1);
    glBindVertexArray(gpu.vertexArray.Get());
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, primitivesOf(item, style.kind).indices.Get());
    const int corners = cornersOf(style.kind);
    const auto offset =
        sizeof(GLuint) * static_cast<std::size_t>(corners) * static_cast<std::size_t>(run.first);
    glDrawElements(primitiveOf(style.kind), corners * run.count, GL_UNSIGNED_INT,
                   reinterpret_cast<const void*>(offset));
    m_work += WorkOf(style.kind, run.count);
    if (style.kind == PartKind::Face)
        m_work.covered += item.covered * run.count / Count(item, PartKind::Face);
}

void Painter::SetLineWidth(float pixels)
{
    glLineWidth(std::min(pixels * static_cast<float>(m_projection.lineScale), m_maxLineWidth));
}

void Painter::setFaceState(const FrameItem& item, const PaintStyle& style)
{
    if (style.kind == PartKind::Edge)
        SetLineWidth(style.lineWidth);
    if (style.kind != PartKind::Face)
        return;
    setCapability(GL_CULL_FACE, style.mayCull && item.culled);
    glFrontFace(item.mirrored ? GL_CW : GL_CCW);
}

bool Painter::UseFlat(const FrameItem& item, const RGBAColor& color, float nearer)
{
    ShaderFeatures features;
    features.normals = true;
    features.ids = m_ids;
    features.orthographic = m_projection.orthographic;
    Shader* const shader = m_shaders.Get(features);
    if (shader == nullptr)
        return false;
    enableClipPlanes(false);
    glUseProgram(shader->program.Get());
    setFrameUniforms(*shader);
    PaintStyle style;
    style.color = color;
    style.nearer = nearer;
    setUniforms(*shader, item, style);
    if (features.ids)
        glUniform1i(shader->hasParts, 0);
    return true;
}

void Painter::DrawBackground(const RGBAColor& top, const RGBAColor& bottom)
{
    Shader* const shader = m_shaders.Background();
    if (shader == nullptr)
        return;
    if (!m_emptyArray)
        m_emptyArray = MakeVertexArray();
    glUseProgram(shader->program.Get());
    setColor(shader->baseColor, bottom);
    setColor(shader->highlightColor, top);
    glBindVertexArray(m_emptyArray.Get());
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void Painter::Rest()
{
    enableClipPlanes(false);
    glDisable(GL_CULL_FACE);
    glFrontFace(GL_CCW);
}

void Painter::Clear()
{
    m_shaders = Shaders();
    m_emptyArray = GlVertexArray();
    m_enabledPlanes = 0;
}

void Painter::setFrameUniforms(Shader& shader)
{
    if (shader.frame == m_number)
        return;
    shader.frame = m_number;
    glUniformMatrix4fv(shader.projection, 1, GL_FALSE, m_projection.projection);
    setColor(shader.highlightColor, m_options->GetHighlightColor());
    glUniform4fv(shader.clipPlanes, kMaxClipPlanes, m_clipPlanes[0]);
}

void Painter::setUniforms(Shader& shader, const FrameItem& item, const PaintStyle& style)
{
    glUniformMatrix4fv(shader.modelView, 1, GL_FALSE, item.modelView);
    glUniformMatrix3fv(shader.normalMatrix, 1, GL_FALSE, item.normalMatrix);
    // Lines and points are drawn without blending and stay as they are.
    const bool isFace = style.kind == PartKind::Face;
    const float opacity = isFace ? item.opacity : 1.0f;
    const float unselectedOpacity = isFace ? item.unselectedOpacity : 1.0f;
    if (shader.nodeFlags < 0)
        glUniform4fv(shader.baseColor, 1,
                     shownColor(style.color, m_options->GetHighlightColor(), item.flags, opacity,
                                unselectedOpacity)
                         .data());
    else
        setColor(shader.baseColor, style.color);
    glUniform1ui(shader.nodeFlags, item.flags);
    glUniform1i(shader.usesPartColors, style.usePartColors ? 1 : 0);
    glUniform1f(shader.towardEye,
                style.towardEyePixels *
                    static_cast<float>(m_projection.pixelSize * m_projection.lineScale));
    glUniform1f(shader.nearer, style.nearer);
    glUniform1i(shader.transparentLayer, style.layer == Layer::Transparent ? 1 : 0);
    glUniform1f(shader.opacity, opacity);
    glUniform1f(shader.unselectedOpacity, unselectedOpacity);
    if (m_ids)
        glUniform1ui(shader.itemNumber, item.number);
    if (style.kind == PartKind::Vertex) {
        const float size = item.node->PointSizePixels();
        const bool cloud = item.node->GetCategory() == GeoNode::Category::PointCloud;
        glUniform1f(shader.pointSize, static_cast<float>(m_projection.lineScale) *
                                          (cloud ? size : std::max(kVertexPixels, size)));
    }
}

} // namespace ViewOpenGl
