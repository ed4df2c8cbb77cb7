#ifndef ORVIKOS_SYSTEMERROR_H
#define ORVIKOS_SYSTEMERROR_H

#include "OrvikOs/Export.h"

#include <string>

namespace OrvikOs {

/// Gives the system's text for one of its error numbers (errno on Linux, GetLastError() on
/// Windows), without a line break at its end; empty when the system has none.
///
/// @thread  Any thread.
ORVIKOS_API std::wstring SystemErrorText(unsigned errorCode);

} // namespace OrvikOs

#endif
