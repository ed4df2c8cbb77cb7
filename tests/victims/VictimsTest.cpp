// Runs the programs beside this file and looks at how they end.

#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace {

// As the shell reports the end of a program by a signal.
constexpr int kEndedByAbort = 128 + 6;
constexpr int kEndedBySegmentationFault = 128 + 11;

constexpr char kMarker[] = "!!!!!!!!!!!!!!!!!!!!!!!!!!!!\n"
                           "!!! terminate handler called\n"
                           "!!!!!!!!!!!!!!!!!!!!!!!!!!!!\n";

/// How a program has ended, and what it has said.
struct Ending
{
    int code = -1;
    std::string output;
    std::string errors;
};

std::string contents(const std::string& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

bool exists(const std::string& path)
{
    return std::ifstream(path).good();
}

class Victims : public ::testing::Test
{
protected:
    ~Victims() override
    {
        for (const char* suffix : {"out", "err", "code", "crash"}) {
            std::remove(file(suffix).c_str());
        }
    }

    /// A file of this test alone.
    std::string file(const std::string& suffix) const
    {
        return ::testing::TempDir() + "victim_" + std::to_string(OrvikOs::CurrentProcessId()) +
               "." + suffix;
    }

    /// Runs a program to its end. Sanitizers leave the signals to it, and no core is dumped.
    ///
    /// @param setUp  a shell command, ended by a semicolon, to run before it.
    Ending run(const std::string& name, const std::string& arguments = "",
               const std::string& setUp = "") const
    {
        const std::string options = "handle_segv=0:handle_abort=0";
        const std::string sanitizers = "export ASAN_OPTIONS=" + options +
                                       ":detect_leaks=0 TSAN_OPTIONS=" + options +
                                       " UBSAN_OPTIONS=" + options + ";";
        const std::string victim = "exec '" ORVIK_VICTIM_DIR "/victim_" + name + "' " + arguments +
                                   " >'" + file("out") + "' 2>'" + file("err") + "'";
        const std::string command = "{ (ulimit -c 0; " + sanitizers + setUp + victim +
                                    "); echo $? >'" + file("code") + "'; } 2>/dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        Ending ending;
        std::ifstream(file("code")) >> ending.code;
        ending.output = contents(file("out"));
        ending.errors = contents(file("err"));
        return ending;
    }
};

} // namespace

TEST_F(Victims, TerminateLeavesTheMarkerInTheFileAndOnBothStreams)
{
    const Ending ending = run("terminate", file("crash"));

    EXPECT_EQ(ending.code, kEndedByAbort);
    EXPECT_EQ(contents(file("crash")), kMarker);
    EXPECT_EQ(ending.output, kMarker);
    EXPECT_EQ(ending.errors, kMarker);
}

TEST_F(Victims, TerminateReplacesAnOldMarker)
{
    std::ofstream(file("crash")) << std::string(1000, 'x');

    run("terminate", file("crash"));

    EXPECT_EQ(contents(file("crash")), kMarker);
}

TEST_F(Victims, TerminateSaysWhenTheFileCannotBeOpened)
{
    const Ending ending = run("terminate", "/no-such-folder/Pellux.crash");

    EXPECT_EQ(ending.code, kEndedByAbort);
    EXPECT_EQ(ending.output, std::string("Unable to open file") + kMarker);
    EXPECT_EQ(ending.errors, kMarker);
}

TEST_F(Victims, FaultThatNobodyConvertsLeavesAReport)
{
    const Ending ending = run("reported", "null '" + file("crash") + "'");

    EXPECT_EQ(ending.code, kEndedBySegmentationFault);
    const std::string report = contents(file("crash"));
    EXPECT_EQ(report.find("The program was ended by signal 11 (SIGSEGV).\nProcess: "), 0u)
        << report;
    EXPECT_NE(report.find("\nThread:  "), std::string::npos) << report;
    EXPECT_NE(report.find("\nAddress: 0x0\n"), std::string::npos) << report;
    EXPECT_NE(report.find("\nCalls, the last first:\n"), std::string::npos) << report;
    EXPECT_NE(report.find("victim_reported(+0x"), std::string::npos) << report;
    EXPECT_EQ(ending.errors,
              "Ended by signal 11 (SIGSEGV); the report is in " + file("crash") + "\n");
}

TEST_F(Victims, OverflowOfTheMainThreadLeavesAReport)
{
    const Ending ending = run("reported", "stack '" + file("crash") + "'");

    EXPECT_EQ(ending.code, kEndedBySegmentationFault);
    EXPECT_NE(contents(file("crash")).find("victim_reported(+0x"), std::string::npos);
}

TEST_F(Victims, AbortLeavesAReport)
{
    const Ending ending = run("reported", "abort '" + file("crash") + "'");

    EXPECT_EQ(ending.code, kEndedByAbort);
    EXPECT_EQ(contents(file("crash")).find("The program was ended by signal 6 (SIGABRT).\n"), 0u);
}

TEST_F(Victims, ReportThatHasNoFileGoesToStandardError)
{
    const Ending ending = run("reported", "null /no-such-folder/report");

    EXPECT_EQ(ending.code, kEndedBySegmentationFault);
    EXPECT_EQ(ending.errors.find("The program was ended by signal 11 (SIGSEGV).\n"), 0u)
        << ending.errors;
}

TEST_F(Victims, CrashFileLiesAtTheRoot)
{
    if (exists("/Pellux.crash")) {
        GTEST_SKIP() << "/Pellux.crash is there already and is left alone";
    }
    const Ending ending = run("terminate");

    EXPECT_EQ(ending.code, kEndedByAbort);
    if (exists("/Pellux.crash")) {
        EXPECT_EQ(contents("/Pellux.crash"), kMarker);
        EXPECT_EQ(ending.output, kMarker);
        std::remove("/Pellux.crash");
    } else {
        EXPECT_EQ(ending.output, std::string("Unable to open file") + kMarker);
    }
}

TEST_F(Victims, UncaughtExceptionTerminatesOnce)
{
    const Ending ending = run("uncaught", file("crash"));

    EXPECT_EQ(ending.code, kEndedByAbort);
    EXPECT_EQ(contents(file("crash")), kMarker);
    EXPECT_EQ(ending.output, kMarker);
}

TEST_F(Victims, UncaughtTrapTerminatesOnce)
{
    const Ending ending = run("fp_divide", "inside " + file("crash"));

    EXPECT_EQ(ending.code, kEndedByAbort);
    EXPECT_EQ(contents(file("crash")), kMarker);
    EXPECT_EQ(ending.output, kMarker);
}

TEST_F(Victims, DivisionByZeroIsInfiniteAfterAContext)
{
    const Ending ending = run("fp_divide", "outside");

    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.output, "1\n");
}

TEST_F(Victims, NullWriteAfterAContextEndsTheProcess)
{
    EXPECT_EQ(run("null_write", "after").code, kEndedBySegmentationFault);
}

TEST_F(Victims, NullWriteOnAThreadWithoutAContextEndsTheProcess)
{
    EXPECT_EQ(run("null_write", "another").code, kEndedBySegmentationFault);
}

TEST_F(Victims, AbortAfterAContextEndsTheProcess)
{
    const Ending ending = run("abort_outside");

    EXPECT_EQ(ending.code, kEndedByAbort);
    EXPECT_EQ(ending.output, "");
}

TEST_F(Victims, PureCallWithoutAContextEndsTheProcess)
{
    const Ending ending = run("pure_call");

    EXPECT_EQ(ending.code, kEndedByAbort);
    EXPECT_NE(ending.errors.find("pure virtual method called"), std::string::npos) << ending.errors;
}

TEST_F(Victims, StuckWorkerDoesNotKeepTheProcessFromItsEnd)
{
    const Ending ending = run("stuck_exit");

    EXPECT_EQ(ending.code, 0);
    EXPECT_NE(ending.output.find("    Terminating worker thread...\n... DONE\n"), std::string::npos)
        << ending.output;
}

TEST_F(Victims, DispatcherThatNeverStartedHasNoWorkerToStop)
{
    const Ending ending = run("never_started", "taken");

    EXPECT_EQ(ending.code, 0);
    EXPECT_NE(ending.output.find("JobDispatcher Event with this name already exists: Local\\"),
              std::string::npos);
    EXPECT_NE(ending.output.find("JobDispatcher::Terminate() \n"), std::string::npos);
    EXPECT_EQ(ending.output.find("Terminating worker thread"), std::string::npos);
}

TEST_F(Victims, EventThatCannotBeMadeIsAnErrorWithTheNameAndMayBeTriedAgain)
{
    const Ending ending = run("never_started", "exhausted", "ulimit -n 64; ");

    EXPECT_EQ(ending.code, 0);
    EXPECT_TRUE(
        ending.output.starts_with("JobDispatcher cannot create event Local\\JobDispatcherEvent_"))
        << ending.output;
    EXPECT_NE(ending.output.find("Worker ThreadId = "), std::string::npos);
}
