#ifndef TAMBCOMMANDSINFRA_SERVICETEXTS_H
#define TAMBCOMMANDSINFRA_SERVICETEXTS_H

namespace TambCommandsInfra {

/// What every call through a closed gate fails with.
inline constexpr char kApplicationClosing[] = "The application is closing.";

} // namespace TambCommandsInfra

#endif
