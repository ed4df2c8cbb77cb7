#include "OrvikCore/JobDispatcher.h"

#include "JobTexts.h"

#include "OrvikCore/AScriptEngine.h"
#include "OrvikCore/Dbg.h"
#include "OrvikCore/IJob.h"
#include "OrvikCore/IJobStatusObserver.h"
#include "OrvikCore/ProcessGlobals.h"
#include "OrvikCore/SignalHandlingContext.h"

#include <OrvikOs/Clock.h>
#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/FaultScope.h>
#include <OrvikOs/MsgWait.h>
#include <OrvikOs/Sleeper.h>
#include <OrvikOs/Utf8.h>
#include <TambCommandsInfra/Contract.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <exception>
#include <ostream>
#include <stdexcept>
#include <utility>

namespace OrvikCore {

namespace {

constexpr int kStartPauseMs = 100;           ///< Before the event is made.
constexpr int kPollPauseMs = 10;             ///< Of the worker while the ring is empty.
constexpr std::uint32_t kBusyLimitMs = 2000; ///< How long a busy worker is waited for.
constexpr int kTerminatePasses = 10;         ///< Looks at the worker while it is asked to leave.
constexpr int kTerminatePauseMs = 100;       ///< Between those looks.
constexpr int kParkAnswerMs = 100;           ///< For the answer of a worker that is parked.

/// Input that ends a wait to be served: QS_MOUSEMOVE, QS_MOUSEBUTTON, QS_TIMER, QS_PAINT.
constexpr unsigned kWakeMask = OrvikOs::kInputMouseMove | OrvikOs::kInputMouseButton |
                               OrvikOs::kInputTimer | OrvikOs::kInputPaint;
static_assert(kWakeMask == 0x36);

constexpr char kWorkerName[] = "PelluxWorker";

bool isMainThread()
{
    return OrvikOs::CurrentThreadId() == Orvik_mainThreadId;
}

void assertMainThread()
{
    TambCommandsInfra::AssertContract(isMainThread(), kMainThreadCondition, kDispatcherSource);
}

/// The millisecond clock with its 32 bits; differences survive its turning over.
std::uint32_t clockMs()
{
    return static_cast<std::uint32_t>(OrvikOs::Clock::NowMs());
}

template <typename Object> Object* targetOf(const JobTicket& ticket)
{
    return reinterpret_cast<Object*>(ticket.GetTarget());
}

/// Tells one observer; a failure of the observer is its own and must not change the job's outcome.
void tellObserver(IJobStatusObserver& observer, JobTicket* ticket)
{
    try {
        observer.NotifyJobStatus(ticket);
    } catch (const std::exception& error) {
        dbg << kObserverException << error.what() << std::endl;
    } catch (...) {
        dbg << kObserverException << kUnrecognizedObserverException << std::endl;
    }
}

/// Takes every message that waits and serves it.
/// @return false when one of them asked the application to end.
bool pumpMessages()
{
    OrvikOs::IMessageSource* source = OrvikOs::GetMessageSource();
    OrvikOs::Message message;
    while (source && source->Peek(message, /*remove=*/true)) {
        if (message.id == OrvikOs::kMessageQuit) {
            // Deliberate: the quit message is taken and not posted again.
            // Held by JobDispatcherWait.QuitMessageIsTakenAndNotPostedAgain.
            return false;
        }
        source->Translate(message);
        source->Dispatch(message);
    }
    return true;
}

/// Lets submissions in again at the end of its scope.
class ReentryGuard
{
public:
    explicit ReentryGuard(std::atomic<bool>& inExecute) : m_inExecute(&inExecute) {}

    ~ReentryGuard()
    {
        if (m_inExecute) {
            m_inExecute->store(false, std::memory_order_release);
        }
    }

    ReentryGuard(const ReentryGuard&) = delete;
    ReentryGuard& operator=(const ReentryGuard&) = delete;

    void KeepClosed() { m_inExecute = nullptr; }

private:
    std::atomic<bool>* m_inExecute; ///< Not owned; null when the guard is to stay closed.
};

} // namespace

/// Holds the one dispatcher until the process exits.
class JobDispatcher::Owner
{
public:
    Owner() : m_dispatcher(new JobDispatcher) {}

    /// A worker that did not leave may still look at its dispatcher, which then is never deleted.
    ~Owner()
    {
        if (m_dispatcher->close()) {
            delete m_dispatcher;
        }
    }

    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    JobDispatcher& Get() { return *m_dispatcher; }

private:
    JobDispatcher* m_dispatcher; ///< Owned; see the destructor.
};

JobDispatcher& JobDispatcher::Instance()
{
    static Owner owner;
    owner.Get().Initialize();
    return owner.Get();
}

JobDispatcher::JobDispatcher() = default;

JobDispatcher::~JobDispatcher() = default;

bool JobDispatcher::close()
{
    Terminate();
    const bool workerLeft = !hasWorker() || m_workerExited.load(std::memory_order_acquire);
    if (workerLeft) {
        m_event.Close();
    }
    return workerLeft;
}

// --- Start ---------------------------------------------------------------------------------------

void JobDispatcher::Initialize()
{
    if (m_initialized.load(std::memory_order_acquire)) {
        return;
    }
    OrvikOs::SleepMs(kStartPauseMs);
    createEvent(kEventNamePrefix + std::to_wstring(OrvikOs::CurrentThreadId()) + L"_" +
                std::to_wstring(OrvikOs::CurrentProcessId()));
    startWorker();
    m_initialized.store(true, std::memory_order_release);
}

void JobDispatcher::createEvent(const std::wstring& name)
{
    if (m_event.Create(name)) {
        return;
    }
    const bool taken = m_event.LastError() == OrvikOs::kErrorAlreadyExists;
    const char* text = taken ? kEventNameExists : kCannotCreateEvent;
    throw std::runtime_error(text + OrvikOs::WideToUtf8(name));
}

void JobDispatcher::startWorker()
{
    if (!m_worker.Start([this] { messageLoop(this); })) {
        m_event.Close();
        throw std::runtime_error(kCannotStartWorker);
    }
    m_worker.SetName(kWorkerName);
    char line[256];
    const std::uint32_t workerId = m_worker.Id();
    std::snprintf(line, sizeof line, kThreadIdsFormat, static_cast<int>(Orvik_mainThreadId),
                  Orvik_mainThreadId, static_cast<int>(workerId), workerId);
    OrvikOs::WriteDebug(line);
}

bool JobDispatcher::hasWorker() const
{
    return m_worker.Id() != 0;
}

// --- Submission ----------------------------------------------------------------------------------

void JobDispatcher::ExecuteJob(JobTicket& ticket)
{
    submit(ticket, nullptr);
}

void JobDispatcher::ExecuteJob(IJob& job)
{
    if (m_inExecute.load(std::memory_order_acquire)) {
        return;
    }
    JobTicket ticket(JID_EXECUTE_JOB, nullptr, true, reinterpret_cast<long long>(&job));
    submit(ticket, nullptr);
}

bool JobDispatcher::ExecuteParked(JobTicket& ticket, const std::shared_ptr<const void>& block)
{
    return submit(ticket, block);
}

bool JobDispatcher::ExecuteParked(const std::shared_ptr<IJob>& job)
{
    JobTicket ticket(JID_EXECUTE_JOB, nullptr, true, reinterpret_cast<long long>(job.get()));
    return submit(ticket, job);
}

bool JobDispatcher::submit(JobTicket& ticket, const std::shared_ptr<const void>& block)
{
    // 1. Stopped, or inside another submission: the ticket stays as it is.
    if (m_terminating.load(std::memory_order_acquire) ||
        m_inExecute.load(std::memory_order_acquire)) {
        return false;
    }
    // 2. Close the door, and open it again should a window procedure throw during the wait.
    m_inExecute.store(true, std::memory_order_release);
    ReentryGuard guard(m_inExecute);

    // 3. Wait for a busy worker, or refuse.
    if (m_busy.load(std::memory_order_acquire) && ticket.IsSync() && isMainThread() &&
        !waitWhileBusy()) {
        ticket.SetStatus(JOB_FAILED);
        ticket.SetMessageText(kBusyMessage);
        notifyClient(&ticket);
        // Deliberate: the door stays closed, so that every later submission is ignored.
        // Held by JobDispatcherBusy.RefusalLeavesTheDispatcherDeaf.
        guard.KeepClosed();
        return false;
    }

    // 4. Hand the ticket to the worker, or run it here.
    const Submission submission = startJob(ticket);
    const std::uint64_t number = submission == Submission::Queued ? m_queued : 0;
    if (submission == Submission::Queued && block) {
        m_parked.push_back({number, block});
    }

    // 5. Wait, unless running it here has taken the sync mark away.
    if (ticket.IsSync()) {
        const int timeout = m_jobTimeoutMs.load(std::memory_order_acquire);
        // Who has parked something reads its results: the event of an earlier job is passed over.
        while (waitForNotification(ticket, timeout) && block && number > 0 &&
               m_finished.load(std::memory_order_acquire) < number &&
               !m_terminating.load(std::memory_order_acquire)) {
        }
    }

    // 6. Deliberate: an asynchronous caller also receives the ticket that finished last.
    // Held by JobDispatcherQueue.AsyncCallerReceivesLastFinishedTicket.
    ticket = m_lastTicket.Get()->ticket;
    if (submission == Submission::RanHere) {
        return true;
    }
    releaseFinished();
    return submission == Submission::Queued && m_finished.load(std::memory_order_acquire) >= number;
}

bool JobDispatcher::waitWhileBusy() const
{
    const std::uint32_t start = clockMs();
    while (m_busy.load(std::memory_order_acquire)) {
        if (clockMs() - start >= kBusyLimitMs) {
            return false;
        }
        // The job that keeps the worker busy may itself wait for something from this thread.
        OrvikOs::ServeWakeSources();
    }
    return true;
}

JobDispatcher::Submission JobDispatcher::startJob(JobTicket& ticket)
{
    if (m_terminating.load(std::memory_order_acquire)) {
        return Submission::Ignored;
    }
    if (m_busy.load(std::memory_order_acquire) && ticket.GetJobId() == JID_EXECUTE_SCRIPT &&
        !isMainThread()) {
        executeScript(ticket);
        ticket.SetSync(false);
        return Submission::RanHere;
    }
    assertMainThread();
    // Deliberate: a ticket that finds the ring full is dropped without a report; a synchronous
    // caller then waits until its time-out. Held by
    // JobDispatcherQueue.TicketBeyondHundredIsDropped.
    if (!m_queue.Push(ticket)) {
        return Submission::Ignored;
    }
    ++m_queued;
    return Submission::Queued;
}

void JobDispatcher::releaseFinished()
{
    if (m_parked.empty()) {
        return;
    }
    const std::uint64_t finished = m_finished.load(std::memory_order_acquire);
    std::vector<Parked> released;
    std::vector<Parked> kept;
    for (Parked& parked : m_parked) {
        (parked.number <= finished ? released : kept).push_back(std::move(parked));
    }
    m_parked = std::move(kept);
}

// --- Waiting -------------------------------------------------------------------------------------

/// @return whether the event ended the wait.
bool JobDispatcher::waitForNotification(JobTicket ticket, int timeout)
{
    for (;;) {
        const unsigned result = OrvikOs::MsgWait(m_event, timeout, kWakeMask);
        if (result == OrvikOs::kWaitSignalled) {
            // Deliberate: this may be the event of an earlier job that nobody has waited for.
            // Held by JobDispatcherWait.StaleEventEndsTheNextWaitAtOnce.
            return true;
        }
        if (result == OrvikOs::kWaitInput) {
            if (!pumpMessages()) {
                return false;
            }
            continue;
        }
        JobTicket last;
        last = m_lastTicket.Get()->ticket;
        printDebugMessage(result, &last);
        if (result == OrvikOs::kWaitFailed || result == OrvikOs::kWaitAbandoned) {
            return false;
        }
        // Deliberate: a script, and a job that the worker has not taken, are waited for again.
        // Held by JobDispatcherWait.ScriptIsWaitedForOneTimeOutAfterAnother and
        // JobDispatcherWait.JobStillInTheRingIsWaitedForAgain.
        const bool taken = ticket.GetJobId() == JID_EXECUTE_JOB && m_queue.IsEmpty();
        if (taken || m_terminating.load(std::memory_order_acquire)) {
            return false;
        }
    }
}

void JobDispatcher::printDebugMessage(unsigned long waitResult, JobTicket* ticket)
{
    static_cast<void>(waitResult);
    static_cast<void>(ticket);
}

// --- Worker --------------------------------------------------------------------------------------

unsigned JobDispatcher::messageLoop(void* dispatcher)
{
    JobDispatcher& self = *static_cast<JobDispatcher*>(dispatcher);
    const SignalHandlingContext context(/*floatingPointControl=*/false);
    JobTicket ticket;
    while (!self.m_terminating.load(std::memory_order_acquire)) {
        if (self.m_queue.IsEmpty()) {
            OrvikOs::YieldThread();
            OrvikOs::SleepMs(kPollPauseMs);
            continue;
        }
        // Busy is set before the ticket leaves the ring: IsBusy() sees the one or the other.
        self.m_busy.store(true, std::memory_order_release);
        self.m_queue.Pop(ticket);
        self.runTicket(ticket);
        const std::uint64_t finished = self.m_finished.load(std::memory_order_relaxed);
        if (!self.m_terminating.load(std::memory_order_acquire)) {
            self.notifyClient(&ticket);
            self.m_lastTicket.Set(LastTicket(ticket));
            self.m_finished.store(finished + 1, std::memory_order_release);
            self.m_event.Set();
        } else {
            self.m_finished.store(finished + 1, std::memory_order_release);
        }
        self.m_busy.store(false, std::memory_order_release);
    }
    self.m_workerExited.store(true, std::memory_order_release);
    return 0;
}

void JobDispatcher::runTicket(JobTicket& ticket)
{
    ticket.SetStatus(JOB_STARTED);
    try {
        switch (ticket.GetJobId()) {
        case JID_EXECUTE_JOB:
            ticket.SetStatus(targetOf<IJob>(ticket)->Execute() ? JOB_COMPLETED : JOB_FAILED);
            break;
        case JID_EXECUTE_SCRIPT:
            executeScript(ticket);
            break;
        default:
            ticket.SetStatus(JOB_FAILED);
            ticket.SetMessageText(kInvalidJobIdMessage + ticket.ToWString());
            break;
        }
    } catch (const std::exception& error) {
        ticket.SetStatus(JOB_FAILED);
        ticket.SetMessageText(OrvikOs::Utf8ToWide(error.what()));
    } catch (...) {
        ticket.SetStatus(JOB_FAILED);
        ticket.SetMessageText(kUnrecognizedExceptionMessage);
    }
    OrvikOs::FaultScope::RearmStackGuard();
}

void JobDispatcher::executeScript(JobTicket& ticket)
{
    AScriptEngine* engine = targetOf<AScriptEngine>(ticket);
    if (!engine) {
        ticket.SetMessageText(kInvalidEngineMessage);
        ticket.SetStatus(JOB_FAILED);
        return;
    }
    const std::wstring script = *reinterpret_cast<const std::wstring*>(ticket.GetParameter1());
    bool success = engine->LoadScriptText(script, std::wstring());
    try {
        const SignalHandlingContext context(/*floatingPointControl=*/true);
        // Deliberate: the engine runs also after LoadScriptText returned false.
        // Held by JobDispatcherScript.ExecuteRunsAlsoAfterALoadFailure.
        engine->Execute();
    } catch (const std::exception&) {
        // The engine's output tells the reason; other exceptions end the job in runTicket.
        success = false;
    }
    OrvikOs::FaultScope::RearmStackGuard();
    if (ticket.GetParameter2() <= 0) {
        ticket.SetMessageText(engine->GetOutput());
    }
    ticket.SetStatus(success ? JOB_COMPLETED : JOB_FAILED);
}

// --- Observers and state -------------------------------------------------------------------------

void JobDispatcher::notifyClient(JobTicket* ticket)
{
    const auto observers = m_observers.Get();
    for (IJobStatusObserver* observer : *observers) {
        // Deliberate: a requester that never registered is not told.
        // Held by JobDispatcherObservers.UnregisteredRequesterIsNotTold.
        if (observer == ticket->GetRequester() || ticket->GetStatus() == JOB_FAILED) {
            tellObserver(*observer, ticket);
        }
    }
}

bool JobDispatcher::IsBusy() const
{
    // The ring is looked at first: a ticket that has just left it has made the worker busy before.
    return !m_queue.IsEmpty() || m_busy.load(std::memory_order_acquire);
}

void JobDispatcher::RegisterJobStatusObserver(IJobStatusObserver* observer)
{
    auto observers = *m_observers.Get();
    if (!observer || std::find(observers.begin(), observers.end(), observer) != observers.end()) {
        return;
    }
    observers.push_back(observer);
    m_observers.Set(std::move(observers));
}

void JobDispatcher::UnRegisterJobStatusObserver(IJobStatusObserver* observer)
{
    auto observers = *m_observers.Get();
    std::erase(observers, observer);
    m_observers.Set(std::move(observers));
}

void JobDispatcher::SetJobTimeout(int milliseconds)
{
    if (milliseconds > 0) {
        m_jobTimeoutMs.store(milliseconds, std::memory_order_release);
    }
}

// --- End -----------------------------------------------------------------------------------------

void JobDispatcher::Terminate()
{
    const bool terminating = m_terminating.load(std::memory_order_acquire);
    char line[256];
    std::snprintf(line, sizeof line, kTerminateFormat, OrvikOs::CurrentThreadId(),
                  terminating ? kAlreadyExited : "");
    OrvikOs::WriteDebug(line);
    if (terminating) {
        return;
    }
    m_terminating.store(true, std::memory_order_release);
    m_busy.store(false, std::memory_order_release);
    if (hasWorker()) {
        stopWorker();
    }
    assertMainThread();
    if (m_workerExited.load(std::memory_order_acquire)) {
        m_worker.Join();
        m_parked.clear();
    }
    // A wait further up this thread's stack ends too: the worker signals no more.
    m_event.Set();
}

void JobDispatcher::stopWorker()
{
    const auto exited = [this] { return m_workerExited.load(std::memory_order_acquire); };
    for (int pass = 0; isMainThread() && pass < kTerminatePasses && !exited(); ++pass) {
        if (pass == 1) {
            char line[256];
            std::snprintf(line, sizeof line, kSetEventFormat,
                          static_cast<unsigned long long>(m_worker.NativeHandle()));
            OrvikOs::WriteDebug(line);
            m_event.Set();
        }
        OrvikOs::SleepMs(kTerminatePauseMs);
    }
    if (!exited()) {
        OrvikOs::WriteDebug(kTerminatingWorker);
        OrvikOs::WriteDebug(m_worker.Park(kParkAnswerMs) ? kTerminatingDone : kTerminatingFailed);
    }
}

} // namespace OrvikCore
