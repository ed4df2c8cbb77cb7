#include "OrvikCore/StopWatch.h"

#include <OrvikOs/Clock.h>
#include <OrvikOs/DebugOutput.h>

#include <cstdio>

namespace OrvikCore {

namespace {

long long nowMs()
{
    return static_cast<long long>(OrvikOs::Clock::NowMs());
}

} // namespace

StopWatch::StopWatch(const char* label) : m_startMs(nowMs()), m_label(label) {}

StopWatch::~StopWatch()
{
    // Seconds and thousandths as integers: a decimal point whatever the locale.
    const long long elapsedMs = nowMs() - m_startMs;
    char report[512] = {};
    std::snprintf(report, sizeof report, "%s - %lld.%03lld(s)\n", m_label, elapsedMs / 1000,
                  elapsedMs % 1000);
    OrvikOs::WriteDebug(report);
}

} // namespace OrvikCore
