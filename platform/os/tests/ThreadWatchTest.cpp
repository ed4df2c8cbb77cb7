#include <OrvikOs/FaultScope.h>
#include <OrvikOs/Library.h>
#include <OrvikOs/ThreadWatch.h>
#include <OrvikOs/Utf8.h>

#include <gtest/gtest.h>
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

namespace {

using Answer = OrvikOs::ThreadWatch::Answer;

struct Interrupted
{
};

/// What a watch of a test sees and answers.
struct Watched
{
    std::atomic<unsigned> looks{0};
    std::atomic<std::uint64_t> cpuMs{0};
    std::atomic<unsigned> patience{2}; ///< Looks that are answered with no.

    static Answer Ask(void* context, std::uint64_t cpuMs) noexcept
    {
        Watched& watched = *static_cast<Watched*>(context);
        watched.cpuMs = cpuMs;
        return ++watched.looks > watched.patience ? Answer::Interrupt : Answer::GoOn;
    }

    static void Throw(void* /*context*/) { throw Interrupted(); }
};

class ThreadWatching : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(
            library.Load(OrvikOs::Utf8ToWide(ORVIKOS_TEST_LIBRARY_FOLDER "/PlainFaults.dll")));
        code = std::make_unique<OrvikOs::LibraryCode>("PlainFaults");
        OrvikOs::ThreadWatch watch(*code, &Watched::Ask, &Watched::Throw, &watched);
        if (!watch.IsActive())
            GTEST_SKIP() << "no thread can be watched here";
    }

    /// @return whether the watch ended the library's function.
    bool IsInterrupted(const char* entry)
    {
        const auto run = reinterpret_cast<void (*)()>(library.Symbol(entry));
        const OrvikOs::FaultScope scope;
        const OrvikOs::ThreadWatch watch(*code, &Watched::Ask, &Watched::Throw, &watched);
        try {
            run();
        } catch (const Interrupted&) {
            return true;
        }
        return false;
    }

    OrvikOs::Library library;
    std::unique_ptr<OrvikOs::LibraryCode> code;
    Watched watched;
};

/// Stays in this program until the watch has looked in so often.
void spinHere(const Watched& watched, unsigned looks)
{
    while (watched.looks < looks) {
    }
}

TEST_F(ThreadWatching, EndsALoopWithoutEnd)
{
    EXPECT_TRUE(IsInterrupted("PlainSpin"));
    EXPECT_GE(watched.looks, 3u);
}

TEST_F(ThreadWatching, EndsALoopThatIsMostlyInTheAllocator)
{
#if defined(__SANITIZE_ADDRESS__)
    // What the innermost function holds is not given back.
    const __lsan::ScopedDisabler disabler;
#endif
    watched.patience = 0;
    for (int i = 0; i < 10; ++i)
        EXPECT_TRUE(IsInterrupted("PlainSpinInCalls"));
}

TEST_F(ThreadWatching, LeavesCodeElsewhereAlone)
{
    const OrvikOs::FaultScope scope;
    watched.patience = 0;
    const OrvikOs::ThreadWatch watch(*code, &Watched::Ask, &Watched::Throw, &watched);

    EXPECT_NO_THROW(spinHere(watched, 5));
}

TEST_F(ThreadWatching, TellsTheProcessorTimeOfTheThread)
{
    const OrvikOs::ThreadWatch watch(*code, &Watched::Ask, &Watched::Throw, &watched);
    spinHere(watched, 1);
    const std::uint64_t before = watched.cpuMs;

    spinHere(watched, 10);

    EXPECT_GT(watched.cpuMs, before);
}

TEST_F(ThreadWatching, OfTheInnermostRests)
{
    Watched outer;
    const OrvikOs::ThreadWatch outerWatch(*code, &Watched::Ask, &Watched::Throw, &outer);
    {
        const OrvikOs::ThreadWatch watch(*code, &Watched::Ask, &Watched::Throw, &watched);
        const unsigned before = outer.looks;
        spinHere(watched, 3);
        EXPECT_EQ(outer.looks, before);
    }

    spinHere(outer, outer.looks + 1);
}

TEST_F(ThreadWatching, CodeOfLibrariesIsFoundByName)
{
    const auto inside = reinterpret_cast<std::uintptr_t>(library.Symbol("PlainSpin"));

    EXPECT_TRUE(code->Contains(inside));
    EXPECT_FALSE(code->Contains(reinterpret_cast<std::uintptr_t>(&spinHere)));
    EXPECT_TRUE(OrvikOs::LibraryCode("no library is called so").IsEmpty());
}

TEST(ResidentBytes, GrowWithWhatIsTouched)
{
    const std::size_t before = OrvikOs::ResidentBytes();
    if (before == 0)
        GTEST_SKIP() << "the system does not tell";

    const std::vector<char> much(std::size_t{32} << 20, 'x');

    EXPECT_GE(OrvikOs::ResidentBytes(), before + (std::size_t{24} << 20)) << much.size();
}

} // namespace
