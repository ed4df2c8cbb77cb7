#ifndef TESTS_REPLAY_COMMANDREFERENCE_H
#define TESTS_REPLAY_COMMANDREFERENCE_H

#include <string>
#include <vector>

/// A command as docs/commands.md shows it; a test holds that document current.
struct CommandEntry
{
    std::string name;
    std::vector<std::string> types; ///< Of its parameters: "integer", "point", ...
    std::size_t required = 0;       ///< Parameters that must be given.
    std::string example;
};

/// @return all commands of the reference, in its order.
std::vector<CommandEntry> ReadCommandReference();

#endif
