#include "OrvikCore/ACameraMoveStrategy.h"

namespace OrvikCore {

ACameraMoveStrategy::ACameraMoveStrategy(ACamera* camera) : m_camera(camera) {}

ACameraMoveStrategy::~ACameraMoveStrategy() = default;

} // namespace OrvikCore
