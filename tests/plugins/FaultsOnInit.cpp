// A plugin that writes through a null pointer while it is initialised.
#include "LoggingFactory.h"

namespace {

/// An address that the compiler knows nothing about.
int* volatile g_nowhere = nullptr;

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
