// A plugin that writes to an address without memory while it is initialised.
#include "LoggingFactory.h"

namespace {

/// An address at which there is nothing, and of which the compiler knows nothing.
int* volatile g_nowhere = reinterpret_cast<int*>(16);

class FaultsOnInitFactory : public LoggingFactory
{
public:
    FaultsOnInitFactory() : LoggingFactory("FaultsOnInit") {}

protected:
    void doInitialize(void** const) override { *g_nowhere = 1; }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new FaultsOnInitFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "FaultsOnInit";
}
