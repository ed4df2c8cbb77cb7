#include "OrvikCore/IEntityProperties.h"

namespace OrvikCore {

IEntityProperties::~IEntityProperties() = default;

} // namespace OrvikCore
