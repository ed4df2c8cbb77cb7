#ifndef TAMBCOMMANDSINFRA_COMMANDTEXT_H
#define TAMBCOMMANDSINFRA_COMMANDTEXT_H

#include "TambCommandsInfra/Command.h"

#include <cstddef>
#include <string>
#include <vector>

namespace TambCommandsInfra {

/// Gives the number of parameters that take exactly one value: all but a variadic last one.
std::size_t CountFixedParameters(const std::vector<Parameter>& parameters);

/// Gives the number of parameters that must be given.
std::size_t CountRequiredParameters(const std::vector<Parameter>& parameters);

/// Gives the shortest text that reads back as @p number, without regard to the locale.
std::string FormatNumber(double number);

/// Gives " from <min> to <max>", " of at least <min>", " of at most <max>" or an empty text.
std::string FormatLimits(const Parameter& parameter);

/// Gives @p value as a script would write it: true, 3, 2.5, "text", (1 2 3).
std::string FormatLiteral(const Value& value);

/// Checks that @p value fits @p parameter and converts it to the parameter's type.
///
/// @return false when it does not fit; @p value is then untouched.
bool ConvertValue(const Parameter& parameter, Value& value);

/// Checks a declaration.
///
/// @throws std::invalid_argument "The command \"<name>\" <what is wrong>."
void ValidateCommand(const Command& command);

} // namespace TambCommandsInfra

#endif
