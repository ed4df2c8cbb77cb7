// A library without CreatePlugin.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "NoCreate";
}
