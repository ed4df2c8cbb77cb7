// A plugin that writes through a null pointer while it describes itself.
#include "LoggingFactory.h"

namespace {

/// An address that the compiler knows nothing about.
int* volatile g_nowhere = nullptr;

class FaultsOnDescribeFactory : public LoggingFactory
{
public:
    FaultsOnDescribeFactory() : LoggingFactory("FaultsOnDescribe") {}

protected:
    void describe() override { *g_nowhere = 1; }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new FaultsOnDescribeFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "FaultsOnDescribe";
}
