#ifndef TAMBCOMMANDSINFRA_COMMAND_H
#define TAMBCOMMANDSINFRA_COMMAND_H

#include "TambCommandsInfra/Export.h"
#include "TambCommandsInfra/Value.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace TambCommandsInfra {

/// What a parameter takes, and what a command gives.
enum class ValueType : int
{
    Nothing = 0, ///< Only as a result: the command gives nothing.
    Bool = 1,    ///< true or false.
    Integer = 2, ///< A whole number; a real number without fraction is taken as one.
    Real = 3,    ///< A finite number; whole numbers become real ones.
    String = 4,  ///< A text.
    Path = 5,    ///< A text that names a file or folder; not empty.
    Vector = 6,  ///< A direction: a list of three finite numbers, which become real ones.
    Point = 7,   ///< A place: the same form as a direction.
    List = 8,    ///< A list of anything.
    Entity = 9,  ///< An object of type "entity".
    Any = 10,    ///< Whatever is given.
};

/// Whether an argument must be given.
enum class Presence : int
{
    Required = 0, ///< Must be given.
    Optional = 1, ///< May be left out at the end; the default takes its place.
    Variadic = 2, ///< Only the last parameter: takes all further arguments, also none.
};

/// What a command does to the application; commands that change something go to the journal.
enum class CommandEffect : int
{
    Reads = 0,   ///< Changes nothing that a replay must repeat.
    Changes = 1, ///< Changes the document, the view, a setting or a file.
};

/// One parameter of a command.
struct Parameter
{
    std::string name;                ///< Lower-case words joined by "-": "x-min".
    ValueType type = ValueType::Any; ///< Not Nothing.
    std::string help;                ///< One short line in UTF-8: "smallest x of the box".
    std::string unit = {};           ///< "pixels", "degrees", "world units", ...; empty for none.
    Presence presence =
        Presence::Required;  ///< Required ones come first, then optional, then variadic.
    Value defaultValue = {}; ///< For an optional one; nil when the command decides itself.
    std::optional<double> minimum = {}; ///< Smallest number allowed, for Integer and Real.
    std::optional<double> maximum = {}; ///< Largest number allowed, for Integer and Real.
};

/// The checked arguments of one call: one value for each parameter, of the parameter's type,
/// defaults filled in; then the variadic ones.
///
/// @thread  The thread of the call.
class TAMBCOMMANDSINFRA_API Arguments
{
public:
    /// @param names   The parameters' names; not owned, outlives this object.
    /// @param values  Their values, then further ones of a variadic last parameter.
    /// @param given   How many arguments the caller has given.
    Arguments(const std::vector<Parameter>& parameters, std::vector<Value> values,
              std::size_t given);

    /// Gives the value at a position, counted from 0. Valid as long as this object.
    ///
    /// @throws std::logic_error "There is no argument at position <index>."
    const Value& operator[](std::size_t index) const;

    /// Gives the value of a parameter; not for a variadic one. Valid as long as this object.
    ///
    /// @throws std::logic_error "There is no parameter \"<name>\"."
    const Value& operator[](std::string_view name) const;

    /// Tells whether the caller has given the parameter, as opposed to its default having taken its
    /// place.
    bool IsGiven(std::string_view name) const;

    /// Gives the values of a variadic last parameter; empty without one.
    std::vector<Value> Rest() const;

    /// Gives the number of values, defaults and variadic ones included.
    std::size_t Size() const;

private:
    std::size_t find(std::string_view name) const;

    const std::vector<Parameter>& m_parameters; ///< Not owned.
    std::vector<Value> m_values;                ///< Fixed ones, then variadic ones.
    std::size_t m_given;                        ///< Number that the caller has given.
};

/// Carries a command out: takes checked arguments, gives a result.
///
/// Runs on the worker, inside a job; may throw any std::exception, whose text reaches the user.
using CommandHandler = std::function<Value(const Arguments& arguments)>;

/// A command of the script language, the same for every engine. All texts are UTF-8.
struct Command
{
    /// "family:verb-noun"; predicates end in "?", mutators in "!". "GROUP.verbNoun" where a message
    /// of the core names the command so.
    std::string name;
    std::vector<Parameter> parameters;     ///< In the order of the call.
    ValueType result = ValueType::Nothing; ///< What the command gives.
    std::string resultHelp; ///< What that means; empty exactly when it gives nothing.
    std::string summary;    ///< One line, ends with a full stop.
    std::string help;       ///< Further sentences; may be empty, may hold line ends.
    std::string example;    ///< A call that works, holding the name: "(view:iso)".
    CommandEffect effect =
        CommandEffect::Reads; ///< Changes for every mutator, Reads for every predicate.
    CommandHandler handler;   ///< Never empty in a registered command.
};

/// Names a type for people: "nothing", "boolean", "integer", "number", "string", "path", "vector",
/// "point", "list", "entity", "value".
TAMBCOMMANDSINFRA_API const char* ValueTypeName(ValueType type);

} // namespace TambCommandsInfra

#endif
