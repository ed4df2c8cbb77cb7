#include "OrvikCore/IFrameProvider.h"

namespace OrvikCore {

IFrameProvider::~IFrameProvider() = default;

} // namespace OrvikCore
