// A script plugin that throws what is no std::exception.
#include "LoggingFactory.h"

namespace {

class ScriptThrowsOddOnDescribeFactory : public LoggingScriptFactory
{
public:
    ScriptThrowsOddOnDescribeFactory() : LoggingScriptFactory("ScriptThrowsOddOnDescribe") {}

protected:
    void describe() override { throw 42; }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new ScriptThrowsOddOnDescribeFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "ScriptThrowsOddOnDescribe";
}
