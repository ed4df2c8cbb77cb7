#include "CommandParts.h"
#include "Commands.h"
#include "EntityObject.h"
#include "EntityParts.h"
#include "InputParts.h"

#include <OrvikCore/IInputQueue.h>
#include <OrvikCore/INavigation.h>
#include <OrvikCore/KeyEventArgs.h>
#include <OrvikCore/MouseGesture.h>
#include <TambCommandsInfra/CommandError.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/EntityId.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace OrvikCommands {
namespace {

using OrvikCore::IInputQueue;
using OrvikCore::KeyEventArgs;
using OrvikCore::MouseButton;
using OrvikCore::MouseGesture;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

/// @return the number of a key; nothing for an unknown name.
std::optional<int> keyNumber(const std::wstring& name)
{
    if (name == L"Escape")
        return KeyEventArgs::kEscape;
    if (name == L"Shift")
        return KeyEventArgs::kShift;
    if (name == L"Ctrl")
        return KeyEventArgs::kCtrl;
    if (name == L"Alt")
        return KeyEventArgs::kAlt;
    if (name.size() != 1 || name[0] < L' ' || name[0] > L'~')
        return std::nullopt;
    const bool isSmall = name[0] >= L'a' && name[0] <= L'z';
    return static_cast<int>(isSmall ? name[0] - L'a' + L'A' : name[0]);
}

/// The modifier keys held, then "-" and the name of the key.
KeyEventArgs keyArgument(const std::string& command, const Arguments& arguments, bool isUp)
{
    const std::wstring& text = arguments["key"].AsString();
    // The key may be "-" itself.
    const std::size_t dash =
        text.size() < 2 ? std::wstring::npos : text.rfind(L'-', text.size() - 2);
    const std::wstring keys = dash == std::wstring::npos ? std::wstring() : text.substr(0, dash);
    const auto number = keyNumber(dash == std::wstring::npos ? text : text.substr(dash + 1));
    MouseGesture held;
    if (!number || !MouseGesture::FromText(keys, held) || held.buttons != MouseButton::None ||
        (dash != std::wstring::npos && keys.empty()))
        throw WrongArgument(command, "key",
                            "a character, Escape, Shift, Ctrl or Alt, behind modifier keys such as "
                            "\"Ctrl-Shift-f\"",
                            arguments["key"]);
    return KeyEventArgs(*number, isUp, held.modifiers);
}

Command keyCommand()
{
    Command command;
    command.name = "input:key";
    command.parameters = {
        WordParameter("key", "\"Escape\", \"f\", \"Ctrl-Shift-f\""),
        OptionalWord("state", "press, release, or both one after the other", L"both")};
    command.summary = "Presses or releases a key over the view.";
    command.help = kWhenEventsAct;
    command.example = "(input:key \"Escape\")";
    command.handler = [name = command.name](const Arguments& arguments) {
        const std::wstring& state = arguments["state"].AsString();
        if (state != L"press" && state != L"release" && state != L"both")
            throw WrongArgument(name, "state", "press, release or both", arguments["state"]);
        const KeyEventArgs press = keyArgument(name, arguments, false);
        const KeyEventArgs release = keyArgument(name, arguments, true);
        return PostEvents([&](IInputQueue& queue) {
            if (state != L"release")
                queue.PostKey(press);
            if (state != L"press")
                queue.PostKey(release);
        });
    };
    return command;
}

Command menuCommand()
{
    Command command;
    command.name = "input:menu";
    command.parameters = {WordParameter("item", "its text; \"&\" may be left out"),
                          EntityParameter("entity", "what the row stands for")};
    command.summary = "Chooses an item in the context menu of a row of the model tree.";
    command.help = kWhenEventsAct;
    command.example = "(input:menu \"Hide node\" (entity:body (car (sel:get))))";
    command.handler = [name = command.name](const Arguments& arguments) {
        const TambVizCore::EntityId entity = EntityArgument(name, "entity", arguments["entity"]);
        return PostEvents(
            [&](IInputQueue& queue) { queue.PostMenuItem(arguments["item"].AsString(), entity); });
    };
    return command;
}

Command navigationCommand()
{
    Command command;
    command.name = "app:navigation";
    Parameter name = WordParameter("name", "what to use from now on; left out, nothing changes");
    name.presence = Presence::Optional;
    command.parameters = {name};
    command.result = ValueType::String;
    command.resultHelp = "the name of what is in use";
    command.summary = "Chooses what the mouse does in the view.";
    command.help = "There are default, left-rotates, middle-rotates and right-rotates, and custom "
                   "where the configuration has rows in [navigation].";
    command.example = "(app:navigation \"middle-rotates\")";
    command.effect = CommandEffect::Changes;
    command.handler = [self = command.name](const Arguments& arguments) {
        return CallGate::Call([&] {
            OrvikCore::INavigation& navigation = *InputProvider().GetNavigationChoice();
            if (arguments.IsGiven("name") &&
                !navigation.SetNavigation(arguments["name"].AsString())) {
                std::string names;
                for (const std::wstring& known : navigation.ListNavigations())
                    names += (names.empty() ? "" : ", ") + Value(known).AsUtf8();
                throw WrongArgument(self, "name", "one of " + names, arguments["name"]);
            }
            return Value(navigation.GetNavigation());
        });
    };
    return command;
}

/// @throws CommandError for what is no list of two words each.
std::vector<std::pair<std::wstring, std::wstring>> rowsOf(const std::string& self,
                                                          const Value& value)
{
    std::vector<std::pair<std::wstring, std::wstring>> rows;
    for (const Value& row : value.AsList()) {
        const bool isPair = row.GetKind() == Value::Kind::List && row.AsList().size() == 2 &&
                            row.AsList()[0].GetKind() == Value::Kind::String &&
                            row.AsList()[1].GetKind() == Value::Kind::String;
        if (!isPair)
            throw WrongArgument(self, "rows", "a list of pairs of words", value);
        rows.emplace_back(row.AsList()[0].AsString(), row.AsList()[1].AsString());
    }
    return rows;
}

Command navigationTableCommand()
{
    Command command;
    command.name = "app:navigation-table";
    Parameter rows;
    rows.name = "rows";
    rows.type = ValueType::List;
    rows.help = "lists of buttons and action, such as (\"Ctrl-left\" \"pan\")";
    Parameter preset = WordParameter("preset", "what the rows lie over, \"default\" if left out");
    preset.presence = Presence::Optional;
    command.parameters = {rows, preset};
    command.result = ValueType::String;
    command.resultHelp = "the name of what is in use";
    command.summary = "Makes a table of what the mouse does, and uses it as \"custom\".";
    command.help = "Buttons are left, middle and right joined by +, behind Ctrl-, Shift- and Alt-. "
                   "Actions are rotate, pan, zoom, window-zoom, select, add and none. Over the "
                   "default the rows stand alone. Without rows the preset is used.";
    command.example = "(app:navigation-table '((\"right\" \"rotate\")) \"left-rotates\")";
    command.effect = CommandEffect::Changes;
    command.handler = [self = command.name](const Arguments& arguments) {
        const auto wanted = rowsOf(self, arguments["rows"]);
        return CallGate::Call([&] {
            OrvikCore::INavigation& navigation = *InputProvider().GetNavigationChoice();
            std::wstring reason;
            if (!navigation.SetRows(wanted,
                                    arguments.IsGiven("preset") ? arguments["preset"].AsString()
                                                                : std::wstring(L"default"),
                                    reason))
                throw TambCommandsInfra::CommandError(self + ": " + Value(reason).AsUtf8());
            return Value(navigation.GetNavigation());
        });
    };
    return command;
}

} // namespace

void RegisterInputCommands(CommandTable& table)
{
    table.Register(keyCommand());
    table.Register(menuCommand());
    table.Register(navigationCommand());
    table.Register(navigationTableCommand());
}

} // namespace OrvikCommands
