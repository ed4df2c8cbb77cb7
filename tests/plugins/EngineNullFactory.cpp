// An engine library that gives no factory.
#include "FakeScriptEngine.h"

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptEngineFactory* RegisterScriptEngineFactory()
{
    return nullptr;
}
