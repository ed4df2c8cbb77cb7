#include "view/ViewWidget.h"

#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "view/ViewFacts.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Controller.h>
#include <OrvikCore/MouseButtonEventArgs.h>
#include <OrvikCore/MouseClickEventArgs.h>
#include <OrvikCore/MouseEventArgs.h>
#include <OrvikCore/MouseWheelEventArgs.h>
#include <OrvikCore/SessionMgr.h>

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace Pellux {
namespace {

using OrvikCore::MouseAction;

/// How long the pointer rests before what lies under it is named, milliseconds.
constexpr int kRestMs = 40;

/// After this long without another notch a turn of the wheel is over, milliseconds.
constexpr int kWheelRestMs = 400;

} // namespace

ViewWidget::ViewWidget(CommandRunner& runner, GraphicsPath path, QWidget* parent)
    : QWidget(parent), m_runner(runner), m_screen(*this, runner)
{
    setObjectName(QStringLiteral("view"));
    setAccessibleName(tr("3D view"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(240, 100);
    m_look.setSingleShot(true);
    m_look.setInterval(kRestMs);
    connect(&m_look, &QTimer::timeout, this, [this] { Guarded([this] { lookUnderPointer(); }); });
    m_wheelRests.setSingleShot(true);
    m_wheelRests.setInterval(kWheelRestMs);
    connect(&m_wheelRests, &QTimer::timeout, this, [this] {
        // A drag that goes on ends by itself.
        if (QGuiApplication::mouseButtons() == Qt::NoButton)
            Guarded([this] { endGesture(); });
    });
    m_screen.Begin(path);
}

ViewWidget::~ViewWidget()
{
    Guarded([this] { m_screen.End(); });
}

QSize ViewWidget::sizeHint() const
{
    return {960, 720};
}

bool ViewWidget::event(QEvent* event)
{
    // Another screen may have other pixels.
    if (event->type() == QEvent::ScreenChangeInternal)
        Guarded([this] { m_screen.Resize(); });
    // Tab belongs to the controller of nobody: it moves the focus on.
    return QWidget::event(event);
}

void ViewWidget::paintEvent(QPaintEvent*)
{
    Guarded([this] {
        QPainter painter(this);
        m_screen.Paint(painter);
    });
}

void ViewWidget::resizeEvent(QResizeEvent*)
{
    Guarded([this] { m_screen.Resize(); });
}

/// Whatever a job waits for meanwhile, nothing else starts one. Not every operation of the view
/// shows itself: a zoom only moves the camera.
template <typename Event> void ViewWidget::hand(Event& event)
{
    m_runner.RunQuietly([this, &event] {
        if (OrvikCore::Controller* const receiver = controller())
            receiver->HandleWindowEvent(&event);
    });
    m_screen.ShowNow();
}

void ViewWidget::endGesture()
{
    m_wheelRests.stop();
    m_screen.EndGesture();
    m_runner.EndGesture();
}

void ViewWidget::button(QMouseEvent& event, bool isPressed)
{
    m_pointer = toDevice(event.position());
    OrvikCore::MouseButtonEventArgs args(ToButtons(event.button()), isPressed, m_pointer.x(),
                                         m_pointer.y(), ToModifiers(event.modifiers()));
    if (ToButtons(event.button()) != OrvikCore::MouseButton::None)
        hand(args);
}

void ViewWidget::mousePressEvent(QMouseEvent* event)
{
    Guarded([this, event] {
        m_pressedAt = toDevice(event->position());
        m_pressed = event->button();
        m_pressedClicks = 1;
        button(*event, /*isPressed=*/true);
    });
}

void ViewWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
    m_pressedClicks = 2;
}

void ViewWidget::mouseReleaseEvent(QMouseEvent* event)
{
    Guarded([this, event] {
        const bool isClick =
            event->button() == m_pressed && toDevice(event->position()) == m_pressedAt;
        button(*event, /*isPressed=*/false);
        if (isClick)
            click(*event);
        if (event->buttons() == Qt::NoButton)
            endGesture();
    });
}

void ViewWidget::click(QMouseEvent& event)
{
    const QPoint at = toDevice(event.position());
    OrvikCore::MouseClickEventArgs args(ToButtons(event.button()), m_pressedClicks, at.x(), at.y(),
                                        ToModifiers(event.modifiers()));
    if (m_runner.IsRunning() || args.GetMouseButton() == OrvikCore::MouseButton::None)
        return;
    m_runner.RunOther([this, &args] {
        if (OrvikCore::Controller* const receiver = controller())
            receiver->HandleWindowEvent(&args);
    });
    if (event.button() == Qt::RightButton)
        Q_EMIT ContextMenuWanted(event.globalPosition().toPoint(), at);
}

void ViewWidget::mouseMoveEvent(QMouseEvent* event)
{
    Guarded([this, event] {
        m_pointer = toDevice(event->position());
        OrvikCore::MouseEventArgs args(MouseAction::Moved, m_pointer.x(), m_pointer.y(),
                                       ToButtons(event->buttons()),
                                       ToModifiers(event->modifiers()));
        hand(args);
        if (event->buttons() == Qt::NoButton)
            m_look.start();
    });
}

void ViewWidget::wheelEvent(QWheelEvent* event)
{
    Guarded([this, event] {
        const QPoint at = toDevice(event->position());
        OrvikCore::MouseWheelEventArgs args(m_notches.Add(event->angleDelta().y()), at.x(), at.y());
        if (args.Delta() != 0) {
            hand(args);
            m_wheelRests.start();
        }
        event->accept();
    });
}

void ViewWidget::leaveEvent(QEvent*)
{
    Guarded([this] {
        m_look.stop();
        OrvikCore::MouseEventArgs args(MouseAction::HoverEnded, m_pointer.x(), m_pointer.y(),
                                       OrvikCore::MouseButton::None, OrvikCore::ModifierKey::None);
        hand(args);
        Q_EMIT PointedAt(QString());
    });
}

void ViewWidget::keyPressEvent(QKeyEvent* event)
{
    key(*event, /*isUp=*/false);
}

void ViewWidget::keyReleaseEvent(QKeyEvent* event)
{
    key(*event, /*isUp=*/true);
}

void ViewWidget::key(QKeyEvent& event, bool isUp)
{
    Guarded([this, &event, isUp] {
        const auto args = ToKey(event, isUp);
        // A key that is held down counts once.
        if (args && !event.isAutoRepeat())
            m_runner.PlayKey(*args);
    });
}

void ViewWidget::lookUnderPointer()
{
    // The model belongs to the job while one runs.
    if (m_runner.IsBusy())
        m_look.start();
    else
        Q_EMIT PointedAt(underMouse() ? NameAt(m_pointer) : QString());
}

OrvikCore::Controller* ViewWidget::controller() const
{
    return OrvikCore::SessionMgr::Instance().CurrentSession().GetController();
}

QPoint ViewWidget::toDevice(const QPointF& position) const
{
    return (position * devicePixelRatioF()).toPoint();
}

} // namespace Pellux
