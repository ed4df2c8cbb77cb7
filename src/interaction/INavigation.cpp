#include "OrvikCore/INavigation.h"

namespace OrvikCore {

INavigation::~INavigation() = default;

} // namespace OrvikCore
