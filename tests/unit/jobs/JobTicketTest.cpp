#include "OrvikCore/JobTicket.h"

#include "VirtualSlot.h"

#include "OrvikCore/IJob.h"
#include "OrvikCore/IJobStatusObserver.h"

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

using OrvikCore::JID_EXECUTE_JOB;
using OrvikCore::JID_EXECUTE_SCRIPT;
using OrvikCore::JOB_COMPLETED;
using OrvikCore::JOB_FAILED;
using OrvikCore::JOB_STARTED;
using OrvikCore::JOB_UNKNOWN;
using OrvikCore::JobId;
using OrvikCore::JobStatus;
using OrvikCore::JobTicket;

static_assert(sizeof(JobId) == 4 && sizeof(JobStatus) == 4);
static_assert(JID_EXECUTE_JOB == 1 && JID_EXECUTE_SCRIPT == 2);
static_assert(JOB_UNKNOWN == 0 && JOB_STARTED == 1 && JOB_COMPLETED == 2 && JOB_FAILED == 3);
static_assert(std::is_constructible_v<JobTicket, JobTicket&>);
static_assert(!std::is_constructible_v<JobTicket, const JobTicket&>);
static_assert(std::is_assignable_v<JobTicket&, const JobTicket&>);

namespace {

class SilentObserver : public OrvikCore::IJobStatusObserver
{
public:
    void NotifyJobStatus(JobTicket*) override {}
};

/// @return the field that lies at an offset of an object, in bytes.
template <typename Field> Field fieldAt(const JobTicket& ticket, std::size_t offset)
{
    Field field;
    std::memcpy(&field, reinterpret_cast<const char*>(&ticket) + offset, sizeof field);
    return field;
}

JobTicket withStatus(JobStatus status)
{
    JobTicket ticket;
    ticket.SetStatus(status);
    return ticket;
}

} // namespace

TEST(JobTicket, DefaultConstructedTicketIsAllZero)
{
    const JobTicket ticket;

    EXPECT_EQ(ticket.GetJobId(), 0u);
    EXPECT_EQ(ticket.GetRequester(), nullptr);
    EXPECT_FALSE(ticket.IsSync());
    EXPECT_EQ(ticket.GetTarget(), 0);
    EXPECT_EQ(ticket.GetParameter1(), 0);
    EXPECT_EQ(ticket.GetParameter2(), 0);
    EXPECT_EQ(ticket.GetStatus(), JOB_UNKNOWN);
    EXPECT_EQ(ticket.GetMessageText(), L"");
}

TEST(JobTicket, ConstructorWithoutParametersLeavesThemZero)
{
    SilentObserver observer;
    const JobTicket ticket(JID_EXECUTE_JOB, &observer, true, 77);

    EXPECT_EQ(ticket.GetJobId(), JID_EXECUTE_JOB);
    EXPECT_EQ(ticket.GetRequester(), &observer);
    EXPECT_TRUE(ticket.IsSync());
    EXPECT_EQ(ticket.GetTarget(), 77);
    EXPECT_EQ(ticket.GetParameter1(), 0);
    EXPECT_EQ(ticket.GetParameter2(), 0);
    EXPECT_EQ(ticket.GetStatus(), JOB_UNKNOWN);
    EXPECT_EQ(ticket.GetMessageText(), L"");
}

TEST(JobTicket, ConstructorWithOneParameterLeavesTheSecondZero)
{
    const JobTicket ticket(JID_EXECUTE_SCRIPT, nullptr, false, 77, -5);

    EXPECT_EQ(ticket.GetParameter1(), -5);
    EXPECT_EQ(ticket.GetParameter2(), 0);
    EXPECT_EQ(ticket.GetStatus(), JOB_UNKNOWN);
}

TEST(JobTicket, ConstructorTakesBothParameters)
{
    const JobTicket ticket(JID_EXECUTE_SCRIPT, nullptr, false, 77, 5, 6);

    EXPECT_EQ(ticket.GetParameter1(), 5);
    EXPECT_EQ(ticket.GetParameter2(), 6);
    EXPECT_EQ(ticket.GetStatus(), JOB_UNKNOWN);
}

TEST(JobTicket, CopyAndAssignmentTakeAllEightFields)
{
    SilentObserver observer;
    JobTicket source(JID_EXECUTE_SCRIPT, &observer, true, 1, 2, 3);
    source.SetStatus(JOB_COMPLETED);
    source.SetMessageText(L"text");

    JobTicket copy(source);
    JobTicket assigned;
    assigned = source;

    for (const JobTicket* ticket : {&copy, &assigned}) {
        EXPECT_EQ(ticket->GetRequester(), &observer);
        EXPECT_EQ(ticket->ToString(), "JID_EXECUTE_SCRIPT sync  0x1 2 3 JOB_COMPLETED text");
    }
}

TEST(JobTicket, CopyHasAMessageOfItsOwn)
{
    JobTicket source;
    source.SetMessageText(L"first");
    JobTicket copy(source);

    source.SetMessageText(L"second");

    EXPECT_EQ(copy.GetMessageText(), L"first");
}

TEST(JobTicket, FieldsLieInTheirOrder)
{
    SilentObserver observer;
    JobTicket ticket(JID_EXECUTE_SCRIPT, &observer, true, 11, 22, 33);
    ticket.SetStatus(JOB_FAILED);

    EXPECT_EQ(fieldAt<std::uint32_t>(ticket, 0), 2u);
    EXPECT_EQ(fieldAt<OrvikCore::IJobStatusObserver*>(ticket, 8), &observer);
    EXPECT_TRUE(fieldAt<bool>(ticket, 16));
    EXPECT_EQ(fieldAt<long long>(ticket, 24), 11);
    EXPECT_EQ(fieldAt<long long>(ticket, 32), 22);
    EXPECT_EQ(fieldAt<long long>(ticket, 40), 33);
    EXPECT_EQ(fieldAt<std::uint32_t>(ticket, 48), 3u);
    EXPECT_EQ(reinterpret_cast<const char*>(&ticket.GetMessageText()) -
                  reinterpret_cast<const char*>(&ticket),
              56);
}

TEST(JobInterfaces, FirstVirtualOperationsAreTheirOwn)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::IJob::Execute), 0);
    EXPECT_EQ(VirtualSlot(&OrvikCore::IJobStatusObserver::NotifyJobStatus), 0);
}

TEST(JobTicketText, NamesAJobThatIsWaitedFor)
{
    JobTicket ticket(JID_EXECUTE_JOB, nullptr, true, 0xABCDEF);

    EXPECT_EQ(ticket.ToString(), "JID_EXECUTE_JOB sync  0xabcdef 0 0 JOB_UNKNOWN ");
}

TEST(JobTicketText, NamesAScriptThatIsNotWaitedFor)
{
    JobTicket ticket(JID_EXECUTE_SCRIPT, nullptr, false, 0x10, -1, 9223372036854775807LL);

    EXPECT_EQ(ticket.ToString(),
              "JID_EXECUTE_SCRIPT async 0x10 -1 9223372036854775807 JOB_UNKNOWN ");
}

TEST(JobTicketText, CallsAnyOtherJobIdInvalid)
{
    const JobTicket none;
    JobTicket three(static_cast<JobId>(3), nullptr, false, 0);

    EXPECT_EQ(none.ToString(), "INVALID JOB async 0x0 0 0 JOB_UNKNOWN ");
    EXPECT_EQ(three.ToString(), "INVALID JOB async 0x0 0 0 JOB_UNKNOWN ");
}

TEST(JobTicketText, NamesEveryStatus)
{
    EXPECT_EQ(withStatus(JOB_UNKNOWN).ToString(), "INVALID JOB async 0x0 0 0 JOB_UNKNOWN ");
    EXPECT_EQ(withStatus(JOB_STARTED).ToString(), "INVALID JOB async 0x0 0 0 JOB_STARTED ");
    EXPECT_EQ(withStatus(JOB_COMPLETED).ToString(), "INVALID JOB async 0x0 0 0 JOB_COMPLETED ");
    EXPECT_EQ(withStatus(JOB_FAILED).ToString(), "INVALID JOB async 0x0 0 0 JOB_FAILED ");
    EXPECT_EQ(withStatus(static_cast<JobStatus>(4)).ToString(),
              "INVALID JOB async 0x0 0 0 INVALID JOB ");
}

TEST(JobTicketText, HoldsTheWholeMessageHoweverLong)
{
    JobTicket ticket;
    ticket.SetMessageText(std::wstring(200000, L'x'));

    EXPECT_EQ(ticket.ToString(),
              "INVALID JOB async 0x0 0 0 JOB_UNKNOWN " + std::string(200000, 'x'));
}

TEST(JobTicketText, DoesNotReadTheMessageAsAFormat)
{
    JobTicket ticket;
    ticket.SetMessageText(L"%s %n 100%");

    EXPECT_EQ(ticket.ToString(), "INVALID JOB async 0x0 0 0 JOB_UNKNOWN %s %n 100%");
}

TEST(JobTicketText, WideTextIsTheNarrowOneWidened)
{
    JobTicket ticket;
    ticket.SetMessageText(L"L\u00e4nge \U0001F600");

    EXPECT_EQ(ticket.ToString(),
              "INVALID JOB async 0x0 0 0 JOB_UNKNOWN L\xC3\xA4nge \xF0\x9F\x98\x80");
    EXPECT_EQ(ticket.ToWString(), L"INVALID JOB async 0x0 0 0 JOB_UNKNOWN L\u00e4nge \U0001F600");
}
