#include "DispatcherFixture.h"

#include <OrvikOs/Thread.h>

#include <stdexcept>

using OrvikCore::JOB_COMPLETED;
using OrvikCore::JOB_FAILED;

namespace {

class JobDispatcherObservers : public DispatcherTest
{
protected:
    /// Runs a job to its end.
    void run(bool success, OrvikCore::IJobStatusObserver* requester)
    {
        FunctionJob job([success] { return success; });
        JobTicket ticket = jobTicket(job, /*sync=*/true, requester);
        dispatcher().ExecuteJob(ticket);
    }

    /// @return who was told, in order, with blanks between.
    std::string told() const
    {
        std::string names;
        for (const Notice& notice : notices) {
            names += names.empty() ? notice.observer : " " + notice.observer;
        }
        return names;
    }

    std::vector<Notice> notices;
    RecordingObserver a{"a", notices};
    RecordingObserver b{"b", notices};
    RecordingObserver c{"c", notices};
};

/// Throws what it is told to throw.
class ThrowingObserver : public OrvikCore::IJobStatusObserver
{
public:
    explicit ThrowingObserver(std::function<void()> action) : m_action(std::move(action)) {}

    void NotifyJobStatus(OrvikCore::JobTicket*) override { m_action(); }

private:
    std::function<void()> m_action;
};

} // namespace

TEST_F(JobDispatcherObservers, RequesterAloneIsToldOfSuccess)
{
    dispatcher().RegisterJobStatusObserver(&a);
    dispatcher().RegisterJobStatusObserver(&b);

    run(true, &b);

    EXPECT_EQ(told(), "b");
    EXPECT_EQ(notices[0].status, JOB_COMPLETED);
}

TEST_F(JobDispatcherObservers, EverybodyIsToldOfFailureInOrderOfRegistration)
{
    dispatcher().RegisterJobStatusObserver(&c);
    dispatcher().RegisterJobStatusObserver(&a);
    dispatcher().RegisterJobStatusObserver(&b);

    run(false, &b);

    EXPECT_EQ(told(), "c a b");
    EXPECT_EQ(notices[2].status, JOB_FAILED);
}

TEST_F(JobDispatcherObservers, NobodyIsToldOfSuccessWithoutARequester)
{
    dispatcher().RegisterJobStatusObserver(&a);

    run(true, nullptr);

    EXPECT_EQ(told(), "");
}

TEST_F(JobDispatcherObservers, UnregisteredRequesterIsNotTold)
{
    dispatcher().RegisterJobStatusObserver(&a);

    run(true, &b);
    run(false, &b);

    EXPECT_EQ(told(), "a");
}

TEST_F(JobDispatcherObservers, SecondRegistrationKeepsOneEntry)
{
    dispatcher().RegisterJobStatusObserver(&a);
    dispatcher().RegisterJobStatusObserver(&b);
    dispatcher().RegisterJobStatusObserver(&a);

    run(false, nullptr);

    EXPECT_EQ(told(), "a b");
}

TEST_F(JobDispatcherObservers, RemovedObserverIsNotTold)
{
    dispatcher().RegisterJobStatusObserver(&a);
    dispatcher().RegisterJobStatusObserver(&b);
    dispatcher().UnRegisterJobStatusObserver(&a);
    dispatcher().UnRegisterJobStatusObserver(&c);

    run(false, &a);

    EXPECT_EQ(told(), "b");
}

TEST_F(JobDispatcherObservers, NullIsNotRegistered)
{
    dispatcher().RegisterJobStatusObserver(nullptr);
    dispatcher().RegisterJobStatusObserver(&a);

    run(false, nullptr);

    EXPECT_EQ(told(), "a");
}

TEST_F(JobDispatcherObservers, FinishedJobsAreReportedOnTheWorker)
{
    dispatcher().RegisterJobStatusObserver(&a);

    run(true, &a);

    ASSERT_EQ(notices.size(), 1u);
    EXPECT_NE(notices[0].threadId, OrvikOs::CurrentThreadId());
}

TEST_F(JobDispatcherObservers, TheyAreToldBeforeTheCallerReturns)
{
    dispatcher().RegisterJobStatusObserver(&a);
    FunctionJob job([] { return true; });
    JobTicket ticket = jobTicket(job, /*sync=*/true, &a);

    dispatcher().ExecuteJob(ticket);

    ASSERT_EQ(notices.size(), 1u);
    EXPECT_EQ(notices[0].target, ticket.GetTarget());
}

TEST_F(JobDispatcherObservers, WhatAnObserverWritesIntoTheTicketReachesTheCaller)
{
    class Editor : public OrvikCore::IJobStatusObserver
    {
    public:
        void NotifyJobStatus(OrvikCore::JobTicket* ticket) override
        {
            ticket->SetMessageText(L"edited");
        }
    } editor;
    dispatcher().RegisterJobStatusObserver(&editor);
    FunctionJob job([] { return true; });
    JobTicket ticket = jobTicket(job, /*sync=*/true, &editor);

    dispatcher().ExecuteJob(ticket);

    EXPECT_EQ(ticket.GetMessageText(), L"edited");
}

TEST_F(JobDispatcherObservers, ExceptionOfAnObserverIsTracedAndTheNextOneIsTold)
{
    ThrowingObserver thrower([] { throw std::runtime_error("observer is unwell"); });
    dispatcher().RegisterJobStatusObserver(&thrower);
    dispatcher().RegisterJobStatusObserver(&a);
    debugOutput().Clear();

    run(false, nullptr);

    EXPECT_EQ(told(), "a");
    EXPECT_EQ(debugOutput().Text(), "-- Exception in IJobStatusObserver: observer is unwell\n");
}

TEST_F(JobDispatcherObservers, ForeignExceptionOfAnObserverIsTracedToo)
{
    ThrowingObserver thrower([] { throw 42; });
    dispatcher().RegisterJobStatusObserver(&thrower);
    debugOutput().Clear();

    run(false, nullptr);

    EXPECT_EQ(debugOutput().Text(), "-- Exception in IJobStatusObserver: unrecognized\n");
}

TEST_F(JobDispatcherObservers, ExceptionOfAnObserverLeavesTheOutcomeAlone)
{
    ThrowingObserver thrower([] { throw std::runtime_error("observer is unwell"); });
    dispatcher().RegisterJobStatusObserver(&thrower);
    FunctionJob job([] { return true; });
    JobTicket ticket = jobTicket(job, /*sync=*/true, &thrower);

    dispatcher().ExecuteJob(ticket);

    EXPECT_EQ(ticket.GetStatus(), JOB_COMPLETED);
    EXPECT_EQ(ticket.GetMessageText(), L"");
}
