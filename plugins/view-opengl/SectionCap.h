#ifndef VIEWOPENGL_SECTIONCAP_H
#define VIEWOPENGL_SECTIONCAP_H

#include "GlObjects.h"

namespace TambVizCore {
class VizBox;
}

namespace ViewOpenGl {

/// A rectangle on a section plane, large enough to close one body that the plane has cut open.
/// The context is current in every call. @thread Main thread.
class SectionCap
{
public:
    /// Places the rectangle.
    ///
    /// @param plane  float[4] in eye space: a point p is kept where plane . (p, 1) is not below 0.
    /// @param box    of the body, in eye space.
    /// @return false when the plane misses the box.
    bool Place(const float* plane, const TambVizCore::VizBox& box);

    /// Draws the rectangle as two triangles with positions and normals in eye space; the normal
    /// points to what was cut away.
    void Draw();

private:
    void upload();

    float m_vertices[24] = {}; ///< Four corners: position and normal each.
    GlVertexArray m_array;
    GlBuffer m_buffer;
};

} // namespace ViewOpenGl

#endif
