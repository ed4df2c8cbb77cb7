// A script plugin whose RegisterPlugin throws.
#include "LoggingFactory.h"

#include <stdexcept>

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    throw std::runtime_error("no licence");
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "ScriptThrowsOnRegister";
}
