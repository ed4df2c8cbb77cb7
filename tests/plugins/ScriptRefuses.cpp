// A script plugin that refuses to be initialised.
#include "LoggingFactory.h"

namespace {

class ScriptRefusesFactory : public LoggingScriptFactory
{
public:
    ScriptRefusesFactory() : LoggingScriptFactory("ScriptRefuses") {}

protected:
    bool doInitialize(void* context) override
    {
        LoggingScriptFactory::doInitialize(context);
        m_initialized = false;
        return false;
    }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new ScriptRefusesFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "ScriptRefuses";
}
