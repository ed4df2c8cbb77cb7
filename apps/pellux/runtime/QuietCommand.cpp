#include "runtime/QuietCommand.h"

#include <TambCommandsInfra/CommandTable.h>

#include <string>
#include <utility>

namespace Pellux {

using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;

Value RunQuietly(const char* command, std::vector<Value> arguments)
{
    const auto found = CommandTable::Instance().Find(command);
    if (found == nullptr)
        throw TambCommandsInfra::CommandError("Unknown command \"" + std::string(command) + "\".");
    return found->handler(CommandTable::CheckArguments(*found, std::move(arguments)));
}

} // namespace Pellux
