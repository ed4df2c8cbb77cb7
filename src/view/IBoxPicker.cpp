#include "OrvikCore/IBoxPicker.h"

#include <TambVizCore/EntityId.h>

namespace OrvikCore {

IBoxPicker::~IBoxPicker() = default;

} // namespace OrvikCore
