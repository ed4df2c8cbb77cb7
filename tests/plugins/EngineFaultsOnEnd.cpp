// An engine that writes through a null pointer while it is destroyed.
#include "FakeScriptEngine.h"

namespace {

/// An address that the compiler knows nothing about.
int* volatile g_nowhere = nullptr;

class EngineThatFaults : public FakeScriptEngine
{
public:
    ~EngineThatFaults() override { *g_nowhere = 1; }
};

class EngineFaultsOnEndFactory : public OrvikCore::AScriptEngineFactory
{
public:
    ~EngineFaultsOnEndFactory() override { LogCall("EngineFaultsOnEndFactory", "deleted"); }
    OrvikCore::AScriptEngine* CreateEngine() override { return new EngineThatFaults; }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptEngineFactory* RegisterScriptEngineFactory()
{
    return new EngineFaultsOnEndFactory;
}
