#include "OrvikCore/CameraRotateArcball.h"

#include "OrvikCore/ACamera.h"

#include <TambVizCore/Vector.h>

namespace OrvikCore {

CameraRotateArcball::CameraRotateArcball(ACamera* camera) : ACameraRotateStrategy(camera) {}

CameraRotateArcball::~CameraRotateArcball() = default;

ACameraRotateStrategy* CameraRotateArcball::CloneTo(ACamera* camera)
{
    return new CameraRotateArcball(camera);
}

void CameraRotateArcball::rotate(float angleX, float angleY)
{
    float eye[3];
    float target[3];
    float up[3];
    m_camera->GetCamera(eye, target, up);
    float fromTarget[3];
    TambVizCore::Subtract(eye, target, fromTarget);
    if (angleX != 0.0f) {
        TambVizCore::RotatePointAroundOrigin(fromTarget, -angleX, up, fromTarget);
    }
    if (angleY != 0.0f) {
        float side[3];
        TambVizCore::CrossProduct(fromTarget, up, side);
        TambVizCore::Normalize(side);
        TambVizCore::RotatePointAroundOrigin(fromTarget, angleY, side, fromTarget);
        TambVizCore::CrossProduct(side, fromTarget, up);
        TambVizCore::Normalize(up);
    }
    TambVizCore::Add(fromTarget, target, eye);
    m_camera->SetCamera(eye, target, up);
}

} // namespace OrvikCore
