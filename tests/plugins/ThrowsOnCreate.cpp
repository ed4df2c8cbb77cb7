// A plugin whose CreatePlugin throws.
#include "LoggingFactory.h"

#include <stdexcept>

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    throw std::runtime_error("no licence");
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "ThrowsOnCreate";
}
