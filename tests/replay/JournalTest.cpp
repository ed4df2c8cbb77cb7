#include "JournalFixture.h"
#include "Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace {

const std::string kTop = "(define top (app:pick-face 5 5 100 0 0 -1 0))";
const std::string kSide = "(app:pick-face 20 5 35 -1 0 -1 0)";

using Journal = JournalFixture;

TEST_F(Journal, HoldsWhatChangedSomethingAndWhatPicksFound)
{
    const std::string text = record({"(view:size)", "(view:iso)", "(app:print \"hello\")", kTop});

    EXPECT_TRUE(text.starts_with(";; Pellux journal 1\n")) << text;
    EXPECT_NE(text.find("\n;= start size 1920 1080 up y\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\n;= folder " + m_process.Folder().string() +
                        "\n(doc:load \"box.stl\")\n"
                        "(view:iso)\n" +
                        kTop + "\n;= pick face "),
              std::string::npos)
        << text;
    EXPECT_NE(text.find(" in 1 box 0 0 30 10 20 30 at 5 5 30\n"), std::string::npos) << text;
}

TEST_F(Journal, IsReplayedAtAnotherSizeWithTheSameEntities)
{
    record({"(view:iso)", kTop, kSide, "(sel:set top)", "(app:pick-face 500 0 0 0 0 1 0)"});

    expectEnd(replay({"--size", "320x200"}), 0, "3 picks: 3 same, 0 moved, 0 other, 0 gone\n");
}

TEST_F(Journal, GivesTheViewTheSizesOfTheRunUnlessOneIsAskedFor)
{
    m_process.Write("run.journal.scm", ";; Pellux journal 1\n;= start size 100 80 up y\n"
                                       ";= size 300 200\n(view:save-image \"first.png\")\n"
                                       ";= size 120 90\n(view:save-image \"second.png\")\n");
    const auto pixels = [this](const char* name) {
        return ComparePictures(m_process.Folder() / name, m_process.Folder() / name).pixels;
    };

    EXPECT_EQ(replay().exitCode, 0);
    EXPECT_EQ(pixels("first.png"), 300 * 200);
    EXPECT_EQ(pixels("second.png"), 120 * 90);

    EXPECT_EQ(replay({"--size", "64x48"}).exitCode, 0);
    EXPECT_EQ(pixels("first.png"), 64 * 48);
    EXPECT_EQ(pixels("second.png"), 64 * 48);
}

TEST_F(Journal, TellsWhatHasMovedWhatIsAnotherAndWhatIsGone)
{
    record({kTop, kSide, "(app:pick-face 5 15 100 0 0 -1 0)"});
    m_process.Write("box.stl", BoxStl(10, 10, 20));

    const Outcome outcome = replay({"--report", "json:report.json"});

    expectEnd(outcome, 1, "3 picks: 0 same, 1 moved, 1 other, 1 gone\n");
    const std::string report = ReadBytes(m_process.Folder() / "report.json");
    EXPECT_TRUE(
        report.starts_with("{\"journal\": \"run.journal.scm\", \"forms\": 4, \"formsRun\": "
                           "4, \"stoppedAtLine\": null, \"error\": null, "
                           "\"cutAtLine\": null, \"cut\": null, \"same\": 0, "
                           "\"moved\": 1, \"other\": 1, \"gone\": 1, \"picks\": [{\"line\": "
                           "6, \"form\": \"(define top (app:pick-face 5 5 100 0 0 -1 0))\", "
                           "\"result\": \"moved\", \"expected\": {\"entity\": \"face "))
        << report;
    EXPECT_NE(report.find("\"result\": \"gone\""), std::string::npos) << report;
    EXPECT_NE(report.find("\"found\": null}]}\n"), std::string::npos) << report;
}

TEST_F(Journal, TheReportTellsWhatTheFormSaidThatEndedTheReplay)
{
    record({"(view:iso)"});
    fs::remove(m_process.Folder() / "box.stl");

    const Outcome outcome = replay({"--report", "json:report.json"});

    EXPECT_EQ(outcome.exitCode, 1);
    const std::string report = ReadBytes(m_process.Folder() / "report.json");
    EXPECT_NE(
        report.find("\"formsRun\": 0, \"stoppedAtLine\": 5, \"error\": "
                    "\"run.journal.scm:5:1: box.stl: No such file or directory\", \"cutAtLine\""),
        std::string::npos)
        << report;
}

TEST_F(Journal, TheReportDoesNotRepeatALongFormForEachOfItsPicks)
{
    std::string form = "(for-each (lambda (x) (app:pick-face x 5 100 0 0 -1 0)) '(";
    for (int i = 0; i < 200; ++i)
        form += "5 ";
    record({form + "))"});

    EXPECT_EQ(replay({"--report", "json:report.json"}).exitCode, 0);

    const std::string report = ReadBytes(m_process.Folder() / "report.json");
    EXPECT_NE(report.find("\"form\": \"" + form.substr(0, 200) + "...\""), std::string::npos)
        << report;
    EXPECT_EQ(report.find(form), std::string::npos);
}

TEST_F(Journal, OfARunThatWasQuitIsReplayedToItsEnd)
{
    m_process.Write("run.journal.scm", ";; Pellux journal 1\n(app:quit 9)\n(app:print \"on\")\n");

    const Outcome outcome = replay({"--output", "end.png", "--size", "32x32"});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_NE(outcome.output.find("\non\n"), std::string::npos) << outcome.output;
    EXPECT_TRUE(fs::exists(m_process.Folder() / "end.png"));
}

TEST_F(Journal, PicksInsideLoopsAreComparedToo)
{
    const std::string text =
        record({"(for-each (lambda (x) (app:pick-face x 5 100 0 0 -1 0)) '(1 2 3 99))"});

    EXPECT_NE(text.find(";= pick nothing\n"), std::string::npos) << text;
    expectEnd(replay(), 0, "4 picks: 4 same, 0 moved, 0 other, 0 gone\n");
}

TEST_F(Journal, OfAKilledRunHasEverythingBeforeTheKill)
{
    const Outcome killed = runForms({"(view:iso)", kTop, "(kill (getpid) SIGKILL)", "(view:top)"});
    ASSERT_EQ(killed.exitCode, 137);
    const std::string text = ReadBytes(journals().at(0));
    m_process.Write("run.journal.scm", text);

    EXPECT_NE(text.find("(view:iso)\n(define top "), std::string::npos) << text;
    EXPECT_EQ(text.find("view:top"), std::string::npos);
    expectEnd(replay(), 0, "1 picks: 1 same, 0 moved, 0 other, 0 gone\n");
}

/// The system refuses files of more than 4 kB from the second form on.
TEST_F(Journal, ThatCannotBeWrittenAnyMoreIsWarnedOfOnceAndTheRunGoesOn)
{
    const Outcome outcome =
        runForms({"(view:iso)",
                  "(begin (sigaction SIGXFSZ SIG_IGN) (setrlimit 'fsize 4096 4096)"
                  " (do ((i 0 (+ i 1))) ((= i 100)) (app:pick-face 5 5 100 0 0 -1 0)))",
                  "(view:top)", "(view:front)", "(+ 20 22)"});

    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_TRUE(outcome.output.ends_with("> (+ 20 22)\n42\n")) << outcome.output;
    const std::string warning = "warning: The journal ends here: " + journals().at(0).string();
    EXPECT_TRUE(outcome.errors.starts_with(warning)) << outcome.errors;
    EXPECT_EQ(outcome.errors.find("warning", 1), std::string::npos) << outcome.errors;
    EXPECT_EQ(ReadBytes(journals().at(0)).find("view:top"), std::string::npos);
}

TEST_F(Journal, OfTwoHundredFormsIsReplayed)
{
    std::string script;
    for (int i = 0; i < 100; ++i)
        script += "(view:set-camera! '(" + std::to_string(i) +
                  ".1 0 100) '(0 0 0) '(0 1 0))\n(sel:set (app:pick-face " +
                  std::to_string(i * 0.09 + 0.05) + " 5 100 0 0 -1 0))\n";
    m_process.Write("many.scm", script);
    m_process.Run({"box.stl", "--script", "many.scm"});
    m_process.Write("run.journal.scm", ReadBytes(journals().at(0)));

    expectEnd(replay({"--size", "100x80"}), 0, "100 picks: 100 same, 0 moved, 0 other, 0 gone\n");
}

TEST_F(Journal, AFormThatFailedMayFailAgain)
{
    const std::string text = record({"(begin (view:iso) (car '()))"});

    EXPECT_TRUE(text.ends_with("(begin (view:iso) (car '()))\n;= failed\n")) << text;
    expectEnd(replay(), 0, "0 picks: 0 same, 0 moved, 0 other, 0 gone\n");
}

TEST_F(Journal, AFormThatFailsNowEndsTheReplayWithItsLine)
{
    record({"(view:iso)"});
    fs::remove(m_process.Folder() / "box.stl");

    const Outcome outcome = replay();

    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_NE(outcome.errors.find("run.journal.scm:5:1"), std::string::npos) << outcome.errors;
}

TEST_F(Journal, ThatIsBrokenIsRefusedWithFileAndLine)
{
    const std::string head = ";; Pellux journal 1\n;= start size 64 48 up y\n";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"(view:iso)\n", "line 1: this is no journal"},
        {std::string("\x7f"
                     "ELF\0\1\2",
                     7),
         "line 1: this is no journal"},
        {head + "(view:iso)\n(view:top\n(view:iso)\n",
         "line 4, column 1: the parentheses do not match"},
        {head + "(view:iso))\n", "line 3"},
        {head + "(view:iso)\n;= pick rubbish\n", "line 4: this line is not understood"},
        {head + std::string("(view:iso)\n\xff\xfe\0\1)", 16), "line 4"}};
    for (const auto& [text, message] : cases) {
        m_process.Write("run.journal.scm", text);

        const Outcome outcome = replay();

        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_NE(outcome.errors.find("run.journal.scm: " + message), std::string::npos)
            << message << "\n"
            << outcome.errors.substr(0, 500);
    }
}

TEST_F(Journal, ThatIsCutShortIsReplayedUpToThereAndSaysSo)
{
    const std::string text = record({"(view:iso)", kTop, "(define name \"\xd0\x9f\xd0\xbb\")"});
    const std::size_t define = text.find("(define name");
    const std::size_t mark = text.find(";= pick");
    const std::vector<std::pair<std::size_t, std::string>> cuts = {
        {define + 5, "9: the journal is cut short: a command is not whole and was left out\n"},
        {define + 17, "9: the journal is cut short: a command is not whole and was left out\n"},
        {define - 3, "8: the journal is cut short: what stands behind a command is not whole and "
                     "was left out\n"},
        {mark + 1, "8: the journal is cut short: what stands behind a command is not whole and was "
                   "left out\n"},
        {mark - 3, "7: the journal is cut short: a command is not whole and was left out\n"}};
    ASSERT_EQ(text[define + 16], '\xd0') << "the next cut is in the middle of a character";
    for (const auto& [size, message] : cuts) {
        m_process.Write("run.journal.scm", text.substr(0, size));

        const Outcome outcome = replay({"--report", "json:report.json"});

        EXPECT_EQ(outcome.exitCode, 4) << size;
        EXPECT_EQ(outcome.errors, "warning: run.journal.scm:" + message);
        const std::string report = ReadBytes(m_process.Folder() / "report.json");
        EXPECT_NE(report.find("\"error\": null, \"cutAtLine\": " + message.substr(0, 1) +
                              ", \"cut\": \"run.journal.scm:" + message.substr(0, 20)),
                  std::string::npos)
            << report;
    }
}

TEST_F(Journal, ThatIsCutShortFailsWhereAPickIsNotTheSame)
{
    const std::string text = record({kTop, "(view:iso)"});
    m_process.Write("run.journal.scm", text.substr(0, text.size() - 3));
    m_process.Write("box.stl", BoxStl(10, 20, 31));

    const Outcome outcome = replay();

    expectEnd(outcome, 1, "1 picks: 0 same, 1 moved, 0 other, 0 gone\n");
    EXPECT_NE(outcome.errors.find("warning: run.journal.scm:"), std::string::npos);
}

TEST_F(Journal, OfNothingButParenthesesIsCutShort)
{
    m_process.Write("run.journal.scm", ";; Pellux journal 1\n;= start size 64 48 up y\n" +
                                           std::string(3'000'000, '('));

    const Outcome outcome = replay();

    EXPECT_EQ(outcome.exitCode, 4);
    EXPECT_EQ(outcome.errors, "warning: run.journal.scm:3: the journal is cut short: a command is "
                              "not whole and was left out\n");
}

TEST_F(Journal, ThatIsMissingIsAnError)
{
    const Outcome outcome = replay();

    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "pellux-batch: Failed to read journal : run.journal.scm\n");
}

TEST_F(Journal, IsKeptUnlessConfigurationOrJournalAreSwitchedOff)
{
    runForms({}, {"--no-config"});
    runForms({}, {"--no-journal"});
    EXPECT_EQ(journals().size(), 0u);

    runForms({}, {"--no-config", "--journal"});
    EXPECT_EQ(journals().size(), 1u);
}

TEST_F(Journal, WithoutAFolderToWriteToIsWarnedOfOnceAndTheRunGoesOn)
{
    fs::create_directories(folder().parent_path());
    m_process.Write("process/state/pellux/journals", "a file");

    const Outcome outcome = runForms({"(view:iso)", "(app:journal)"});

    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_NE(outcome.output.find("> (app:journal)\n#f\n"), std::string::npos) << outcome.output;
    const std::string warning = "warning: There is no journal of this run: ";
    EXPECT_TRUE(outcome.errors.starts_with(warning)) << outcome.errors;
    EXPECT_EQ(outcome.errors.find(warning, 1), std::string::npos);
}

TEST_F(Journal, OnlyTheLastFiftyAreKept)
{
    fs::create_directories(folder());
    for (int i = 100; i < 160; ++i)
        m_process.Write("process/state/pellux/journals/20000101-000000-" + std::to_string(i) +
                            ".journal.scm",
                        "");
    m_process.Write("process/state/pellux/journals/notes.txt", "");

    runForms({});

    const auto kept = journals();
    EXPECT_EQ(kept.size(), 51u);
    EXPECT_FALSE(fs::exists(folder() / "20000101-000000-110.journal.scm"));
    EXPECT_TRUE(fs::exists(folder() / "20000101-000000-111.journal.scm"));
    EXPECT_TRUE(fs::exists(folder() / "notes.txt"));
}

TEST_F(Journal, IsFoundByACommand)
{
    const Outcome outcome = runForms({"(view:iso)", "(app:journal)", "(display (app:journal #t))"});

    const std::string path = journals().at(0).string();
    EXPECT_NE(outcome.output.find("\"" + path + "\""), std::string::npos) << outcome.output;
    EXPECT_NE(outcome.output.find("\n(view:iso)\n"), std::string::npos) << outcome.output;
}

TEST_F(Journal, LeavesOutThePictureOfTheRun)
{
    runForms({"(view:iso)"}, {"--output", "picture.png", "--size", "64x48"});

    EXPECT_TRUE(fs::exists(m_process.Folder() / "picture.png"));
    EXPECT_EQ(ReadBytes(journals().at(0)).find("picture"), std::string::npos);
}

TEST_F(Journal, EntitiesAreFoundByTheirIds)
{
    const std::string text = record({kTop});
    const std::size_t from = text.rfind(";= pick ") + 8;
    const std::string id = text.substr(from, text.find(" box") - from);

    const Outcome outcome = runForms({kTop, "(equal? top (entity:by-id \"" + id + "\"))",
                                      "(entity:by-id \"face 99 of mesh 1 in 1\")",
                                      "(entity:by-id \"mesh 1 in 7\")", "(entity:by-id \"soup\")"});

    EXPECT_NE(outcome.output.find(id + "\"))\n#t\n"), std::string::npos) << outcome.output;
    EXPECT_NE(outcome.output.find("face 99 of mesh 1 in 1\")\n#f\n"), std::string::npos);
    EXPECT_NE(outcome.output.find("mesh 1 in 7\")\n#f\n"), std::string::npos) << outcome.output;
    EXPECT_NE(outcome.errors.find("expected an id such as"), std::string::npos) << outcome.errors;
}

} // namespace
