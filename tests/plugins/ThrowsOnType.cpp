// A plugin whose GetPluginType throws.
#include "LoggingFactory.h"

#include <stdexcept>

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new LoggingFactory("ThrowsOnType");
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    throw std::runtime_error("no type today");
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "ThrowsOnType";
}
