#include "text/TextLabels.h"

#include "text/LabelPlacement.h"

#include <OrvikCore/Dbg.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace ViewOpenGl {

using OrvikCore::TextItem3D;
using TambVizCore::RGBAColor;

namespace {

/// Height of a capital letter in the texture of a label that lies in the world.
constexpr int kWorldLetterPixels = 64;

const char kVertexText[] = R"glsl(#version 330 core
layout(location = 0) in vec4 corner;
layout(location = 1) in vec2 place;
out vec2 texturePlace;
void main()
{
    texturePlace = place;
    gl_Position = corner;
}
)glsl";

const char kFragmentText[] = R"glsl(#version 330 core
in vec2 texturePlace;
uniform sampler2D coverage;
uniform vec4 textColor;
uniform vec4 backgroundColor;
out vec4 outColor;
void main()
{
    float share = texture(coverage, texturePlace).r * textColor.a;
    float alpha = share + backgroundColor.a * (1.0 - share);
    if (alpha == 0.0)
        discard;
    vec3 mixed = textColor.rgb * share + backgroundColor.rgb * backgroundColor.a * (1.0 - share);
    outColor = vec4(mixed / alpha, alpha);
}
)glsl";

void setColor(GLint place, const RGBAColor& color)
{
    glUniform4f(place, static_cast<float>(color.r) / 255.0f, static_cast<float>(color.g) / 255.0f,
                static_cast<float>(color.b) / 255.0f, static_cast<float>(color.a) / 255.0f);
}

} // namespace

TextLabels::TextLabels() = default;

TextLabels::~TextLabels() = default;

void TextLabels::Add(std::uint64_t id, const TextItem3D& item, LabelStart start)
{
    drop(id);
    ++m_revision;
    m_labels.emplace(id, Label{.item = item, .start = start, .texture = {}});
}

void TextLabels::SetOffset(std::uint64_t id, float x, float y)
{
    const auto found = m_labels.find(id);
    if (found == m_labels.end())
        return;
    TextItem3D& item = found->second.item;
    if (item.m_offsetX == x && item.m_offsetY == y)
        return;
    item.m_offsetX = x;
    item.m_offsetY = y;
    ++m_revision;
}

void TextLabels::Remove(std::uint64_t id)
{
    drop(id);
    ++m_revision;
}

/// Takes a label out; its texture waits for the context.
void TextLabels::drop(std::uint64_t id)
{
    const auto found = m_labels.find(id);
    if (found == m_labels.end())
        return;
    if (found->second.texture)
        m_dropped.push_back(std::move(found->second.texture));
    m_labels.erase(found);
}

std::size_t TextLabels::TextureCount() const
{
    const auto kept = std::count_if(m_labels.begin(), m_labels.end(), [](const auto& entry) {
        return static_cast<bool>(entry.second.texture);
    });
    return m_dropped.size() + static_cast<std::size_t>(kept);
}

void TextLabels::SetVisible(std::uint64_t id, bool visible)
{
    const auto found = m_labels.find(id);
    if (found == m_labels.end() || found->second.visible == visible)
        return;
    found->second.visible = visible;
    ++m_revision;
}

TambVizCore::VizBox TextLabels::Bounds(const double* view) const
{
    TambVizCore::VizBox bounds;
    for (const auto& [id, label] : m_labels) {
        const TextItem3D& item = label.item;
        if (!label.visible || item.m_facesCamera)
            continue;
        // No letter is wider than twice the height of a capital.
        const double reach = 2.0 * item.m_height * static_cast<double>(item.m_text.size() + 1) +
                             std::abs(item.m_offsetX) + std::abs(item.m_offsetY);
        bounds.Add(TambVizCore::VizBox(item.m_x - reach, item.m_y - reach, item.m_z - reach,
                                       item.m_x + reach, item.m_y + reach, item.m_z + reach)
                       .Transformed(view));
    }
    return bounds;
}

void TextLabels::ClearGraphics()
{
    m_dropped.clear();
    for (auto& [id, label] : m_labels) {
        label.texture = GlTexture();
        label.drawnPixels = 0;
    }
    m_program = GlProgram();
    m_array = GlVertexArray();
    m_buffer = GlBuffer();
}

bool TextLabels::prepareProgram()
{
    if (m_program || m_programFailed)
        return static_cast<bool>(m_program);
    std::string errorText;
    m_program = MakeProgram(kVertexText, kFragmentText, errorText);
    m_programFailed = !m_program;
    if (m_programFailed) {
        OrvikCore::dbg << "-- view: a shader does not compile: " << errorText << std::endl;
        return false;
    }
    m_textColor = glGetUniformLocation(m_program.Get(), "textColor");
    m_backgroundColor = glGetUniformLocation(m_program.Get(), "backgroundColor");
    const LabelCorners empty = {};
    m_array = MakeVertexArray();
    glBindVertexArray(m_array.Get());
    m_buffer = MakeBuffer(GL_ARRAY_BUFFER, empty.data(), sizeof(empty));
    glEnableVertexAttribArray(0);
    glVertexAttribPointer(0, 4, GL_FLOAT, GL_FALSE, sizeof(LabelCorner), nullptr);
    glEnableVertexAttribArray(1);
    glVertexAttribPointer(1, 2, GL_FLOAT, GL_FALSE, sizeof(LabelCorner),
                          reinterpret_cast<const void*>(sizeof(LabelCorner::clip)));
    return true;
}

bool TextLabels::prepareTexture(Label& label, int capitalPixels)
{
    if (label.drawnPixels == capitalPixels)
        return static_cast<bool>(label.texture);
    label.drawnPixels = capitalPixels;
    label.texture = GlTexture();
    TextImage image;
    std::string errorText;
    const TextFont font{label.item.m_fontName, label.item.m_bold, label.item.m_italic,
                        capitalPixels};
    if (!m_raster.Draw(label.item.m_text, font, image, errorText)) {
        OrvikCore::dbg << "-- view: a text cannot be drawn: " << errorText << std::endl;
        return false;
    }
    label.width = image.width;
    label.height = image.height;
    label.baseline = image.baseline;
    GLuint name = 0;
    glGenTextures(1, &name);
    label.texture = GlTexture(name);
    glBindTexture(GL_TEXTURE_2D, name);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_R8, image.width, image.height, 0, GL_RED, GL_UNSIGNED_BYTE,
                 image.coverage.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    glGenerateMipmap(GL_TEXTURE_2D);
    return true;
}

void TextLabels::Draw(const Projection& projection, int width, int height, double pixelScale)
{
    m_dropped.clear();
    if (m_labels.empty() || !prepareProgram())
        return;
    glActiveTexture(GL_TEXTURE0);
    glUseProgram(m_program.Get());
    glEnable(GL_BLEND);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_FALSE);
    glDisable(GL_CULL_FACE);
    // Those in front of everything come last.
    for (const bool facing : {false, true})
        for (auto& [id, label] : m_labels)
            if (label.visible && label.item.m_facesCamera == facing)
                drawLabel(label, projection, width, height, pixelScale);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
}

void TextLabels::drawLabel(Label& label, const Projection& projection, int width, int height,
                           double pixelScale)
{
    const bool facing = label.item.m_facesCamera;
    const int capital =
        facing ? std::clamp(static_cast<int>(label.item.m_height * pixelScale + 0.5), 1, 512)
               : kWorldLetterPixels;
    if (!prepareTexture(label, capital))
        return;
    const int start = label.start == LabelStart::MiddleAtAnchor ? label.width / 2 : 0;
    const LabelExtent extent{label.width, label.height, label.baseline, capital, start};
    LabelCorners corners;
    const bool isSeen =
        facing ? PlaceFacing(label.item, extent, projection, width, height, pixelScale, corners)
               : PlaceInWorld(label.item, extent, projection, corners);
    if (!isSeen)
        return;
    if (facing)
        glDisable(GL_DEPTH_TEST);
    else
        glEnable(GL_DEPTH_TEST);
    WriteBuffer(GL_ARRAY_BUFFER, m_buffer, 0, corners.data(), sizeof(corners));
    setColor(m_textColor, label.item.m_textColor);
    setColor(m_backgroundColor, label.item.m_backgroundColor);
    glBindTexture(GL_TEXTURE_2D, label.texture.Get());
    glBindVertexArray(m_array.Get());
    glDrawArrays(GL_TRIANGLE_FAN, 0, 4);
}

} // namespace ViewOpenGl
