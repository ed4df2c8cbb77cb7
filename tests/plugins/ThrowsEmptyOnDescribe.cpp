// A plugin that throws an exception without a text.
#include "LoggingFactory.h"

#include <stdexcept>

namespace {

class ThrowsEmptyOnDescribeFactory : public LoggingFactory
{
public:
    ThrowsEmptyOnDescribeFactory() : LoggingFactory("ThrowsEmptyOnDescribe") {}

protected:
    void describe() override { throw std::runtime_error(""); }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new ThrowsEmptyOnDescribeFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "ThrowsEmptyOnDescribe";
}
