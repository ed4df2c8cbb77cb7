// A script plugin that writes through a null pointer while it is initialised.
#include "LoggingFactory.h"

namespace {

/// An address that the compiler knows nothing about.
int* volatile g_nowhere = nullptr;

class ScriptFaultsOnInitFactory : public LoggingScriptFactory
{
public:
    ScriptFaultsOnInitFactory() : LoggingScriptFactory("ScriptFaultsOnInit") {}

protected:
    bool doInitialize(void*) override
    {
        *g_nowhere = 1;
        return true;
    }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new ScriptFaultsOnInitFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "ScriptFaultsOnInit";
}
