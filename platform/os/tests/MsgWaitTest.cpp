#include <OrvikOs/MsgWait.h>
#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <deque>
#include <stdexcept>
#include <vector>

namespace {

/// A queue of messages, each with the kind of input that it counts as.
class FakeMessageSource : public OrvikOs::IMessageSource
{
public:
    bool HasInput(unsigned mask) override
    {
        ++asked;
        return std::any_of(queue.begin(), queue.end(),
                           [mask](const auto& entry) { return (entry.first & mask) != 0; });
    }
    bool Peek(OrvikOs::Message& message, bool remove) override
    {
        if (queue.empty()) {
            return false;
        }
        message = queue.front().second;
        if (remove) {
            queue.pop_front();
        }
        return true;
    }
    void Translate(const OrvikOs::Message&) override {}
    void Dispatch(const OrvikOs::Message&) override {}
    std::intptr_t InputHandle() override { return handle; }
    int PollIntervalMs() override { return 1; }

    std::deque<std::pair<unsigned, OrvikOs::Message>> queue;
    std::intptr_t handle = -1;
    int asked = 0;
};

/// Counts what it is served and sets an event, or wakes itself again, or throws.
class FakeWakeSource : public OrvikOs::IWakeSource
{
public:
    FakeWakeSource() { m_event.Create(); }

    OrvikOs::Event& WakeEvent() override { return m_event; }
    void Serve() override
    {
        ++served;
        thread = OrvikOs::CurrentThreadId();
        if (toSet != nullptr) {
            toSet->Set();
        }
        if (throws) {
            throw std::runtime_error("from Serve");
        }
    }

    int served = 0;
    std::uint32_t thread = 0;
    OrvikOs::Event* toSet = nullptr;
    bool throws = false;

private:
    OrvikOs::Event m_event;
};

constexpr unsigned kMask = 0x36;

struct MsgWait : testing::Test
{
    MsgWait() { event.Create(); }
    ~MsgWait() override { OrvikOs::SetMessageSource(nullptr); }

    OrvikOs::Event event;
    FakeMessageSource source;
};

TEST_F(MsgWait, MaskBitsAreThoseOfTheSystem)
{
    EXPECT_EQ(OrvikOs::kInputMouseMove | OrvikOs::kInputMouseButton | OrvikOs::kInputTimer |
                  OrvikOs::kInputPaint,
              kMask);
}

TEST_F(MsgWait, SetEventEndsTheWait)
{
    event.Set();
    EXPECT_EQ(OrvikOs::MsgWait(event, -1, kMask), 0u);
    EXPECT_FALSE(event.TryTake());
}

TEST_F(MsgWait, TimeOutIs258)
{
    EXPECT_EQ(OrvikOs::MsgWait(event, 1, kMask), 258u);
    EXPECT_EQ(OrvikOs::MsgWait(event, 0, kMask), 258u);
}

TEST_F(MsgWait, ClosedEventFails)
{
    event.Close();
    EXPECT_EQ(OrvikOs::MsgWait(event, 1, kMask), 0xFFFFFFFFu);
}

TEST_F(MsgWait, InputWithinTheMaskEndsTheWaitAndStays)
{
    OrvikOs::SetMessageSource(&source);
    source.queue.push_back({OrvikOs::kInputTimer, {}});
    EXPECT_EQ(OrvikOs::MsgWait(event, -1, kMask), 1u);
    EXPECT_EQ(source.queue.size(), 1u);
}

TEST_F(MsgWait, EventWinsOverInput)
{
    OrvikOs::SetMessageSource(&source);
    source.queue.push_back({OrvikOs::kInputPaint, {}});
    event.Set();
    EXPECT_EQ(OrvikOs::MsgWait(event, -1, kMask), 0u);
}

TEST_F(MsgWait, InputOutsideTheMaskDoesNotEndTheWait)
{
    OrvikOs::SetMessageSource(&source);
    source.queue.push_back({0x1, {}});
    EXPECT_EQ(OrvikOs::MsgWait(event, 5, kMask), 258u);
}

TEST_F(MsgWait, ReadyDescriptorWithoutFittingInputDoesNotSpin)
{
    OrvikOs::Event input;
    input.Create();
    input.Set();
    source.handle = input.NativeHandle();
    OrvikOs::SetMessageSource(&source);
    EXPECT_EQ(OrvikOs::MsgWait(event, 30, kMask), 258u);
    EXPECT_LT(source.asked, 100);
}

TEST_F(MsgWait, InputDescriptorEndsTheSystemsWait)
{
    OrvikOs::Event input;
    input.Create();
    source.handle = input.NativeHandle();
    OrvikOs::SetMessageSource(&source);
    OrvikOs::Thread thread;
    thread.Start([&input] { input.Set(); });
    // The source has its message as soon as it is asked the second time.
    source.queue.push_back({0x1, {}});
    EXPECT_EQ(OrvikOs::MsgWait(event, 20, kMask), 258u);
    EXPECT_GE(source.asked, 2);
}

TEST_F(MsgWait, SetMessageSourceGivesTheOneBefore)
{
    EXPECT_EQ(OrvikOs::SetMessageSource(&source), nullptr);
    EXPECT_EQ(OrvikOs::GetMessageSource(), &source);
    EXPECT_EQ(OrvikOs::SetMessageSource(nullptr), &source);
}

TEST_F(MsgWait, WakeSourceIsServedByTheWaitingThread)
{
    FakeWakeSource wake;
    wake.toSet = &event;
    OrvikOs::RegisterWakeSource(wake);
    OrvikOs::Thread thread;
    thread.Start([&wake] { wake.WakeEvent().Set(); });

    EXPECT_EQ(OrvikOs::MsgWait(event, -1, kMask), 0u);

    EXPECT_EQ(wake.served, 1);
    EXPECT_EQ(wake.thread, OrvikOs::CurrentThreadId());
    OrvikOs::UnregisterWakeSource(wake);
}

TEST_F(MsgWait, WakeSourceIsServedOncePerWakeUp)
{
    FakeWakeSource wake;
    OrvikOs::RegisterWakeSource(wake);
    wake.WakeEvent().Set();
    EXPECT_EQ(OrvikOs::MsgWait(event, 2, kMask), 258u);
    EXPECT_EQ(wake.served, 1);
    OrvikOs::UnregisterWakeSource(wake);
}

TEST_F(MsgWait, WakeSourceOfAnotherThreadIsLeftAlone)
{
    FakeWakeSource wake;
    OrvikOs::RegisterWakeSource(wake, OrvikOs::CurrentThreadId() + 1);
    wake.WakeEvent().Set();
    EXPECT_EQ(OrvikOs::MsgWait(event, 1, kMask), 258u);
    EXPECT_FALSE(OrvikOs::ServeWakeSources());
    EXPECT_EQ(wake.served, 0);
    OrvikOs::UnregisterWakeSource(wake);
}

TEST_F(MsgWait, WakeHandlesAreThoseOfTheCallingThread)
{
    FakeWakeSource mine;
    FakeWakeSource other;
    const std::size_t before = OrvikOs::WakeHandles().size();
    OrvikOs::RegisterWakeSource(mine);
    OrvikOs::RegisterWakeSource(other, OrvikOs::CurrentThreadId() + 1);

    const std::vector<std::intptr_t> handles = OrvikOs::WakeHandles();
    OrvikOs::UnregisterWakeSource(mine);
    OrvikOs::UnregisterWakeSource(other);

    ASSERT_EQ(handles.size(), before + 1);
    EXPECT_EQ(handles.back(), mine.WakeEvent().NativeHandle());
    EXPECT_EQ(OrvikOs::WakeHandles().size(), before);
}

TEST_F(MsgWait, RegisteringTwiceServesOnce)
{
    FakeWakeSource wake;
    OrvikOs::RegisterWakeSource(wake);
    OrvikOs::RegisterWakeSource(wake);
    wake.WakeEvent().Set();
    EXPECT_TRUE(OrvikOs::ServeWakeSources());
    EXPECT_EQ(wake.served, 1);
    OrvikOs::UnregisterWakeSource(wake);
    wake.WakeEvent().Set();
    EXPECT_FALSE(OrvikOs::ServeWakeSources());
}

TEST_F(MsgWait, WhatServeThrowsLeavesTheWait)
{
    FakeWakeSource wake;
    wake.throws = true;
    OrvikOs::RegisterWakeSource(wake);
    wake.WakeEvent().Set();
    EXPECT_THROW(OrvikOs::MsgWait(event, -1, kMask), std::runtime_error);
    OrvikOs::UnregisterWakeSource(wake);
}

TEST_F(MsgWait, IdleWaitReturnsAfterServing)
{
    FakeWakeSource wake;
    OrvikOs::RegisterWakeSource(wake);
    OrvikOs::Thread thread;
    thread.Start([&wake] { wake.WakeEvent().Set(); });
    EXPECT_EQ(OrvikOs::WaitForWakeSources(-1), 0u);
    EXPECT_EQ(wake.served, 1);
    EXPECT_EQ(OrvikOs::WaitForWakeSources(1), 258u);
    OrvikOs::UnregisterWakeSource(wake);
}

TEST_F(MsgWait, IdleWaitThatWouldNeverEndFails)
{
    EXPECT_EQ(OrvikOs::WaitForWakeSources(-1), 0xFFFFFFFFu);
    EXPECT_EQ(OrvikOs::WaitForWakeSources(1), 258u);
}

TEST_F(MsgWait, IdleWaitEndsByInput)
{
    OrvikOs::SetMessageSource(&source);
    source.queue.push_back({OrvikOs::kInputTimer, {}});
    EXPECT_EQ(OrvikOs::WaitForWakeSources(-1, kMask), 1u);
}

/// Answers each wake-up by an event, as a call across threads does.
class EchoSource : public FakeWakeSource
{
public:
    EchoSource() { answer.Create(); }
    void Serve() override { answer.Set(); }
    OrvikOs::Event answer;
};

TEST_F(MsgWait, AThousandCallsFromAnotherThreadAreAllServed)
{
    EchoSource echo;
    OrvikOs::RegisterWakeSource(echo);
    std::atomic<int> answered{0};
    OrvikOs::Thread thread;
    thread.Start([&] {
        for (int i = 0; i < 1000; ++i) {
            echo.WakeEvent().Set();
            answered += echo.answer.Wait(-1) == 0 ? 1 : 0;
        }
        event.Set();
    });

    EXPECT_EQ(OrvikOs::MsgWait(event, -1, kMask), 0u);

    EXPECT_EQ(answered.load(), 1000);
    OrvikOs::UnregisterWakeSource(echo);
}

} // namespace
