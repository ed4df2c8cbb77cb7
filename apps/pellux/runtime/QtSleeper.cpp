#include "runtime/QtSleeper.h"

#include "runtime/HeldInput.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>

namespace Pellux {

QtSleeper::QtSleeper(HeldInput& held)
    : m_held(held), m_former(OrvikOs::SetSleeper(this)), m_mainThread(QThread::currentThreadId())
{
}

QtSleeper::~QtSleeper()
{
    OrvikOs::SetSleeper(m_former);
}

void QtSleeper::SleepMs(int milliseconds)
{
    const bool isInside = m_mainThread != QThread::currentThreadId() || m_depth > 0;
    if (isInside && m_former != nullptr)
        m_former->SleepMs(milliseconds);
    else if (isInside)
        QThread::msleep(static_cast<unsigned long>(milliseconds));
    else
        sleepOnMainThread(milliseconds);
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
