#ifndef PELLUX_VIEW_VIEWWIDGET_H
#define PELLUX_VIEW_VIEWWIDGET_H

#include "view/EventTranslation.h"
#include "view/GraphicsChoice.h"
#include "view/ViewScreen.h"

#include <QPoint>
#include <QTimer>
#include <QWidget>

namespace OrvikCore {
class Controller;
} // namespace OrvikCore

namespace Pellux {

class CommandRunner;

/// Shows the 3D view of the current session and hands mouse and keys to its controller. Positions
/// and sizes are device pixels there.
///
/// While something runs clicks are swallowed; buttons and motion are not, and start no job. @thread
/// Main thread.
class ViewWidget final : public QWidget
{
    Q_OBJECT

public:
    /// @param runner  Not owned; outlives the widget.
    ViewWidget(CommandRunner& runner, GraphicsPath path, QWidget* parent = nullptr);

    /// Leaves the session's view; the session is still there.
    ~ViewWidget() override;

    ViewWidget(const ViewWidget&) = delete;
    ViewWidget& operator=(const ViewWidget&) = delete;

    ViewScreen& Screen() { return m_screen; }

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The right button was clicked, with the pointer where it was pressed.
    /// @param global  For a menu; of the screen, as Qt counts.
    /// @param at      In the view, device pixels.
    void ContextMenuWanted(const QPoint& global, const QPoint& at);

    /// The pointer rests over something else, or over nothing: an empty text.
    void PointedAt(const QString& name);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    OrvikCore::Controller* controller() const;
    QPoint toDevice(const QPointF& position) const;
    template <typename Event> void hand(Event& event);
    void button(QMouseEvent& event, bool isPressed);
    void click(QMouseEvent& event);
    void endGesture();
    void key(QKeyEvent& event, bool isUp);
    void lookUnderPointer();

    CommandRunner& m_runner;
    ViewScreen m_screen;
    WheelNotches m_notches;
    QPoint m_pressedAt;                       ///< Device pixels.
    Qt::MouseButton m_pressed = Qt::NoButton; ///< Pressed last.
    int m_pressedClicks = 0;                  ///< 2 after the second press of a double click.
    QPoint m_pointer;                         ///< Where it was last, device pixels.
    QTimer m_look;                            ///< Until the pointer rests.
    QTimer m_wheelRests;                      ///< Until the wheel rests.
};

} // namespace Pellux

#endif
