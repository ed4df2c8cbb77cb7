#ifndef PELLUXBATCH_REPLAYRUN_H
#define PELLUXBATCH_REPLAYRUN_H

#include "Options.h"

#include <functional>
#include <string>

namespace OrvikCore {
class Shell;
} // namespace OrvikCore

namespace PelluxBatch {

/// What --replay does. @thread Main thread.
class ReplayRun
{
public:
    /// Called with each form before it runs; false stops there.
    using BeforeForm = std::function<bool(const std::wstring& form)>;

    /// Reads the journal, and takes over how its run began where the command line says nothing:
    /// size and axis that points up. Paths of the command line become absolute, because the
    /// replay goes to the journal's folder.
    ///
    /// @param errorText  Receives the reason on false.
    bool Prepare(Options& options, std::wstring& errorText);

    /// Shows what the forms have printed so far.
    using Drain = std::function<void()>;

    /// Runs the journal; prints a line for each pick and one at the end, and writes the report.
    ///
    /// @param goOn       Asked before each event of mouse and keys; false stops there.
    /// @param errorText  Receives why the journal or the report is no good.
    /// @param cutText    Receives where the journal is cut short; empty for a whole one.
    /// @return true when every form ran and every pick is the same.
    bool Run(const Options& options, OrvikCore::Shell& shell, const BeforeForm& beforeForm,
             const std::function<bool()>& goOn, const Drain& drain, std::wstring& errorText,
             std::wstring& cutText) const;

private:
    std::wstring m_text;
};

} // namespace PelluxBatch

#endif
