#include "OrvikCore/IInputProvider.h"

namespace OrvikCore {

IInputProvider::~IInputProvider() = default;

} // namespace OrvikCore
