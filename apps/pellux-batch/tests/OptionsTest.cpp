#include "../Options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using PelluxBatch::InfoForm;
using PelluxBatch::Options;
using PelluxBatch::ParseResult;
using PelluxBatch::Step;

ParseResult parse(const std::vector<const char*>& arguments, Options& options)
{
    std::vector<const char*> line = {"pellux-batch"};
    line.insert(line.end(), arguments.begin(), arguments.end());
    return PelluxBatch::ParseOptions(static_cast<int>(line.size()), line.data(), options);
}

Options parsed(const std::vector<const char*>& arguments)
{
    Options options;
    const ParseResult result = parse(arguments, options);
    EXPECT_TRUE(result.run) << result.message;
    return options;
}

/// The message of a mistake; its exit code is always 2.
std::string mistake(const std::vector<const char*>& arguments)
{
    Options options;
    const ParseResult result = parse(arguments, options);
    EXPECT_FALSE(result.run);
    EXPECT_EQ(result.exitCode, 2);
    return result.message;
}

std::vector<std::pair<Step::Kind, std::wstring>> stepsOf(const Options& options)
{
    std::vector<std::pair<Step::Kind, std::wstring>> steps;
    for (const Step& step : options.steps)
        steps.emplace_back(step.kind, step.text);
    return steps;
}

using Steps = std::vector<std::pair<Step::Kind, std::wstring>>;

TEST(Options, WithoutArgumentsNothingIsToDo)
{
    const Options options = parsed({});

    EXPECT_TRUE(options.steps.empty());
    EXPECT_EQ(options.output, L"");
    EXPECT_EQ(options.width, 1920);
    EXPECT_EQ(options.height, 1080);
    EXPECT_EQ(options.cameraName, "CameraYUp");
    EXPECT_TRUE(options.useConfiguration);
    EXPECT_TRUE(options.runStartupScripts);
    EXPECT_EQ(options.info, InfoForm::None);
    EXPECT_FALSE(options.verbose || options.listCommands || options.listFormats);
}

TEST(Options, TheFirstFileIsLoadedTheOthersAreAdded)
{
    EXPECT_EQ(stepsOf(parsed({"a.stl", "b.stl", "c.stl"})),
              (Steps{{Step::Kind::Load, L"a.stl"},
                     {Step::Kind::Import, L"b.stl"},
                     {Step::Kind::Import, L"c.stl"}}));
}

TEST(Options, FilesComeFirstThenStepsInTheirOrder)
{
    EXPECT_EQ(stepsOf(parsed({"--eval", "1", "--script", "s.scm", "--import", "i.stl", "--eval",
                              "2", "a.stl", "--script", "t.scm"})),
              (Steps{{Step::Kind::Load, L"a.stl"},
                     {Step::Kind::Eval, L"1"},
                     {Step::Kind::Script, L"s.scm"},
                     {Step::Kind::Import, L"i.stl"},
                     {Step::Kind::Eval, L"2"},
                     {Step::Kind::Script, L"t.scm"}}));
}

TEST(Options, AnOptionTakesOneArgumentOnly)
{
    EXPECT_EQ(stepsOf(parsed({"--eval", "(a)", "b.stl"})),
              (Steps{{Step::Kind::Load, L"b.stl"}, {Step::Kind::Eval, L"(a)"}}));
}

TEST(Options, AValueMayStandBehindAnEqualsSign)
{
    EXPECT_EQ(stepsOf(parsed({"--eval=(= a 1)"})), (Steps{{Step::Kind::Eval, L"(= a 1)"}}));
    EXPECT_EQ(parsed({"--output=a.png"}).output, L"a.png");
}

TEST(Options, AfterTwoDashesEverythingIsAFile)
{
    EXPECT_EQ(stepsOf(parsed({"--", "--odd.stl"})), (Steps{{Step::Kind::Load, L"--odd.stl"}}));
}

TEST(Options, BytesOfANameAreKept)
{
    EXPECT_EQ(stepsOf(parsed({"\xC3\xA4\x80.stl"})),
              (Steps{{Step::Kind::Load, L"\u00E4" + std::wstring(1, wchar_t(0xDC80)) + L".stl"}}));
}

TEST(Options, SizeIsWidthTimesHeight)
{
    const Options options = parsed({"--size", "640x480"});

    EXPECT_EQ(options.width, 640);
    EXPECT_EQ(options.height, 480);
}

TEST(Options, TheLargestSizeIsTaken)
{
    EXPECT_EQ(parsed({"--size", "16384x1"}).width, 16384);
}

TEST(Options, WhatIsNoSizeIsAMistake)
{
    for (const char* const size : {"640", "640x", "x480", "0x480", "640x0", "-1x5", "16385x1",
                                   "1e3x5", "640x480x2", "99999999999999999999x1", "a x b"})
        EXPECT_EQ(mistake({"--size", size}),
                  std::string("pellux-batch: --size takes WIDTHxHEIGHT in pixels, each from 1 to "
                              "16384, not '") +
                      size + "'\nTry pellux-batch --help\n");
}

TEST(Options, UpChoosesTheCamera)
{
    EXPECT_EQ(parsed({"--up", "z"}).cameraName, "CameraZUp");
    EXPECT_EQ(parsed({"--up", "y"}).cameraName, "CameraYUp");
    EXPECT_EQ(mistake({"--up", "x"}),
              "pellux-batch: --up takes y or z, not 'x'\nTry pellux-batch --help\n");
}

TEST(Options, InfoIsForPeopleOrForPrograms)
{
    EXPECT_EQ(parsed({"--info"}).info, InfoForm::Text);
    EXPECT_EQ(parsed({"--info=json"}).info, InfoForm::Json);
    EXPECT_EQ(mistake({"--info=xml"}),
              "pellux-batch: --info takes json or nothing, not 'xml'\nTry pellux-batch --help\n");
}

TEST(Options, TheTreeHasTwoForms)
{
    EXPECT_EQ(parsed({}).tree, InfoForm::None);
    EXPECT_EQ(parsed({"--tree"}).tree, InfoForm::Text);
    EXPECT_EQ(parsed({"--tree=json"}).tree, InfoForm::Json);
    EXPECT_EQ(mistake({"--tree=xml"}),
              "pellux-batch: --tree takes json or nothing, not 'xml'\nTry pellux-batch --help\n");
}

TEST(Options, PartsGoWithTheTree)
{
    EXPECT_FALSE(parsed({"--tree"}).treeParts);
    EXPECT_TRUE(parsed({"--tree=json", "--tree-parts"}).treeParts);
    EXPECT_EQ(mistake({"--tree-parts"}),
              "pellux-batch: --tree-parts goes with --tree\nTry pellux-batch --help\n");
}

TEST(Options, InfoTakesNoFileForItsForm)
{
    const Options options = parsed({"--info", "a.stl"});

    EXPECT_EQ(options.info, InfoForm::Text);
    EXPECT_EQ(stepsOf(options), (Steps{{Step::Kind::Load, L"a.stl"}}));
}

TEST(Options, SwitchesAreTaken)
{
    EXPECT_FALSE(parsed({"--no-config"}).useConfiguration);
    EXPECT_FALSE(parsed({"--no-startup"}).runStartupScripts);
    EXPECT_TRUE(parsed({"--verbose"}).verbose);
    EXPECT_TRUE(parsed({"--list-commands"}).listCommands);
    EXPECT_TRUE(parsed({"--list-formats"}).listFormats);
    EXPECT_EQ(parsed({"--config", "a.toml"}).configurationFile, L"a.toml");
}

TEST(Options, AnUnknownOptionIsAnsweredWithTheNearest)
{
    EXPECT_EQ(mistake({"--evla"}), "pellux-batch: there is no option --evla; did you mean "
                                   "--eval?\nTry pellux-batch --help\n");
}

TEST(Options, WhatIsLikeNothingIsJustUnknown)
{
    EXPECT_EQ(mistake({"--qqqqqqqqqq"}),
              "pellux-batch: there is no option --qqqqqqqqqq\nTry pellux-batch --help\n");
}

TEST(Options, AMissingValueIsAMistake)
{
    EXPECT_NE(mistake({"--output"}).find("--output"), std::string::npos);
}

TEST(Options, VersionAndHelpEndWell)
{
    Options options;

    const ParseResult version = parse({"--version"}, options);
    const ParseResult help = parse({"--help"}, options);

    EXPECT_FALSE(version.run || help.run);
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(version.message, "pellux-batch 1.2.3\n");
}

TEST(Options, HelpNamesEveryOption)
{
    Options options;
    const std::string help = parse({"--help"}, options).message;

    for (const char* const option :
         {"--script", "--eval", "--import", "--output", "--size", "--up", "--config", "--no-config",
          "--no-startup", "--info", "--tree", "--tree-parts", "--verbose", "--version", "--help",
          "--list-commands", "--list-formats"})
        EXPECT_NE(help.find(option), std::string::npos) << option;
}

TEST(Options, AJournalIsKeptUnlessSomethingSpeaksAgainstIt)
{
    EXPECT_TRUE(parsed({"a.stl"}).withJournal);
    EXPECT_FALSE(parsed({"--no-journal"}).withJournal);
    EXPECT_FALSE(parsed({"--no-config"}).withJournal);
    EXPECT_TRUE(parsed({"--no-config", "--journal"}).withJournal);
    EXPECT_FALSE(parsed({"--replay", "a.journal.scm"}).withJournal);
}

TEST(Options, AReplayNamesItsJournalAndItsReport)
{
    const Options options =
        parsed({"--replay", "a.journal.scm", "--report", "json:b.json", "--size", "64x48"});

    EXPECT_EQ(options.replay, L"a.journal.scm");
    EXPECT_EQ(options.replayReport, L"b.json");
    EXPECT_TRUE(options.isSizeGiven);
    EXPECT_FALSE(options.isUpGiven);
}

TEST(Options, MistakesAboutJournalsAreNamed)
{
    EXPECT_NE(mistake({"--journal", "--no-journal"}).find("exclude each other"), std::string::npos);
    EXPECT_NE(mistake({"--report", "json:a"}).find("--report goes with --replay"),
              std::string::npos);
    EXPECT_NE(mistake({"--replay", "a", "--report", "a"}).find("--report takes json:FILE"),
              std::string::npos);
    EXPECT_NE(mistake({"--replay", "a", "--report", "json:"}).find("--report takes json:FILE"),
              std::string::npos);
    EXPECT_NE(mistake({"--replay", "a", "b.stl"}).find("--replay takes no models"),
              std::string::npos);
    EXPECT_NE(mistake({"--replay", "a", "--journal"}).find("keeps no journal"), std::string::npos);
}

} // namespace
