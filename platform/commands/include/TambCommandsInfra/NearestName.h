#ifndef TAMBCOMMANDSINFRA_NEARESTNAME_H
#define TAMBCOMMANDSINFRA_NEARESTNAME_H

#include "TambCommandsInfra/Export.h"

#include <string>
#include <string_view>
#include <vector>

namespace TambCommandsInfra {

/// Gives the name that somebody who wrote @p name most likely meant.
///
/// Counts insertions, deletions, replacements and exchanges of neighbours, upper and lower case of
/// ASCII alike; a name that needs more than a third of the length of @p name (at least 2) is none.
/// Of equally near names the first in alphabetical order wins.
///
/// @param name   What was written; ASCII.
/// @param names  What there is, in any order.
/// @return the name, or an empty text.
/// @thread  Any thread.
TAMBCOMMANDSINFRA_API std::string FindNearestName(std::string_view name,
                                                  const std::vector<std::string>& names);

} // namespace TambCommandsInfra

#endif
