#ifndef ORVIKCORE_TESTS_DISPATCHERFIXTURE_H
#define ORVIKCORE_TESTS_DISPATCHERFIXTURE_H

#include "OrvikCore/AScriptEngine.h"
#include "OrvikCore/IJob.h"
#include "OrvikCore/IJobStatusObserver.h"
#include "OrvikCore/JobDispatcher.h"
#include "OrvikCore/JobTicket.h"

#include <OrvikOs/Clock.h>
#include <OrvikOs/MsgWait.h>
#include <OrvikOs/Sleeper.h>

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

/// Sleeps of the main thread are written down and last until the worker has looked at its ring
/// again; those of the worker last a fraction of a millisecond.
class HandOffSleeper : public OrvikOs::ISleeper
{
public:
    explicit HandOffSleeper(std::uint32_t mainThreadId) : m_mainThreadId(mainThreadId) {}

    void SleepMs(int milliseconds) override;

    /// For a worker that is stuck in a job: sleeps of the main thread return at once.
    void DoNotWaitForWorker() { m_waitForWorker = false; }

    /// Keeps the worker in its next sleep, before it looks at its ring again, until it is released.
    void HoldWorker();
    void ReleaseWorker();

    /// Calls @p action at the start of each later sleep of the main thread.
    void OnMainSleep(std::function<void()> action) { m_onMainSleep = std::move(action); }

    /// The sleeps of the main thread, in milliseconds, oldest first.
    std::vector<int> MainSleeps() const { return m_mainSleeps; }

private:
    friend struct WorkerEnd;

    void sleepOnMain(int milliseconds);
    void sleepOnWorker();
    void workerEnded();

    const std::uint32_t m_mainThreadId;
    std::vector<int> m_mainSleeps;       // Main thread only.
    std::function<void()> m_onMainSleep; // Main thread only.
    bool m_waitForWorker = true;         // Main thread only.
    std::mutex m_mutex;                  // Guards what follows.
    std::condition_variable m_changed;
    unsigned m_workerSleeps = 0;
    bool m_workerSeen = false;
    bool m_workerGone = false;
    bool m_holdWorker = false;
    bool m_workerHeld = false;
};

/// Time that passes only as the test says: by itself, by a step for each look at it.
class StepClock : public OrvikOs::IClock
{
public:
    std::uint64_t NowUs() override { return m_nowUs.fetch_add(m_stepUs.load()); }

    void SetMs(std::uint64_t nowMs) { m_nowUs = nowMs * 1000; }
    void StepMs(std::uint64_t stepMs) { m_stepUs = stepMs * 1000; }

private:
    std::atomic<std::uint64_t> m_nowUs{0};
    std::atomic<std::uint64_t> m_stepUs{0};
};

/// The debug output of the whole process, joined; safe on all threads.
class DebugCapture
{
public:
    void Append(const char* text);
    std::string Text() const;
    void Clear();

private:
    mutable std::mutex m_mutex;
    std::string m_text;
};

/// A contract that did not hold.
struct Violation
{
    std::string condition;
    std::string source;
};

/// Starts each test as a host would: main thread known, time and traces in the test's hands. The
/// helpers live until the process exits, because the dispatcher does.
class DispatcherTest : public ::testing::Test
{
protected:
    DispatcherTest();
    ~DispatcherTest() override;

    using JobTicket = OrvikCore::JobTicket;

    OrvikCore::JobDispatcher& dispatcher() { return OrvikCore::JobDispatcher::Instance(); }

    /// A ticket for a job, with the requester of the test's choice.
    static JobTicket jobTicket(OrvikCore::IJob& job, bool sync,
                               OrvikCore::IJobStatusObserver* requester = nullptr);

    /// Submits a job without waiting for it.
    void submit(OrvikCore::IJob& job);

    /// Submits a job that holds the worker, and waits until it does.
    void occupyWorker(class GateJob& gate);

    /// Waits until nothing runs and nothing waits.
    void waitUntilIdle();

    /// Waits until something that the worker does has come about.
    void waitUntil(const std::function<bool()>& condition);

    static HandOffSleeper& sleeper();
    static StepClock& stepClock();
    static DebugCapture& debugOutput();
    static std::vector<Violation>& violations();
};

/// A job made of a function.
class FunctionJob : public OrvikCore::IJob
{
public:
    explicit FunctionJob(std::function<bool()> function) : m_function(std::move(function)) {}

    bool Execute() override { return m_function(); }

private:
    std::function<bool()> m_function;
};

/// A job that stays on the worker until the test lets it go.
class GateJob : public OrvikCore::IJob
{
public:
    ~GateJob() override { Open(); }

    bool Execute() override;

    void Open();
    bool HasStarted() const { return m_started; }
    bool HasEnded() const { return m_ended; }

private:
    std::mutex m_mutex;
    std::condition_variable m_opened;
    bool m_open = false;
    std::atomic<bool> m_started{false};
    std::atomic<bool> m_ended{false};
};

/// What an observer was told, by value.
struct Notice
{
    std::string observer;
    OrvikCore::JobStatus status;
    std::wstring message;
    long long target;
    std::uint32_t threadId;
};

/// Writes down what it is told, in a list shared with its kin so that the order shows.
class RecordingObserver : public OrvikCore::IJobStatusObserver
{
public:
    RecordingObserver(std::string name, std::vector<Notice>& notices)
        : m_name(std::move(name)), m_notices(notices)
    {
    }

    void NotifyJobStatus(OrvikCore::JobTicket* ticket) override;

private:
    std::string m_name;
    std::vector<Notice>& m_notices;
};

/// A script engine whose operations are functions of the test.
class FakeScriptEngine : public OrvikCore::AScriptEngine
{
public:
    bool LoadScriptText(const std::wstring& text, const std::wstring& source) override;
    std::wstring GetLanguageName() const override { return L"fake"; }
    void Initialize(InitializeCallback) override {}
    std::wstring GetName() const override { return L"Fake"; }
    std::wstring GetVersion() const override { return L"1"; }
    std::wstring GetScriptExtension() const override { return L"fake"; }
    bool SplitForms(const std::wstring&, std::vector<OrvikCore::ScriptForm>&,
                    std::wstring&) const override
    {
        return true;
    }
    void SetNextSource(const std::wstring&, int, int) override {}
    void Execute() override;
    void Interrupt() override {}
    std::wstring GetOutput() const override { return output; }
    void SetStartupLog(const std::wstring&) override {}
    std::wstring GetStartupLog() const override { return {}; }

    std::function<bool()> onLoad = [] { return true; };
    std::function<void()> onExecute = [] {};
    std::wstring output = L"output of the run";
    std::vector<std::string> calls; ///< "load" and "execute", in order.
    std::wstring loadedText;
    std::wstring loadedSource = L"never set";
};

/// A message queue in memory.
class FakeMessageSource : public OrvikOs::IMessageSource
{
public:
    bool HasInput(unsigned mask) override;
    bool Peek(OrvikOs::Message& message, bool remove) override;
    void Translate(const OrvikOs::Message& message) override;
    void Dispatch(const OrvikOs::Message& message) override;
    int PollIntervalMs() override { return 1; }

    std::vector<OrvikOs::Message> queue;
    std::function<bool()> hasInput; ///< Replaces "the queue is not empty" when set.
    std::function<void(const OrvikOs::Message&)> onDispatch = [](const OrvikOs::Message&) {};
    std::vector<std::string> calls; ///< "translate N" and "dispatch N", in order.
    std::vector<unsigned> masks;    ///< Of the calls of HasInput.
};

/// Addresses as a ticket carries them: of the interface that the dispatcher calls.
inline long long addressOf(const OrvikCore::IJob& job)
{
    return reinterpret_cast<long long>(&job);
}
inline long long addressOf(const OrvikCore::AScriptEngine& engine)
{
    return reinterpret_cast<long long>(&engine);
}
inline long long addressOf(const std::wstring& text)
{
    return reinterpret_cast<long long>(&text);
}

#endif
