#ifndef ORVIKCORE_ASCRIPTENGINEFACTORY_H
#define ORVIKCORE_ASCRIPTENGINEFACTORY_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

class AScriptEngine;

/// Makes the engine of a script-engine library.
///
/// The library exports `extern "C" AScriptEngineFactory* RegisterScriptEngineFactory();`, which
/// returns a new factory. ScriptPluginManager::LoadScriptEngine asks it for one engine and deletes
/// it. Worker thread.
class ORVIKCORE_API AScriptEngineFactory
{
public:
    // Virtual operations in slot order; append only.

    virtual ~AScriptEngineFactory();

    /// @return a new engine (transferred out).
    virtual AScriptEngine* CreateEngine() = 0;
};

} // namespace OrvikCore

#endif
