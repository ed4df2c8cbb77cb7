#ifndef ORVIKCORE_INTERACTION_KEYCODES_H
#define ORVIKCORE_INTERACTION_KEYCODES_H

#include "OrvikCore/KeyEventArgs.h"

namespace OrvikCore {

// Numbers of the keys without character, as the host's toolkit gives them.
inline constexpr int kKeyEscape = KeyEventArgs::kEscape;
inline constexpr int kKeyShift = KeyEventArgs::kShift;
inline constexpr int kKeyAlt = KeyEventArgs::kAlt;

} // namespace OrvikCore

#endif
