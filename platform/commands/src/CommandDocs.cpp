#include "CommandText.h"
#include "TambCommandsInfra/CommandTable.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>

namespace TambCommandsInfra {

namespace {

/// A text inside a cell of a Markdown table.
std::string cell(const std::string& text)
{
    std::string escaped;
    for (const char character : text) {
        if (character == '|') {
            escaped += '\\';
        }
        escaped += character;
    }
    return escaped;
}

/// "integer from 0 to 255 in pixels"
std::string typeText(const Parameter& parameter)
{
    return ValueTypeName(parameter.type) + FormatLimits(parameter) +
           (parameter.unit.empty() ? "" : " in " + parameter.unit);
}

/// "required", "optional, else 255", "any number of times"
std::string presenceText(const Parameter& parameter)
{
    if (parameter.presence == Presence::Required) {
        return "required";
    }
    if (parameter.presence == Presence::Variadic) {
        return "any number of times";
    }
    return parameter.defaultValue.IsNil()
               ? std::string("optional")
               : "optional, else " + FormatLiteral(parameter.defaultValue);
}

/// "Gives nothing.", "Gives list: the six sides of the box."
std::string resultText(const Command& command)
{
    std::string text = std::string("Gives ") + ValueTypeName(command.result);
    if (command.result != ValueType::Nothing) {
        text += ": " + command.resultHelp;
    }
    return text.ends_with('.') ? text : text + ".";
}

/// The name's first word, with the ":" or "." that ends it: "view:", "WEND.".
std::string familyOf(const std::string& name)
{
    return name.substr(0, name.find_first_of(":.") + 1);
}

std::string parameterTable(const Command& command)
{
    if (command.parameters.empty()) {
        return {};
    }
    std::string text = "| Parameter | Type | Given | Meaning |\n|---|---|---|---|\n";
    for (const Parameter& parameter : command.parameters) {
        text += "| `" + parameter.name + "` | " + cell(typeText(parameter)) + " | " +
                cell(presenceText(parameter)) + " | " + cell(parameter.help) + " |\n";
    }
    return text + "\n";
}

std::string commandSection(const Command& command)
{
    std::string text = "### " + command.name + "\n\n";
    text += "`" + CommandTable::Signature(command) + "`\n\n";
    text += command.summary + "\n\n";
    if (!command.help.empty()) {
        text += command.help + "\n\n";
    }
    text += parameterTable(command);
    text += resultText(command) + "\n\n";
    text += "```\n" + command.example + "\n```\n";
    return text;
}

std::string escapeString(const std::wstring& value)
{
    std::string text = "\"";
    for (const char character : OrvikOs::WideToUtf8(value)) {
        if (character == '"' || character == '\\') {
            text += '\\';
        }
        text += character;
    }
    return text + "\"";
}

} // namespace

std::string FormatLiteral(const Value& value)
{
    switch (value.GetKind()) {
    case Value::Kind::Nil:
        return "nothing";
    case Value::Kind::Bool:
        return value.AsBool() ? "true" : "false";
    case Value::Kind::Integer:
        return std::to_string(value.AsInteger());
    case Value::Kind::Real:
        return FormatNumber(value.AsReal());
    case Value::Kind::String:
        return escapeString(value.AsString());
    case Value::Kind::List: {
        std::string text = "(";
        for (const Value& element : value.AsList()) {
            text += (text.size() > 1 ? " " : "") + FormatLiteral(element);
        }
        return text + ")";
    }
    case Value::Kind::Object:
        return OrvikOs::WideToUtf8(value.AsObject()->Describe());
    }
    return {};
}

std::string CommandTable::Signature(const Command& command)
{
    std::string text = command.name;
    for (const Parameter& parameter : command.parameters) {
        switch (parameter.presence) {
        case Presence::Required:
            text += " " + parameter.name;
            break;
        case Presence::Optional:
            text += " [" + parameter.name + "]";
            break;
        case Presence::Variadic:
            text += " " + parameter.name + "...";
            break;
        }
    }
    return text;
}

std::string CommandTable::HelpText(const Command& command)
{
    std::string text = Signature(command) + "\n" + command.summary + "\n";
    if (!command.help.empty()) {
        text += command.help + "\n";
    }
    std::size_t width = 0;
    for (const Parameter& parameter : command.parameters) {
        width = std::max(width, parameter.name.size());
    }
    for (const Parameter& parameter : command.parameters) {
        text += "  " + parameter.name + std::string(width - parameter.name.size() + 2, ' ') +
                parameter.help + " (" + typeText(parameter) + ", " + presenceText(parameter) +
                ")\n";
    }
    text += resultText(command) + "\n";
    text += "Example: " + command.example + "\n";
    return text;
}

std::string CommandTable::MarkdownReference() const
{
    std::string text = "# Commands\n\n"
                       "This page is generated from the command table; changes made here are lost. "
                       "Optional parameters stand\nin brackets, \"...\" follows a parameter that "
                       "may be given any number of times.\n";
    std::string family;
    for (const std::shared_ptr<const Command>& command : sorted()) {
        if (familyOf(command->name) != family) {
            family = familyOf(command->name);
            const std::string title = familyTitle(family.substr(0, family.size() - 1));
            text += "\n## " + family + (title.empty() ? "" : " " + title) + "\n";
        }
        text += "\n" + commandSection(*command);
    }
    return text;
}

} // namespace TambCommandsInfra
