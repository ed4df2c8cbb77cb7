// Requires CyclicA, which requires it.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new LoggingFactory("CyclicB", {L"CyclicA"});
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "CyclicB";
}
