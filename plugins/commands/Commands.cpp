#include "Commands.h"

namespace OrvikCommands {

void RegisterAllCommands(TambCommandsInfra::CommandTable& table)
{
    RegisterApplicationCommands(table);
    RegisterDocumentCommands(table);
    RegisterEntityCommands(table);
    RegisterViewCommands(table);
}

} // namespace OrvikCommands
