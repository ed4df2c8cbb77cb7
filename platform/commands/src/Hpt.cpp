#include "TambCommandsInfra/Hpt.h"

#include <OrvikOs/Clock.h>

namespace TambCommandsInfra {

Hpt::Hpt()
{
    Start();
}

void Hpt::Start()
{
    m_startUs = OrvikOs::Clock::NowUs();
}

double Hpt::ElapsedSeconds() const
{
    return ElapsedMilliseconds() / 1000.0;
}

double Hpt::ElapsedMilliseconds() const
{
    const std::uint64_t nowUs = OrvikOs::Clock::NowUs();
    // A clock replaced meanwhile may read less than at the start.
    return nowUs > m_startUs ? static_cast<double>(nowUs - m_startUs) / 1000.0 : 0.0;
}

} // namespace TambCommandsInfra
