#include "Commands.h"

namespace OrvikCommands {

void RegisterAllCommands(TambCommandsInfra::CommandTable& table)
{
    RegisterAnnotationCommands(table);
    RegisterApplicationCommands(table);
    RegisterBoxCommand(table);
    RegisterCameraCommands(table);
    RegisterColorCommands(table);
    RegisterDimensionCommands(table);
    RegisterDocumentCommands(table);
    RegisterDocumentFileCommands(table);
    RegisterDocumentTreeCommand(table);
    RegisterDrawingCommands(table);
    RegisterEntityCommands(table);
    RegisterEntityMeasureCommands(table);
    RegisterExplodeCommand(table);
    RegisterHighlightCommands(table);
    RegisterInputCommands(table);
    RegisterJournalCommands(table);
    RegisterLoadModeCommands(table);
    RegisterMeasureCommands(table);
    RegisterMouseCommands(table);
    RegisterPictureCommands(table);
    RegisterSectionCommands(table);
    RegisterSelectionCommands(table);
    RegisterSelectionFindCommands(table);
    RegisterPreferenceCommands(table);
    RegisterRoundMeasureCommands(table);
    RegisterSavedViewCommands(table);
    RegisterFaceThicknessCommand(table);
    RegisterSettingsCommands(table);
    RegisterTessellationCommands(table);
    RegisterViewCommands(table);
    RegisterViewPickCommand(table);
    RegisterVisibilityCommands(table);
    RegisterWindowCommands(table);
}

} // namespace OrvikCommands
