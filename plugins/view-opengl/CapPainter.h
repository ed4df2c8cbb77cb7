#ifndef VIEWOPENGL_CAPPAINTER_H
#define VIEWOPENGL_CAPPAINTER_H

#include "FrameItems.h"
#include "Painter.h"
#include "SectionCap.h"

#include <cstddef>

namespace ViewOpenGl {

/// Closes bodies that section planes have cut open: per body and plane, the stencil counts the
/// backs less the fronts behind each pixel of what the plane keeps; where they differ, the plane
/// lies inside the body.
///
/// The context is current in every call. @thread Main thread.
class CapPainter
{
public:
    /// @param painter  Not owned; outlives this.
    explicit CapPainter(Painter& painter) : m_painter(painter) {}

    CapPainter(const CapPainter&) = delete;
    CapPainter& operator=(const CapPainter&) = delete;

    /// @return whether the cap of a body lets see through: it is as transparent as the body,
    /// whatever
    ///         parts of that are.
    static bool IsTransparent(const FrameItem& item);

    /// Begins a picture.
    ///
    /// @param largest  Radius of the largest body, eye space.
    void Begin(double largest);

    /// Draws the caps of a body on all planes in use; nothing where it is not closed or not cut.
    /// Transparent ones are drawn over what is there, for which the caller has set the blending;
    /// writing of depths is on afterwards.
    ///
    /// @return false when the budget ended before; the next call goes on with the same body.
    bool Draw(const FrameItem& item, FrameBudget& budget);

    /// Forgets everything in graphics memory.
    void Clear() { m_cap = SectionCap(); }

private:
    bool isSeen(const float* plane) const;
    bool countBehindPlane(const FrameItem& item, FrameBudget& budget);
    void drawCap(const FrameItem& item);
    float nearerBy(const FrameItem& item) const;

    Painter& m_painter;
    SectionCap m_cap;
    double m_largest = 0.0;  ///< Radius of the largest body.
    std::size_t m_plane = 0; ///< Where the next slice goes on.
    int m_next = 0;          ///< Triangle to be counted there.
};

} // namespace ViewOpenGl

#endif
