// A plugin whose initialisation throws.
#include "LoggingFactory.h"

#include <stdexcept>

namespace {

class ThrowsOnInitFactory : public LoggingFactory
{
public:
    ThrowsOnInitFactory() : LoggingFactory("ThrowsOnInit") {}

protected:
    void doInitialize(void** const) override { throw std::runtime_error("out of order"); }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new ThrowsOnInitFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "ThrowsOnInit";
}
