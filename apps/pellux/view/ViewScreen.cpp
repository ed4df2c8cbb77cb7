#include "view/ViewScreen.h"

#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "view/LentSurface.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Dbg.h>
#include <OrvikCore/IFrameProvider.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/IView3D.h>

#include <QElapsedTimer>
#include <QPainter>
#include <QWidget>

namespace Pellux {
namespace {

/// Longest slice of work that the view has put off, milliseconds.
constexpr int kSliceMs = 20;

/// Between two slices while a job runs, which may want the main thread, milliseconds.
constexpr int kBusyPauseMs = 60;

constexpr double kNanosecondsOfMillisecond = 1e6;

} // namespace

ViewScreen::ViewScreen(QWidget& widget, CommandRunner& runner) : m_widget(widget), m_runner(runner)
{
    m_idle.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, this, [this] { Guarded([this] { refine(); }); });
}

ViewScreen::~ViewScreen()
{
    Guarded([this] { End(); });
}

void ViewScreen::Begin(GraphicsPath path)
{
    m_view = OrvikCore::SessionMgr::Instance().CurrentSession().View3D();
    m_provider = dynamic_cast<OrvikCore::IFrameProvider*>(m_view);
    if (m_provider == nullptr)
        return;
    m_provider->SetFrameWindow(this);
    if (path == GraphicsPath::Lent)
        m_surface = new LentSurface(*this, &m_widget);
}

void ViewScreen::End()
{
    m_idle.stop();
    delete m_surface;
    if (m_provider != nullptr)
        m_provider->SetFrameWindow(nullptr);
    m_provider = nullptr;
    m_view = nullptr;
}

void ViewScreen::Resize()
{
    if (m_surface != nullptr)
        m_surface->setGeometry(m_widget.rect());
    const QSize size = pixels();
    if (m_view != nullptr)
        m_view->SetWindowSize(size.width(), size.height());
}

QSize ViewScreen::pixels() const
{
    const double ratio = m_widget.devicePixelRatioF();
    return {qRound(m_widget.width() * ratio), qRound(m_widget.height() * ratio)};
}

void ViewScreen::EndGesture()
{
    if (m_provider != nullptr)
        m_provider->EndGesture();
}

GraphicsPath ViewScreen::Path() const
{
    return m_isLending ? GraphicsPath::Lent : GraphicsPath::Image;
}

bool ViewScreen::drawFrame()
{
    const std::uint64_t before = m_provider->GetFrameCount();
    QElapsedTimer time;
    time.start();
    const bool good = m_provider->DrawFrame();
    const double milliseconds =
        static_cast<double>(time.nsecsElapsed()) / kNanosecondsOfMillisecond;
    if (m_provider->GetFrameCount() != before)
        Q_EMIT FrameDrawn(milliseconds);
    return good;
}

void ViewScreen::Paint(QPainter& painter)
{
    if (m_surface != nullptr && m_isLending)
        return;
    const QSize size = pixels();
    if (m_picture.size() != size)
        m_picture = QImage(size, QImage::Format_RGB32);
    const OrvikCore::FrameRows rows{m_picture.bits(), m_picture.bytesPerLine(), size.width(),
                                    size.height(), OrvikCore::PixelOrder::Bgra};
    if (m_provider == nullptr || !drawFrame() || !m_provider->ReadFrame(rows)) {
        painter.fillRect(m_widget.rect(), m_widget.palette().window());
        painter.drawText(m_widget.rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         tr("The 3D view cannot draw here."));
        return;
    }
    m_picture.setDevicePixelRatio(m_widget.devicePixelRatioF());
    painter.drawImage(QPointF(0, 0), m_picture);
}

void ViewScreen::ShowNow()
{
    if (m_provider == nullptr || m_provider->NeedsFrame())
        PaintNow();
}

void ViewScreen::PaintNow()
{
    if (!m_widget.isVisible())
        return;
    if (m_surface != nullptr)
        m_surface->repaint();
    else
        m_widget.repaint();
}

void ViewScreen::WorkWaits()
{
    if (!m_idle.isActive())
        m_idle.start(m_runner.IsBusy() ? kBusyPauseMs : 0);
}

void ViewScreen::refine()
{
    if (m_provider != nullptr && m_provider->Refine(kSliceMs))
        WorkWaits();
}

bool ViewScreen::MakeContextCurrent()
{
    return m_surface != nullptr && m_surface->Enter();
}

void ViewScreen::DoneContextCurrent()
{
    if (m_surface != nullptr)
        m_surface->Leave();
}

double ViewScreen::GetPixelRatio()
{
    return m_widget.devicePixelRatioF();
}

void ViewScreen::BeginLending()
{
    std::string reason;
    m_isLending = m_provider != nullptr && m_provider->UseWindowContext(reason);
    if (m_isLending)
        return;
    OrvikCore::dbg << "-- window: no OpenGL in the window: " << reason << std::endl;
    // Not from within the surface's own work.
    QTimer::singleShot(0, this, [this] { Guarded([this] { dropSurface(); }); });
}

void ViewScreen::EndLending()
{
    if (!std::exchange(m_isLending, false) || m_provider == nullptr)
        return;
    m_provider->ReleaseWindowContext();
}

void ViewScreen::dropSurface()
{
    delete m_surface;
    m_widget.update();
}

void ViewScreen::PaintLent(unsigned int framebuffer)
{
    const QSize size = pixels();
    if (m_isLending && drawFrame())
        m_provider->BlitFrame(framebuffer, size.width(), size.height());
}

} // namespace Pellux
