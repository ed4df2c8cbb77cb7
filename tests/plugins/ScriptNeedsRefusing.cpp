// A script plugin that requires one that refuses to be initialised.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new LoggingScriptFactory("ScriptNeedsRefusing", {L"ScriptRefuses"});
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "ScriptNeedsRefusing";
}
