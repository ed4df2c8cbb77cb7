#include "OrvikCore/IControllerListener.h"

namespace OrvikCore {

IControllerListener::~IControllerListener() = default;

} // namespace OrvikCore
