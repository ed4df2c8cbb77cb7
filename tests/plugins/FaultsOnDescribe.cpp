// A plugin that writes to an address without memory while it describes itself.
#include "LoggingFactory.h"

namespace {

/// An address at which there is nothing, and of which the compiler knows nothing.
int* volatile g_nowhere = reinterpret_cast<int*>(16);

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
