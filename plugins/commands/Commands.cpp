#include "Commands.h"

namespace OrvikCommands {

void RegisterAllCommands(TambCommandsInfra::CommandTable& table)
{
    RegisterApplicationCommands(table);
    RegisterDocumentCommands(table);
    RegisterDrawingCommands(table);
    RegisterEntityCommands(table);
    RegisterSettingsCommands(table);
    RegisterViewCommands(table);
}

} // namespace OrvikCommands
