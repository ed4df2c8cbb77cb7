#ifndef ORVIKCORE_SCRIPTENGINELOADJOB_H
#define ORVIKCORE_SCRIPTENGINELOADJOB_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IJob.h"

#include <memory>

namespace OrvikCore {

class Shell;
struct ShellState;

/// Loads the script engine of a shell on the worker.
///
/// Holds the state of its shell, not the shell itself, so that it may finish after it.
class ORVIKCORE_API ScriptEngineLoadJob : public IJob
{
public:
    /// @param shell  Not owned, not null; needed only during this call.
    explicit ScriptEngineLoadJob(Shell* shell);
    ~ScriptEngineLoadJob() override;

    /// Runs Shell::loadScriptEngine. Worker thread.
    /// @return true.
    bool Execute() override;

private:
    std::shared_ptr<ShellState> m_state;
};

} // namespace OrvikCore

#endif
