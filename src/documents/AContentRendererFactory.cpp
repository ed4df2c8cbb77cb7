#include "OrvikCore/AContentRendererFactory.h"

namespace OrvikCore {

AContentRendererFactory::AContentRendererFactory() = default;

AContentRendererFactory::~AContentRendererFactory() = default;

} // namespace OrvikCore
