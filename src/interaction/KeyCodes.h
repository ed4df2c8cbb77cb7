#ifndef ORVIKCORE_INTERACTION_KEYCODES_H
#define ORVIKCORE_INTERACTION_KEYCODES_H

namespace OrvikCore {

// Numbers of the keys without character, as the host's toolkit gives them.
inline constexpr int kKeyEscape = 0x01000000;
inline constexpr int kKeyShift = 0x01000020;
inline constexpr int kKeyAlt = 0x01000023;

} // namespace OrvikCore

#endif
