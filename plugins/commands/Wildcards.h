#ifndef PLUGINCOMMANDS_WILDCARDS_H
#define PLUGINCOMMANDS_WILDCARDS_H

#include <string_view>

namespace OrvikCommands {

/// Tells whether a text fits a pattern as a whole: "*" stands for any text, also none, "?" for one
/// character; upper and lower case differ. Takes time in the product of both lengths at most.
bool MatchesPattern(std::wstring_view text, std::wstring_view pattern);

} // namespace OrvikCommands

#endif
