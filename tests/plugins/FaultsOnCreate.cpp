// A plugin whose CreatePlugin writes to an address without memory.
#include "LoggingFactory.h"

namespace {

/// An address at which there is nothing, and of which the compiler knows nothing.
int* volatile g_nowhere = reinterpret_cast<int*>(16);

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    *g_nowhere = 1;
    return nullptr;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "FaultsOnCreate";
}
