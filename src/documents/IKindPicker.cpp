#include "OrvikCore/IKindPicker.h"

namespace OrvikCore {

IKindPicker::~IKindPicker() = default;

} // namespace OrvikCore
