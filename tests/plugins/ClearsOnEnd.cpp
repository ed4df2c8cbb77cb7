// A plugin that clears the list of plugins while it ends.
#include "LoggingFactory.h"

#include "OrvikCore/PluginManager.h"

namespace {

/// Clears the list that it is just being cleared from.
class ClearsOnEndFactory : public LoggingFactory
{
public:
    ClearsOnEndFactory() : LoggingFactory("ClearsOnEnd") {}

    void Terminate() override
    {
        LoggingFactory::Terminate();
        OrvikCore::PluginManager::Instance().Terminate();
    }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new ClearsOnEndFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "ClearsOnEnd";
}
