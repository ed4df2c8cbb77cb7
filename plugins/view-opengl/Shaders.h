#ifndef VIEWOPENGL_SHADERS_H
#define VIEWOPENGL_SHADERS_H

#include "GlObjects.h"

#include <array>
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

/// What a body brings along; each combination is a program of its own.
struct ShaderFeatures
{
    bool lit = true;      ///< Faces; lines and points are drawn in one colour.
    bool normals = false; ///< The body has normals; else each triangle gets its own.
    bool colors = false;  ///< The body has a colour for each vertex.
    bool parts = false;   ///< The state of each part is looked up.
};

/// A program with the places of its uniforms; -1 where it has none.
struct Shader
{
    GlProgram program;
    GLint modelView = -1;
    GLint projection = -1;
    GLint baseColor = -1;
    GLint highlightColor = -1;
    GLint nodeFlags = -1;
    GLint orthographic = -1;
    GLint depthBias = -1;
    GLint pointSize = -1;
    GLint useVertexColors = -1;
};

/// The programs of the view, compiled when first used.
class Shaders
{
public:
    /// @return the program; null when it does not compile, which the debug output tells once.
    const Shader* Get(const ShaderFeatures& features);

    /// @return the program of the background; null as above. Its uniforms are top and bottom.
    const Shader* Background();

private:
    const Shader* make(std::optional<Shader>& slot, const std::string& vertexText,
                       const std::string& fragmentText);

    std::array<std::optional<Shader>, 16> m_shaders; ///< By the bits of the features.
    std::optional<Shader> m_background;
};

} // namespace ViewOpenGl

#endif
