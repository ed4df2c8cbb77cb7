// An engine library whose factory throws.
#include "FakeScriptEngine.h"

#include <stdexcept>

namespace {

class EngineThrowsFactory : public OrvikCore::AScriptEngineFactory
{
public:
    ~EngineThrowsFactory() override { LogCall("EngineThrowsFactory", "deleted"); }
    OrvikCore::AScriptEngine* CreateEngine() override
    {
        throw std::runtime_error("no interpreter");
    }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptEngineFactory* RegisterScriptEngineFactory()
{
    return new EngineThrowsFactory;
}
