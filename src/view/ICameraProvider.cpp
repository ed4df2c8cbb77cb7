#include "OrvikCore/ICameraProvider.h"

namespace OrvikCore {

ICameraProvider::~ICameraProvider() = default;

} // namespace OrvikCore
