#ifndef PELLUX_VIEW_VIEWWIDGET_H
#define PELLUX_VIEW_VIEWWIDGET_H

#include "view/EventTranslation.h"

#include <QImage>
#include <QPoint>
#include <QWidget>

namespace OrvikCore {
class Controller;
} // namespace OrvikCore

namespace Pellux {

class CommandRunner;

/// Shows the 3D view of the current session and hands mouse and keys to its controller. Positions
/// and sizes are device pixels there.
///
/// While something runs clicks are swallowed; buttons and motion are not. @thread Main thread.
class ViewWidget final : public QWidget
{
    Q_OBJECT

public:
    /// @param runner  Not owned; outlives the widget.
    explicit ViewWidget(CommandRunner& runner, QWidget* parent = nullptr);
    ~ViewWidget() override;

    ViewWidget(const ViewWidget&) = delete;
    ViewWidget& operator=(const ViewWidget&) = delete;

    /// Paints anew now, dispatching no events.
    void ShowNow();

    QSize sizeHint() const override;

protected:
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
    void click(QMouseEvent& event, int clicks);
    void key(QKeyEvent& event, bool isUp);

    CommandRunner& m_runner;
    WheelNotches m_notches;
    QImage m_picture;        ///< As last drawn; null when it is to be drawn anew.
    QPoint m_pressedAt;      ///< Device pixels.
    int m_pressedClicks = 0; ///< 2 after the second press of a double click.
};

} // namespace Pellux

#endif
