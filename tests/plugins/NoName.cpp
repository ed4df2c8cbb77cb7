// A plugin without GetPluginName.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new LoggingFactory("NoName");
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}
