// A script plugin without fault.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new LoggingScriptFactory("ScriptGood");
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "ScriptGood";
}
