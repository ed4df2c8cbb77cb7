#ifndef PELLUX_RUNTIME_HELDINPUT_H
#define PELLUX_RUNTIME_HELDINPUT_H

#include <QObject>
#include <QPointer>
#include <memory>
#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
class QEvent;
QT_END_NAMESPACE

namespace Pellux {

/// Keeps what was typed, and requests to close, while a job is waited for, and hands it on
/// afterwards in the order in which it came. The mouse, timers and painting pass.
///
/// Escape is not kept: it asks for the end of what runs. @thread Main thread.
class HeldInput final : public QObject
{
    Q_OBJECT

public:
    /// Watches the whole application.
    HeldInput();
    ~HeldInput() override;

    HeldInput(const HeldInput&) = delete;
    HeldInput& operator=(const HeldInput&) = delete;

    /// Begins (true) or ends keeping. Ending does not hand on yet: see HandOn().
    void Hold(bool hold);

    /// Hands on what was kept, once nothing runs any more; until then it looks again.
    void HandOnLater();

Q_SIGNALS:
    /// Escape was pressed while a job was waited for.
    void CancelAsked();

    /// A window was asked to close while a job was waited for.
    void CloseAsked();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void handOn();

    using Kept = std::pair<QPointer<QObject>, std::unique_ptr<QEvent>>;
    std::vector<Kept> m_kept;
    bool m_isHolding = false;
    bool m_isWaiting = false; ///< handOn() is on its way.
};

} // namespace Pellux

#endif
