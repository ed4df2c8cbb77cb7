#ifndef PLUGINCOMMANDS_COMMANDS_H
#define PLUGINCOMMANDS_COMMANDS_H

namespace TambCommandsInfra {
class CommandTable;
}

namespace OrvikCommands {

/// Each registers the commands of one topic.
void RegisterAnnotationCommands(TambCommandsInfra::CommandTable& table);
void RegisterApplicationCommands(TambCommandsInfra::CommandTable& table);
void RegisterBoxCommand(TambCommandsInfra::CommandTable& table);
void RegisterCameraCommands(TambCommandsInfra::CommandTable& table);
void RegisterColorCommands(TambCommandsInfra::CommandTable& table);
void RegisterDimensionCommands(TambCommandsInfra::CommandTable& table);
void RegisterDocumentCommands(TambCommandsInfra::CommandTable& table);
void RegisterDocumentFileCommands(TambCommandsInfra::CommandTable& table);
void RegisterDocumentTreeCommand(TambCommandsInfra::CommandTable& table);
void RegisterDrawingCommands(TambCommandsInfra::CommandTable& table);
void RegisterEntityCommands(TambCommandsInfra::CommandTable& table);
void RegisterEntityMeasureCommands(TambCommandsInfra::CommandTable& table);
void RegisterExplodeCommand(TambCommandsInfra::CommandTable& table);
void RegisterHighlightCommands(TambCommandsInfra::CommandTable& table);
void RegisterInputCommands(TambCommandsInfra::CommandTable& table);
void RegisterJournalCommands(TambCommandsInfra::CommandTable& table);
void RegisterLoadModeCommands(TambCommandsInfra::CommandTable& table);
void RegisterMeasureCommands(TambCommandsInfra::CommandTable& table);
void RegisterMouseCommands(TambCommandsInfra::CommandTable& table);
void RegisterPictureCommands(TambCommandsInfra::CommandTable& table);
void RegisterSectionCommands(TambCommandsInfra::CommandTable& table);
void RegisterSelectionCommands(TambCommandsInfra::CommandTable& table);
void RegisterSelectionFindCommands(TambCommandsInfra::CommandTable& table);
void RegisterPreferenceCommands(TambCommandsInfra::CommandTable& table);
void RegisterFaceThicknessCommand(TambCommandsInfra::CommandTable& table);
void RegisterRoundMeasureCommands(TambCommandsInfra::CommandTable& table);
void RegisterSavedViewCommands(TambCommandsInfra::CommandTable& table);
void RegisterSettingsCommands(TambCommandsInfra::CommandTable& table);
void RegisterTessellationCommands(TambCommandsInfra::CommandTable& table);
void RegisterViewCommands(TambCommandsInfra::CommandTable& table);
void RegisterViewPickCommand(TambCommandsInfra::CommandTable& table);
void RegisterVisibilityCommands(TambCommandsInfra::CommandTable& table);
void RegisterWindowCommands(TambCommandsInfra::CommandTable& table);

/// Registers every command of the script language.
///
/// @throws std::invalid_argument for a name that is taken; see CommandTable::Register.
void RegisterAllCommands(TambCommandsInfra::CommandTable& table);

} // namespace OrvikCommands

#endif
