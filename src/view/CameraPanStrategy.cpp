#include "OrvikCore/CameraPanStrategy.h"

#include "PointerWay.h"

#include "OrvikCore/ACamera.h"

#include <TambVizCore/Vector.h>

#include <cmath>

namespace OrvikCore {

CameraPanStrategy::CameraPanStrategy(ACamera* camera) : ACameraMoveStrategy(camera) {}

CameraPanStrategy::~CameraPanStrategy() = default;

void CameraPanStrategy::Move(IViewOp* op, float width, float height)
{
    PointerWay way{};
    if (!ReadPointerWay(op, way)) {
        return;
    }
    float eye[3];
    float target[3];
    float up[3];
    m_camera->GetCamera(eye, target, up);
    const float partX = static_cast<float>(way.x) / width;
    const float partY = static_cast<float>(way.y) / height;
    float direction[3];
    TambVizCore::Subtract(target, eye, direction);
    float side[3];
    TambVizCore::CrossProduct(up, direction, side); // To the left, as the camera goes.
    TambVizCore::Normalize(side);

    // The window's size in world units at the distance of the target.
    const float viewHeight =
        2.0f * TambVizCore::Length(direction) * std::tan(m_camera->GetFieldOfViewRadians() / 2.0f);
    const float aspect = width / height;
    for (int i = 0; i < 3; ++i) {
        const float shift = side[i] * (partX * viewHeight * aspect) + up[i] * (partY * viewHeight);
        target[i] += shift;
        eye[i] += shift;
    }
    m_camera->SetCamera(eye, target, up);
}

ACameraMoveStrategy* CameraPanStrategy::CloneTo(ACamera* camera)
{
    return new CameraPanStrategy(camera);
}

} // namespace OrvikCore
