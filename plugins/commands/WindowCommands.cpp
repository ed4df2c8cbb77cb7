#include "CommandParts.h"
#include "Commands.h"

#include <OrvikCore/IApplication.h>
#include <OrvikCore/IHostWindow.h>
#include <OrvikCore/SessionMgr.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/Utils.h>

#include <stdexcept>

namespace OrvikCommands {
namespace {

using OrvikCore::IHostWindow;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::Utils;

/// Exit codes that every system can hand on.
constexpr double kMaxExitCode = 255;

/// @throws std::runtime_error "This program has no window.". Main thread.
IHostWindow& hostWindow()
{
    const auto* const provider = dynamic_cast<OrvikCore::IHostWindowProvider*>(
        OrvikCore::SessionMgr::Instance().GetApplication());
    IHostWindow* const window = provider == nullptr ? nullptr : provider->GetHostWindow();
    if (window == nullptr)
        throw std::runtime_error("This program has no window.");
    return *window;
}

Command panelsCommand()
{
    Command command;
    command.name = "app:panels";
    command.result = ValueType::List;
    command.resultHelp = "the names of all panels, also of those that are hidden";
    command.summary = "Lists what the window can show beside the view.";
    command.example = "(app:panels)";
    command.handler = [](const Arguments&) {
        return CallGate::Call([] {
            Value::List names;
            for (const std::wstring& name : hostWindow().ListPanels())
                names.push_back(Value(name));
            return Value(std::move(names));
        });
    };
    return command;
}

Command showPanelCommand()
{
    Command command;
    command.name = "app:show-panel";
    Parameter name;
    name.name = "name";
    name.type = ValueType::String;
    name.help = "one of those that app:panels lists";
    command.parameters = {name, SwitchParameter("show", "#t shows, #f hides; #t when left out")};
    command.summary = "Shows or hides what the window has beside the view.";
    command.example = "(app:show-panel \"console\")";
    command.handler = [self = command.name](const Arguments& arguments) {
        CallGate::Call([&] {
            IHostWindow& window = hostWindow();
            if (window.ShowPanel(arguments["name"].AsString(), arguments["show"].AsBool()))
                return;
            std::string names;
            for (const std::wstring& known : window.ListPanels())
                names += (names.empty() ? "" : ", ") + Utils::WstringToString(known);
            throw WrongArgument(self, "name", "one of " + names, arguments["name"]);
        });
        return Value();
    };
    return command;
}

Command resetLayoutCommand()
{
    Command command;
    command.name = "app:reset-layout";
    command.summary = "Puts the panels of the window where they were at the very first start.";
    command.example = "(app:reset-layout)";
    command.handler = [](const Arguments&) {
        CallGate::Call([] { hostWindow().ResetLayout(); });
        return Value();
    };
    return command;
}

Command watchCommand()
{
    Command command;
    command.name = "app:watch";
    command.parameters = {SwitchParameter("on", "#t when left out")};
    command.summary = "Chooses whether files are read again when they change.";
    command.help = "A file that is being written is read once it rests. The camera and the "
                   "sections stay; see doc:reload.";
    command.example = "(app:watch #t)";
    command.handler = [](const Arguments& arguments) {
        CallGate::Call([&] { hostWindow().SetWatching(arguments["on"].AsBool()); });
        return Value();
    };
    return command;
}

Command copyImageCommand()
{
    Command command;
    command.name = "view:copy-image";
    command.parameters = {PictureSideParameter("width"), PictureSideParameter("height")};
    command.summary = "Puts a picture of the view into the clipboard.";
    command.example = "(view:copy-image 1920 1080)";
    command.handler = [](const Arguments& arguments) {
        const auto side = [&arguments](const char* name) {
            return arguments.IsGiven(name) ? static_cast<int>(arguments[name].AsInteger()) : 0;
        };
        CallGate::Call([&] {
            std::wstring reason;
            if (!hostWindow().CopyImage(side("width"), side("height"), &reason))
                throw std::runtime_error(Utils::WstringToString(reason));
        });
        return Value();
    };
    return command;
}

Command quitCommand()
{
    Command command;
    command.name = "app:quit";
    Parameter code;
    code.name = "code";
    code.type = ValueType::Integer;
    code.help = "exit code of the program; 0 is good";
    code.presence = Presence::Optional;
    code.defaultValue = Value(0);
    code.minimum = 0.0;
    code.maximum = kMaxExitCode;
    command.parameters = {code};
    command.summary = "Ends the program once the command has run.";
    command.example = "(app:quit)";
    command.handler = [](const Arguments& arguments) {
        CallGate::Call([&] {
            if (OrvikCore::IApplication* const application =
                    OrvikCore::SessionMgr::Instance().GetApplication())
                application->Quit(static_cast<int>(arguments["code"].AsInteger()));
        });
        return Value();
    };
    return command;
}

} // namespace

// None of them changes model or view, so no journal holds them: a program without a window can
// replay what one with a window has done.
void RegisterWindowCommands(CommandTable& table)
{
    table.Register(panelsCommand());
    table.Register(showPanelCommand());
    table.Register(resetLayoutCommand());
    table.Register(watchCommand());
    table.Register(copyImageCommand());
    table.Register(quitCommand());
}

} // namespace OrvikCommands
