// An engine whose initialisation throws what is no std::exception.
#include "FakeScriptEngine.h"

namespace {

class EngineThatThrows : public FakeScriptEngine
{
public:
    void Initialize(InitializeCallback) override { throw 42; }
};

class EngineInitThrowsOddFactory : public OrvikCore::AScriptEngineFactory
{
public:
    ~EngineInitThrowsOddFactory() override { LogCall("EngineInitThrowsOddFactory", "deleted"); }
    OrvikCore::AScriptEngine* CreateEngine() override { return new EngineThatThrows; }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptEngineFactory* RegisterScriptEngineFactory()
{
    return new EngineInitThrowsOddFactory;
}
