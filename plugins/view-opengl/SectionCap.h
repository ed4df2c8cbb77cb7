#ifndef VIEWOPENGL_SECTIONCAP_H
#define VIEWOPENGL_SECTIONCAP_H

#include "GlObjects.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace TambVizCore {
class VizBox;
}

namespace ViewOpenGl {

/// The piece of a section plane inside the box of one body, which closes the body where the plane
/// has cut it open. It lies within the depths of what is drawn, so nothing of it is clipped.
///
/// The context is current in every call. @thread Main thread.
class SectionCap
{
public:
    /// Finds the piece.
    ///
    /// @param planes  float[4] each, in eye space: a point p is kept where plane . (p, 1) is not
    ///                below 0.
    /// @param plane   The one that cuts the body open.
    /// @param box     of the body, in eye space.
    /// @return false when the plane misses the box.
    bool Place(std::span<const float[4]> planes, std::size_t plane, const TambVizCore::VizBox& box);

    /// Draws the piece, as far as the other planes keep it, as triangles with positions and normals
    /// in eye space; the normal points to what was cut away.
    void DrawKept();

    /// Draws the piece wholly.
    void DrawWhole();

private:
    using Point = std::array<double, 3>;

    void draw(const std::vector<Point>& corners);
    void prepare();

    std::vector<Point> m_whole; ///< Corners around the piece.
    std::vector<Point> m_kept;
    std::vector<Point> m_clipped; ///< While clipping; kept for its memory.
    float m_normal[3] = {};
    GlVertexArray m_array;
    GlBuffer m_buffer;
};

} // namespace ViewOpenGl

#endif
