#include "Shaders.h"

#include <OrvikCore/Dbg.h>

namespace ViewOpenGl {
namespace {

// What has to win against the surface that it lies on comes toward the eye without moving in the
// picture: by world units in parallel projection, by a share of its distance in perspective.
const char kVertexText[] = R"glsl(
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
layout(location = 2) in vec4 color;
uniform mat4 modelView;
uniform mat3 normalMatrix;
uniform mat4 projection;
uniform float towardEye;
uniform float nearer; // As a share of half of the depths.
#ifdef MARKERS
uniform float pointSize;
#endif
#ifdef CLIP
uniform vec4 clipPlanes[6];
out float gl_ClipDistance[6];
#endif
#ifdef PLACE
STRAIGHT out vec3 viewPosition;
#endif
#ifdef NORMALS
STRAIGHT out vec3 viewNormal;
#endif
#ifdef COLORS
STRAIGHT out vec4 vertexColor;
#endif
#ifdef IDS
STRAIGHT out float eyeDepth;
#endif
void main()
{
    vec3 p = (modelView * vec4(position, 1.0)).xyz;
#ifdef IDS
    eyeDepth = -p.z;
#endif
#ifdef PLACE
    viewPosition = p;
#endif
#ifdef NORMALS
    viewNormal = normalMatrix * normal;
#endif
#ifdef COLORS
    vertexColor = color;
#endif
#ifdef CLIP
    for (int i = 0; i < 6; ++i)
        gl_ClipDistance[i] = dot(clipPlanes[i], vec4(p, 1.0));
#endif
#ifdef ORTHOGRAPHIC
    vec3 drawn = p + vec3(0.0, 0.0, towardEye);
#else
    vec3 drawn = p * (1.0 - towardEye);
#endif
    gl_Position = projection * vec4(drawn, 1.0);
    gl_Position.z -= nearer * gl_Position.w;
#ifdef MARKERS
    gl_PointSize = pointSize;
#endif
}
)glsl";

// Flags as in TambVizCore::PartState: 1 shown, 2 highlighted, 4 selected, 8 coloured,
// 16 picked.
const char kFragmentText[] = R"glsl(
#ifdef PLACE
STRAIGHT in vec3 viewPosition;
#endif
#ifdef NORMALS
STRAIGHT in vec3 viewNormal;
#endif
#ifdef COLORS
STRAIGHT in vec4 vertexColor;
#endif
uniform vec4 baseColor;
uniform vec4 highlightColor;
uniform uint nodeFlags;
#ifdef PARTS
uniform bool usesPartColors;
#endif
uniform bool transparentLayer;
uniform float opacity;
uniform float unselectedOpacity;
#if defined(PARTS) || defined(IDS)
uniform usamplerBuffer partOfPrimitive;
uniform int firstPrimitive; // Of the run that is drawn.
#endif
#ifdef PARTS
uniform usamplerBuffer partStates;
#endif
layout(location = 0) out vec4 outColor;
#ifdef IDS
uniform uint itemNumber;
uniform bool hasParts;
STRAIGHT in float eyeDepth;
layout(location = 1) out uvec2 outItem;
layout(location = 2) out float outDepth;
#endif

#ifdef PARTS
vec4 unpackColor(uint c)
{
    return vec4(float(c & 255u), float((c >> 8) & 255u), float((c >> 16) & 255u),
                float(c >> 24)) / 255.0;
}
#endif

#ifdef LIT
// Light from above left and from the eye, a sky brighter than the ground, and a soft gloss. Both
// sides of a surface are lit.
vec3 shade(vec3 surface)
{
#ifdef NORMALS
    vec3 n = normalize(viewNormal);
#else
    vec3 n = normalize(cross(dFdx(viewPosition), dFdy(viewPosition)));
#endif
#ifdef ORTHOGRAPHIC
    const vec3 toEye = vec3(0.0, 0.0, 1.0);
#else
    vec3 toEye = normalize(-viewPosition);
#endif
    float head = dot(n, toEye);
    if (head < 0.0) {
        n = -n;
        head = -head;
    }
    const vec3 toKey = vec3(-0.3980, 0.5970, 0.6965);
    float key = max(dot(n, toKey), 0.0);
    float gloss = max(dot(n, normalize(toKey + toEye)), 0.0);
    gloss *= gloss;
    gloss *= gloss;
    gloss *= gloss;
    gloss *= gloss;
    return surface * (0.40 + 0.08 * n.y + 0.38 * key + 0.26 * head) + vec3(0.10 * gloss);
}
#endif

void main()
{
#ifdef IDS
    uint item = 0xFFFFFFFFu;
    if (hasParts)
        item = texelFetch(partOfPrimitive, gl_PrimitiveID + firstPrimitive).r;
    outItem = uvec2(itemNumber, item);
    outDepth = eyeDepth;
#endif
    vec4 color = baseColor;
#ifdef STATES
    uint flags = nodeFlags;
#endif
#ifdef COLORS
    color = vertexColor;
#endif
#ifdef PARTS
    uint part = texelFetch(partOfPrimitive, gl_PrimitiveID + firstPrimitive).r;
    if (part != 0xFFFFFFFFu) {
        uvec2 state = texelFetch(partStates, int(part)).rg;
        if ((state.g & 1u) == 0u)
            discard;
        flags |= state.g & 22u;
        if (usesPartColors && (state.g & 8u) != 0u)
            color = unpackColor(state.r);
    }
#endif
#ifdef STATES
    color.a *= opacity;
    if ((flags & 4u) == 0u)
        color.a *= unselectedOpacity;
#endif
#ifdef MIXED
    if ((color.a < 1.0) != transparentLayer)
        discard;
#endif
    vec3 rgb = color.rgb;
#ifdef STATES
    if ((flags & 2u) != 0u)
        rgb = mix(rgb, highlightColor.rgb, 0.85);
    else if ((flags & 4u) != 0u)
        rgb = mix(rgb, highlightColor.rgb, 0.5);
    else if ((flags & 16u) != 0u)
        rgb = mix(rgb, highlightColor.rgb, 0.85);
#endif
#ifdef LIT
    rgb = shade(rgb);
#endif
    outColor = vec4(rgb, color.a);
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
uniform vec4 highlightColor; // At the top.
out vec4 outColor;
void main()
{
    outColor = mix(baseColor, highlightColor, clamp(height, 0.0, 1.0));
}
)glsl";

// A body of one colour and state gets what it shows as its colour.
// In parallel projection all that is interpolated is so without a division.
const char kCommonText[] = R"glsl(
#ifdef ORTHOGRAPHIC
#define STRAIGHT noperspective
#else
#define STRAIGHT smooth
#endif
#if defined(LIT) && !(defined(ORTHOGRAPHIC) && defined(NORMALS))
#define PLACE
#endif
#if defined(PARTS) || defined(COLORS)
#define STATES
#endif
)glsl";

const char kVersionText[] = "#version 330 core\n";

std::string header(const ShaderFeatures& features)
{
    std::string text = kVersionText;
    text += features.lit ? "#define LIT\n" : "";
    text += features.lit && features.normals ? "#define NORMALS\n" : "";
    text += features.colors ? "#define COLORS\n" : "";
    text += features.parts ? "#define PARTS\n" : "";
    text += features.mixed ? "#define MIXED\n" : "";
    text += features.clip ? "#define CLIP\n" : "";
    text += features.ids ? "#define IDS\n" : "";
    text += features.orthographic ? "#define ORTHOGRAPHIC\n" : "";
    text += features.markers ? "#define MARKERS\n" : "";
    return text + kCommonText;
}

std::size_t indexOf(const ShaderFeatures& features)
{
    std::size_t index = 0;
    for (const bool bit :
         {features.lit, features.normals, features.colors, features.parts, features.mixed,
          features.clip, features.ids, features.orthographic, features.markers})
        index = index * 2 + (bit ? 1 : 0);
    return index;
}

void findUniforms(Shader& shader)
{
    const GLuint program = shader.program.Get();
    const auto place = [program](const char* name) { return glGetUniformLocation(program, name); };
    shader.modelView = place("modelView");
    shader.normalMatrix = place("normalMatrix");
    shader.projection = place("projection");
    shader.baseColor = place("baseColor");
    shader.highlightColor = place("highlightColor");
    shader.nodeFlags = place("nodeFlags");
    shader.usesPartColors = place("usesPartColors");
    shader.towardEye = place("towardEye");
    shader.nearer = place("nearer");
    shader.pointSize = place("pointSize");
    shader.transparentLayer = place("transparentLayer");
    shader.opacity = place("opacity");
    shader.unselectedOpacity = place("unselectedOpacity");
    shader.clipPlanes = place("clipPlanes");
    shader.itemNumber = place("itemNumber");
    shader.hasParts = place("hasParts");
    shader.firstPrimitive = place("firstPrimitive");
    glUseProgram(program);
    glUniform1i(place("partOfPrimitive"), kPartOfPrimitiveUnit);
    glUniform1i(place("partStates"), kPartStateUnit);
}

} // namespace

Shader* Shaders::Get(const ShaderFeatures& features)
{
    std::optional<Shader>& slot = m_shaders[indexOf(features)];
    if (slot)
        return slot->program ? &*slot : nullptr;
    return make(slot, header(features) + kVertexText, header(features) + kFragmentText);
}

Shader* Shaders::Background()
{
    if (m_background)
        return m_background->program ? &*m_background : nullptr;
    return make(m_background, std::string(kVersionText) + kBackgroundVertexText,
                std::string(kVersionText) + kBackgroundFragmentText);
}

Shader* Shaders::make(std::optional<Shader>& slot, const std::string& vertexText,
                      const std::string& fragmentText)
{
    slot.emplace();
    std::string errorText;
    slot->program = MakeProgram(vertexText, fragmentText, errorText);
    if (!slot->program) {
        OrvikCore::dbg << "-- view: a shader does not compile: " << errorText << std::endl;
        return nullptr;
    }
    findUniforms(*slot);
    return &*slot;
}

} // namespace ViewOpenGl
