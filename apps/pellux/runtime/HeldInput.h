#ifndef PELLUX_RUNTIME_HELDINPUT_H
#define PELLUX_RUNTIME_HELDINPUT_H

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <deque>
#include <memory>
#include <utility>

namespace Pellux {

/// Keeps what was typed, and requests to close, while a job is waited for, and hands it on
/// afterwards in the order in which it came: also keys that are shortcuts of actions. The mouse,
/// timers and painting pass.
///
/// Escape is not kept: it asks for the end of what runs. Windows that answer questions meanwhile
/// are left alone, see LetPass(). @thread Main thread.
class HeldInput final : public QObject
{
    Q_OBJECT

public:
    /// Watches the whole application.
    HeldInput();
    ~HeldInput() override;

    HeldInput(const HeldInput&) = delete;
    HeldInput& operator=(const HeldInput&) = delete;

    /// Begins (true) or ends keeping. Ending does not hand on yet: see HandOnLater().
    void Hold(bool hold);

    bool IsHolding() const { return m_isHolding; }

    /// Hands on what was kept, once nothing runs any more; until then it looks again.
    void HandOnLater();

    /// Leaves the keys of a window alone, and requests to close it (not owned).
    void LetPass(const QObject* window) { m_passing = window; }

    /// Forgets what was kept.
    void Clear() { m_kept.clear(); }

Q_SIGNALS:
    /// Escape was pressed while a job was waited for.
    void CancelAsked();

    /// A window was asked to close while a job was waited for; it will be asked again afterwards.
    void CloseAsked(QObject* window);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    bool isPassing(const QObject* receiver) const;
    void keep(QObject* receiver, const QEvent& event);
    void handOn();

    using Kept = std::pair<QPointer<QObject>, std::unique_ptr<QEvent>>;
    std::deque<Kept> m_kept;
    QPointer<const QObject> m_passing; ///< Not owned; null for none.
    bool m_isHolding = false;
    bool m_isWaiting = false; ///< handOn() is on its way.
};

} // namespace Pellux

#endif
