// A script plugin without GetScriptPluginName.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new LoggingScriptFactory("ScriptNoName");
}
