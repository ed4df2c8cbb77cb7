#include "CapPainter.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace ViewOpenGl {
namespace {

/// Smallest differences of depth for each time that a body is half as large as another, and at
/// most.
constexpr double kStepsPerHalf = 256.0;
constexpr double kMostSteps = 4096.0;

/// The smallest difference, of depths from -1 to 1 that are kept in 24 bits.
constexpr double kStep = 0x1p-23;

} // namespace

/// A cap that faces away lies behind the body that it closes; at its border it would shine through.
bool CapPainter::isSeen(const float* plane) const
{
    return m_painter.GetProjection().orthographic ? plane[2] < 0.0f : plane[3] < 0.0f;
}

bool CapPainter::IsTransparent(const FrameItem& item)
{
    return item.color.a != 255 || item.opacity < 1.0f || item.unselectedOpacity < 1.0f;
}

/// Caps on one plane are equally deep but for rounding. Of bodies within each other the smaller one
/// is seen. No polygon offset does it: software renderers compile a program for each one.
float CapPainter::nearerBy(const FrameItem& item) const
{
    const double radius = item.box.Radius();
    const double halves = radius > 0.0 ? std::log2(m_largest / radius) : 0.0;
    return static_cast<float>(kStep * std::clamp(kStepsPerHalf * halves, 0.0, kMostSteps));
}

void CapPainter::Begin(double largest)
{
    m_largest = largest;
    m_plane = 0;
    m_next = 0;
}

bool CapPainter::Draw(const FrameItem& item, FrameBudget& budget)
{
    if (item.asBox || !item.node->GetGeometry()->IsClosed() || item.states->hasHiddenParts)
        return true;
    const auto planes = m_painter.ClipPlanes();
    for (; m_plane < planes.size(); ++m_plane) {
        if (!isSeen(planes[m_plane]) || !m_cap.Place(planes, m_plane, item.box))
            continue;
        glEnable(GL_STENCIL_TEST);
        const bool isCounted = countBehindPlane(item, budget);
        if (isCounted)
            drawCap(item);
        glDisable(GL_STENCIL_TEST);
        if (!isCounted)
            return false;
    }
    m_plane = 0;
    return true;
}

/// What was counted stays in the stencil from one slice to the next.
bool CapPainter::countBehindPlane(const FrameItem& item, FrameBudget& budget)
{
    m_painter.UseOneClipPlane(m_plane);
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    glDepthMask(GL_FALSE);
    glDisable(GL_DEPTH_TEST);
    glStencilFunc(GL_ALWAYS, 0, 0xFF);
    glStencilOpSeparate(GL_FRONT, GL_KEEP, GL_KEEP, GL_DECR_WRAP);
    glStencilOpSeparate(GL_BACK, GL_KEEP, GL_KEEP, GL_INCR_WRAP);
    const bool isDone = m_painter.DrawPieces(item, PaintStyle{}, m_next, budget);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    m_painter.RestoreClipPlanes();
    return isDone;
}

/// The cap is cut by the other planes already; the program knows of none.
void CapPainter::drawCap(const FrameItem& item)
{
    FrameItem flat = item;
    std::fill(std::begin(flat.modelView), std::end(flat.modelView), 0.0f);
    for (int i = 0; i < 4; ++i)
        flat.modelView[5 * i] = 1.0f;
    std::fill(std::begin(flat.normalMatrix), std::end(flat.normalMatrix), 0.0f);
    flat.normalMatrix[0] = flat.normalMatrix[4] = flat.normalMatrix[8] = 1.0f;
    glDisable(GL_CULL_FACE);
    if (!m_painter.UseFlat(flat, item.color, nearerBy(item)))
        return;
    glStencilFunc(GL_NOTEQUAL, 0, 0xFF);
    glStencilOp(GL_KEEP, GL_KEEP, GL_KEEP);
    glDepthMask(IsTransparent(item) ? GL_FALSE : GL_TRUE);
    m_cap.DrawKept();
    // The counts are cleared for the next body, also where other planes cut the cap away.
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    glDepthMask(GL_FALSE);
    glStencilOp(GL_ZERO, GL_ZERO, GL_ZERO);
    m_cap.DrawWhole();
    glDepthMask(GL_TRUE);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

} // namespace ViewOpenGl
