// A plugin without GetPluginType.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new LoggingFactory("NoType");
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "NoType";
}
