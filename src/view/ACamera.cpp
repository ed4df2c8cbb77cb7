#include "OrvikCore/ACamera.h"

#include "OrvikCore/ACameraRotateStrategy.h"
#include "OrvikCore/CameraPanStrategy.h"
#include "OrvikCore/CameraRotateWithCenter.h"
#include "OrvikCore/ViewOpPan.h"
#include "OrvikCore/ViewOpRotate.h"
#include "OrvikCore/ViewOpZoom.h"

#include <TambVizCore/IView3D.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/Vector.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace OrvikCore {

namespace {

using TambVizCore::kPi;

constexpr float kInitialFieldOfViewDegrees = 45.0f;

/// The eye is never set closer to the target than this, in world units.
constexpr float kLeastDistance = 0.0001f;

/// Beyond this dot product the up vector counts as running along the viewing direction.
constexpr float kAlongViewingDirection = 0.999f;

/// Below this dot product an up vector is straightened.
constexpr float kLeansBack = -0.1f;

/// A model that is fitted into the window leaves this much room about it.
constexpr float kFitMargin = 1.5f;

bool isAlong(float dotProduct)
{
    return dotProduct < -kAlongViewingDirection || dotProduct > kAlongViewingDirection;
}

/// @return height through width, at least 1.
float fitAspect(int width, int height)
{
    return std::max(static_cast<float>(height) / static_cast<float>(width), 1.0f);
}

/// Switches the animation off for one move.
class WithoutAnimation
{
public:
    explicit WithoutAnimation(bool& animate) : m_animate(animate), m_before(animate)
    {
        m_animate = false;
    }
    ~WithoutAnimation() { m_animate = m_before; }
    WithoutAnimation(const WithoutAnimation&) = delete;
    WithoutAnimation& operator=(const WithoutAnimation&) = delete;

private:
    bool& m_animate;
    const bool m_before;
};

} // namespace

ACamera::ACamera(TambVizCore::IView3D* view)
    : m_view(view), m_rotateStrategy(nullptr), m_panStrategy(nullptr)
{
    ACamera::SetFieldOfView(kInitialFieldOfViewDegrees);
    auto rotateStrategy = std::make_unique<CameraRotateWithCenter>(this);
    m_panStrategy = new CameraPanStrategy(this);
    m_rotateStrategy = rotateStrategy.release();
}

ACamera::~ACamera()
{
    delete m_panStrategy;
    delete m_rotateStrategy;
}

void ACamera::GetCamera(float* eye, float* target, float* up)
{
    std::copy_n(m_eye, 3, eye);
    std::copy_n(m_target, 3, target);
    std::copy_n(m_up, 3, up);
}

void ACamera::SetCamera(float* eye, float* target, float* up)
{
    TambVizCore::Normalize(up);
    if (!isValid(eye, target, up)) {
        return;
    }
    float direction[3];
    TambVizCore::Subtract(target, eye, direction);
    if (TambVizCore::Length(direction) < kLeastDistance) {
        return;
    }
    TambVizCore::Normalize(direction);
    float dotProduct = TambVizCore::DotProduct(direction, up);
    if (isAlong(dotProduct)) {
        return;
    }
    // Deliberate: an up vector that leans forward, however far, is kept as it is.
    // Held by ACameraTest.UpLeaningForwardIsKept and ACameraTest.UpLeaningBackIsStraightened.
    if (dotProduct < kLeansBack) {
        float side[3];
        TambVizCore::CrossProduct(direction, up, side);
        TambVizCore::CrossProduct(side, direction, up);
        dotProduct = TambVizCore::DotProduct(direction, up);
        if (isAlong(dotProduct)) {
            return;
        }
    }
    if (m_animate) {
        animateCamera(eye, target, up);
    } else {
        moveCamera(eye, target, up);
    }
}

bool ACamera::IsOrthographic() const
{
    return m_orthographic;
}

void ACamera::SetFieldOfView(float degrees)
{
    SetFieldOfViewRadians(degrees * kPi / 180.0f);
}

void ACamera::SetFieldOfViewRadians(float radians)
{
    m_fieldOfView = radians;
}

float ACamera::GetFieldOfView()
{
    return m_fieldOfView * 180.0f / kPi;
}

float ACamera::GetFieldOfViewRadians()
{
    return m_fieldOfView;
}

void ACamera::GetRotationCenter(float* center)
{
    if (center != nullptr && m_rotateStrategy != nullptr) {
        m_rotateStrategy->GetRotationCenter(center);
    }
}

void ACamera::SetRotationCenter(const float* center)
{
    if (center != nullptr && m_rotateStrategy != nullptr) {
        m_rotateStrategy->SetRotationCenter(center);
    }
}

void ACamera::ZoomAll()
{
    if (m_view == nullptr) {
        return;
    }
    const float radius = m_view->GetGeometryRadius();
    int width = 0;
    int height = 0;
    m_view->GetWindowSize(width, height);
    if (width == 0 || height == 0 || radius == 0.0f) {
        return;
    }
    float eye[3];
    float target[3];
    float up[3];
    GetCamera(eye, target, up);
    float direction[3];
    TambVizCore::Subtract(eye, target, direction);
    TambVizCore::Normalize(direction);
    std::copy_n(m_view->GetGeometryCenter(), 3, target);
    SetRotationCenter(target);
    float distance = radius / std::tan(GetFieldOfViewRadians() / 2.0f);
    distance *= kFitMargin * fitAspect(width, height);
    TambVizCore::Multiply(direction, distance);
    TambVizCore::Add(target, direction, eye);
    SetCamera(eye, target, up);
}

void ACamera::ZoomToBox(float x1, float y1, float z1, float x2, float y2, float z2)
{
    if (m_view == nullptr) {
        return;
    }
    int width = 0;
    int height = 0;
    m_view->GetWindowSize(width, height);
    if (width == 0 || height == 0) {
        return;
    }
    float eye[3];
    float target[3];
    float up[3];
    GetCamera(eye, target, up);
    float direction[3];
    TambVizCore::Subtract(eye, target, direction);
    TambVizCore::Normalize(direction);
    const float dx = x1 - x2;
    const float dy = y1 - y2;
    const float dz = z1 - z2;
    target[0] = x1 - dx / 2.0f;
    target[1] = y1 - dy / 2.0f;
    target[2] = z1 - dz / 2.0f;
    if (dx != 0.0f || dy != 0.0f || dz != 0.0f) {
        const double square = static_cast<double>(dx * dx + dy * dy + dz * dz);
        const float half = static_cast<float>(std::sqrt(square)) / 2.0f;
        const float distance =
            half / std::tan(GetFieldOfViewRadians() / 2.0f) * fitAspect(width, height) * kFitMargin;
        TambVizCore::Multiply(direction, distance);
    }
    TambVizCore::Add(target, direction, eye);
    SetRotationCenter(target);
    SetCamera(eye, target, up);
}

void ACamera::Rotate(ViewOpRotate* op)
{
    if (op == nullptr || m_view == nullptr || m_rotateStrategy == nullptr) {
        return;
    }
    const WithoutAnimation withoutAnimation(m_animate);
    int width = 0;
    int height = 0;
    m_view->GetWindowSize(width, height);
    m_rotateStrategy->Move(op, static_cast<float>(width), static_cast<float>(height));
}

void ACamera::Pan(ViewOpPan* op)
{
    if (op == nullptr || m_view == nullptr || m_panStrategy == nullptr) {
        return;
    }
    const WithoutAnimation withoutAnimation(m_animate);
    int width = 0;
    int height = 0;
    m_view->GetWindowSize(width, height);
    m_panStrategy->Move(op, static_cast<float>(width), static_cast<float>(height));
}

void ACamera::Zoom(ViewOpZoom* op)
{
    if (op == nullptr) {
        return;
    }
    // Deliberate: neither checked nor clamped; -100 puts the eye on the target.
    // Held by ACamera.ZoomBelowMinusHundredPassesThroughTheTarget.
    const float scale = static_cast<float>(op->Delta()) / 100.0f + 1.0f;
    for (int i = 0; i < 3; ++i) {
        m_eye[i] = m_target[i] + scale * (m_eye[i] - m_target[i]);
    }
}

void ACamera::SetAnimate(bool animate)
{
    m_animate = animate;
}

bool ACamera::GetAnimate()
{
    return m_animate;
}

TambVizCore::Ray ACamera::Make3DRay(const int& x, const int& y, const int& aperture)
{
    float eye[3];
    float target[3];
    float up[3];
    GetCamera(eye, target, up);
    float direction[3];
    TambVizCore::Subtract(eye, target, direction);
    const float distance = TambVizCore::Length(direction);
    int width = 0;
    int height = 0;
    if (m_view != nullptr) {
        m_view->GetWindowSize(width, height);
    }
    const float heightPixels = static_cast<float>(height);
    const float aspect = height > 0 ? static_cast<float>(width) / heightPixels : 1.0f;
    const float viewHeight = distance * std::tan(GetFieldOfViewRadians() / 2.0f) * 2.0f;
    const float viewWidth = viewHeight * aspect;
    // Without a window there are no pixels, and the aperture has no size.
    const float pixelSize = height > 0 ? viewHeight / heightPixels : 0.0f;
    const double radius = static_cast<double>(static_cast<float>(aperture) * pixelSize);
    float origin[3];
    TambVizCore::GetRayVector(x, y, width, height, eye, target, up, viewWidth, viewHeight,
                              !IsOrthographic(), origin, direction);
    TambVizCore::Normalize(direction);
    return TambVizCore::Ray(origin, direction, radius);
}

TambVizCore::IView3D* ACamera::GetView3D() const
{
    return m_view;
}

void ACamera::copySettingsFrom(const ACamera& other)
{
    if (&other == this) {
        return;
    }
    m_orthographic = other.m_orthographic;
    m_animate = other.m_animate;
    std::copy_n(other.m_eye, 3, m_eye);
    std::copy_n(other.m_target, 3, m_target);
    std::copy_n(other.m_up, 3, m_up);
    m_fieldOfView = other.m_fieldOfView;
    if (other.m_rotateStrategy != nullptr) {
        if (m_rotateStrategy != other.m_rotateStrategy) {
            delete m_rotateStrategy;
        }
        m_rotateStrategy = other.m_rotateStrategy->CloneTo(this);
    }
    if (other.m_panStrategy != nullptr) {
        if (m_panStrategy != other.m_panStrategy) {
            delete m_panStrategy;
        }
        m_panStrategy = other.m_panStrategy->CloneTo(this);
    }
}

bool ACamera::isValid(const float* eye, const float* target, const float* up) const
{
    for (int i = 0; i < 3; ++i) {
        for (const float component : {eye[i], target[i], up[i]}) {
            if (!isANumber(component) || !isFinite(component)) {
                return false;
            }
        }
    }
    return true;
}

bool ACamera::isANumber(float value) const
{
    return !std::isnan(value);
}

bool ACamera::isFinite(float value) const
{
    constexpr float kLargest = std::numeric_limits<float>::max();
    return -kLargest <= value && value <= kLargest;
}

void ACamera::moveCamera(const float* eye, const float* target, const float* up)
{
    std::copy_n(eye, 3, m_eye);
    std::copy_n(target, 3, m_target);
    std::copy_n(up, 3, m_up);
}

} // namespace OrvikCore
