#ifndef ORVIKCORE_PROCESSGLOBALS_H
#define ORVIKCORE_PROCESSGLOBALS_H

#include "OrvikCore/Export.h"

#include <cstdint>

// Data of the process that hosts and plugins share with the core.

extern "C" {

/// Identifier of the host's main thread, as OrvikOs::CurrentThreadId() gives it there.
///
/// 0 until the host stores it, which it does before JobDispatcher::Instance() is first called;
/// written once, before the worker starts, and only read afterwards.
extern ORVIKCORE_API std::uint32_t Orvik_mainThreadId;

/// For the host and its plugins; the core neither reads nor writes it. False at start.
extern ORVIKCORE_API bool Orvik_inSingleThreadMode;
}

#endif
