// A script engine without fault.
#include "FakeScriptEngine.h"

namespace {

class FakeEngineFactory : public OrvikCore::AScriptEngineFactory
{
public:
    ~FakeEngineFactory() override { LogCall("FakeEngineFactory", "deleted"); }
    OrvikCore::AScriptEngine* CreateEngine() override { return new FakeScriptEngine; }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptEngineFactory* RegisterScriptEngineFactory()
{
    return new FakeEngineFactory;
}
