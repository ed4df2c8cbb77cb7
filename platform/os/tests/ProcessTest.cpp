#include <OrvikOs/Process.h>
#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>

namespace {

TEST(Process, TellsWhenThisOneBegan)
{
    const auto begun = OrvikOs::ProcessStartTime(OrvikOs::CurrentProcessId());

    ASSERT_TRUE(begun.has_value());
    EXPECT_GT(*begun, 0U);
    EXPECT_EQ(OrvikOs::ProcessStartTime(OrvikOs::CurrentProcessId()), begun);
}

TEST(Process, KnowsNoneByANumberThatIsNotGiven)
{
    // No system gives numbers as large.
    EXPECT_FALSE(OrvikOs::ProcessStartTime(0xFFFFFFF0U).has_value());
}

} // namespace
