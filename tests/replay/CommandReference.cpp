#include "CommandReference.h"

#include "BatchProcess.h"

#include <fstream>

namespace {

/// Takes the cells of a row "| `name` | type ... | given | meaning |" of parameters.
void readParameter(const std::string& line, CommandEntry& entry)
{
    const std::size_t type = line.find("` | ") + 4;
    entry.types.push_back(line.substr(type, line.find(' ', type) - type));
    entry.required += line.find(" | required | ", type) != std::string::npos ? 1 : 0;
}

} // namespace

std::vector<CommandEntry> ReadCommandReference()
{
    std::vector<CommandEntry> entries;
    std::ifstream reference(SourceFile("docs/commands.md"));
    std::string line;
    bool isCode = false;
    while (std::getline(reference, line)) {
        if (line.starts_with("### "))
            entries.push_back({line.substr(4), {}, 0, {}});
        else if (line == "```")
            isCode = !isCode;
        else if (isCode)
            entries.back().example += line + "\n";
        else if (line.starts_with("| `"))
            readParameter(line, entries.back());
    }
    return entries;
}
