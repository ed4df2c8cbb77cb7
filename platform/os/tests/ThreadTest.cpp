#include <OrvikOs/Event.h>
#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

std::string nameInSystem(std::uint32_t threadId)
{
    std::ifstream file("/proc/self/task/" + std::to_string(threadId) + "/comm");
    std::string name;
    std::getline(file, name);
    return name;
}

TEST(Thread, BodyRunsOnAThreadOfItsOwn)
{
    std::uint32_t id = 0;
    OrvikOs::Thread thread;
    ASSERT_TRUE(thread.Start([&id] { id = OrvikOs::CurrentThreadId(); }));
    const std::uint32_t known = thread.Id();
    thread.Join();
    EXPECT_EQ(id, known);
    EXPECT_NE(id, OrvikOs::CurrentThreadId());
}

TEST(Thread, MainThreadHasTheNumberOfTheProcess)
{
    EXPECT_EQ(OrvikOs::CurrentThreadId(), OrvikOs::CurrentProcessId());
}

TEST(Thread, StartsOnlyOnce)
{
    OrvikOs::Thread thread;
    EXPECT_TRUE(thread.Start([] {}));
    EXPECT_FALSE(thread.Start([] {}));
}

TEST(Thread, NameIsCutToFifteenCharacters)
{
    OrvikOs::Event end;
    end.Create();
    OrvikOs::Thread thread;
    thread.Start([&end] { end.Wait(-1); });
    EXPECT_TRUE(thread.SetName("PelluxWorkerWithALongName"));
    EXPECT_EQ(nameInSystem(thread.Id()), "PelluxWorkerWit");
    EXPECT_TRUE(thread.SetName("PelluxWorker"));
    EXPECT_EQ(nameInSystem(thread.Id()), "PelluxWorker");
    end.Set();
}

TEST(Thread, NeverStartedThreadHasNothing)
{
    OrvikOs::Thread thread;
    EXPECT_FALSE(thread.IsStarted());
    EXPECT_EQ(thread.Id(), 0u);
    EXPECT_EQ(thread.NativeHandle(), 0u);
    EXPECT_FALSE(thread.SetName("x"));
    EXPECT_TRUE(thread.JoinFor(0));
    EXPECT_TRUE(thread.Park(1));
}

TEST(Thread, HandleAndNumberStayAfterTheEnd)
{
    OrvikOs::Thread thread;
    thread.Start([] {});
    const auto handle = thread.NativeHandle();
    const auto id = thread.Id();
    thread.Join();
    EXPECT_NE(handle, 0u);
    EXPECT_EQ(thread.NativeHandle(), handle);
    EXPECT_EQ(thread.Id(), id);
    EXPECT_TRUE(thread.HasFinished());
    EXPECT_FALSE(thread.IsStarted());
}

TEST(Thread, JoinForGivesUpWhenTheThreadRunsOn)
{
    OrvikOs::Event end;
    end.Create();
    OrvikOs::Thread thread;
    thread.Start([&end] { end.Wait(-1); });
    EXPECT_FALSE(thread.JoinFor(5));
    EXPECT_FALSE(thread.HasFinished());
    end.Set();
    EXPECT_TRUE(thread.JoinFor(60000));
}

std::atomic<bool> g_destroyed{false};
std::atomic<unsigned long> g_rounds{0};

struct Witness
{
    ~Witness() { g_destroyed = true; }
};

/// Starts a thread that never ends by itself.
void startSpinning(OrvikOs::Thread& thread)
{
    thread.Start([] {
        const Witness witness;
        for (;;) {
            ++g_rounds;
        }
    });
    while (g_rounds.load() == 0) {
        OrvikOs::YieldThread();
    }
}

TEST(Thread, ParkStopsABusyThreadForGood)
{
    auto& thread = *new OrvikOs::Thread();
    startSpinning(thread);

    EXPECT_TRUE(thread.Park(5000));

    const unsigned long rounds = g_rounds.load();
    for (int i = 0; i < 1000; ++i) {
        OrvikOs::YieldThread();
    }
    EXPECT_EQ(g_rounds.load(), rounds);
    EXPECT_FALSE(g_destroyed.load());
    EXPECT_FALSE(thread.IsStarted());
    delete &thread;
}

TEST(Thread, ParkStopsASleepingThread)
{
    static auto& never =
        *new OrvikOs::Event(); // Outlives the parked thread, which still refers to it.
    static auto& started = *new OrvikOs::Event();
    never.Create();
    started.Create();
    OrvikOs::Thread thread;
    thread.Start([] {
        started.Set();
        never.Wait(-1);
    });
    started.Wait(-1);
    EXPECT_TRUE(thread.Park(5000));
}

TEST(Thread, ParkStopsAThreadThatAllocatesAllTheTimeOutsideTheAllocator)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP()
        << "the allocator is the sanitizer's, which does not tell whether a thread is in it";
#endif
    OrvikOs::Thread thread;
    thread.Start([] {
        for (;;) {
            void* volatile memory = std::malloc(100 + g_rounds.load() % 1000);
            std::free(memory);
            ++g_rounds;
        }
    });
    while (g_rounds.load() < 1000) {
        OrvikOs::YieldThread();
    }
    EXPECT_TRUE(thread.Park(5000));
    void* const memory = std::malloc(500);
    EXPECT_NE(memory, nullptr);
    std::free(memory);
}

TEST(Thread, ParkOfAFinishedThreadSucceeds)
{
    OrvikOs::Thread thread;
    thread.Start([] {});
    while (!thread.HasFinished()) {
        OrvikOs::YieldThread();
    }
    EXPECT_TRUE(thread.Park(1));
    EXPECT_TRUE(thread.HasFinished());
}

TEST(Thread, AbandonedThreadRunsOn)
{
    static OrvikOs::Event go;
    static OrvikOs::Event done;
    go.Create();
    done.Create();
    {
        OrvikOs::Thread thread;
        thread.Start([] {
            go.Wait(-1);
            done.Set();
        });
        thread.Abandon();
        EXPECT_FALSE(thread.IsStarted());
    }
    go.Set();
    EXPECT_EQ(done.Wait(-1), 0u);
}

TEST(ThreadDeathTest, ProcessWithAParkedThreadEndsNormally)
{
    EXPECT_EXIT(
        {
            OrvikOs::Thread thread;
            startSpinning(thread);
            std::exit(thread.Park(5000) ? 7 : 1);
        },
        testing::ExitedWithCode(7), "");
}

} // namespace
