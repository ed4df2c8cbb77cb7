// A plugin that throws while it describes itself.
#include "LoggingFactory.h"

#include <stdexcept>

namespace {

class ThrowsOnDescribeFactory : public LoggingFactory
{
public:
    ThrowsOnDescribeFactory() : LoggingFactory("ThrowsOnDescribe") {}

protected:
    void describe() override { throw std::runtime_error("nothing to say"); }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new ThrowsOnDescribeFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "ThrowsOnDescribe";
}
