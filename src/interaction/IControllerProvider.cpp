#include "OrvikCore/IControllerProvider.h"

namespace OrvikCore {

IControllerProvider::~IControllerProvider() = default;

} // namespace OrvikCore
