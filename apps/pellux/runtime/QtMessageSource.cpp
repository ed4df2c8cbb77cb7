#include "runtime/QtMessageSource.h"

#include "runtime/HeldInput.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace Pellux {
namespace {

/// How long a wait lets Qt's queue lie, milliseconds.
constexpr int kPollMs = 4;

/// Longest time in Qt's queue before the wait looks at its event again, milliseconds.
constexpr int kDispatchMs = 20;

/// No number of Windows' own: an application's message.
constexpr unsigned kMessageQtQueue = 0x8000;

} // namespace

QtMessageSource::QtMessageSource(HeldInput& held)
    : m_held(held), m_former(OrvikOs::SetMessageSource(this))
{
}

QtMessageSource::~QtMessageSource()
{
    OrvikOs::SetMessageSource(m_former);
}

bool QtMessageSource::HasInput(unsigned mask)
{
    m_isDue = mask != 0 && (!m_sinceDispatch.isValid() || m_sinceDispatch.elapsed() >= kPollMs);
    return m_isDue;
}

bool QtMessageSource::Peek(OrvikOs::Message& message, bool remove)
{
    if (!m_isDue)
        return false;
    m_isDue = !remove;
    message = {};
    message.id = kMessageQtQueue;
    return true;
}

void QtMessageSource::Translate(const OrvikOs::Message&) {}

void QtMessageSource::Dispatch(const OrvikOs::Message&)
{
    ++m_depth;
    m_held.Hold(true);
    QCoreApplication::processEvents(QEventLoop::AllEvents, kDispatchMs);
    if (--m_depth == 0)
        m_held.Hold(false);
    m_sinceDispatch.start();
    m_isDue = false;
}

int QtMessageSource::PollIntervalMs()
{
    return kPollMs;
}

} // namespace Pellux
