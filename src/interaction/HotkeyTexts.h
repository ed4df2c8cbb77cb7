#ifndef ORVIKCORE_INTERACTION_HOTKEYTEXTS_H
#define ORVIKCORE_INTERACTION_HOTKEYTEXTS_H

namespace OrvikCore {

/// Followed by the text or the modifier word that could not be read.
inline constexpr char kInvalidHotkeyArgument[] = "Invalid argument: ";

inline constexpr wchar_t kCtrlWord[] = L"Ctrl";
inline constexpr wchar_t kShiftWord[] = L"Shift";
inline constexpr wchar_t kAltWord[] = L"Alt";

} // namespace OrvikCore

#endif
