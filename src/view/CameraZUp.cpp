#include "OrvikCore/CameraZUp.h"

#include "StandardView.h"

#include <TambVizCore/Vector.h>

#include <algorithm>
#include <memory>

namespace OrvikCore {

namespace {

/// The component of the eye that the front view sets.
constexpr int kFrontComponent = 0;

char s_name[] = "CameraZUp";

} // namespace

CameraZUp::CameraZUp(TambVizCore::IView3D* view) : ACamera(view)
{
    const float eye[3] = {100.0f, 0.0f, 0.0f};
    const float target[3] = {0.0f, 0.0f, 0.0f};
    const float up[3] = {0.0f, 0.0f, 1.0f};
    moveCamera(eye, target, up);
    ACamera::SetFieldOfView(45.0f);
}

CameraZUp::~CameraZUp() = default;

char* CameraZUp::GetName()
{
    return s_name;
}

void CameraZUp::SetStandardPosition(float* eye, float* target, float* up)
{
    const float distance = StandardDistance(m_view, GetFieldOfViewRadians());
    const float standardEye[3] = {distance, 0.0f, 0.0f};
    const float standardUp[3] = {0.0f, 0.0f, 1.0f};
    std::copy_n(standardEye, 3, eye);
    std::fill_n(target, 3, 0.0f);
    std::copy_n(standardUp, 3, up);
}

void CameraZUp::Top()
{
    const float topUp[3] = {-1.0f, 0.0f, 0.0f};
    applyTurned(-90.0f, 0.0f, 1.0f, 0.0f, topUp);
}

void CameraZUp::Bottom()
{
    const float bottomUp[3] = {1.0f, 0.0f, 0.0f};
    applyTurned(90.0f, 0.0f, 1.0f, 0.0f, bottomUp);
}

void CameraZUp::Front()
{
    applyTurned(0.0f, 0.0f, 0.0f, 1.0f, nullptr);
}

void CameraZUp::Back()
{
    const float backUp[3] = {0.0f, 0.0f, 1.0f};
    applyTurned(180.0f, 0.0f, 0.0f, 1.0f, backUp);
}

void CameraZUp::Right()
{
    applyTurned(90.0f, 0.0f, 0.0f, 1.0f, nullptr);
}

void CameraZUp::Left()
{
    applyTurned(-90.0f, 0.0f, 0.0f, 1.0f, nullptr);
}

void CameraZUp::Isometric()
{
    const float vertical[3] = {0.0f, 0.0f, 1.0f};
    const float horizontal[3] = {kInverseRootOfTwo, -kInverseRootOfTwo, 0.0f};
    float eye[3];
    float target[3];
    float up[3];
    setFront(eye, target, up, /*keepDistance=*/true);
    TurnFrontToIsometric(vertical, horizontal, eye, target, up);
    SetCamera(eye, target, up);
}

ACamera* CameraZUp::cloneTo(TambVizCore::IView3D* view) const
{
    std::unique_ptr<CameraZUp> clone(new CameraZUp(*this));
    clone->copySettingsFrom(*this);
    clone->m_view = view;
    return clone.release();
}

void CameraZUp::setFront(float* const eye, float* const target, float* const up, bool keepDistance)
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

void CameraZUp::applyTurned(float degrees, float axisX, float axisY, float axisZ,
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
