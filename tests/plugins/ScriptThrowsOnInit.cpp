// A script plugin whose initialisation throws.
#include "LoggingFactory.h"

#include <stdexcept>

namespace {

class ScriptThrowsOnInitFactory : public LoggingScriptFactory
{
public:
    ScriptThrowsOnInitFactory() : LoggingScriptFactory("ScriptThrowsOnInit") {}

protected:
    bool doInitialize(void*) override { throw std::runtime_error("out of order"); }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new ScriptThrowsOnInitFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "ScriptThrowsOnInit";
}
