// A script plugin that requires one that is not there.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new LoggingScriptFactory("ScriptNeedsAbsent", {L"Absent"});
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "ScriptNeedsAbsent";
}
