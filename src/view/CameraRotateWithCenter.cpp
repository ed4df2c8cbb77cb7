#include "OrvikCore/CameraRotateWithCenter.h"

#include "OrvikCore/ACamera.h"

#include <TambVizCore/Vector.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace OrvikCore {

namespace {

/// Turns below this many degrees count as none.
constexpr float kDeadZoneDegrees = 0.01f;

/// Every other turn is at least so large.
constexpr float kLeastTurnDegrees = 1.0f;

// Deliberate: the smallest turn is one whole degree.
// Held by CameraRotateWithCenter.SmallTurnsBecomeOneDegree.
float adjustedAngle(float degrees)
{
    const float size = std::fabs(degrees);
    if (size < kDeadZoneDegrees) {
        return 0.0f;
    }
    if (size < kLeastTurnDegrees) {
        return degrees > 0.0f ? kLeastTurnDegrees : -kLeastTurnDegrees;
    }
    return degrees;
}

} // namespace

CameraRotateWithCenter::CameraRotateWithCenter(ACamera* camera) : CameraRotateArcball(camera) {}

CameraRotateWithCenter::~CameraRotateWithCenter() = default;

ACameraRotateStrategy* CameraRotateWithCenter::CloneTo(ACamera* camera)
{
    auto clone = std::make_unique<CameraRotateWithCenter>(camera);
    std::copy_n(m_center, 3, clone->m_center);
    return clone.release();
}

void CameraRotateWithCenter::GetRotationCenter(float* center)
{
    std::copy_n(m_center, 3, center);
}

void CameraRotateWithCenter::SetRotationCenter(const float* center)
{
    std::copy_n(center, 3, m_center);
}

void CameraRotateWithCenter::rotate(float angleX, float angleY)
{
    const float turnX = adjustedAngle(angleX);
    const float turnY = adjustedAngle(angleY);
    float eye[3];
    float target[3];
    float up[3];
    m_camera->GetCamera(eye, target, up);
    if (TambVizCore::AreClose(m_center, target)) {
        CameraRotateArcball::rotate(turnX, turnY);
        return;
    }
    calculateCamera(turnX, turnY, eye, target, up);
    m_camera->SetCamera(eye, target, up);
}

void CameraRotateWithCenter::calculateCamera(float angleX, float angleY, float* const eye,
                                             float* const target, float* const up)
{
    // 1. Square up the triple.
    TambVizCore::Normalize(up);
    float direction[3];
    TambVizCore::Subtract(eye, target, direction);
    const float distance = TambVizCore::Length(direction);
    TambVizCore::Normalize(direction);
    float side[3];
    TambVizCore::CrossProduct(direction, up, side);
    TambVizCore::Normalize(side);
    TambVizCore::CrossProduct(side, direction, up);
    float offset[3] = {direction[0], direction[1], direction[2]};
    TambVizCore::Multiply(offset, distance);
    TambVizCore::Add(target, offset, eye);

    // 2. Take the centre as seen from target and eye.
    float fromTarget[3];
    float fromEye[3];
    TambVizCore::Subtract(m_center, target, fromTarget);
    TambVizCore::Subtract(m_center, eye, fromEye);

    // 3. Turn both about the up vector.
    if (angleX != 0.0f) {
        TambVizCore::RotatePointAroundOrigin(fromEye, -angleX, up, fromEye);
        TambVizCore::RotatePointAroundOrigin(fromTarget, -angleX, up, fromTarget);
    }

    // 4. Turn both about the horizontal axis as it was before step 3.
    if (angleY != 0.0f) {
        float view[3];
        TambVizCore::Subtract(eye, target, view);
        TambVizCore::Normalize(view);
        TambVizCore::CrossProduct(view, up, side);
        TambVizCore::Normalize(side);
        TambVizCore::RotatePointAroundOrigin(fromEye, angleY, side, fromEye);
        TambVizCore::RotatePointAroundOrigin(fromTarget, angleY, side, fromTarget);
    }

    // 5. Put target and eye back where the centre then is.
    TambVizCore::Subtract(m_center, fromTarget, target);
    TambVizCore::Subtract(m_center, fromEye, eye);

    // 6. Tilt the up vector along.
    if (angleY != 0.0f) {
        TambVizCore::RotatePointAroundOrigin(up, angleY, side, up);
        TambVizCore::Normalize(up);
    }
}

} // namespace OrvikCore
