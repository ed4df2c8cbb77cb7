#include "OrvikCore/ScriptEngineLoadJob.h"

#include "OrvikCore/Shell.h"

namespace OrvikCore {

ScriptEngineLoadJob::ScriptEngineLoadJob(Shell* shell) : m_state(shell->m_state) {}

ScriptEngineLoadJob::~ScriptEngineLoadJob() = default;

bool ScriptEngineLoadJob::Execute()
{
    Shell::loadScriptEngine(*m_state);
    return true;
}

} // namespace OrvikCore
