#include "runtime/QtSleeper.h"

#include "runtime/HeldInput.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>

namespace Pellux {

QtSleeper::QtSleeper(HeldInput& held) : m_held(held), m_mainThread(QThread::currentThreadId())
{
    // The worker may sleep in it from here on, so all else is set by now.
    m_former.store(OrvikOs::SetSleeper(this), std::memory_order_release);
}

QtSleeper::~QtSleeper()
{
    OrvikOs::SetSleeper(m_former.load(std::memory_order_acquire));
}

void QtSleeper::SleepMs(int milliseconds)
{
    if (m_mainThread == QThread::currentThreadId() && m_depth == 0)
        sleepOnMainThread(milliseconds);
    else if (OrvikOs::ISleeper* const former = m_former.load(std::memory_order_acquire))
        former->SleepMs(milliseconds);
    else
        QThread::msleep(static_cast<unsigned long>(milliseconds));
}

void QtSleeper::sleepOnMainThread(int milliseconds)
{
    QElapsedTimer passed;
    passed.start();
    ++m_depth;
    const bool wasHolding = m_held.IsHolding();
    m_held.Hold(true);
    do {
        QCoreApplication::processEvents(QEventLoop::AllEvents,
                                        milliseconds - static_cast<int>(passed.elapsed()));
        QThread::msleep(1);
    } while (passed.elapsed() < milliseconds);
    m_held.Hold(wasHolding);
    --m_depth;
}

} // namespace Pellux
