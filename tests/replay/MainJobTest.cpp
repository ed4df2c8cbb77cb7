#include "BatchProcess.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

namespace {

const std::string gear = SourceFile("examples/gear.stl");

/// Width and height in the header of a PNG.
std::pair<int, int> sizeOfPng(const std::string& bytes)
{
    const auto number = [&bytes](std::size_t at) {
        int value = 0;
        for (std::size_t i = 0; i < 4; ++i)
            value = value * 256 + static_cast<unsigned char>(bytes.at(at + i));
        return value;
    };
    return {number(16), number(20)};
}

TEST(MainJob, PrintsItsTranscript)
{
    BatchProcess process;

    process.ExpectGolden("main-job", process.Run({gear, "--up", "z", "--script",
                                                  SourceFile("examples/first-look.scm"), "--output",
                                                  "gear.png", "--size", "320x240"}));
}

TEST(MainJob, WritesAPictureOfTheGivenSize)
{
    BatchProcess process;

    process.Run({gear, "--output", "gear.png", "--size", "320x240"});

    const std::string png = ReadBytes(process.Folder() / "gear.png");
    ASSERT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1a\n");
    EXPECT_EQ(sizeOfPng(png), (std::pair<int, int>(320, 240)));
}

TEST(MainJob, InfoTellsWhatIsLoaded)
{
    BatchProcess process;

    process.ExpectGolden("info", process.Run({gear, "--info"}));
}

TEST(MainJob, InfoCountsTheIndexThatAPickMade)
{
    BatchProcess process;
    const auto bytesOf = [](const Outcome& outcome) {
        std::smatch bytes;
        return std::regex_search(outcome.output, bytes, std::regex("\nbytes +([0-9]+)"))
                   ? std::stoul(bytes[1])
                   : 0ul;
    };
    const char* const pick = "(if (app:pick-face 15 0 100 0 0 -1 0) (app:print \"hit\"))";

    const Outcome before = process.Run({gear, "--info"});
    const Outcome after = process.Run({gear, "--eval", pick, "--info"});

    ASSERT_NE(after.output.find("\nhit\n"), std::string::npos) << after.output;
    EXPECT_GT(bytesOf(before), 0u);
    EXPECT_GT(bytesOf(after), bytesOf(before));
}

TEST(MainJob, InfoForProgramsIsJson)
{
    BatchProcess process;

    process.ExpectGolden("info-json", process.Run({gear, "--info=json"}));
}

TEST(MainJob, ListsTheFormats)
{
    BatchProcess process;

    const Outcome outcome = process.Run({"--list-formats"});

    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(std::regex_search(outcome.output, std::regex("(^|\n)\\.?stl +load")))
        << outcome.output;
    for (const char* const line : {"\nstl  import  ", "\nstl  save    ", "\nobj  save    "})
        EXPECT_NE(outcome.output.find(line), std::string::npos) << outcome.output;
    EXPECT_EQ(outcome.output.find("\nglb  save"), std::string::npos) << outcome.output;
}

TEST(MainJob, QuitEndsTheProgramWithItsCode)
{
    BatchProcess process;
    const std::string script = process.Write("quit.scm", "(app:print \"first\")\n(app:quit 7)\n"
                                                         "(app:print \"second\")\n");

    const Outcome outcome = process.Run(
        {"--script", script, "--eval", "(app:print \"third\")", "--output", "never.png"});

    EXPECT_EQ(outcome.exitCode, 7);
    EXPECT_EQ(outcome.output, "> (app:print \"first\")\nfirst\n> (app:quit 7)\n");
    EXPECT_EQ(outcome.errors, "");
    EXPECT_FALSE(std::filesystem::exists(process.Folder() / "never.png"));
    EXPECT_EQ(process.Run({"--eval", "(begin (app:quit 7) (car '()))"}).exitCode, 1);
}

TEST(MainJob, ListsEveryCommandOfTheReference)
{
    BatchProcess process;

    const Outcome outcome = process.Run({"--list-commands"});

    const std::string reference = ReadBytes(SourceFile("docs/commands.md"));
    const std::regex heading("\n### ([^\n]+)\n");
    int count = 0;
    for (std::sregex_iterator found(reference.begin(), reference.end(), heading), end; found != end;
         ++found, ++count)
        EXPECT_NE(("\n" + outcome.output).find("\n" + (*found)[1].str()), std::string::npos)
            << (*found)[1];
    EXPECT_GT(count, 20);
    EXPECT_EQ(outcome.exitCode, 0);
}

TEST(MainJob, TheSecondFileIsAddedToTheFirst)
{
    BatchProcess process;
    std::filesystem::copy_file(gear, process.Folder() / "other.stl");

    process.ExpectGolden("two-files", process.Run({gear, "other.stl", "--eval", "(doc:contents)"}));
}

TEST(MainJob, StepsRunInTheOrderOfTheCommandLine)
{
    BatchProcess process;
    process.Write("a.scm", "(app:print \"script a\")\n(doc:contents)\n");

    process.ExpectGolden("order",
                         process.Run({"--eval", "(app:print \"first\")", "--script", "a.scm",
                                      "--import", gear, "--eval", "(doc:contents)"}));
}

TEST(MainJob, NothingToDoIsNoMistake)
{
    BatchProcess process;

    process.ExpectGolden("nothing", process.Run({}));
}

TEST(MainJob, APictureThatCannotBeWrittenIsAnErrorAndLeavesNothing)
{
    BatchProcess process;

    process.ExpectGolden("no-such-folder", process.Run({"--output", "absent/gear.png"}));

    EXPECT_FALSE(std::filesystem::exists(process.Folder() / "absent"));
}

} // namespace
