// A plugin whose CreatePlugin writes through a null pointer.
#include "LoggingFactory.h"

namespace {

/// An address that the compiler knows nothing about.
int* volatile g_nowhere = nullptr;

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
