#include "OrvikCore/ScriptEngineTerminateJob.h"

#include "OrvikCore/Shell.h"

namespace OrvikCore {

ScriptEngineTerminateJob::ScriptEngineTerminateJob(Shell* shell) : m_state(shell->m_state) {}

ScriptEngineTerminateJob::~ScriptEngineTerminateJob() = default;

bool ScriptEngineTerminateJob::Execute()
{
    Shell::terminate(*m_state);
    return true;
}

} // namespace OrvikCore
