#include "actions/ActionDefinition.h"
#include "actions/WindowState.h"
#include "files/FileFilters.h"
#include "runtime/QtText.h"

#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/Utils.h>

#include <QCoreApplication>

namespace Pellux {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Actions", text);
}

/// A command whose one argument is a path.
ActionScript withPath(const char* command, const QString& path)
{
    if (path.isEmpty())
        return {};
    return {u'(' + QString::fromLatin1(command) + u' ' + Quoted(path) + u')'};
}

ActionDefinition::Script openScript(const char* command, const QString& title)
{
    return [command, title](IAsker& asker, bool) {
        return withPath(command, asker.FileToOpen(title, OpenFilter()));
    };
}

ActionDefinition::Script saveScript(const char* command, const QString& title,
                                    const std::function<QString()>& filter)
{
    return [command, title, filter](IAsker& asker, bool) {
        return withPath(command, asker.FileToSave(title, filter()));
    };
}

ActionDefinition::Script folderScript(const char* command, const QString& title)
{
    return [command, title](IAsker& asker, bool) { return withPath(command, asker.Folder(title)); };
}

/// The forms of a script file.
ActionScript scriptOfFile(IAsker& asker)
{
    const QString path = asker.FileToOpen(tr("Run a script"), tr("Scripts (*.scm);;All files (*)"));
    std::wstring text;
    if (path.isEmpty())
        return {};
    if (TambVizCore::Utils::GetFileContents(FromQt(path), text))
        return {ToQt(text), path};
    return {QStringLiteral("(app:error ") +
            Quoted(QStringLiteral("Failed to read script file : ") + path) + u')'};
}

} // namespace

ActionDefinitions FileActions()
{
    const QString file = tr("&File");
    const auto pictures = [] { return tr("Pictures (*.png)"); };
    return {
        {"file.open",
         file,
         tr("&Open..."),
         tr("Loads a model in place of what is loaded"),
         "open",
         "Ctrl+O",
         openScript("doc:load", tr("Open a model")),
         {},
         Needs::Nothing,
         true},
        {"file.import", file, tr("&Import..."), tr("Adds a model to what is loaded"), "import",
         "Ctrl+Shift+O", openScript("doc:import", tr("Import a model"))},
        {"file.reload",
         file,
         tr("Re&load"),
         tr("Reads the files of what is loaded again"),
         "reload",
         "F5",
         FixedScript("(doc:reload)"),
         {},
         Needs::Model,
         true},
        {"file.watch", file, tr("&Watch files"), tr("Reads files again when they change"), "", "",
         SwitchScript("(app:watch %1)"), &WindowState::IsWatching},
        {"file.save-as",
         file,
         tr("Save &as..."),
         tr("Writes the model to a file"),
         "save",
         "Ctrl+Shift+S",
         saveScript("doc:save", tr("Save the model"), &SaveFilter),
         {},
         Needs::Model,
         false,
         true},
        {"file.save-picture",
         file,
         tr("Save &picture..."),
         tr("Writes a picture of the view"),
         "camera",
         "Ctrl+P",
         saveScript("view:save-image", tr("Save a picture"), pictures),
         {},
         Needs::Nothing,
         true},
        {"file.copy-picture", file, tr("&Copy picture"),
         tr("Puts a picture of the view into the clipboard"), "copy", "Ctrl+Shift+C",
         FixedScript("(view:copy-image)")},
        {"file.run-script",
         file,
         tr("&Run script..."),
         tr("Runs the forms of a script file"),
         "",
         "Ctrl+Shift+R",
         [](IAsker& asker, bool) { return scriptOfFile(asker); },
         {},
         Needs::Nothing,
         false,
         true},
        {"file.input-folder", file, tr("Folder to &read from..."),
         tr("Chooses the folder that names of files to read start from"), "", "",
         folderScript("app:set-default-input-directory!", tr("Folder to read from"))},
        {"file.output-folder", file, tr("Folder to wr&ite to..."),
         tr("Chooses the folder that names of files to write start from"), "", "",
         folderScript("app:set-default-output-directory!", tr("Folder to write to"))},
        {"file.close",
         file,
         tr("Clos&e model"),
         tr("Closes everything that is loaded"),
         "",
         "Ctrl+W",
         FixedScript("(doc:clear)"),
         {},
         Needs::Model,
         false,
         true},
        {"file.quit", file, tr("&Quit"), tr("Ends the program"), "", "Ctrl+Q",
         FixedScript("(app:quit)")},
    };
}

ActionDefinitions EditActions()
{
    const QString edit = tr("&Edit");
    return {
        {"edit.undo",
         edit,
         tr("&Undo"),
         tr("Takes the last step back: hiding, showing, isolating, exploding, transparency"),
         "undo",
         "Ctrl+Z",
         FixedScript("(view:undo)"),
         {},
         Needs::Nothing,
         true,
         true},
        {"edit.redo",
         edit,
         tr("&Redo"),
         tr("Does the step again"),
         "redo",
         "Ctrl+Shift+Z",
         FixedScript("(view:redo)"),
         {},
         Needs::Nothing,
         true},
        {"edit.undo-model",
         edit,
         tr("Undo in the &model"),
         tr("Goes back to the undo point of a model that can be edited"),
         "",
         "Ctrl+Alt+Z",
         FixedScript("(doc:undo)"),
         {},
         Needs::Model,
         false,
         true},
        {"edit.redo-model",
         edit,
         tr("R&edo in the model"),
         tr("Takes the last undo in the model back"),
         "",
         "Ctrl+Alt+Y",
         FixedScript("(doc:redo)"),
         {},
         Needs::Model},
        {"edit.note-state",
         edit,
         tr("&Note state"),
         tr("Records an undo point of the model"),
         "",
         "",
         FixedScript("(doc:note-state)"),
         {},
         Needs::Model},
        {"edit.journal",
         edit,
         tr("&Journal"),
         tr("Shows what was done in this run, saves and replays it"),
         "",
         "Ctrl+J",
         FixedScript("(app:show-panel \"journal\")"),
         {},
         Needs::Nothing,
         false,
         true},
        {"edit.preferences",
         edit,
         tr("&Preferences\u2026"),
         tr("Colours, display, navigation, shortcuts and folders, kept for good"),
         "",
         "Ctrl+,",
         FixedScript("(app:show-panel \"preferences\")"),
         {},
         Needs::Nothing,
         false,
         true},
    };
}

ActionDefinitions HelpActions()
{
    const QString help = tr("&Help");
    return {
        {"help.commands", help, tr("&Commands"), tr("Shows what each command does"), "help", "F1",
         FixedScript("(app:show-panel \"commands\")")},
        {"help.keys", help, tr("&Mouse and keys"), tr("Shows what mouse and keys do"), "",
         "Shift+F1", FixedScript("(app:show-panel \"keys\")")},
        {"help.about",
         help,
         tr("&About Pellux"),
         tr("Shows the version and the libraries"),
         "",
         "",
         FixedScript("(app:show-panel \"about\")"),
         {},
         Needs::Nothing,
         false,
         true},
    };
}

} // namespace Pellux
