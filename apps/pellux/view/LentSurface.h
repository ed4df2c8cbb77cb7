#ifndef PELLUX_VIEW_LENTSURFACE_H
#define PELLUX_VIEW_LENTSURFACE_H

#include <QOpenGLWidget>
#include <QPointer>
#include <QSurface>

QT_BEGIN_NAMESPACE
class QOpenGLContext;
QT_END_NAMESPACE

namespace Pellux {

class ViewScreen;

/// Lies over the widget of the view and lends its context; mouse and keys pass through. Made only
/// where a trial context works. @thread Main thread.
class LentSurface final : public QOpenGLWidget
{
    Q_OBJECT

public:
    /// @param screen  Not owned; outlives the surface.
    LentSurface(ViewScreen& screen, QWidget* parent);

    /// Gives the context back first.
    ~LentSurface() override;

    LentSurface(const LentSurface&) = delete;
    LentSurface& operator=(const LentSurface&) = delete;

    /// Makes the context current and remembers which one was; calls nest.
    /// @return false when there is none, or the system refuses.
    bool Enter();

    /// Ends the last good Enter().
    void Leave();

protected:
    void initializeGL() override;
    void paintGL() override;

private:
    ViewScreen& m_screen;
    int m_depth = 0;
    QPointer<QOpenGLContext> m_before;   ///< Current before the outermost Enter(); may be null.
    QSurface* m_surfaceBefore = nullptr; ///< Its surface; not owned.
};

} // namespace Pellux

#endif
