#include "OrvikCore/AScriptEngine.h"

#include "OrvikCore/AScriptEngineFactory.h"

namespace OrvikCore {

AScriptEngine::~AScriptEngine() = default;
AScriptEngineFactory::~AScriptEngineFactory() = default;

} // namespace OrvikCore
