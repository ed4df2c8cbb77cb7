// A plugin that requires plugins that are not there.
#include "LoggingFactory.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new LoggingFactory("NeedsAbsent", {L"Absent", L"Good", L"Lost"});
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "NeedsAbsent";
}
