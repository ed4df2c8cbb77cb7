#include "OrvikCore/AMouseEventArgs.h"

namespace OrvikCore {

AMouseEventArgs::AMouseEventArgs(int const& column, int const& row) : x(column), y(row) {}

} // namespace OrvikCore
