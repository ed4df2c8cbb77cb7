// An engine library whose factory gives no engine.
#include "FakeScriptEngine.h"

namespace {

class EngineNullFactory : public OrvikCore::AScriptEngineFactory
{
public:
    ~EngineNullFactory() override { LogCall("EngineNullFactory", "deleted"); }
    OrvikCore::AScriptEngine* CreateEngine() override { return nullptr; }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptEngineFactory* RegisterScriptEngineFactory()
{
    return new EngineNullFactory;
}
