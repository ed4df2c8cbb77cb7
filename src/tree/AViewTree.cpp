#include "OrvikCore/AViewTree.h"

namespace OrvikCore {

AViewTree::~AViewTree() = default;

} // namespace OrvikCore
