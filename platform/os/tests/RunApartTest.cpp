#include <OrvikOs/RunApart.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using OrvikOs::ApartEnd;
using OrvikOs::ApartWriter;
using OrvikOs::RunApart;

class RunsApart : public testing::Test
{
protected:
    void SetUp() override
    {
        if (RunApart([](const ApartWriter&) {}, {}, m_take) == ApartEnd::Unavailable)
            GTEST_SKIP() << "nothing runs apart here";
    }

    std::string m_taken;
    const std::function<bool(const void*, std::size_t)> m_take = [this](const void* bytes,
                                                                        std::size_t count) {
        if (count > 0)
            m_taken.append(static_cast<const char*>(bytes), count);
        return true;
    };
};

/// Deeper than any stack.
// NOLINTNEXTLINE(misc-no-recursion)
int fallDeeper(volatile int* depth)
{
    volatile char space[1024];
    space[0] = static_cast<char>(*depth);
    *depth = *depth + 1;
    return *depth == 0 ? 0 : fallDeeper(depth) + space[0];
}

/// The processor shall find the fault, not a sanitizer.
__attribute__((no_sanitize("address", "undefined"))) void writeTo(volatile int* place)
{
    *place = 1;
}

/// Until somebody ends it.
void turnForEver()
{
    volatile bool isEnough = false;
    while (!isEnough) {
    }
}

TEST_F(RunsApart, HandsOverWhatIsWritten)
{
    const std::string large(5'000'000, 'x');

    const ApartEnd end = RunApart(
        [&](const ApartWriter& write) {
            write("begin ", 6);
            write(large.data(), large.size());
        },
        {}, m_take);

    EXPECT_EQ(end, ApartEnd::Returned);
    EXPECT_EQ(m_taken, "begin " + large);
}

TEST_F(RunsApart, ChangesNothingHere)
{
    int number = 1;

    RunApart([&](const ApartWriter&) { number = 2; }, {}, m_take);

    EXPECT_EQ(number, 1);
}

TEST_F(RunsApart, SurvivesFaultsAbortsAndExceptions)
{
    volatile int* volatile nowhere = nullptr;
    EXPECT_EQ(RunApart([&](const ApartWriter&) { writeTo(nowhere); }, {}, m_take),
              ApartEnd::Faulted);
    EXPECT_EQ(RunApart([](const ApartWriter&) { std::abort(); }, {}, m_take), ApartEnd::Faulted);
    EXPECT_EQ(RunApart([](const ApartWriter&) { throw std::runtime_error("x"); }, {}, m_take),
              ApartEnd::Threw);
}

TEST_F(RunsApart, SurvivesAStackThatOverflows)
{
    const ApartEnd end = RunApart(
        [](const ApartWriter& write) {
            volatile int depth = 0;
            const int result = fallDeeper(&depth);
            write(&result, sizeof result);
        },
        {}, m_take);

    EXPECT_EQ(end, ApartEnd::Faulted);
    EXPECT_EQ(m_taken, "");
}

TEST_F(RunsApart, EndsWhatTakesMoreThanItsTime)
{
    const ApartEnd end = RunApart([](const ApartWriter&) { turnForEver(); }, {0, 1}, m_take);

    EXPECT_EQ(end, ApartEnd::TimeUp);
}

TEST_F(RunsApart, RefusesMemoryBeyondTheLimit)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizer's own memory counts, too";
#endif
    const ApartEnd end = RunApart(
        [](const ApartWriter& write) {
            const std::vector<char> small(20'000'000, 'a');
            write("small", 5);
            const std::vector<char> large(200'000'000, 'a');
            write("large", 5);
        },
        {64'000'000, 0}, m_take);

    EXPECT_EQ(end, ApartEnd::Threw);
    EXPECT_EQ(m_taken, "small");
}

TEST_F(RunsApart, EndsAtOnceWhenNobodyTakesAnyMore)
{
    int asked = 0;

    const ApartEnd end = RunApart([](const ApartWriter&) { turnForEver(); }, {},
                                  [&](const void*, std::size_t) { return ++asked < 3; });

    EXPECT_EQ(end, ApartEnd::Stopped);
    EXPECT_EQ(asked, 3);
}

TEST_F(RunsApart, EndsTheCopyWhenWhoTakesThrows)
{
    EXPECT_THROW(
        RunApart([](const ApartWriter& write) { write("x", 1); }, {},
                 [](const void*, std::size_t) -> bool { throw std::runtime_error("enough"); }),
        std::runtime_error);
}

} // namespace
