#ifndef ORVIKCORE_DBG_H
#define ORVIKCORE_DBG_H

#include "OrvikCore/Export.h"

#include <ostream>

namespace OrvikCore {

/// Narrow stream to the debugger output, for diagnostics of developers; never for the user.
///
/// Meant for occasional lines: each character is one call of the debugger channel. The last
/// character of a message is sent by a flush only, so end lines with std::endl. Shared by all
/// threads without a lock. Made when the library is loaded and destroyed when it is unloaded.
extern ORVIKCORE_API std::ostream dbg;

} // namespace OrvikCore

#endif
