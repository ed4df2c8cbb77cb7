#include "OrvikCore/ScriptEngineInitJob.h"

#include "OrvikCore/Shell.h"

namespace OrvikCore {

ScriptEngineInitJob::ScriptEngineInitJob(Shell* shell) : m_state(shell->m_state) {}

ScriptEngineInitJob::~ScriptEngineInitJob() = default;

bool ScriptEngineInitJob::Execute()
{
    Shell::init(*m_state);
    return true;
}

} // namespace OrvikCore
