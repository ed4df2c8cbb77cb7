#ifndef TAMBCOMMANDSINFRA_COMMANDERROR_H
#define TAMBCOMMANDSINFRA_COMMANDERROR_H

#include "TambCommandsInfra/Export.h"

#include <stdexcept>
#include <string>

namespace TambCommandsInfra {

/// A command was called in a way that it does not allow: unknown name, wrong arguments. The text,
/// UTF-8, is meant for the person who wrote the call.
class TAMBCOMMANDSINFRA_API CommandError : public std::invalid_argument
{
public:
    explicit CommandError(const std::string& text);
    ~CommandError() override;
};

} // namespace TambCommandsInfra

#endif
