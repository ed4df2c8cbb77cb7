// An engine library whose factory throws what is no std::exception.
#include "FakeScriptEngine.h"

namespace {

class EngineThrowsOddFactory : public OrvikCore::AScriptEngineFactory
{
public:
    ~EngineThrowsOddFactory() override { LogCall("EngineThrowsOddFactory", "deleted"); }
    OrvikCore::AScriptEngine* CreateEngine() override { throw 42; }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptEngineFactory* RegisterScriptEngineFactory()
{
    return new EngineThrowsOddFactory;
}
