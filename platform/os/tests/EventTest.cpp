#include <OrvikOs/Event.h>
#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::wstring uniqueName(const wchar_t* end)
{
    return L"Local\\OrvikOsTest_" + std::to_wstring(OrvikOs::CurrentProcessId()) + end;
}

TEST(Event, NewEventIsNotSet)
{
    OrvikOs::Event event;
    ASSERT_TRUE(event.Create(uniqueName(L"a")));
    EXPECT_EQ(event.LastError(), 0u);
    EXPECT_EQ(event.Wait(0), 258u);
}

TEST(Event, WaitTakesTheEvent)
{
    OrvikOs::Event event;
    event.Create();
    event.Set();
    EXPECT_EQ(event.Wait(0), 0u);
    EXPECT_EQ(event.Wait(0), 258u);
}

TEST(Event, SettingTwiceCountsOnce)
{
    OrvikOs::Event event;
    event.Create();
    event.Set();
    event.Set();
    EXPECT_TRUE(event.TryTake());
    EXPECT_FALSE(event.TryTake());
}

TEST(Event, SetEndsTheWaitOfAnotherThread)
{
    OrvikOs::Event event;
    event.Create();
    OrvikOs::Thread thread;
    thread.Start([&event] { event.Set(); });
    EXPECT_EQ(event.Wait(-1), 0u);
}

TEST(Event, TakenNameIsRefusedWith183)
{
    OrvikOs::Event first;
    OrvikOs::Event second;
    ASSERT_TRUE(first.Create(uniqueName(L"b")));
    EXPECT_FALSE(second.Create(uniqueName(L"b")));
    EXPECT_EQ(second.LastError(), 183u);
    EXPECT_FALSE(second.IsCreated());
}

TEST(Event, FailedCreateHoldsNoClaim)
{
    OrvikOs::Event first;
    OrvikOs::Event second;
    first.Create(uniqueName(L"c"));
    second.Create(uniqueName(L"c"));
    first.Close();
    EXPECT_TRUE(second.Create(uniqueName(L"c")));
}

TEST(Event, CreatingTheSameNameAgainDoesNotMeetItself)
{
    OrvikOs::Event event;
    ASSERT_TRUE(event.Create(uniqueName(L"d")));
    EXPECT_TRUE(event.Create(uniqueName(L"d")));
}

TEST(Event, NameIsTakenInAnotherProcessToo)
{
    OrvikOs::Event event;
    ASSERT_TRUE(event.Create(uniqueName(L"e")));
    const std::wstring name = uniqueName(L"e");
    const pid_t child = fork();
    if (child == 0) {
        OrvikOs::Event other;
        _exit(!other.Create(name) && other.LastError() == 183 ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST(Event, NamesThatDifferOnlyFarBehindAreDifferent)
{
    const std::wstring longName(300, L'x');
    OrvikOs::Event first;
    OrvikOs::Event second;
    EXPECT_TRUE(first.Create(uniqueName((longName + L"1").c_str())));
    EXPECT_TRUE(second.Create(uniqueName((longName + L"2").c_str())));
}

TEST(Event, ClosedEventFailsToWaitAndToSet)
{
    OrvikOs::Event event;
    EXPECT_EQ(event.Wait(0), 0xFFFFFFFFu);
    EXPECT_FALSE(event.Set());
    EXPECT_EQ(event.NativeHandle(), -1);
}

} // namespace
