// Requires CyclicB, which requires it.
#include "LoggingFactory.h"

namespace {

/// Ends the mutual initialisation when it comes round for the third time.
class CyclicFactory : public LoggingFactory
{
public:
    CyclicFactory() : LoggingFactory("CyclicA", {L"CyclicB"}) {}

protected:
    void describe() override
    {
        LoggingFactory::describe();
        m_initialized = ++m_descriptions == 3;
    }

private:
    int m_descriptions = 0;
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new CyclicFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "CyclicA";
}
