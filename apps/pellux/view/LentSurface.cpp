#include "view/LentSurface.h"

#include "runtime/Guarded.h"
#include "view/ViewScreen.h"

#include <QOpenGLContext>

namespace Pellux {

LentSurface::LentSurface(ViewScreen& screen, QWidget* parent)
    : QOpenGLWidget(parent), m_screen(screen)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setUpdateBehavior(QOpenGLWidget::NoPartialUpdate);
    setGeometry(parent->rect());
    show();
}

LentSurface::~LentSurface()
{
    Guarded([this] { m_screen.EndLending(); });
}

bool LentSurface::Enter()
{
    if (m_depth == 0) {
        if (context() == nullptr)
            return false;
        m_before = QOpenGLContext::currentContext();
        m_surfaceBefore = m_before != nullptr ? m_before->surface() : nullptr;
        makeCurrent();
        if (QOpenGLContext::currentContext() != context())
            return false;
    }
    ++m_depth;
    return true;
}

void LentSurface::Leave()
{
    if (m_depth == 0 || --m_depth > 0)
        return;
    if (m_before == context())
        return;
    if (m_before != nullptr && m_surfaceBefore != nullptr)
        m_before->makeCurrent(m_surfaceBefore);
    else
        doneCurrent();
}

void LentSurface::initializeGL()
{
    Guarded([this] {
        // Another window has another context.
        connect(context(), &QOpenGLContext::aboutToBeDestroyed, this,
                [this] { Guarded([this] { m_screen.EndLending(); }); });
        m_screen.BeginLending();
    });
}

void LentSurface::paintGL()
{
    Guarded([this] { m_screen.PaintLent(defaultFramebufferObject()); });
}

} // namespace Pellux
