#include "CommandParts.h"
#include "Commands.h"

#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ITambApplicationCoreServices.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Nullable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

using Services = ITambApplicationCoreServices;

struct FolderSetting
{
    const char* word; ///< In the commands' names: "input".
    const char* what; ///< In their texts: "files to read".
    Nullable<std::wstring> (Services::*get)();
    void (Services::*set)(const Nullable<std::wstring>& folder);
};

Command folderCommand(const FolderSetting& setting)
{
    Command command;
    command.name = std::string("app:default-") + setting.word + "-directory";
    command.result = ValueType::String;
    command.resultHelp = "the folder; \".\" is the one that the program was started in";
    command.summary =
        std::string("Tells the folder that names of ") + setting.what + " start from.";
    command.example = "(" + command.name + ")";
    command.handler = [get = setting.get](const Arguments&) {
        return Value((ApplicationServices().*get)().ValueOr(L"."));
    };
    return command;
}

Command setFolderCommand(const FolderSetting& setting)
{
    Command command;
    command.name = std::string("app:set-default-") + setting.word + "-directory!";
    Parameter folder;
    folder.name = "folder";
    folder.help = "the folder, or #f for \".\"";
    command.parameters = {folder};
    command.summary = std::string("Sets the folder that names of ") + setting.what + " start from.";
    command.help = "Names that begin at the root are left alone.";
    command.example = "(" + command.name + " \"models\")";
    command.effect = CommandEffect::Changes;
    command.handler = [set = setting.set, name = command.name](const Arguments& arguments) {
        const Value& given = arguments["folder"];
        const bool isText = given.GetKind() == Value::Kind::String && !given.AsString().empty();
        const bool isRestore = given.GetKind() == Value::Kind::Bool && !given.AsBool();
        if (!isRestore && !isText)
            throw WrongArgument(name, "folder", "a path, or #f", given);
        Nullable<std::wstring> chosen;
        if (isText)
            chosen = given.AsString();
        (ApplicationServices().*set)(chosen);
        return Value();
    };
    return command;
}

Command pauseCommand()
{
    Command command;
    command.name = "app:pause";
    command.parameters = {SwitchParameter("pause", "#t pauses, #f goes on; #t when left out")};
    command.summary = "Pauses the application until somebody lets it go on.";
    command.help = "Nothing happens where nobody sits before the program, as in a batch run.";
    command.example = "(app:pause)";
    command.handler = [](const Arguments& arguments) {
        ApplicationServices().Pause(arguments["pause"].AsBool());
        return Value();
    };
    return command;
}

Parameter textParameter(const std::string& name, const std::string& help)
{
    Parameter parameter;
    parameter.name = name;
    parameter.type = ValueType::String;
    parameter.help = help;
    return parameter;
}

Command toolTipCommand()
{
    Command command;
    command.name = "app:show-tool-tip";
    command.parameters = {textParameter("text", "what to show; an empty text shows none")};
    command.summary = "Shows a text beside the mouse in the view.";
    command.example = "(app:show-tool-tip \"a hole\")";
    command.handler = [](const Arguments& arguments) {
        ApplicationServices().SetTooltip(arguments["text"].AsString());
        return Value();
    };
    return command;
}

Parameter listParameter(const std::string& name, const std::string& help)
{
    Parameter parameter;
    parameter.name = name;
    parameter.type = ValueType::List;
    parameter.help = help;
    return parameter;
}

/// @throws CommandError for a list that holds anything but strings.
std::vector<std::wstring> textsOf(const std::string& command, const char* parameter,
                                  const Value& list)
{
    std::vector<std::wstring> texts;
    for (const Value& text : list.AsList()) {
        if (text.GetKind() != Value::Kind::String)
            throw WrongArgument(command, parameter, "a list of strings", text);
        texts.push_back(text.AsString());
    }
    return texts;
}

Command addCompletionsCommand()
{
    Command command;
    command.name = "app:add-completions";
    command.parameters = {listParameter("names", "what the console is to complete"),
                          listParameter("descriptions", "one text for each name"),
                          textParameter("group", "what they belong to")};
    command.summary = "Teaches the console names of procedures that a script defines.";
    command.example = "(app:add-completions '(\"fit\") '(\"Shows everything.\") \"short names\")";
    command.handler = [](const Arguments& arguments) {
        const std::string name = "app:add-completions";
        const auto names = textsOf(name, "names", arguments["names"]);
        const auto descriptions = textsOf(name, "descriptions", arguments["descriptions"]);
        if (names.size() != descriptions.size())
            throw WrongArgument(name, "descriptions", "as many as there are names",
                                arguments["descriptions"]);
        ApplicationServices().AddExtensionInfo(names, descriptions, arguments["group"].AsString());
        return Value();
    };
    return command;
}

Command addMembersCommand()
{
    Command command;
    command.name = "app:add-members";
    command.parameters = {listParameter("names", "the members of the object"),
                          textParameter("object", "its name")};
    command.summary = "Teaches the console the members of an object that a script defines.";
    command.example = "(app:add-members '(\"width\" \"height\") \"part\")";
    command.handler = [](const Arguments& arguments) {
        ApplicationServices().AddObjectInfo(textsOf("app:add-members", "names", arguments["names"]),
                                            arguments["object"].AsString());
        return Value();
    };
    return command;
}

} // namespace

void RegisterSettingsCommands(CommandTable& table)
{
    for (const FolderSetting& setting : std::initializer_list<FolderSetting>{
             {"input", "files to read", &Services::GetDefaultInputDirectory,
              &Services::SetDefaultInputDirectory},
             {"output", "files to write", &Services::GetDefaultOutputDirectory,
              &Services::SetDefaultOutputDirectory}}) {
        table.Register(folderCommand(setting));
        table.Register(setFolderCommand(setting));
    }
    table.Register(pauseCommand());
    table.Register(toolTipCommand());
    table.Register(addCompletionsCommand());
    table.Register(addMembersCommand());
}

} // namespace OrvikCommands
