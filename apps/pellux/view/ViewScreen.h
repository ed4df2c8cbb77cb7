#ifndef PELLUX_VIEW_VIEWSCREEN_H
#define PELLUX_VIEW_VIEWSCREEN_H

#include "view/GraphicsChoice.h"

#include <OrvikCore/IFrameWindow.h>

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QTimer>

QT_BEGIN_NAMESPACE
class QPainter;
class QWidget;
QT_END_NAMESPACE

namespace OrvikCore {
class IFrameProvider;
}
namespace TambVizCore {
class IView3D;
}

namespace Pellux {

class CommandRunner;
class LentSurface;

/// Brings the frames of the current session's view into a widget: as a picture that the widget
/// paints, or by a context that a surface inside the widget lends the view. Lets the view complete
/// its frames while nothing else is to do.
///
/// Where the lent context cannot be used after all, the picture takes its place. @thread Main
/// thread.
class ViewScreen final : public QObject, public OrvikCore::IFrameWindow
{
    Q_OBJECT

public:
    /// @param widget  Not owned; shows the frames and owns the surface.
    /// @param runner  Not owned; outlives the screen.
    ViewScreen(QWidget& widget, CommandRunner& runner);
    ~ViewScreen() override;

    ViewScreen(const ViewScreen&) = delete;
    ViewScreen& operator=(const ViewScreen&) = delete;

    /// Begins to show the view of the current session.
    void Begin(GraphicsPath path);

    /// Shows no view any more; before the session goes.
    void End();

    /// The widget has another size, or its screen other pixels.
    void Resize();

    /// Paints what is to be seen now into the widget; nothing where a surface lies over it.
    void Paint(QPainter& painter);

    /// Paints the widget now, when there is something new, dispatching no events.
    void ShowNow();

    /// No button is held any more.
    void EndGesture();

    /// @return how frames reach the widget now.
    GraphicsPath Path() const;

    void PaintNow() override;
    void WorkWaits() override;
    bool MakeContextCurrent() override;
    void DoneContextCurrent() override;
    double GetPixelRatio() override;

    /// For the surface: its context is there and current.
    void BeginLending();
    /// For the surface: its context is about to go.
    void EndLending();
    /// For the surface: draws into a framebuffer of its context, which is current.
    void PaintLent(unsigned int framebuffer);

Q_SIGNALS:
    /// A frame was drawn, not only painted again.
    /// @param milliseconds  What it took.
    void FrameDrawn(double milliseconds);

private:
    bool drawFrame();
    void refine();
    void dropSurface();
    QSize pixels() const;

    QWidget& m_widget;
    CommandRunner& m_runner;
    TambVizCore::IView3D* m_view = nullptr;          ///< Not owned; null without one.
    OrvikCore::IFrameProvider* m_provider = nullptr; ///< The same view; null where it has none.
    QPointer<LentSurface> m_surface;                 ///< Owned by the widget; null for pictures.
    bool m_isLending = false;
    QImage m_picture;
    QTimer m_idle;
};

} // namespace Pellux

#endif
