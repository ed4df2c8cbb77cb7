#ifndef TAMBCOMMANDSINFRA_COMMANDTABLE_H
#define TAMBCOMMANDSINFRA_COMMANDTABLE_H

#include "TambCommandsInfra/Command.h"
#include "TambCommandsInfra/CommandError.h"
#include "TambCommandsInfra/Export.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace TambCommandsInfra {

/// All commands of the script language, declared once for every engine.
///
/// Feeds the engines' bindings, completion, help, the reference and the checks of arguments.
/// Command plugins register, everybody else looks up. Commands are never removed; what a look-up
/// gives stays valid as long as it is held. The process uses one table, Instance(); tests may make
/// their own.
///
/// @thread  Any thread. No lock is held while a handler runs.
class TAMBCOMMANDSINFRA_API CommandTable
{
public:
    CommandTable();
    ~CommandTable();

    CommandTable(const CommandTable&) = delete;
    CommandTable& operator=(const CommandTable&) = delete;

    /// Gives the table of the process.
    static CommandTable& Instance();

    /// Adds a command.
    ///
    /// @throws std::invalid_argument "The command \"<name>\" is registered already." for a taken
    /// name.
    /// @throws std::invalid_argument "The command \"<name>\" <what is wrong>." when the declaration
    /// breaks a rule of
    ///         Command or Parameter: the form of the name, a missing summary, example, handler or
    ///         help of a parameter, parameters out of order or of the same name, a default of
    ///         another type, a predicate whose result is not a boolean or that changes something, a
    ///         mutator that changes nothing. The table is then as before.
    void Register(Command command);

    /// Gives a family ("view") its title in the reference ("View and camera"); a later title
    /// replaces an earlier one.
    void DescribeFamily(const std::string& family, const std::string& title);

    /// Gives the command @p name, or null.
    std::shared_ptr<const Command> Find(std::string_view name) const;

    /// Gives all names in alphabetical order of their bytes.
    std::vector<std::string> Names() const;

    /// Gives the names that begin with @p prefix, in alphabetical order; all names for the empty
    /// one.
    std::vector<std::string> Complete(std::string_view prefix) const;

    /// Gives the names of the commands whose name, summary or help holds @p text, upper and lower
    /// case of ASCII alike: first those whose name holds it, then the others, each in alphabetical
    /// order. None for the empty text.
    std::vector<std::string> Apropos(std::string_view text) const;

    /// Gives the name that @p name was most likely meant to be, or an empty text; see
    /// FindNearestName().
    std::string Suggest(std::string_view name) const;

    /// Checks the arguments and carries the command out.
    ///
    /// @throws CommandError "Unknown command \"<name>\"." or "Unknown command \"<name>\"; did you
    /// mean \"<other>\"?"
    /// @throws CommandError for the arguments, see CheckArguments(); what the handler throws comes
    /// through unchanged.
    Value Run(std::string_view name, std::vector<Value> arguments) const;

    /// Checks and converts the arguments of a call.
    ///
    /// @param command    Not owned; outlives the result.
    /// @param arguments  What the caller has given, in order.
    /// @throws CommandError "<command>: expected <n> arguments, got <m>." ("no arguments", "1
    /// argument", "at least <n>
    ///         arguments", "<n> to <m> arguments"; where one is missing also " Missing:
    ///         \"<parameter>\" (<type>).").
    /// @throws CommandError "<command>: parameter \"<parameter>\": expected <what>, got <what>." ;
    /// expected texts:
    ///         "true or false", "an integer", "a number", "a string", "a path", "a vector (three
    ///         numbers)", "a point (three numbers)", "a list", "an entity", each with " from <min>
    ///         to <max>", " of at least <min>" or " of at most <max>" where limited and " in
    ///         <unit>" where there is a unit.
    static Arguments CheckArguments(const Command& command, std::vector<Value> arguments);

    /// Gives the form of a call: "view:zoom-to-box x-min y-min", optional parameters in brackets, a
    /// variadic one followed by "...".
    static std::string Signature(const Command& command);

    /// Gives the whole help of a command as plain lines, each ended by "\n".
    static std::string HelpText(const Command& command);

    /// Gives the reference of all commands in Markdown: a heading for each family, under it each
    /// command with its form, summary, parameters, result, help and example. Depends on the
    /// commands only, not on the order of their registration; ends with a line end.
    std::string MarkdownReference() const;

private:
    std::vector<std::shared_ptr<const Command>> sorted() const;
    std::string familyTitle(const std::string& family) const;

    mutable std::mutex m_mutex; ///< Guards both maps; held for look-ups only.
    std::map<std::string, std::shared_ptr<const Command>, std::less<>> m_commands; ///< By name.
    std::map<std::string, std::string> m_families; ///< Titles by family.
};

} // namespace TambCommandsInfra

#endif
