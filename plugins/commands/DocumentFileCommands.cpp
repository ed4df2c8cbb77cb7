#include "CommandParts.h"
#include "Commands.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/AContentSaver.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ITambApplicationCoreServices.h>
#include <TambVizCore/Utils.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace OrvikCommands {
namespace {

using OrvikCore::AContent;
using OrvikCore::AContentSaver;
using OrvikCore::Document;
using OrvikCore::SessionMgr;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::Utils;

constexpr char kSave[] = "doc:save";

/// @return the one content of that name.
/// @throws CommandError when there is none, or more than one.
AContent& contentNamed(const Document& document, const Value& name)
{
    std::string known;
    AContent* found = nullptr;
    bool isOnly = true;
    for (AContent* const content : document.GetContentList()) {
        if (content == nullptr)
            continue;
        known += (known.empty() ? "" : ", ") + Utils::WstringToString(content->GetShortId());
        if (content->GetShortId() != name.AsString())
            continue;
        isOnly = found == nullptr;
        found = content;
    }
    if (found == nullptr || !isOnly)
        throw WrongArgument(kSave, "name", "a name that one loaded file alone has (" + known + ")",
                            name);
    return *found;
}

/// Writes the first of some contents that can be written, and hands on what the savers had to say.
/// Error texts are those of Document::SaveContent.
/// @return the content that was written; null when none was.
AContent* saveFirst(const std::vector<AContent*>& contents, const std::wstring& path,
                    std::wstring& errorText)
{
    errorText = L"Could not save " + path + L". Saver for " + path + L" not registered.";
    for (AContent* const content : contents) {
        AContentSaver* const saver =
            content == nullptr ? nullptr : SessionMgr::Instance().GetContentSaver(content, path);
        if (saver == nullptr)
            continue;
        const bool isSaved = saver->Save(path, content);
        for (const std::wstring& warning : saver->GetWarningMessages())
            ApplicationServices().PrintWarningMessage(warning);
        if (isSaved)
            return content;
        errorText = L"Could not save " + path + L" : " + saver->GetErrorMessage();
    }
    return nullptr;
}

/// Says what a file does not hold.
void warnOfOthers(const std::vector<AContent*>& contents, AContent& saved, const std::wstring& path)
{
    std::wstring others;
    for (AContent* const content : contents)
        if (content != nullptr && content != &saved)
            others += (others.empty() ? L"" : L", ") + content->GetShortId();
    if (!others.empty())
        ApplicationServices().PrintWarningMessage(path + L": " + saved.GetShortId() +
                                                  L" was written; left out: " + others);
}

Value save(const Arguments& arguments)
{
    Document& document = Session().Document();
    const std::wstring path =
        InFolder(SessionMgr::Instance().GetDefaultOutputDirectory(), arguments["path"].AsString());
    if (!document.HasContent())
        throw std::runtime_error(Utils::WstringToString(path) +
                                 ": there is nothing to save, as nothing is loaded");
    std::vector<AContent*> contents = document.GetContentList();
    if (arguments.IsGiven("name"))
        contents.assign(1, &contentNamed(document, arguments["name"]));
    std::wstring errorText;
    AContent* saved = nullptr;
    {
        const OrvikOs::FpMasked coordinatesAreData;
        saved = saveFirst(contents, path, errorText);
    }
    if (saved != nullptr)
        warnOfOthers(contents, *saved, path);
    TambCommandsInfra::CancelToken::Instance().ThrowIfCancelled();
    if (saved == nullptr)
        throw std::runtime_error(Utils::WstringToString(errorText));
    return Value(true);
}

Command saveCommand()
{
    Command command;
    command.name = kSave;
    Parameter name;
    name.name = "name";
    name.type = ValueType::String;
    name.help = "which of several loaded files, as doc:contents names it; the first that can be "
                "written so when left out";
    name.presence = Presence::Optional;
    command.parameters = {PathParameter("path", "file to write; one that exists is replaced"),
                          name};
    command.result = ValueType::Bool;
    command.resultHelp = "#t; a file that cannot be written is an error";
    command.summary = "Writes what is loaded to a file.";
    command.help = "The format is known by the file's extension. A path that does not begin at the "
                   "root is meant in the default output directory. One loaded file is written, "
                   "never several into one; a warning names the others.";
    command.example = "(doc:save \"bracket.ply\")";
    command.effect = CommandEffect::Changes;
    command.handler = save;
    return command;
}

/// A command that does something to every content of the document, on the main thread.
Command stateCommand(const std::string& word, const std::string& summary, const std::string& help,
                     void (Document::*operation)())
{
    Command command;
    command.name = "doc:" + word;
    command.summary = summary;
    command.help = help;
    command.example = "(" + command.name + ")";
    command.effect = CommandEffect::Changes;
    command.handler = [operation](const Arguments&) {
        OrvikCore::ASession& session = Session();
        CallGate::Call([&] {
            (session.Document().*operation)();
            session.UpdateDisplay();
        });
        return Value();
    };
    return command;
}

} // namespace

void RegisterDocumentFileCommands(CommandTable& table)
{
    table.Register(saveCommand());
    table.Register(stateCommand("note-state", "Records the present state as an undo point.",
                                "doc:undo goes back to it. A model that cannot be edited has no "
                                "state of its own: nothing happens then.",
                                &Document::NoteState));
    table.Register(stateCommand("undo", "Goes back to the undo point before the present state.",
                                "Without one nothing happens.", &Document::Undo));
    table.Register(stateCommand("redo", "Takes the last doc:undo back.",
                                "Without one nothing happens.", &Document::Redo));
}

} // namespace OrvikCommands
