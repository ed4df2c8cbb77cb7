// A script plugin that writes to an address without memory while it is initialised.
#include "LoggingFactory.h"

namespace {

/// An address at which there is nothing, and of which the compiler knows nothing.
int* volatile g_nowhere = reinterpret_cast<int*>(16);

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
