#include "runtime/HeldInput.h"

#include "runtime/Guarded.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <algorithm>

QT_BEGIN_NAMESPACE
/// Exported by Qt for its own library of tests: offers a key to the shortcuts as the window
/// system's keys are.
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* receiver, ulong timestamp, int key,
                                               Qt::KeyboardModifiers modifiers, const QString& text,
                                               bool autoRepeat, ushort count);
QT_END_NAMESPACE

namespace Pellux {
namespace {

/// How often to look whether the wait has ended, milliseconds.
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

bool isKey(const QEvent& event)
{
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
}

bool isEscape(const QEvent& event)
{
    return isKey(event) && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

/// @return true when an action had the key as its shortcut, and ran.
bool ranShortcut(QObject& receiver, const QEvent& event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return qt_sendShortcutOverrideEvent(&receiver, key.timestamp(), key.key(), key.modifiers(),
                                        key.text(), key.isAutoRepeat(),
                                        static_cast<ushort>(key.count()));
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

bool HeldInput::isPassing(const QObject* receiver) const
{
    if (m_passing == nullptr)
        return false;
    if (receiver->isWidgetType())
        return static_cast<const QWidget*>(receiver)->window() == m_passing;
    const auto* const widget = qobject_cast<const QWidget*>(m_passing.data());
    return widget != nullptr && widget->windowHandle() == receiver;
}

bool HeldInput::eventFilter(QObject* receiver, QEvent* event)
{
    if (!m_isHolding || isPassing(receiver))
        return false;
    // A shortcut would run its action at once; the key press that follows is kept.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (!isKept(*event))
        return false;
    if (event->type() == QEvent::Close) {
        event->ignore();
        keep(receiver, *event);
        Q_EMIT CloseAsked(receiver);
        return true;
    }
    // A key reaches the window first and then the widget that has the focus; only one of them is
    // to have it again.
    if (!receiver->isWidgetType())
        return false;
    if (!isEscape(*event))
        keep(receiver, *event);
    else if (event->type() == QEvent::KeyPress)
        Q_EMIT CancelAsked();
    event->accept();
    return true;
}

void HeldInput::keep(QObject* receiver, const QEvent& event)
{
    const auto isSame = [&](const Kept& kept) {
        return kept.first == receiver && kept.second->type() == event.type();
    };
    // A window closes once, however often it is asked.
    if (event.type() != QEvent::Close || std::none_of(m_kept.begin(), m_kept.end(), isSame))
        m_kept.emplace_back(receiver, event.clone());
    HandOnLater();
}

void HeldInput::HandOnLater()
{
    if (m_isWaiting || m_kept.empty())
        return;
    m_isWaiting = true;
    QTimer::singleShot(kLookAgainMs, this, [this] {
        Guarded([this] {
            m_isWaiting = false;
            handOn();
        });
        HandOnLater();
    });
}

/// What is handed on may run a job, which keeps the rest waiting, and more comes behind it.
void HeldInput::handOn()
{
    while (!m_kept.empty() && !m_isHolding) {
        const Kept kept = std::move(m_kept.front());
        m_kept.pop_front();
        const auto& [receiver, event] = kept;
        if (receiver != nullptr && !ranShortcut(*receiver, *event))
            QCoreApplication::sendEvent(receiver, event.get());
    }
}

} // namespace Pellux
