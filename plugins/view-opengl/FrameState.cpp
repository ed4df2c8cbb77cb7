#include "FrameState.h"

#include <OrvikCore/ACamera.h>

namespace ViewOpenGl {

CameraState CameraState::Of(OrvikCore::ACamera& camera)
{
    CameraState state;
    camera.GetCamera(state.eye, state.target, state.up);
    state.fieldOfView = camera.GetFieldOfViewRadians();
    state.orthographic = camera.IsOrthographic();
    return state;
}

} // namespace ViewOpenGl
