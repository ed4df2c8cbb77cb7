// A plugin without texts for its type and name.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new LoggingFactory("NullTexts");
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return nullptr;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return nullptr;
}
