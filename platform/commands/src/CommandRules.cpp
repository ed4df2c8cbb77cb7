#include "CommandText.h"

#include <algorithm>
#include <stdexcept>

namespace TambCommandsInfra {

namespace {

[[noreturn]] void refuse(const Command& command, const std::string& reason)
{
    throw std::invalid_argument("The command \"" + command.name + "\" " + reason + ".");
}

bool isNameCharacter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9') ||
           character == '-';
}

/// A word of small letters, digits and "-" that begins with a letter.
bool isWord(std::string_view text)
{
    return !text.empty() && text.front() >= 'a' && text.front() <= 'z' &&
           std::all_of(text.begin(), text.end(), isNameCharacter);
}

bool isSmall(char character)
{
    return character >= 'a' && character <= 'z';
}

bool isCapital(char character)
{
    return character >= 'A' && character <= 'Z';
}

/// "GROUP.getOtherName": the form of names that messages of the core name.
bool isDottedName(std::string_view name)
{
    const std::size_t dot = name.find('.');
    if (dot == std::string_view::npos || dot == 0) {
        return false;
    }
    const std::string_view group = name.substr(0, dot);
    const std::string_view own = name.substr(dot + 1);
    return std::all_of(group.begin(), group.end(), isCapital) && !own.empty() &&
           isSmall(own.front()) && std::all_of(own.begin(), own.end(), [](char character) {
               return isSmall(character) || isCapital(character);
           });
}

bool isCommandName(std::string_view name)
{
    const std::size_t colon = name.find(':');
    if (colon == std::string_view::npos) {
        return isDottedName(name);
    }
    std::string_view own = name.substr(colon + 1);
    if (own.ends_with('?') || own.ends_with('!')) {
        own.remove_suffix(1);
    }
    return isWord(name.substr(0, colon)) && isWord(own);
}

void checkTexts(const Command& command)
{
    const bool isOneLine = command.summary.find('\n') == std::string::npos;
    if (!isOneLine || !command.summary.ends_with('.')) {
        refuse(command, "needs a summary of one line that ends with a full stop");
    }
    if (command.example.find(command.name) == std::string::npos) {
        refuse(command, "needs an example that holds its name");
    }
    if (!command.handler) {
        refuse(command, "has no handler");
    }
    if (command.result != ValueType::Nothing && command.resultHelp.empty()) {
        refuse(command, "does not say what its result means");
    }
    if (command.result == ValueType::Nothing && !command.resultHelp.empty()) {
        refuse(command, "describes a result but gives none");
    }
}

void checkNaming(const Command& command)
{
    if (!isCommandName(command.name)) {
        refuse(command, "needs a name of the form \"family:name\" in small letters, digits and "
                        "\"-\", with \"?\" or \"!\" at most at the end, or of the form "
                        "\"GROUP.name\" in letters");
    }
    const bool changes = command.effect == CommandEffect::Changes;
    if (command.name.ends_with('?') && command.result != ValueType::Bool) {
        refuse(command, "is a predicate and must give a boolean");
    }
    if (command.name.ends_with('?') && changes) {
        refuse(command, "is a predicate and must not change anything");
    }
    if (command.name.ends_with('!') && !changes) {
        refuse(command, "is a mutator and must say that it changes something");
    }
}

void checkLimits(const Command& command, const Parameter& parameter, const std::string& quoted)
{
    const bool hasLimits = parameter.minimum || parameter.maximum;
    const bool isNumber = parameter.type == ValueType::Integer || parameter.type == ValueType::Real;
    if (hasLimits && !isNumber) {
        refuse(command, "gives limits to " + quoted + ", which is no number");
    }
    if (parameter.minimum && parameter.maximum && !(*parameter.minimum <= *parameter.maximum)) {
        refuse(command, "gives " + quoted + " limits that no number keeps");
    }
}

void checkDefault(const Command& command, const Parameter& parameter, const std::string& quoted)
{
    if (parameter.defaultValue.IsNil()) {
        return;
    }
    if (parameter.presence != Presence::Optional) {
        refuse(command, "gives a default to " + quoted + ", which is not optional");
    }
    Value value = parameter.defaultValue;
    if (!ConvertValue(parameter, value)) {
        refuse(command, "gives a default to " + quoted + " that does not fit it");
    }
}

void checkParameters(const Command& command)
{
    const std::vector<Parameter>& parameters = command.parameters;
    for (std::size_t index = 0; index < parameters.size(); ++index) {
        const Parameter& parameter = parameters[index];
        const std::string quoted = "the parameter \"" + parameter.name + "\"";
        if (!isWord(parameter.name)) {
            refuse(command, "needs small letters, digits and \"-\" in the name of " + quoted);
        }
        if (parameter.type == ValueType::Nothing) {
            refuse(command, "has no type for " + quoted);
        }
        if (parameter.help.empty() || parameter.help.find('\n') != std::string::npos) {
            refuse(command, "needs one line of help for " + quoted);
        }
        if (index > 0 && parameter.presence < parameters[index - 1].presence) {
            refuse(command, "has " + quoted + " out of order");
        }
        if (index > 0 && parameters[index - 1].presence == Presence::Variadic) {
            refuse(command, "has " + quoted + " after a variadic one");
        }
        const auto hasSameName = [&](const Parameter& other) {
            return other.name == parameter.name;
        };
        if (std::count_if(parameters.begin(), parameters.end(), hasSameName) > 1) {
            refuse(command, "has " + quoted + " twice");
        }
        checkLimits(command, parameter, quoted);
        checkDefault(command, parameter, quoted);
    }
}

} // namespace

void ValidateCommand(const Command& command)
{
    checkNaming(command);
    checkTexts(command);
    checkParameters(command);
}

} // namespace TambCommandsInfra
