// A plugin of type "Loader" without fault.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new LoggingFactory("LoaderType");
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Loader";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "LoaderType";
}
