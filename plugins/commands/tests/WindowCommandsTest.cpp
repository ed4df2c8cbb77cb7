#include "CommandFixture.h"

namespace {

class WindowCommands : public CommandFixture
{
};

TEST_F(WindowCommands, NeedAWindow)
{
    EXPECT_EQ(errorOf("app:panels"), "This program has no window.");
    EXPECT_EQ(errorOf("app:show-panel", {L"console"}), "This program has no window.");
    EXPECT_EQ(errorOf("app:reset-layout"), "This program has no window.");
    EXPECT_EQ(errorOf("app:watch"), "This program has no window.");
    EXPECT_EQ(errorOf("view:copy-image"), "This program has no window.");
}

TEST_F(WindowCommands, QuittingTakesAnExitCodeThatSystemsHandOn)
{
    EXPECT_EQ(errorOf("app:quit", {256}), "app:quit: parameter \"code\": expected an integer from "
                                          "0 to 255, got the integer 256.");
}

TEST_F(WindowCommands, NothingIsReadAgainWhenNothingIsLoaded)
{
    EXPECT_EQ(run("doc:reload"), Value(false));
}

TEST_F(WindowCommands, ARotationCenterIsThreeNumbers)
{
    EXPECT_EQ(errorOf("view:rotation-center", {List{1, 2}}),
              "view:rotation-center: parameter \"point\": expected a point (three numbers), or #f, "
              "got a list of 2 elements.");
}

} // namespace
