#include "OrvikCore/IInputQueue.h"

namespace OrvikCore {

IInputQueue::~IInputQueue() = default;

} // namespace OrvikCore
