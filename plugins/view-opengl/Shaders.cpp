#include "Shaders.h"

#include <OrvikCore/Dbg.h>

namespace ViewOpenGl {
namespace {

const char kVertexText[] = R"glsl(
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
layout(location = 2) in vec4 color;
uniform mat4 modelView;
uniform mat4 projection;
uniform float depthBias;
uniform float pointSize;
out vec3 viewPosition;
#ifdef NORMALS
out vec3 viewNormal;
#endif
#ifdef COLORS
out vec4 vertexColor;
#endif
void main()
{
    vec4 p = modelView * vec4(position, 1.0);
    viewPosition = p.xyz;
#ifdef NORMALS
    viewNormal = mat3(modelView) * normal;
#endif
#ifdef COLORS
    vertexColor = color;
#endif
    gl_Position = projection * p;
    gl_Position.z -= depthBias * gl_Position.w;
    gl_PointSize = pointSize;
}
)glsl";

// Flags as in TambVizCore::PartState: 1 shown, 2 highlighted, 4 selected, 8 coloured.
const char kFragmentText[] = R"glsl(
in vec3 viewPosition;
#ifdef NORMALS
in vec3 viewNormal;
#endif
#ifdef COLORS
in vec4 vertexColor;
#endif
uniform vec4 baseColor;
uniform vec3 highlightColor;
uniform uint nodeFlags;
uniform bool orthographic;
uniform bool useVertexColors;
#ifdef PARTS
uniform usamplerBuffer partOfPrimitive;
uniform usamplerBuffer partStates;
#endif
out vec4 outColor;

vec3 shade(vec3 surface)
{
#ifdef NORMALS
    vec3 n = normalize(viewNormal);
#else
    vec3 n = normalize(cross(dFdx(viewPosition), dFdy(viewPosition)));
#endif
    vec3 toEye = orthographic ? vec3(0.0, 0.0, 1.0) : normalize(-viewPosition);
    if (dot(n, toEye) < 0.0)
        n = -n;
    float key = max(dot(n, normalize(vec3(-0.35, 0.55, 0.75))), 0.0);
    float head = max(dot(n, toEye), 0.0);
    return surface * (0.18 + 0.42 * key + 0.42 * head);
}

void main()
{
    vec4 color = baseColor;
    uint flags = nodeFlags;
#ifdef COLORS
    if (useVertexColors)
        color = vertexColor;
#endif
#ifdef PARTS
    uint part = texelFetch(partOfPrimitive, gl_PrimitiveID).r;
    if (part != 0xFFFFFFFFu) {
        uvec2 state = texelFetch(partStates, int(part)).rg;
        if ((state.g & 1u) == 0u)
            discard;
        flags |= state.g & 6u;
        if ((state.g & 8u) != 0u)
            color = unpackColor(state.r);
    }
#endif
    vec3 rgb = color.rgb;
    if ((flags & 2u) != 0u)
        rgb = mix(rgb, highlightColor, 0.75);
    else if ((flags & 4u) != 0u)
        rgb = mix(rgb, highlightColor, 0.5);
#ifdef LIT
    rgb = shade(rgb);
#endif
    outColor = vec4(rgb, color.a);
}
)glsl";

const char kUnpackText[] = R"glsl(
vec4 unpackColor(uint c)
{
    return vec4(float(c & 255u), float((c >> 8) & 255u), float((c >> 16) & 255u),
                float(c >> 24)) / 255.0;
}
)glsl";

const char kBackgroundVertexText[] = R"glsl(
out float height;
void main()
{
    vec2 p = vec2(gl_VertexID == 1 ? 3.0 : -1.0, gl_VertexID == 2 ? 3.0 : -1.0);
    height = 0.5 * (p.y + 1.0);
    gl_Position = vec4(p, 0.0, 1.0);
}
)glsl";

const char kBackgroundFragmentText[] = R"glsl(
in float height;
uniform vec4 baseColor;      // At the bottom.
uniform vec3 highlightColor; // At the top.
out vec4 outColor;
void main()
{
    outColor = vec4(mix(baseColor.rgb, highlightColor, clamp(height, 0.0, 1.0)), baseColor.a);
}
)glsl";

std::string header(const ShaderFeatures& features)
{
    std::string text = "#version 330 core\n";
    text += features.lit ? "#define LIT\n" : "";
    text += features.normals ? "#define NORMALS\n" : "";
    text += features.colors ? "#define COLORS\n" : "";
    text += features.parts ? "#define PARTS\n" : "";
    return text;
}

std::size_t indexOf(const ShaderFeatures& features)
{
    return (features.lit ? 1u : 0u) | (features.normals ? 2u : 0u) | (features.colors ? 4u : 0u) |
           (features.parts ? 8u : 0u);
}

} // namespace

const Shader* Shaders::Get(const ShaderFeatures& features)
{
    return make(m_shaders[indexOf(features)], header(features) + kVertexText,
                header(features) + kUnpackText + kFragmentText);
}

const Shader* Shaders::Background()
{
    const std::string version = "#version 330 core\n";
    return make(m_background, version + kBackgroundVertexText, version + kBackgroundFragmentText);
}

const Shader* Shaders::make(std::optional<Shader>& slot, const std::string& vertexText,
                            const std::string& fragmentText)
{
    if (!slot) {
        slot.emplace();
        std::string errorText;
        slot->program = MakeProgram(vertexText, fragmentText, errorText);
        if (!slot->program)
            OrvikCore::dbg << "-- view: a shader does not compile: " << errorText << std::endl;
        const auto place = [&](const char* name) {
            return slot->program ? glGetUniformLocation(slot->program.Get(), name) : -1;
        };
        slot->modelView = place("modelView");
        slot->projection = place("projection");
        slot->baseColor = place("baseColor");
        slot->highlightColor = place("highlightColor");
        slot->nodeFlags = place("nodeFlags");
        slot->orthographic = place("orthographic");
        slot->depthBias = place("depthBias");
        slot->pointSize = place("pointSize");
        slot->useVertexColors = place("useVertexColors");
        if (place("partStates") >= 0) {
            glUseProgram(slot->program.Get());
            glUniform1i(place("partOfPrimitive"), kPartOfPrimitiveUnit);
            glUniform1i(place("partStates"), kPartStateUnit);
        }
    }
    return slot->program ? &*slot : nullptr;
}

} // namespace ViewOpenGl
