#include "view/ViewWidget.h"

#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Controller.h>
#include <OrvikCore/MouseButtonEventArgs.h>
#include <OrvikCore/MouseClickEventArgs.h>
#include <OrvikCore/MouseEventArgs.h>
#include <OrvikCore/MouseWheelEventArgs.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Image.h>

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cstring>

namespace Pellux {
namespace {

using OrvikCore::MouseAction;

/// How far the pointer may move between press and release of a click, device pixels.
constexpr int kClickSlack = 2;

TambVizCore::IView3D* currentView()
{
    return OrvikCore::SessionMgr::Instance().CurrentSession().View3D();
}

QImage toQImage(const TambVizCore::Image& image)
{
    QImage picture(image.width, image.height, QImage::Format_RGBX8888);
    const std::size_t rowBytes = static_cast<std::size_t>(image.width) * 4;
    for (int y = 0; y < image.height; ++y)
        std::memcpy(picture.scanLine(y), image.rgba.data() + static_cast<std::size_t>(y) * rowBytes,
                    rowBytes);
    return picture;
}

} // namespace

ViewWidget::ViewWidget(CommandRunner& runner, QWidget* parent) : QWidget(parent), m_runner(runner)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("3D view"));
    setMinimumSize(160, 120);
}

ViewWidget::~ViewWidget() = default;

void ViewWidget::ShowNow()
{
    m_picture = {};
    if (isVisible())
        repaint();
}

QSize ViewWidget::sizeHint() const
{
    return {960, 720};
}

void ViewWidget::paintEvent(QPaintEvent*)
{
    Guarded([this] {
        QPainter painter(this);
        TambVizCore::IView3D* const view = currentView();
        const QSize pixels = size() * devicePixelRatioF();
        TambVizCore::Image image;
        if (m_picture.isNull() && view != nullptr &&
            view->ReadImage(pixels.width(), pixels.height(), image))
            m_picture = toQImage(image);
        if (m_picture.isNull()) {
            painter.fillRect(rect(), palette().window());
            painter.drawText(rect(), Qt::AlignCenter, tr("The 3D view cannot draw here."));
            return;
        }
        painter.drawImage(rect(), m_picture);
    });
}

void ViewWidget::resizeEvent(QResizeEvent*)
{
    Guarded([this] {
        m_picture = {};
        const QSize pixels = size() * devicePixelRatioF();
        if (TambVizCore::IView3D* const view = currentView())
            view->SetWindowSize(pixels.width(), pixels.height());
    });
}

void ViewWidget::mousePressEvent(QMouseEvent* event)
{
    Guarded([this, event] {
        m_pressedAt = toDevice(event->position());
        m_pressedClicks = 1;
        OrvikCore::MouseButtonEventArgs args(ToButtons(event->button()), true, m_pressedAt.x(),
                                             m_pressedAt.y(), ToModifiers(event->modifiers()));
        if (controller() != nullptr)
            controller()->HandleWindowEvent(&args);
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
        const QPoint at = toDevice(event->position());
        OrvikCore::MouseButtonEventArgs args(ToButtons(event->button()), false, at.x(), at.y(),
                                             ToModifiers(event->modifiers()));
        if (controller() != nullptr)
            controller()->HandleWindowEvent(&args);
        if ((at - m_pressedAt).manhattanLength() <= kClickSlack)
            click(*event, m_pressedClicks);
    });
}

void ViewWidget::click(QMouseEvent& event, int clicks)
{
    const QPoint at = toDevice(event.position());
    OrvikCore::MouseClickEventArgs args(ToButtons(event.button()), clicks, at.x(), at.y(),
                                        ToModifiers(event.modifiers()));
    m_runner.RunOther([this, &args] {
        if (controller() != nullptr)
            controller()->HandleWindowEvent(&args);
    });
}

void ViewWidget::mouseMoveEvent(QMouseEvent* event)
{
    Guarded([this, event] {
        const QPoint at = toDevice(event->position());
        OrvikCore::MouseEventArgs args(MouseAction::Moved, at.x(), at.y(),
                                       ToButtons(event->buttons()),
                                       ToModifiers(event->modifiers()));
        if (controller() != nullptr)
            controller()->HandleWindowEvent(&args);
    });
}

void ViewWidget::wheelEvent(QWheelEvent* event)
{
    Guarded([this, event] {
        const QPoint at = toDevice(event->position());
        const int notches = m_notches.Add(event->angleDelta().y());
        OrvikCore::MouseWheelEventArgs args(notches, at.x(), at.y());
        if (notches != 0 && controller() != nullptr)
            controller()->HandleWindowEvent(&args);
    });
}

void ViewWidget::leaveEvent(QEvent*)
{
    Guarded([this] {
        OrvikCore::MouseEventArgs args(MouseAction::HoverEnded, 0, 0, OrvikCore::MouseButton::None,
                                       OrvikCore::ModifierKey::None);
        if (controller() != nullptr)
            controller()->HandleWindowEvent(&args);
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
        if (const auto args = ToKey(event, isUp))
            m_runner.PlayKey(*args);
    });
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
