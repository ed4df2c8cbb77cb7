// A plugin of a type that the folder word "Plugins" does not admit.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new LoggingFactory("OtherType");
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "View";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "OtherType";
}
