#include "DispatcherFixture.h"
#include "FaultSubjects.h"

#include "OrvikCore/ProcessGlobals.h"

#include <OrvikOs/Event.h>
#include <OrvikOs/Thread.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>

using std::string_literals::operator""s;
using OrvikCore::JID_EXECUTE_JOB;
using OrvikCore::JID_EXECUTE_SCRIPT;
using OrvikCore::JOB_COMPLETED;
using OrvikCore::JOB_FAILED;
using OrvikCore::JOB_UNKNOWN;
using OrvikCore::JobId;

namespace {

using JobDispatcher = DispatcherTest;
using JobOutcome = DispatcherTest;

std::string eventName()
{
    return "Local\\JobDispatcherEvent_" + std::to_string(OrvikOs::CurrentThreadId()) + "_" +
           std::to_string(OrvikOs::CurrentProcessId());
}

std::wstring wideEventName()
{
    const std::string name = eventName();
    return std::wstring(name.begin(), name.end());
}

std::string startError()
{
    try {
        OrvikCore::JobDispatcher::Instance();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "started";
}

/// Runs a job to its end and returns the ticket's status and message.
std::pair<OrvikCore::JobStatus, std::wstring> outcomeOf(std::function<bool()> work)
{
    FunctionJob job(std::move(work));
    OrvikCore::JobTicket ticket(JID_EXECUTE_JOB, nullptr, true, addressOf(job));
    OrvikCore::JobDispatcher::Instance().ExecuteJob(ticket);
    return {ticket.GetStatus(), ticket.GetMessageText()};
}

bool contains(const std::wstring& text, const std::wstring& part)
{
    return text.find(part) != std::wstring::npos;
}

} // namespace

// --- Start ---------------------------------------------------------------------------------------

TEST_F(JobDispatcher, StartsOnceWithAPauseOf100Ms)
{
    OrvikCore::JobDispatcher& first = OrvikCore::JobDispatcher::Instance();
    OrvikCore::JobDispatcher& second = OrvikCore::JobDispatcher::Instance();

    EXPECT_EQ(&first, &second);
    EXPECT_EQ(sleeper().MainSleeps(), std::vector<int>{100});
}

TEST_F(JobDispatcher, PausesBeforeItMakesTheEvent)
{
    bool nameWasFree = false;
    sleeper().OnMainSleep([&nameWasFree] {
        OrvikOs::Event probe;
        nameWasFree = probe.Create(wideEventName());
    });

    dispatcher();

    OrvikOs::Event probe;
    EXPECT_TRUE(nameWasFree);
    EXPECT_FALSE(probe.Create(wideEventName()));
    EXPECT_EQ(probe.LastError(), 183u);
}

TEST_F(JobDispatcher, TakenEventNameIsAnErrorWithTheName)
{
    OrvikOs::Event other;
    ASSERT_TRUE(other.Create(wideEventName()));

    EXPECT_EQ(startError(), "JobDispatcher Event with this name already exists: " + eventName());
}

TEST_F(JobDispatcher, TriesAgainOnceTheEventNameIsFree)
{
    OrvikOs::Event other;
    ASSERT_TRUE(other.Create(wideEventName()));
    startError();
    startError();
    other.Close();

    EXPECT_EQ(startError(), "started");
    EXPECT_EQ(sleeper().MainSleeps(), (std::vector<int>{100, 100, 100}));
    EXPECT_EQ(outcomeOf([] { return true; }).first, JOB_COMPLETED);
}

TEST_F(JobDispatcher, TracesTheThreadsAtItsStart)
{
    std::uint32_t workerId = 0;
    outcomeOf([&workerId] {
        workerId = OrvikOs::CurrentThreadId();
        return true;
    });

    char expected[256];
    std::snprintf(expected, sizeof expected,
                  "\nMain ThreadId   = %5d [0x%04x]\nWorker ThreadId = %5d [0x%04x]\n",
                  static_cast<int>(Orvik_mainThreadId), Orvik_mainThreadId,
                  static_cast<int>(workerId), workerId);
    EXPECT_EQ(debugOutput().Text(), expected);
}

TEST_F(JobDispatcher, WorkerIsNamedPelluxWorker)
{
    std::string name;
    outcomeOf([&name] {
        std::getline(std::ifstream("/proc/thread-self/comm") >> std::ws, name);
        return true;
    });

    EXPECT_EQ(name, "PelluxWorker");
}

TEST_F(JobDispatcher, SingleThreadModeIsLeftToTheHost)
{
    EXPECT_FALSE(Orvik_inSingleThreadMode);
    Orvik_inSingleThreadMode = true;

    EXPECT_EQ(outcomeOf([] { return OrvikOs::CurrentThreadId() != Orvik_mainThreadId; }).first,
              JOB_COMPLETED);
    EXPECT_TRUE(Orvik_inSingleThreadMode);
}

// --- Outcome of a job ----------------------------------------------------------------------------

TEST_F(JobOutcome, SuccessCompletesTheTicket)
{
    EXPECT_EQ(outcomeOf([] { return true; }), std::make_pair(JOB_COMPLETED, L""s));
}

TEST_F(JobOutcome, FailureFailsTheTicketWithoutAMessage)
{
    EXPECT_EQ(outcomeOf([] { return false; }), std::make_pair(JOB_FAILED, L""s));
}

TEST_F(JobOutcome, ExceptionTextBecomesTheMessage)
{
    EXPECT_EQ(outcomeOf([]() -> bool { throw std::runtime_error("no l\xC3\xA4nger"); }),
              std::make_pair(JOB_FAILED, L"no l\u00e4nger"s));
}

TEST_F(JobOutcome, ExceptionOfAnotherKindIsUnrecognized)
{
    EXPECT_EQ(outcomeOf([]() -> bool { throw 42; }),
              std::make_pair(JOB_FAILED,
                             L"Unrecognized exception caught in JobDispatcher::messageLoop()"s));
}

TEST_F(JobOutcome, NullPointerWriteIsDescribed)
{
    const auto [status, message] = outcomeOf([] {
        runSubject(writeToNull);
        return true;
    });

    EXPECT_EQ(status, JOB_FAILED);
    EXPECT_EQ(message.substr(0, 19), L"Unhandled Exception");
    EXPECT_TRUE(contains(message, L" Writing to address: 0x0.")) << message.size();
}

TEST_F(JobOutcome, AbortAndPureVirtualCallAreDescribed)
{
    EXPECT_EQ(outcomeOf([] {
                  runSubject(callAbort);
                  return true;
              }),
              std::make_pair(JOB_FAILED, L"Abnormal abort."s));
    EXPECT_EQ(outcomeOf([] {
                  runSubject(callPureVirtual);
                  return true;
              }),
              std::make_pair(JOB_FAILED, L"Pure virtual call"s));
}

TEST_F(JobOutcome, FloatingPointErrorsDoNotTrapOnTheWorker)
{
    EXPECT_EQ(outcomeOf([] {
                  runSubject(divideByZero);
                  runSubject(overflow);
                  runSubject(useDenormal);
                  return true;
              }).first,
              JOB_COMPLETED);
}

TEST_F(JobOutcome, StackOverflowIsDescribedEveryTime)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizers keep the stack for themselves";
#endif
    for (int i = 0; i < 3; ++i) {
        const auto [status, message] = outcomeOf([] {
            runSubject(overflowTheStack);
            return true;
        });
        EXPECT_EQ(status, JOB_FAILED);
        EXPECT_TRUE(contains(message, L"EXCEPTION_STACK_OVERFLOW"));
        EXPECT_TRUE(contains(message, L"The thread used up its stack."));
    }
}

TEST_F(JobOutcome, WorkerIsAsGoodAsNewAfterAFault)
{
    outcomeOf([] {
        runSubject(writeToNull);
        return true;
    });

    EXPECT_EQ(outcomeOf([] { return true; }), std::make_pair(JOB_COMPLETED, L""s));
}

TEST_F(JobOutcome, UnknownJobIdFailsWithTheTextOfTheTicket)
{
    JobTicket ticket(JobId{}, nullptr, true, 0x2a, 3, 4);

    dispatcher().ExecuteJob(ticket);

    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
    EXPECT_EQ(ticket.GetMessageText(), L"INVALID jobId in: INVALID JOB sync  0x2a 3 4 JOB_FAILED ");
}

TEST_F(JobOutcome, JobSubmittedByReferenceRuns)
{
    std::uint32_t ranOn = 0;
    FunctionJob job([&ranOn] {
        ranOn = OrvikOs::CurrentThreadId();
        return true;
    });

    dispatcher().ExecuteJob(job);

    EXPECT_NE(ranOn, 0u);
    EXPECT_NE(ranOn, Orvik_mainThreadId);
}

// --- Queue ---------------------------------------------------------------------------------------

using JobDispatcherQueue = DispatcherTest;

TEST_F(JobDispatcherQueue, JobsRunInTheOrderOfTheirSubmission)
{
    std::vector<int> order;
    std::vector<std::unique_ptr<FunctionJob>> jobs;
    for (int i = 0; i < 20; ++i) {
        jobs.push_back(std::make_unique<FunctionJob>([&order, i] {
            order.push_back(i);
            return true;
        }));
        submit(*jobs.back());
    }
    waitUntilIdle();

    std::vector<int> expected;
    for (int i = 0; i < 20; ++i) {
        expected.push_back(i);
    }
    EXPECT_EQ(order, expected);
}

TEST_F(JobDispatcherQueue, TicketBeyondHundredIsDropped)
{
    GateJob gate;
    occupyWorker(gate);
    int runs = 0;
    FunctionJob counter([&runs] {
        ++runs;
        return true;
    });
    for (int i = 0; i < 101; ++i) {
        submit(counter);
    }

    gate.Open();
    waitUntilIdle();

    EXPECT_EQ(runs, 100);
}

TEST_F(JobDispatcherQueue, DroppedTicketIsNotReported)
{
    std::vector<Notice> notices;
    RecordingObserver observer("observer", notices);
    dispatcher().RegisterJobStatusObserver(&observer);
    GateJob gate;
    occupyWorker(gate);
    FunctionJob nothing([] { return true; });
    JobTicket last;
    for (int i = 0; i < 101; ++i) {
        last = jobTicket(nothing, /*sync=*/false, &observer);
        dispatcher().ExecuteJob(last);
    }
    gate.Open();
    waitUntilIdle();

    EXPECT_EQ(last.GetStatus(), JOB_UNKNOWN);
    EXPECT_EQ(notices.size(), 100u);
}

TEST_F(JobDispatcherQueue, IsBusyWhileAJobRunsOrWaits)
{
    EXPECT_FALSE(dispatcher().IsBusy());
    GateJob gate;

    submit(gate);
    EXPECT_TRUE(dispatcher().IsBusy());
    waitUntil([&gate] { return gate.HasStarted(); });
    EXPECT_TRUE(dispatcher().IsBusy());

    gate.Open();
    waitUntilIdle();
    EXPECT_FALSE(dispatcher().IsBusy());
}

TEST_F(JobDispatcherQueue, IsNeverIdleBetweenRingAndWorker)
{
    for (int i = 0; i < 300; ++i) {
        std::atomic<bool> ended{false};
        FunctionJob job([&ended] {
            ended = true;
            return true;
        });
        submit(job);
        while (dispatcher().IsBusy()) {
        }
        ASSERT_TRUE(ended);
    }
}

TEST_F(JobDispatcherQueue, AsyncCallerReceivesLastFinishedTicket)
{
    FunctionJob earlier([] { return false; });
    dispatcher().ExecuteJob(earlier);
    GateJob gate;
    JobTicket ticket = jobTicket(gate, /*sync=*/false);

    dispatcher().ExecuteJob(ticket);

    EXPECT_EQ(ticket.GetTarget(), addressOf(earlier));
    EXPECT_EQ(ticket.GetStatus(), JOB_FAILED);
    EXPECT_TRUE(ticket.IsSync());
    gate.Open();
    waitUntilIdle();
}

TEST_F(JobDispatcherQueue, SubmissionFromAnotherThreadIsAsserted)
{
    dispatcher();
    FunctionJob job([] { return true; });
    const std::uint32_t realMain = Orvik_mainThreadId;
    Orvik_mainThreadId = realMain + 1;

    submit(job);

    Orvik_mainThreadId = realMain;
    ASSERT_EQ(violations().size(), 1u);
    EXPECT_EQ(violations()[0].condition, "GetCurrentThreadId() == Orvik_mainThreadId");
    EXPECT_EQ(violations()[0].source, "src/JobDispatcher_Tamb");
    waitUntilIdle();
}
