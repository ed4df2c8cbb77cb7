#include "TambCommandsInfra/CommandTable.h"

#include "AsciiText.h"
#include "CommandText.h"
#include "TambCommandsInfra/ICommandJournal.h"
#include "TambCommandsInfra/NearestName.h"

#include <stdexcept>
#include <utility>

namespace TambCommandsInfra {

namespace {

/// Tells the journal when a command has ended, also by an exception: what fails may have changed
/// something before.
class NoteAtEnd
{
public:
    NoteAtEnd(const Command& command, const Arguments& arguments)
        : m_command(command), m_arguments(arguments)
    {
    }
    ~NoteAtEnd()
    {
        if (ICommandJournal* const journal = GetCommandJournal()) {
            journal->NoteCommand(m_command, m_arguments);
        }
    }
    NoteAtEnd(const NoteAtEnd&) = delete;
    NoteAtEnd& operator=(const NoteAtEnd&) = delete;

private:
    const Command& m_command;
    const Arguments& m_arguments;
};

} // namespace

CommandTable::CommandTable() = default;
CommandTable::~CommandTable() = default;

CommandTable& CommandTable::Instance()
{
    // Never destroyed: handlers live in plugins, and a stuck worker may still look up.
    static CommandTable& table = *new CommandTable;
    return table;
}

void CommandTable::Register(Command command)
{
    ValidateCommand(command);
    for (Parameter& parameter : command.parameters) {
        if (!parameter.defaultValue.IsNil()) {
            ConvertValue(parameter, parameter.defaultValue);
        }
    }
    auto added = std::make_shared<const Command>(std::move(command));

    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_commands.emplace(added->name, added).second) {
        throw std::invalid_argument("The command \"" + added->name + "\" is registered already.");
    }
}

void CommandTable::DescribeFamily(const std::string& family, const std::string& title)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_families[family] = title;
}

std::shared_ptr<const Command> CommandTable::Find(std::string_view name) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_commands.find(name);
    return found == m_commands.end() ? nullptr : found->second;
}

std::vector<std::string> CommandTable::Names() const
{
    return Complete({});
}

std::vector<std::string> CommandTable::Complete(std::string_view prefix) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> names;
    for (auto entry = m_commands.lower_bound(prefix);
         entry != m_commands.end() && entry->first.starts_with(prefix); ++entry) {
        names.push_back(entry->first);
    }
    return names;
}

std::vector<std::string> CommandTable::Apropos(std::string_view text) const
{
    std::vector<std::string> byName;
    std::vector<std::string> byText;
    const std::string wanted = ToLowerAscii(text);
    if (wanted.empty()) {
        return byName;
    }
    for (const std::shared_ptr<const Command>& command : sorted()) {
        const std::string texts = ToLowerAscii(command->summary + "\n" + command->help);
        if (ToLowerAscii(command->name).find(wanted) != std::string::npos) {
            byName.push_back(command->name);
        } else if (texts.find(wanted) != std::string::npos) {
            byText.push_back(command->name);
        }
    }
    byName.insert(byName.end(), byText.begin(), byText.end());
    return byName;
}

std::string CommandTable::Suggest(std::string_view name) const
{
    return FindNearestName(name, Names());
}

Value CommandTable::Run(std::string_view name, std::vector<Value> arguments) const
{
    const std::shared_ptr<const Command> command = Find(name);
    if (!command) {
        const std::string suggestion = Suggest(name);
        const std::string unknown = "Unknown command \"" + std::string(name) + "\"";
        throw CommandError(suggestion.empty() ? unknown + "."
                                              : unknown + "; did you mean \"" + suggestion + "\"?");
    }
    const Arguments checked = CheckArguments(*command, std::move(arguments));
    const NoteAtEnd note(*command, checked);
    return command->handler(checked);
}

std::vector<std::shared_ptr<const Command>> CommandTable::sorted() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::shared_ptr<const Command>> commands;
    commands.reserve(m_commands.size());
    for (const auto& [name, command] : m_commands) {
        commands.push_back(command);
    }
    return commands;
}

std::string CommandTable::familyTitle(const std::string& family) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_families.find(family);
    return found == m_families.end() ? std::string() : found->second;
}

} // namespace TambCommandsInfra
