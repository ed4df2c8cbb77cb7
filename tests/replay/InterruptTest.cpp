#include "BatchProcess.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

const std::string gear = SourceFile("examples/gear.stl");

/// What a script does to press Ctrl-C.
const std::string press = "(kill (getpid) SIGINT)";

Outcome runInterrupted(BatchProcess& process, const std::string& expression)
{
    process.Write("kept.png", "the picture of an earlier run");
    return process.Run(
        {"--no-startup", "--eval", expression, "--eval", "(app:print 1)", "--output", "kept.png"});
}

void expectCancelled(const BatchProcess& process, const Outcome& outcome)
{
    EXPECT_EQ(outcome.exitCode, 130);
    EXPECT_NE(outcome.errors.find("Interrupted; cancelling what runs."), std::string::npos);
    EXPECT_NE(outcome.errors.find("--eval:1:1: Cancelled.\n"), std::string::npos) << outcome.errors;
    EXPECT_EQ(outcome.output.find("(app:print 1)"), std::string::npos);
    EXPECT_EQ(ReadBytes(process.Folder() / "kept.png"), "the picture of an earlier run");
}

TEST(Interrupt, EndsAnEndlessLoop)
{
    BatchProcess process;

    expectCancelled(process, runInterrupted(process, "(begin " + press + " (let loop () (loop)))"));
}

TEST(Interrupt, EndsAnEndlessLoopInThatCommandsAreCalled)
{
    BatchProcess process;

    expectCancelled(
        process, runInterrupted(process, "(begin " + press + " (let loop () (view:size) (loop)))"));
}

TEST(Interrupt, EndsASleep)
{
    BatchProcess process;

    expectCancelled(process, runInterrupted(process, "(begin " + press + " (sleep 50))"));
}

TEST(Interrupt, EndsALoopThatCatchesEverything)
{
    BatchProcess process;

    expectCancelled(process, runInterrupted(process, "(begin " + press +
                                                         " (let loop ()"
                                                         " (catch #t (lambda () (sleep 50))"
                                                         " (lambda args #f)) (loop)))"));
}

TEST(Interrupt, EndsALoad)
{
    BatchProcess process;
    process.UseTestCommands();

    expectCancelled(process, runInterrupted(process, "(test:load-cancelled \"" + gear + "\")"));
}

TEST(Interrupt, ASecondOneEndsTheProgramAtOnce)
{
    BatchProcess process;
    process.UseTestCommands();

    const Outcome outcome = runInterrupted(process, "(test:shrug-off)");

    EXPECT_EQ(outcome.exitCode, 130);
    EXPECT_EQ(outcome.output, "> (test:shrug-off)\n");
    EXPECT_EQ(ReadBytes(process.Folder() / "kept.png"), "the picture of an earlier run");
}

TEST(Interrupt, EndsEveryStartupScript)
{
    BatchProcess process;
    process.OwnRunFolder();
    process.Write("bin/startup/1.scm", press + "\n(let loop () (loop))\n");
    process.Write("bin/startup/2.scm", "(let loop () (loop))\n");

    const Outcome outcome = process.Run({"--eval", "(app:print 1)"});

    EXPECT_EQ(outcome.exitCode, 130);
    EXPECT_EQ(outcome.output, "");
}

TEST(Interrupt, BetweenTwoFormsTheSecondIsNotRun)
{
    BatchProcess process;
    process.Write("script.scm", press + "\n(app:print \"more\")\n");

    const Outcome outcome = process.Run({"--no-startup", "--script", "script.scm"});

    EXPECT_EQ(outcome.exitCode, 130);
    EXPECT_EQ(outcome.output.find("\nmore\n"), std::string::npos) << outcome.output;
}

} // namespace
