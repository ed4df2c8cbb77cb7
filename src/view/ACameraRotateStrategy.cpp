#include "OrvikCore/ACameraRotateStrategy.h"

#include "PointerWay.h"

#include "OrvikCore/ACamera.h"

namespace OrvikCore {

namespace {

/// A drag across the whole window turns the model by so much.
constexpr float kDegreesPerWindow = 180.0f;

} // namespace

ACameraRotateStrategy::ACameraRotateStrategy(ACamera* camera) : ACameraMoveStrategy(camera) {}

ACameraRotateStrategy::~ACameraRotateStrategy() = default;

void ACameraRotateStrategy::Move(IViewOp* op, float width, float height)
{
    PointerWay way{};
    if (!ReadPointerWay(op, way)) {
        return;
    }
    const float angleX = static_cast<float>(way.x) / width * kDegreesPerWindow;
    const float angleY = static_cast<float>(way.y) / height * kDegreesPerWindow;
    rotate(angleX, angleY);
}

void ACameraRotateStrategy::GetRotationCenter(float* center)
{
    float eye[3];
    float up[3];
    m_camera->GetCamera(eye, center, up);
}

void ACameraRotateStrategy::SetRotationCenter(const float*) {}

} // namespace OrvikCore
