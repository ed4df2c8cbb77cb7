// A plugin whose CreatePlugin throws what is no std::exception.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    throw 42;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "ThrowsOddOnCreate";
}
