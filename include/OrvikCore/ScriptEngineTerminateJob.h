#ifndef ORVIKCORE_SCRIPTENGINETERMINATEJOB_H
#define ORVIKCORE_SCRIPTENGINETERMINATEJOB_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IJob.h"

#include <memory>

namespace OrvikCore {

class Shell;
struct ShellState;

/// Destroys the script engine of a shell on the worker.
///
/// Holds the state of its shell, not the shell itself, so that it may finish after it.
class ORVIKCORE_API ScriptEngineTerminateJob : public IJob
{
public:
    /// @param shell  Not owned, not null; needed only during this call.
    explicit ScriptEngineTerminateJob(Shell* shell);
    ~ScriptEngineTerminateJob() override;

    /// Runs Shell::terminate. Worker thread.
    /// @return true.
    bool Execute() override;

private:
    std::shared_ptr<ShellState> m_state;
};

} // namespace OrvikCore

#endif
