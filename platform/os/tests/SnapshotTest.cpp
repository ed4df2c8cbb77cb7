#include <OrvikOs/CriticalSection.h>
#include <OrvikOs/Snapshot.h>
#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(Snapshot, StartsWithADefaultValue)
{
    const OrvikOs::Snapshot<std::string> snapshot;
    EXPECT_EQ(*snapshot.Get(), "");
}

TEST(Snapshot, ReaderKeepsWhatItGot)
{
    OrvikOs::Snapshot<std::string> snapshot("old");
    const auto kept = snapshot.Get();
    snapshot.Set("new");
    EXPECT_EQ(*kept, "old");
    EXPECT_EQ(*snapshot.Get(), "new");
}

TEST(Snapshot, UpdateThatThrowsChangesNothing)
{
    OrvikOs::Snapshot<std::vector<int>> snapshot({1, 2});
    EXPECT_THROW(snapshot.Update([](std::vector<int>& list) {
        list.clear();
        throw 1;
    }),
                 int);
    EXPECT_EQ(snapshot.Get()->size(), 2u);
}

TEST(Snapshot, UpdatesOfSeveralThreadsAreAllKept)
{
    OrvikOs::Snapshot<std::vector<int>> snapshot;
    const auto append = [&snapshot] {
        for (int i = 0; i < 200; ++i) {
            snapshot.Update([i](std::vector<int>& list) { list.push_back(i); });
        }
    };
    OrvikOs::Thread first;
    OrvikOs::Thread second;
    first.Start(append);
    second.Start(append);
    append();
    first.Join();
    second.Join();
    EXPECT_EQ(snapshot.Get()->size(), 600u);
}

TEST(Snapshot, ReadersSeeWholeValuesOnly)
{
    OrvikOs::Snapshot<std::string> snapshot(std::string(50, 'a'));
    OrvikOs::Thread writer;
    writer.Start([&snapshot] {
        for (int i = 0; i < 2000; ++i) {
            snapshot.Set(std::string(50, static_cast<char>('a' + i % 26)));
        }
    });
    bool whole = true;
    while (!writer.HasFinished()) {
        const auto value = snapshot.Get();
        whole = whole && value->find_first_not_of((*value)[0]) == std::string::npos;
    }
    EXPECT_TRUE(whole);
}

TEST(CriticalSection, TheSameThreadMayLockTwice)
{
    OrvikOs::CriticalSection section;
    const OrvikOs::CriticalSection::Guard outer(section);
    const OrvikOs::CriticalSection::Guard inner(section);
    EXPECT_TRUE(section.TryLock());
    section.Unlock();
}

TEST(CriticalSection, OtherThreadIsKeptOutUntilTheLastUnlock)
{
    OrvikOs::CriticalSection section;
    const auto tryOnOtherThread = [&section] {
        bool taken = false;
        OrvikOs::Thread thread;
        thread.Start([&] {
            taken = section.TryLock();
            if (taken) {
                section.Unlock();
            }
        });
        thread.Join();
        return taken;
    };
    section.Lock();
    section.Lock();
    section.Unlock();
    EXPECT_FALSE(tryOnOtherThread());
    section.Unlock();
    EXPECT_TRUE(tryOnOtherThread());
}

} // namespace
