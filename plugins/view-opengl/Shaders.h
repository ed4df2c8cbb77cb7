#ifndef VIEWOPENGL_SHADERS_H
#define VIEWOPENGL_SHADERS_H

#include "GlObjects.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace ViewOpenGl {

/// Where the shaders find vertex data.
enum VertexLocation : GLuint
{
    kPositionLocation = 0,
    kNormalLocation = 1,
    kColorLocation = 2,
};

/// Texture units of the part data.
constexpr GLint kPartOfPrimitiveUnit = 0;
constexpr GLint kPartStateUnit = 1;

/// Section planes that a shader takes, as many as RenderingOptions keeps.
constexpr int kMaxClipPlanes = 6;

/// What a body brings along; each combination is a program of its own.
struct ShaderFeatures
{
    bool lit = true;      ///< Faces; lines and points are drawn in one colour.
    bool normals = false; ///< The body has normals; else each triangle gets its own.
    bool colors = false;  ///< The body has a colour for each vertex, and they are used.
    bool parts = false;   ///< The state of each part is looked up.
    bool mixed = false;   ///< Opaque and transparent places are told apart.
    bool clip = false;    ///< Section planes cut.
    bool ids = false;     ///< Item, part and depth are written beside the colour.
    bool orthographic = true;
    bool markers = false; ///< Points of a size.
};

/// Which places of a body are drawn; only told apart by programs of mixed bodies.
enum class Layer : GLint
{
    Opaque = 0,
    Transparent = 1
};

/// A program with the places of its uniforms; -1 where it has none.
struct Shader
{
    GlProgram program;
    GLint modelView = -1;
    GLint normalMatrix = -1;
    GLint projection = -1;
    GLint baseColor = -1;
    GLint highlightColor = -1;
    GLint nodeFlags = -1;
    GLint usesPartColors = -1;
    GLint towardEye = -1;
    GLint nearer = -1;
    GLint pointSize = -1;
    GLint transparentLayer = -1;
    GLint opacity = -1;
    GLint unselectedOpacity = -1;
    GLint clipPlanes = -1;
    GLint itemNumber = -1;
    GLint hasParts = -1;
    GLint firstPrimitive = -1;
    std::uint64_t frame = 0; ///< The frame whose common uniforms it has.
};

/// The programs of the view, compiled when first used.
class Shaders
{
public:
    /// @return the program; null when it does not compile, which the debug output tells once.
    Shader* Get(const ShaderFeatures& features);

    /// @return the program of the background; null as above. Its colours are baseColor at the
    ///         bottom and highlightColor at the top.
    Shader* Background();

private:
    Shader* make(std::optional<Shader>& slot, const std::string& vertexText,
                 const std::string& fragmentText);

    std::array<std::optional<Shader>, 512> m_shaders; ///< By the bits of the features.
    std::optional<Shader> m_background;
};

} // namespace ViewOpenGl

#endif
