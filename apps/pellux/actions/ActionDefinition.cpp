#include "actions/ActionDefinition.h"

namespace Pellux {

ActionDefinition::Script FixedScript(const char* text)
{
    return [script = QString::fromUtf8(text)](IAsker&, bool) { return ActionScript{script}; };
}

ActionDefinition::Script SwitchScript(const char* text)
{
    return [script = QString::fromUtf8(text)](IAsker&, bool isOn) {
        return ActionScript{script.arg(isOn ? QStringLiteral("#t") : QStringLiteral("#f"))};
    };
}

} // namespace Pellux
