// An engine that writes to an address without memory while it is destroyed.
#include "FakeScriptEngine.h"

namespace {

/// An address at which there is nothing, and of which the compiler knows nothing.
int* volatile g_nowhere = reinterpret_cast<int*>(16);

/// Never freed, because its destructor does not come to its end; kept in sight of leak checkers.
void* volatile g_engine = nullptr;

class EngineThatFaults : public FakeScriptEngine
{
public:
    EngineThatFaults() { g_engine = this; }
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
