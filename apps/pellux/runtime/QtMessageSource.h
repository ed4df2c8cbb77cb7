#ifndef PELLUX_RUNTIME_QTMESSAGESOURCE_H
#define PELLUX_RUNTIME_QTMESSAGESOURCE_H

#include <OrvikOs/MsgWait.h>

#include <QElapsedTimer>

namespace Pellux {

class HeldInput;

/// Qt's event queue, as the waits of the main thread see it.
///
/// Qt shows no single message, so one message stands for all that waits: dispatching it lets Qt
/// work through its queue, while what must not run beside a job is held. The message comes every
/// few milliseconds and not at once again, so that calls through the gate have their turn between.
/// @thread Main thread.
class QtMessageSource final : public OrvikOs::IMessageSource
{
public:
    /// Takes the place of the system's source.
    /// @param held  Not owned; outlives the source.
    explicit QtMessageSource(HeldInput& held);
    ~QtMessageSource() override;

    QtMessageSource(const QtMessageSource&) = delete;
    QtMessageSource& operator=(const QtMessageSource&) = delete;

    bool HasInput(unsigned mask) override;
    bool Peek(OrvikOs::Message& message, bool remove) override;
    void Translate(const OrvikOs::Message& message) override;
    void Dispatch(const OrvikOs::Message& message) override;
    int PollIntervalMs() override;

private:
    HeldInput& m_held;
    OrvikOs::IMessageSource* m_former; ///< Not owned.
    QElapsedTimer m_sinceDispatch;     ///< Since Qt had its turn.
    bool m_isDue = false;              ///< The message is there to be taken.
    int m_depth = 0;                   ///< Of dispatching.
};

} // namespace Pellux

#endif
