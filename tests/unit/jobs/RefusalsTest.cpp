// What the system refuses. This program puts its own functions in the place of two of OrvikOs: the
// dynamic linker takes those of the program first.
#include "DispatcherFixture.h"

#include "OrvikCore/SignalHandlingContext.h"

#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/FpControl.h>
#include <OrvikOs/MsgWait.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace {

/// What OrvikOs::FpControl::SetControlWord() gives here; it sets nothing.
int g_controlWordError = 0;

/// What each call of OrvikOs::MsgWait() gives here, the last one from then on.
std::vector<unsigned> g_waitResults;
std::size_t g_waits = 0;

} // namespace

int OrvikOs::FpControl::SetControlWord(unsigned, unsigned) noexcept
{
    return g_controlWordError;
}

unsigned OrvikOs::MsgWait(Event&, int, unsigned)
{
    ++g_waits;
    return g_waitResults[g_waits < g_waitResults.size() ? g_waits - 1 : g_waitResults.size() - 1];
}

namespace {

using OrvikCore::JID_EXECUTE_SCRIPT;
using OrvikCore::JOB_UNKNOWN;

/// Opens up the operations for derived classes.
class OpenContext : public OrvikCore::SignalHandlingContext
{
public:
    using SignalHandlingContext::disableFloatingPointControl;
    using SignalHandlingContext::setFloatingPointControl;
    using SignalHandlingContext::unsetFloatingPointControl;
};

/// An operation of a context and what it traces when the masks cannot be set.
struct RefusedStep
{
    const char* name;
    void (*run)(OpenContext& context);
    const char* lastLine;
};

class FloatingPointControlRefused : public ::testing::TestWithParam<RefusedStep>
{
};

std::string stepName(const ::testing::TestParamInfo<RefusedStep>& info)
{
    return info.param.name;
}

TEST_P(FloatingPointControlRefused, TracesTheErrorInThePlaceOfTheNewMasks)
{
    OpenContext context;
    std::string output;
    OrvikOs::SetDebugSink([&output](const char* text) { output += text; });
    g_controlWordError = 22;

    GetParam().run(context);

    OrvikOs::SetDebugSink(nullptr);
    EXPECT_TRUE(output.ends_with(GetParam().lastLine)) << output;
    EXPECT_EQ(output.find("New       "), std::string::npos) << output;
    EXPECT_EQ(output.find("Restoring "), std::string::npos) << output;
}

INSTANTIATE_TEST_SUITE_P(
    Steps, FloatingPointControlRefused,
    ::testing::Values(
        RefusedStep{"Disable", [](OpenContext& context) { context.disableFloatingPointControl(); },
                    "Error in disableFloatingPointControl(): 22\n"},
        RefusedStep{"Set", [](OpenContext& context) { context.setFloatingPointControl(); },
                    "Error in setFloatingPointControl(): 22\n"},
        RefusedStep{"Unset", [](OpenContext& context) { context.unsetFloatingPointControl(); },
                    "Error in unsetFloatingPointControl(): 22\n"}),
    stepName);

/// A script that the worker does not finish is waited for, whatever the wait gives.
class JobDispatcherBrokenWait : public DispatcherTest
{
protected:
    ~JobDispatcherBrokenWait() override
    {
        m_gate.Open();
        waitUntilIdle();
    }

    OrvikCore::JobStatus statusAfter(std::vector<unsigned> waitResults)
    {
        g_waitResults = std::move(waitResults);
        m_engine.onExecute = [this] { m_gate.Execute(); };
        JobTicket ticket(JID_EXECUTE_SCRIPT, nullptr, true, addressOf(m_engine),
                         addressOf(m_script));
        dispatcher().ExecuteJob(ticket);
        return ticket.GetStatus();
    }

    GateJob m_gate;
    FakeScriptEngine m_engine;
    const std::wstring m_script = L"(long)";
};

TEST_F(JobDispatcherBrokenWait, AWaitThatFailsEndsAtOnce)
{
    EXPECT_EQ(statusAfter({OrvikOs::kWaitTimeout, OrvikOs::kWaitFailed}), JOB_UNKNOWN);
    EXPECT_EQ(g_waits, 2u);
    EXPECT_FALSE(m_gate.HasEnded());
}

TEST_F(JobDispatcherBrokenWait, AWaitWhoseEventIsAbandonedEndsAtOnce)
{
    EXPECT_EQ(statusAfter({OrvikOs::kWaitTimeout, OrvikOs::kWaitAbandoned}), JOB_UNKNOWN);
    EXPECT_EQ(g_waits, 2u);
    EXPECT_FALSE(m_gate.HasEnded());
}

} // namespace
