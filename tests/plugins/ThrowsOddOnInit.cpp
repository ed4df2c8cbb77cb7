// A plugin whose initialisation throws what is no std::exception.
#include "LoggingFactory.h"

namespace {

class ThrowsOddOnInitFactory : public LoggingFactory
{
public:
    ThrowsOddOnInitFactory() : LoggingFactory("ThrowsOddOnInit") {}

protected:
    void doInitialize(void** const) override { throw 42; }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new ThrowsOddOnInitFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "ThrowsOddOnInit";
}
