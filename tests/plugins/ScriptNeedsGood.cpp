// A script plugin that requires another one.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new LoggingScriptFactory("ScriptNeedsGood", {L"ScriptGood"});
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "ScriptNeedsGood";
}
