#include "BatchProcess.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string gear = SourceFile("examples/gear.stl");

/// Two groups, one of them with a name that JSON must escape.
const char kTwoGroups[] = "o lid\n"
                          "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n"
                          "o a \"base\" \\ \xC3\xA4\n"
                          "v 0 0 5\nv 1 0 5\nv 0 1 5\nf 4 5 6\n";

TEST(Tree, PrintsKindAndNameIndented)
{
    BatchProcess process;
    process.Write("two.obj", kTwoGroups);

    process.ExpectGolden("tree", process.Run({"two.obj", gear, "--tree"}));
}

TEST(Tree, ForProgramsIsJson)
{
    BatchProcess process;
    process.Write("two.obj", kTwoGroups);

    process.ExpectGolden("tree-json", process.Run({"two.obj", "--tree=json"}));
}

TEST(Tree, GoesDownToPartsWhenAskedTo)
{
    BatchProcess process;
    process.Write("two.obj", kTwoGroups);

    process.ExpectGolden("tree-parts", process.Run({"two.obj", "--tree", "--tree-parts"}));
}

TEST(Tree, ShowsWhatIsSelected)
{
    BatchProcess process;
    process.Write("two.obj", kTwoGroups);

    process.ExpectGolden("tree-selected",
                         process.Run({"two.obj", "--eval", "(sel:by-name \"lid\" 'mesh)",
                                      "--tree=json", "--tree-parts"}));
}

TEST(Tree, FollowsWhatIsLoadedImportedAndClosed)
{
    BatchProcess process;
    process.Write("two.obj", kTwoGroups);

    process.ExpectGolden("tree-follows",
                         process.Run({"two.obj", "--eval", "(doc:clear)", "--import", gear,
                                      "--eval", "(doc:undo)", "--import", "two.obj", "--tree"}));
}

TEST(Tree, IsEmptyWithNothingLoaded)
{
    BatchProcess process;

    process.ExpectGolden("tree-empty", process.Run({"--tree=json"}));
}

TEST(Tree, IsNotPrintedAfterAFailure)
{
    BatchProcess process;

    process.ExpectGolden("tree-failure", process.Run({"absent.stl", "--tree"}));
}

TEST(Tree, ConvertsEveryRowThereAndBack)
{
    BatchProcess process;
    process.UseTestCommands();
    process.Write("two.obj", kTwoGroups);

    const Outcome outcome = process.Run({"two.obj", gear, "--eval", "(test:walk-tree)"});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_NE(outcome.output.find("(\"scene\") ())\n"), std::string::npos) << outcome.output;
}

} // namespace
