// An engine whose initialisation throws.
#include "FakeScriptEngine.h"

#include <stdexcept>

namespace {

class EngineThatThrows : public FakeScriptEngine
{
public:
    void Initialize(InitializeCallback) override { throw std::runtime_error("no heap"); }
};

class EngineInitThrowsFactory : public OrvikCore::AScriptEngineFactory
{
public:
    ~EngineInitThrowsFactory() override { LogCall("EngineInitThrowsFactory", "deleted"); }
    OrvikCore::AScriptEngine* CreateEngine() override { return new EngineThatThrows; }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptEngineFactory* RegisterScriptEngineFactory()
{
    return new EngineInitThrowsFactory;
}
