#include "OrvikCore/ATreeRendererFactory.h"

namespace OrvikCore {

ATreeRendererFactory::ATreeRendererFactory() = default;

ATreeRendererFactory::~ATreeRendererFactory() = default;

} // namespace OrvikCore
