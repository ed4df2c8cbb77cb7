#include "OrvikCore/CameraYUp.h"

#include "StandardView.h"

#include <TambVizCore/Vector.h>

#include <algorithm>
#include <memory>

namespace OrvikCore {

namespace {

/// The component of the eye that the front view sets.
constexpr int kFrontComponent = 2;

char s_name[] = "CameraYUp";

} // namespace

CameraYUp::CameraYUp(TambVizCore::IView3D* view) : ACamera(view)
{
    // Deliberate: the start is that of the z-up camera.
    // Held by CameraYUp.StartsLikeTheZUpCamera.
    const float eye[3] = {100.0f, 0.0f, 0.0f};
    const float target[3] = {0.0f, 0.0f, 0.0f};
    const float up[3] = {0.0f, 0.0f, 1.0f};
    moveCamera(eye, target, up);
    ACamera::SetFieldOfView(45.0f);
}

CameraYUp::~CameraYUp() = default;

char* CameraYUp::GetName()
{
    return s_name;
}

void CameraYUp::SetStandardPosition(float* eye, float* target, float* up)
{
    const float distance = StandardDistance(m_view, GetFieldOfViewRadians());
    const float standardEye[3] = {0.0f, 0.0f, distance};
    const float standardUp[3] = {0.0f, 1.0f, 0.0f};
    std::copy_n(standardEye, 3, eye);
    std::fill_n(target, 3, 0.0f);
    std::copy_n(standardUp, 3, up);
}

void CameraYUp::Top()
{
    const float topUp[3] = {0.0f, 0.0f, -1.0f};
    applyTurned(-90.0f, 1.0f, 0.0f, 0.0f, topUp);
}

void CameraYUp::Bottom()
{
    const float bottomUp[3] = {0.0f, 0.0f, 1.0f};
    applyTurned(90.0f, 1.0f, 0.0f, 0.0f, bottomUp);
}

void CameraYUp::Front()
{
    applyTurned(0.0f, 0.0f, 1.0f, 0.0f, nullptr);
}

void CameraYUp::Back()
{
    applyTurned(180.0f, 0.0f, 1.0f, 0.0f, nullptr);
}

void CameraYUp::Right()
{
    applyTurned(90.0f, 0.0f, 1.0f, 0.0f, nullptr);
}

void CameraYUp::Left()
{
    applyTurned(-90.0f, 0.0f, 1.0f, 0.0f, nullptr);
}

void CameraYUp::Isometric()
{
    const float vertical[3] = {0.0f, 1.0f, 0.0f};
    const float horizontal[3] = {-kInverseRootOfTwo, 0.0f, kInverseRootOfTwo};
    float eye[3];
    float target[3];
    float up[3];
    setFront(eye, target, up, /*keepDistance=*/true);
    TurnFrontToIsometric(vertical, horizontal, eye, target, up);
    SetCamera(eye, target, up);
}

ACamera* CameraYUp::cloneTo(TambVizCore::IView3D* view) const
{
    std::unique_ptr<CameraYUp> clone(new CameraYUp(*this));
    clone->copySettingsFrom(*this);
    clone->m_view = view;
    return clone.release();
}

void CameraYUp::setFront(float* const eye, float* const target, float* const up, bool keepDistance)
{
    SetStandardPosition(eye, target, up);
    if (keepDistance) {
        float view[3];
        TambVizCore::Subtract(m_eye, m_target, view);
        eye[kFrontComponent] = TambVizCore::Length(view);
    }
    MoveToGeometry(m_view, eye, target);
    SetRotationCenter(target);
}

void CameraYUp::applyTurned(float degrees, float axisX, float axisY, float axisZ,
                            const float* newUp)
{
    float eye[3];
    float target[3];
    float up[3];
    setFront(eye, target, up, /*keepDistance=*/true);
    TurnFront({degrees, {axisX, axisY, axisZ}, newUp}, eye, target, up);
    SetCamera(eye, target, up);
}

} // namespace OrvikCore
