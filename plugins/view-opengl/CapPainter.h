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

    /// Draws the caps of a body on all planes in use; nothing where it is not closed or not cut.
    void Draw(const FrameItem& item);

    /// Forgets everything in graphics memory.
    void Clear() { m_cap = SectionCap(); }

private:
    void countBehindPlane(const FrameItem& item, std::size_t plane);
    void drawCap(const FrameItem& item);

    Painter& m_painter;
    SectionCap m_cap;
};

} // namespace ViewOpenGl

#endif
