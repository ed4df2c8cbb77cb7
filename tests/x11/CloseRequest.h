#ifndef PELLUX_TESTS_CLOSEREQUEST_H
#define PELLUX_TESTS_CLOSEREQUEST_H

#include <cstdint>
#include <string>

/// Asks a window to close as a window manager does when its cross is clicked (WM_DELETE_WINDOW),
/// in the display's own protocol: xdotool can only destroy windows.
///
/// @param display  Number of the display, such as "99"; it needs no password.
/// @param window   The window's number.
/// @return false when the display does not answer.
bool AskToClose(const std::string& display, std::uint32_t window);

#endif
