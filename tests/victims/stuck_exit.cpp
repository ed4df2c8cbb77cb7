// Leaves main while a job never ends. The debug output goes to standard output.

#include "OrvikCore/IJob.h"
#include "OrvikCore/JobDispatcher.h"
#include "OrvikCore/ProcessGlobals.h"

#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/Sleeper.h>
#include <OrvikOs/Thread.h>

#include <atomic>
#include <cstdio>

namespace {

class EndlessJob : public OrvikCore::IJob
{
public:
    bool Execute() override
    {
        started = true;
        while (started) {
            OrvikOs::YieldThread();
        }
        return true;
    }

    std::atomic<bool> started{false};
};

/// The pauses of the dispatcher take no time.
class QuickSleeper : public OrvikOs::ISleeper
{
public:
    void SleepMs(int) override { OrvikOs::YieldThread(); }
};

} // namespace

int main()
{
    Orvik_mainThreadId = OrvikOs::CurrentThreadId();
    OrvikOs::SetSleeper(new QuickSleeper); // Never deleted: the worker may be in it.
    OrvikOs::SetDebugSink([](const char* text) { std::fputs(text, stdout); });
    auto& job = *new EndlessJob; // Never deleted: the worker never leaves it.
    OrvikCore::JobTicket ticket(OrvikCore::JID_EXECUTE_JOB, nullptr, /*sync=*/false,
                                reinterpret_cast<long long>(static_cast<OrvikCore::IJob*>(&job)));
    OrvikCore::JobDispatcher::Instance().ExecuteJob(ticket);
    while (!job.started) {
        OrvikOs::YieldThread();
    }
    return 0;
}
