#include "DispatcherFixture.h"

#include "OrvikCore/ProcessGlobals.h"

#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/Thread.h>
#include <TambCommandsInfra/Contract.h>

#include <chrono>

/// Tells the sleeper when the thread that touched it ends.
struct WorkerEnd
{
    HandOffSleeper* sleeper = nullptr;
    ~WorkerEnd()
    {
        if (sleeper) {
            sleeper->workerEnded();
        }
    }
};

namespace {

thread_local WorkerEnd t_workerEnd;

/// Only to keep a broken test from hanging; never reached by a good one.
constexpr std::chrono::milliseconds kPatience{20000};

/// A worker that has found work at every look has never slept, and its end goes unseen.
constexpr std::chrono::milliseconds kUnseenPatience{20};

void recordViolation(const char* condition, const char* source);

} // namespace

void HandOffSleeper::SleepMs(int milliseconds)
{
    if (OrvikOs::CurrentThreadId() == m_mainThreadId) {
        sleepOnMain(milliseconds);
    } else {
        sleepOnWorker();
    }
}

void HandOffSleeper::sleepOnMain(int milliseconds)
{
    m_mainSleeps.push_back(milliseconds);
    if (m_onMainSleep) {
        m_onMainSleep();
    }
    std::unique_lock<std::mutex> lock(m_mutex);
    if (!m_waitForWorker || m_mainSleeps.size() == 1) {
        return; // The worker is stuck, or not there yet.
    }
    const unsigned before = m_workerSleeps;
    m_changed.wait_for(lock, m_workerSeen ? kPatience : kUnseenPatience,
                       [this, before] { return m_workerGone || m_workerSleeps != before; });
}

void HandOffSleeper::sleepOnWorker()
{
    t_workerEnd.sleeper = this;
    std::unique_lock<std::mutex> lock(m_mutex);
    m_workerSeen = true;
    ++m_workerSleeps;
    m_changed.notify_all();
    if (m_holdWorker) {
        m_workerHeld = true;
        m_changed.notify_all();
        m_changed.wait_for(lock, kPatience, [this] { return !m_holdWorker; });
        m_workerHeld = false;
    } else {
        m_changed.wait_for(lock, std::chrono::microseconds(100), [] { return false; });
    }
}

void HandOffSleeper::HoldWorker()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_holdWorker = true;
    m_changed.wait_for(lock, kPatience, [this] { return m_workerHeld; });
}

void HandOffSleeper::ReleaseWorker()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_holdWorker = false;
    m_changed.notify_all();
}

void HandOffSleeper::workerEnded()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_workerGone = true;
    m_changed.notify_all();
}

void DebugCapture::Append(const char* text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_text += text;
}

std::string DebugCapture::Text() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_text;
}

void DebugCapture::Clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_text.clear();
}

DispatcherTest::DispatcherTest()
{
    Orvik_mainThreadId = OrvikOs::CurrentThreadId();
    OrvikOs::SetSleeper(&sleeper());
    OrvikOs::SetDebugSink([&capture = debugOutput()](const char* text) { capture.Append(text); });
    violations();
    TambCommandsInfra::SetContractHandler(recordViolation);
}

DispatcherTest::~DispatcherTest()
{
    sleeper().OnMainSleep(nullptr);
    OrvikOs::SetMessageSource(nullptr);
    OrvikOs::SetClock(nullptr);
}

HandOffSleeper& DispatcherTest::sleeper()
{
    static auto* const instance = new HandOffSleeper(OrvikOs::CurrentThreadId());
    return *instance;
}

StepClock& DispatcherTest::stepClock()
{
    static auto* const instance = new StepClock;
    return *instance;
}

DebugCapture& DispatcherTest::debugOutput()
{
    static auto* const instance = new DebugCapture;
    return *instance;
}

namespace {

std::vector<Violation>& allViolations()
{
    static auto* const instance = new std::vector<Violation>;
    return *instance;
}

void recordViolation(const char* condition, const char* source)
{
    allViolations().push_back({condition, source});
}

} // namespace

std::vector<Violation>& DispatcherTest::violations()
{
    return allViolations();
}

void DispatcherTest::waitUntil(const std::function<bool()>& condition)
{
    const auto limit = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
        ASSERT_LT(std::chrono::steady_clock::now(), limit) << "waited in vain";
        OrvikOs::YieldThread();
    }
}

void DispatcherTest::waitUntilIdle()
{
    waitUntil([this] { return !dispatcher().IsBusy(); });
}

OrvikCore::JobTicket DispatcherTest::jobTicket(OrvikCore::IJob& job, bool sync,
                                               OrvikCore::IJobStatusObserver* requester)
{
    return JobTicket(OrvikCore::JID_EXECUTE_JOB, requester, sync, addressOf(job));
}

void DispatcherTest::submit(OrvikCore::IJob& job)
{
    JobTicket ticket = jobTicket(job, /*sync=*/false);
    dispatcher().ExecuteJob(ticket);
}

void DispatcherTest::occupyWorker(GateJob& gate)
{
    submit(gate);
    waitUntil([&gate] { return gate.HasStarted(); });
}

bool GateJob::Execute()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_started = true;
    m_opened.wait(lock, [this] { return m_open; });
    m_ended = true;
    return true;
}

void GateJob::Open()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_open = true;
    m_opened.notify_all();
}

void RecordingObserver::NotifyJobStatus(OrvikCore::JobTicket* ticket)
{
    m_notices.push_back({m_name, ticket->GetStatus(), ticket->GetMessageText(), ticket->GetTarget(),
                         OrvikOs::CurrentThreadId()});
}

bool FakeScriptEngine::LoadScriptText(const std::wstring& text, const std::wstring& source)
{
    calls.push_back("load");
    loadedText = text;
    loadedSource = source;
    return onLoad();
}

void FakeScriptEngine::Execute()
{
    calls.push_back("execute");
    onExecute();
}

bool FakeMessageSource::HasInput(unsigned mask)
{
    masks.push_back(mask);
    return hasInput ? hasInput() : !queue.empty();
}

bool FakeMessageSource::Peek(OrvikOs::Message& message, bool remove)
{
    if (queue.empty()) {
        return false;
    }
    message = queue.front();
    if (remove) {
        queue.erase(queue.begin());
    }
    return true;
}

void FakeMessageSource::Translate(const OrvikOs::Message& message)
{
    calls.push_back("translate " + std::to_string(message.id));
}

void FakeMessageSource::Dispatch(const OrvikOs::Message& message)
{
    calls.push_back("dispatch " + std::to_string(message.id));
    onDispatch(message);
}
