#include "runtime/HeldInput.h"

#include "runtime/Guarded.h"

#include <OrvikCore/JobDispatcher.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>

namespace Pellux {
namespace {

/// How often to look whether the worker is idle again, milliseconds.
constexpr int kLookAgainMs = 5;

bool isKept(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

bool isEscape(const QEvent& event)
{
    return (event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease) &&
           static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

} // namespace

HeldInput::HeldInput()
{
    QCoreApplication::instance()->installEventFilter(this);
}

HeldInput::~HeldInput() = default;

void HeldInput::Hold(bool hold)
{
    m_isHolding = hold;
}

bool HeldInput::eventFilter(QObject* receiver, QEvent* event)
{
    if (!m_isHolding)
        return false;
    // A shortcut would run its action at once; the key press that follows is kept.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (isEscape(*event)) {
        if (event->type() == QEvent::KeyPress)
            Q_EMIT CancelAsked();
        return true;
    }
    if (!isKept(*event))
        return false;
    // A key reaches the window first and then the widget that has the focus; only one of them is
    // to have it again.
    if (receiver->isWidgetType() || event->type() == QEvent::Close)
        m_kept.emplace_back(receiver, event->clone());
    else
        return false;
    if (event->type() == QEvent::Close) {
        event->ignore();
        Q_EMIT CloseAsked();
    }
    HandOnLater();
    return true;
}

void HeldInput::HandOnLater()
{
    if (m_isWaiting || m_kept.empty())
        return;
    m_isWaiting = true;
    QTimer::singleShot(kLookAgainMs, this, [this] {
        Guarded([this] {
            m_isWaiting = false;
            if (m_isHolding || OrvikCore::JobDispatcher::Instance().IsBusy())
                HandOnLater();
            else
                handOn();
        });
    });
}

void HeldInput::handOn()
{
    std::vector<Kept> kept;
    kept.swap(m_kept);
    for (auto& [receiver, event] : kept) {
        if (receiver != nullptr)
            QCoreApplication::postEvent(receiver, event.release());
    }
}

} // namespace Pellux
