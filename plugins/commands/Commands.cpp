#include "Commands.h"

namespace OrvikCommands {

void RegisterAllCommands(TambCommandsInfra::CommandTable& table)
{
    RegisterApplicationCommands(table);
    RegisterDocumentCommands(table);
    RegisterDocumentFileCommands(table);
    RegisterDocumentTreeCommand(table);
    RegisterDrawingCommands(table);
    RegisterEntityCommands(table);
    RegisterEntityMeasureCommands(table);
    RegisterMeasureCommands(table);
    RegisterSelectionCommands(table);
    RegisterSelectionFindCommands(table);
    RegisterSettingsCommands(table);
    RegisterTessellationCommands(table);
    RegisterViewCommands(table);
}

} // namespace OrvikCommands
