#ifndef PELLUXBATCH_BATCHRUN_H
#define PELLUXBATCH_BATCHRUN_H

#include "Options.h"
#include "ReplayRun.h"

#include <HostRuntime.h>

#include <memory>
#include <string>

namespace Pellux {
class InterruptHandling;
}

namespace PelluxBatch {

/// The exit codes of the program; app:quit gives others.
enum class ExitCode : int
{
    Good = 0,
    Failed = 1,      ///< A script failed or a file could not be read.
    Usage = 2,       ///< A mistake in the command line or in a configuration file.
    CannotStart = 3, ///< No engine or no view.
    CutShort = 4,    ///< A journal is cut short, and what it has of it went as it should.
    Interrupted = 130,
};

/// One run of the batch host: starts, does the steps, writes the picture, stops.
///
/// The transcript goes to standard output: each form behind "> ", then what it printed. Errors and
/// warnings go to standard error. @thread Main thread.
class BatchRun
{
public:
    explicit BatchRun(const Options& options);
    ~BatchRun();

    BatchRun(const BatchRun&) = delete;
    BatchRun& operator=(const BatchRun&) = delete;

    ExitCode Run();

private:
    ExitCode start();
    ExitCode work();
    bool runStep(const Step& step);
    bool runForms(const std::wstring& text, const std::wstring& source);
    bool replay();
    bool writeOutput();
    void report();
    bool beforeForm(const std::wstring& form);
    bool playInput();
    bool isInterrupted() const;
    bool isQuitting() const;
    void showTime(const char* what);

    Options m_options;
    ReplayRun m_replay;
    Pellux::HostRuntime m_host;
    std::unique_ptr<Pellux::InterruptHandling> m_interrupts;
    bool m_isCutShort = false;      ///< The journal that was replayed.
    bool m_ignoresQuit = false;     ///< What a journal has of app:quit.
    bool m_isStoppedByQuit = false; ///< Whether a form did not run for it.
    unsigned long long m_startedMs;
};

} // namespace PelluxBatch

#endif
