// A script plugin that throws while it describes itself.
#include "LoggingFactory.h"

#include <stdexcept>

namespace {

class ScriptThrowsOnDescribeFactory : public LoggingScriptFactory
{
public:
    ScriptThrowsOnDescribeFactory() : LoggingScriptFactory("ScriptThrowsOnDescribe") {}

protected:
    void describe() override { throw std::runtime_error("nothing to say"); }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new ScriptThrowsOnDescribeFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "ScriptThrowsOnDescribe";
}
