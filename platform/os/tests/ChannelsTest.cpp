#include <OrvikOs/Clipboard.h>
#include <OrvikOs/Clock.h>
#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/EndRequest.h>
#include <OrvikOs/Environment.h>
#include <OrvikOs/FileWriting.h>
#include <OrvikOs/InterpreterSignal.h>
#include <OrvikOs/Interrupt.h>
#include <OrvikOs/Sleeper.h>
#include <OrvikOs/SystemError.h>
#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <string>

namespace {

TEST(DebugOutput, SinkGetsTheText)
{
    std::string seen;
    OrvikOs::SetDebugSink([&seen](const char* text) { seen += text; });
    OrvikOs::WriteDebug("one");
    OrvikOs::WriteDebug(nullptr);
    OrvikOs::WriteDebug("two");
    OrvikOs::SetDebugSink({});
    OrvikOs::WriteDebug("three");
    EXPECT_EQ(seen, "onetwo");
}

TEST(DebugOutput, IsSilentWithoutSink)
{
    unsetenv("ORVIK_DEBUG_OUTPUT");
    testing::internal::CaptureStderr();
    OrvikOs::WriteDebug("text");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(DebugOutput, GoesToStandardErrorWhenAskedFor)
{
    setenv("ORVIK_DEBUG_OUTPUT", "1", 1);
    testing::internal::CaptureStderr();
    OrvikOs::WriteDebug("text");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "text");
}

class FakeClipboard : public OrvikOs::IClipboard
{
public:
    bool SetText(const std::wstring& newText) override
    {
        text = newText;
        return !refuses;
    }
    std::wstring GetText() override { return text; }

    std::wstring text;
    bool refuses = false;
};

TEST(Clipboard, IsMissingUntilAHostSetsOne)
{
    EXPECT_FALSE(OrvikOs::CopyToClipboard(L"text"));
    EXPECT_EQ(OrvikOs::PasteFromClipboard(), L"");
}

TEST(Clipboard, HostsClipboardIsUsed)
{
    FakeClipboard clipboard;
    EXPECT_EQ(OrvikOs::SetClipboard(&clipboard), nullptr);
    EXPECT_TRUE(OrvikOs::CopyToClipboard(L"text"));
    EXPECT_EQ(OrvikOs::PasteFromClipboard(), L"text");
    clipboard.refuses = true;
    EXPECT_FALSE(OrvikOs::CopyToClipboard(L"more"));
    EXPECT_EQ(OrvikOs::SetClipboard(nullptr), &clipboard);
}

struct FakeTime : OrvikOs::IClock, OrvikOs::ISleeper
{
    std::uint64_t NowUs() override { return us; }
    void SleepMs(int milliseconds) override
    {
        us += static_cast<std::uint64_t>(milliseconds) * 1000;
    }
    std::uint64_t us = 5999;
};

TEST(Clock, NeverGoesBack)
{
    const auto first = OrvikOs::Clock::NowUs();
    EXPECT_GE(OrvikOs::Clock::NowUs(), first);
    EXPECT_GE(OrvikOs::Clock::NowMs(), first / 1000);
}

TEST(Clock, CanBeReplacedTogetherWithTheSleeper)
{
    FakeTime time;
    OrvikOs::SetClock(&time);
    OrvikOs::SetSleeper(&time);
    EXPECT_EQ(OrvikOs::Clock::NowMs(), 5u);
    OrvikOs::SleepMs(600000);
    EXPECT_EQ(OrvikOs::Clock::NowUs(), 600005999u);
    EXPECT_EQ(OrvikOs::SetClock(nullptr), &time);
    EXPECT_EQ(OrvikOs::SetSleeper(nullptr), &time);
}

TEST(Sleeper, IsNotAskedForNothing)
{
    FakeTime time;
    OrvikOs::SetSleeper(&time);
    OrvikOs::SleepMs(0);
    OrvikOs::SleepMs(-5);
    OrvikOs::SetSleeper(nullptr);
    EXPECT_EQ(time.us, 5999u);
}

TEST(Sleeper, SystemsSleepLetsTimePass)
{
    const auto before = OrvikOs::Clock::NowUs();
    OrvikOs::SleepMs(2);
    EXPECT_GE(OrvikOs::Clock::NowUs(), before + 2000);
}

TEST(Environment, VariablesAreReadAsTheyAre)
{
    setenv("ORVIK_OS_TEST", "v\xC3\xA4lue", 1);
    EXPECT_EQ(OrvikOs::EnvironmentVariable("ORVIK_OS_TEST"), std::wstring(L"v\u00E4lue"));
    setenv("ORVIK_OS_TEST", "", 1);
    EXPECT_EQ(OrvikOs::EnvironmentVariable("ORVIK_OS_TEST"), std::wstring());
    unsetenv("ORVIK_OS_TEST");
    EXPECT_FALSE(OrvikOs::EnvironmentVariable("ORVIK_OS_TEST").has_value());
}

TEST(Environment, FoldersFollowTheUsersSettings)
{
    setenv("HOME", "/home/someone/", 1);
    unsetenv("XDG_CONFIG_HOME");
    setenv("XDG_STATE_HOME", "/state", 1);
    setenv("TMPDIR", "/scratch/", 1);
    EXPECT_EQ(OrvikOs::HomeFolder(), L"/home/someone");
    EXPECT_EQ(OrvikOs::ConfigurationFolder(L"pellux"), L"/home/someone/.config/pellux");
    EXPECT_EQ(OrvikOs::StateFolder(L"pellux"), L"/state/pellux");
    EXPECT_EQ(OrvikOs::TemporaryFolder(), L"/scratch");
    setenv("XDG_STATE_HOME", "relative", 1);
    EXPECT_EQ(OrvikOs::StateFolder(L"pellux"), L"/home/someone/.local/state/pellux");
}

TEST(SystemErrorText, IsTheSystemsOwn)
{
    EXPECT_EQ(OrvikOs::SystemErrorText(2), L"No such file or directory");
}

TEST(WriteStandardStream, BypassesTheBuffers)
{
    testing::internal::CaptureStdout();
    OrvikOs::WriteStandardStream(OrvikOs::StandardStream::Output, "line\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "line\n");
    testing::internal::CaptureStderr();
    OrvikOs::WriteStandardStream(OrvikOs::StandardStream::Error, "line\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "line\n");
}

TEST(InterruptWatch, FirstInterruptIsARequest)
{
    OrvikOs::InterruptWatch watch;
    ASSERT_TRUE(watch.IsActive());
    EXPECT_FALSE(watch.WasRequested());
    std::raise(SIGINT);
    EXPECT_TRUE(watch.WasRequested());
    EXPECT_EQ(watch.RequestEvent().Wait(0), 0u);
}

TEST(InterruptWatch, ResetMakesTheNextInterruptTheFirst)
{
    OrvikOs::InterruptWatch watch;
    std::raise(SIGINT);
    watch.Reset();
    EXPECT_FALSE(watch.WasRequested());
    EXPECT_EQ(watch.RequestEvent().Wait(0), 258u);
    std::raise(SIGINT);
    EXPECT_TRUE(watch.WasRequested());
}

TEST(InterruptWatch, SecondWatchDoesNothing)
{
    OrvikOs::InterruptWatch first;
    {
        OrvikOs::InterruptWatch second;
        EXPECT_FALSE(second.IsActive());
        std::raise(SIGINT);
        EXPECT_FALSE(second.WasRequested());
    }
    EXPECT_TRUE(first.WasRequested());
}

TEST(InterruptWatchDeathTest, SecondInterruptEndsTheProgram)
{
    EXPECT_EXIT(
        {
            OrvikOs::InterruptWatch watch;
            std::raise(SIGINT);
            std::raise(SIGINT);
        },
        testing::ExitedWithCode(130), "");
}

TEST(InterruptWatchDeathTest, InterruptAfterTheWatchEndsTheProgramAsUsual)
{
    EXPECT_EXIT(
        {
            {
                OrvikOs::InterruptWatch watch;
            }
            std::raise(SIGINT);
        },
        testing::KilledBySignal(SIGINT), "");
}

TEST(EndRequestWatch, TellsOfEachRequestAndGoesOn)
{
    OrvikOs::EndRequestWatch watch;
    ASSERT_TRUE(watch.IsActive());
    EXPECT_EQ(watch.RequestEvent().Wait(0), 258u);
    for (const int number : {SIGTERM, SIGHUP, SIGTERM}) {
        std::raise(number);
        EXPECT_EQ(watch.RequestEvent().Wait(0), 0u);
    }
}

TEST(EndRequestWatch, SecondWatchDoesNothing)
{
    OrvikOs::EndRequestWatch first;
    {
        OrvikOs::EndRequestWatch second;
        EXPECT_FALSE(second.IsActive());
    }
    std::raise(SIGTERM);
    EXPECT_EQ(first.RequestEvent().Wait(0), 0u);
}

TEST(EndRequestWatch, LeavesASignalAloneThatIsIgnored)
{
    std::signal(SIGHUP, SIG_IGN);
    OrvikOs::EndRequestWatch watch;
    std::raise(SIGHUP);
    EXPECT_EQ(watch.RequestEvent().Wait(0), 258u);
}

TEST(EndRequestWatchDeathTest, ARequestAfterTheWatchEndsTheProgramAsUsual)
{
    EXPECT_EXIT(
        {
            {
                OrvikOs::EndRequestWatch watch;
            }
            std::raise(SIGTERM);
        },
        testing::KilledBySignal(SIGTERM), "");
}

TEST(InterpreterSignal, ReachesTheHandlerOfTheInterpreter)
{
    static volatile std::sig_atomic_t seen = 0;
    std::signal(OrvikOs::InterpreterSignalNumber(), [](int) { seen = 1; });
    EXPECT_TRUE(OrvikOs::RaiseInterpreterSignal());
    EXPECT_EQ(seen, 1);
}

} // namespace
