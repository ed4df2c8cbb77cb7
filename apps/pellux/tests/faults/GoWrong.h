#ifndef PELLUX_TESTS_GOWRONG_H
#define PELLUX_TESTS_GOWRONG_H

#include <string>

/// Goes wrong as foreign code does, in a function of its own behind a pointer.
///
/// @param how  "null", "divide", "stack", "pure", "abort", "throw", "throw-oddly"; "cancellable"
///             runs until it is cancelled, "forever" whatever is asked of it; "terminate" ends the
///             process.
/// @throws std::invalid_argument for any other.
void GoWrong(const std::string& how);

#endif
