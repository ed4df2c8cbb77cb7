#ifndef TAMBCOMMANDSINFRA_TESTS_TESTSUPPORT_H
#define TAMBCOMMANDSINFRA_TESTS_TESTSUPPORT_H

#include <OrvikOs/Clock.h>
#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/Event.h>
#include <OrvikOs/MsgWait.h>

#include <atomic>
#include <cstdint>
#include <exception>
#include <mutex>
#include <string>
#include <thread>

/// Runs @p body on a second thread while the calling one waits as a main thread does, serving its
/// wake sources, until the body has ended.
template <typename Body> void RunOnWorker(Body body)
{
    OrvikOs::Event ended;
    ended.Create();
    std::thread worker([&] {
        body();
        ended.Set();
    });
    OrvikOs::MsgWait(ended, -1, 0);
    worker.join();
}

/// Runs @p body on a second thread and waits for its end without serving anything.
template <typename Body> void RunOnThread(Body body)
{
    std::thread(body).join();
}

/// Gives the text of the std::exception that @p body throws, "no exception" when it throws none.
template <typename Body> std::string ErrorOf(Body body)
{
    try {
        body();
    } catch (const std::exception& exception) {
        return exception.what();
    }
    return "no exception";
}

/// A clock that stands still until it is moved; in place as long as it lives.
class ManualClock : public OrvikOs::IClock
{
public:
    ManualClock() : m_former(OrvikOs::SetClock(this)) {}
    ~ManualClock() override { OrvikOs::SetClock(m_former); }

    std::uint64_t NowUs() override { return m_nowUs.load(); }
    void SetUs(std::uint64_t nowUs) { m_nowUs.store(nowUs); }
    void AdvanceMs(std::uint64_t milliseconds) { m_nowUs.fetch_add(milliseconds * 1000); }

private:
    OrvikOs::IClock* m_former;
    std::atomic<std::uint64_t> m_nowUs{1'000'000};
};

/// Collects what is written to the debug output as long as it lives.
class CapturedDebugOutput
{
public:
    CapturedDebugOutput()
    {
        OrvikOs::SetDebugSink([this](const char* text) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_text += text;
        });
    }
    ~CapturedDebugOutput() { OrvikOs::SetDebugSink(nullptr); }

    CapturedDebugOutput(const CapturedDebugOutput&) = delete;
    CapturedDebugOutput& operator=(const CapturedDebugOutput&) = delete;

    std::string Text() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_text;
    }

private:
    mutable std::mutex m_mutex;
    std::string m_text;
};

/// Reads memory that nobody has: a machine fault. A function of its own, so that the test's catch
/// stands in another frame.
[[gnu::noinline]] inline int ReadBadMemory()
{
    // The address is volatile, so that no compiler foresees the fault.
    volatile std::uintptr_t address = 64;
    return *reinterpret_cast<volatile int*>(address);
}

#endif
