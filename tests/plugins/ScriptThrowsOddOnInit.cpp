// A script plugin whose initialisation throws what is no std::exception.
#include "LoggingFactory.h"

namespace {

class ScriptThrowsOddOnInitFactory : public LoggingScriptFactory
{
public:
    ScriptThrowsOddOnInitFactory() : LoggingScriptFactory("ScriptThrowsOddOnInit") {}

protected:
    bool doInitialize(void*) override { throw 42; }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new ScriptThrowsOddOnInitFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "ScriptThrowsOddOnInit";
}
