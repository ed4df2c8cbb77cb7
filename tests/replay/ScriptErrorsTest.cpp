#include "BatchProcess.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

Outcome runScript(BatchProcess& process, const std::string& text)
{
    process.Write("script.scm", text);
    return process.Run({"--no-startup", "--script", "script.scm"});
}

TEST(ScriptErrors, ATextThatEndsTooEarlyIsReportedWhereItsFormBegins)
{
    BatchProcess process;

    process.ExpectGolden("syntax-open", runScript(process, "(define a 1)\n\n  (display (+ a 1)\n"));
}

TEST(ScriptErrors, AFormThatIsNoneIsReportedWithItsPlace)
{
    BatchProcess process;

    process.ExpectGolden("syntax-form", runScript(process, "(define a 1)\n(if)\n"));
}

TEST(ScriptErrors, AnErrorComesWithTheCallsThatLedThere)
{
    BatchProcess process;

    process.ExpectGolden("backtrace", runScript(process, "(define (inner x)\n"
                                                         "  (+ 1 (car x)))\n"
                                                         "(define (outer x)\n"
                                                         "  (+ 1 (inner x)))\n"
                                                         "(+ 1 (outer 5))\n"));
}

TEST(ScriptErrors, TheFormsAfterAnErrorAreNotRun)
{
    BatchProcess process;

    process.ExpectGolden("stops", runScript(process, "(error \"no:\" 1)\n(app:print \"more\")\n"));
}

TEST(ScriptErrors, AMisspeltCommandIsAnsweredWithTheNearest)
{
    BatchProcess process;

    process.ExpectGolden("misspelt", runScript(process, "(view:izo)\n"));
}

TEST(ScriptErrors, AWrongArgumentIsNamed)
{
    BatchProcess process;

    process.ExpectGolden("wrong-argument",
                         runScript(process, "(view:zoom-to-box 0 0 0 1 1 \"one\")\n"));
}

TEST(ScriptErrors, RunawayRecursionIsAnError)
{
    BatchProcess process;

    process.ExpectGolden("recursion",
                         runScript(process, "(define (deeper n) (+ 1 (deeper n)))\n(deeper 1)\n"));
}

TEST(ScriptErrors, AMachineFaultInACommandIsAnErrorThatAScriptMayCatch)
{
    BatchProcess process;
    process.UseTestCommands();

    process.ExpectGolden("fault-caught",
                         runScript(process, "(catch #t test:fault\n"
                                            "  (lambda (key . rest) (app:print key)))\n"
                                            "(app:print \"alive\")\n"));
}

TEST(ScriptErrors, AMachineFaultInACommandIsReported)
{
    BatchProcess process;
    process.UseTestCommands();

    process.ExpectGolden("fault", runScript(process, "(test:fault)\n"));
}

TEST(ScriptErrors, ADivisionByZeroInACommandTraps)
{
    BatchProcess process;
    process.UseTestCommands();

    process.ExpectGolden("fp-divide", runScript(process, "(test:fp-divide)\n"));
}

TEST(ScriptErrors, ADivisionByZeroInAScriptDoesNotTrapBeforeOrAfterACommandThatDid)
{
    BatchProcess process;
    process.UseTestCommands();

    process.ExpectGolden("fp-script", runScript(process, "(display (/ 1.0 0.0))\n"
                                                         "(catch #t test:fp-divide\n"
                                                         "  (lambda (key . rest) (display key)))\n"
                                                         "(display (/ 1.0 0.0))\n"
                                                         "(display (* 4.9e-324 1.0))\n"));
}

TEST(ScriptErrors, AnExceptionOfACommandIsReportedWithItsText)
{
    BatchProcess process;
    process.UseTestCommands();

    process.ExpectGolden("throw", runScript(process, "(test:throw)\n"));
}

TEST(ScriptErrors, AnExceptionThatIsNoneIsReported)
{
    BatchProcess process;
    process.UseTestCommands();

    process.ExpectGolden("throw-oddly", runScript(process, "(test:throw-oddly)\n"));
}

TEST(ScriptErrors, AScriptCannotEndTheProcess)
{
    BatchProcess process;

    process.ExpectGolden("exit", runScript(process, "(primitive-exit 7)\n"));
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long kMostKilobytes = 1600 * 1024; // They keep what was freed, and notes of all memory.
#else
constexpr long kMostKilobytes = 800 * 1024;
#endif

TEST(ScriptErrors, AHundredMegabytesOfOutputAreCutAndNeedBoundedMemory)
{
    BatchProcess process;

    const Outcome outcome = runScript(
        process, "(let ((line (make-string 100000 #\\x)))\n"
                 "  (do ((i 0 (+ i 1))) ((= i 1000)) (display line)))\n"
                 "(use-modules (ice-9 textual-ports))\n"
                 "(let* ((text (call-with-input-file \"/proc/self/status\" get-string-all))\n"
                 "       (at (string-contains text \"VmHWM:\")))\n"
                 "  (display \"peak\")\n"
                 "  (display (substring text (+ at 6) (string-index text #\\k at))))\n");

    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_NE(outcome.output.find("... 83222784 bytes of output were left out"), std::string::npos);
    EXPECT_LT(outcome.output.size(), 17u * 1024 * 1024);
    const std::size_t peak = outcome.output.rfind("peak");
    ASSERT_NE(peak, std::string::npos);
    EXPECT_LT(std::atol(outcome.output.c_str() + peak + 4), kMostKilobytes);
}

} // namespace
