#include "OrvikCore/ACamera.h"
#include "OrvikCore/ASession.h"
#include "OrvikCore/SessionMgr.h"

#include <OrvikOs/Clock.h>
#include <OrvikOs/Sleeper.h>
#include <TambVizCore/Settings.h>
#include <TambVizCore/Vector.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace OrvikCore {

namespace {

using TambVizCore::kPi;

/// A move has so many steps of so many milliseconds, unless the user's settings say otherwise.
constexpr int kSteps = 20;
constexpr int kMsPerStep = 30;

/// A move of the eye whose squared way is below this is no animation, in square world units.
constexpr float kLeastSquaredWay = 0.000001f;

/// Turns below this many radians are shown as a straight move.
constexpr float kSmallTurnRadians = 0.3f;

/// Progress of an eased move after 0 to 10 of its 20 steps: quadratic over five steps, then
/// uniform. The second half mirrors the first.
constexpr std::array<float, kSteps / 2 + 1> kEase = {0.0f, 0.1f, 0.4f, 0.9f, 1.6f, 2.5f,
                                                     4.0f, 5.5f, 7.0f, 8.5f, 10.0f};

int wantedSteps()
{
    const TambVizCore::Settings* const settings = TambVizCore::Settings::Current();
    return settings == nullptr ? kSteps : settings->GetAnimationSteps();
}

/// @return the progress after step @p index (from 0): eased for 20 steps, else index + 1.
float easedProgress(int index, float steps)
{
    if (static_cast<int>(steps) != kSteps) {
        return static_cast<float>(index + 1);
    }
    if (index < kSteps / 2) {
        return kEase[static_cast<std::size_t>(index + 1)];
    }
    return static_cast<float>(kSteps) - kEase[static_cast<std::size_t>(kSteps - 1 - index)];
}

/// Repaints the current session. @return the duration in milliseconds.
int repaint()
{
    const std::uint64_t start = OrvikOs::Clock::NowMs();
    SessionMgr::Instance().CurrentSession().UpdateDisplay();
    return static_cast<int>(OrvikOs::Clock::NowMs() - start);
}

/// Normalises an axis; a zero vector stays and stands for no turn.
void normalizeAxis(float* axis)
{
    if (TambVizCore::Length(axis) > 0.0f) {
        TambVizCore::Normalize(axis);
    }
}

/// Sets the distance of the eye from the target, along the line between them.
void setDistance(float* eye, const float* target, float startDist, float distance)
{
    float offset[3];
    TambVizCore::Subtract(eye, target, offset);
    const float scale = (distance / startDist) / (TambVizCore::Length(offset) / startDist);
    TambVizCore::Multiply(offset, scale);
    TambVizCore::Add(target, offset, eye);
}

} // namespace

void ACamera::animateCameraDirect(const float* newEye, const float* newTarget, const float* newUp)
{
    float eyeStep[3];
    float targetStep[3];
    float upStep[3];
    float squaredWay = 0.0f;
    const int steps = wantedSteps();
    for (int i = 0; i < 3; ++i) {
        eyeStep[i] = (newEye[i] - m_eye[i]) / static_cast<float>(steps);
        targetStep[i] = (newTarget[i] - m_target[i]) / static_cast<float>(steps);
        upStep[i] = (newUp[i] - m_up[i]) / static_cast<float>(steps);
        squaredWay += (newEye[i] - m_eye[i]) * (newEye[i] - m_eye[i]);
    }
    if (squaredWay < kLeastSquaredWay) {
        moveCamera(newEye, newTarget, newUp);
        return;
    }
    // Deliberate: ends on the accumulated sum, with an up vector that is not normalised.
    // Held by ACamera.DirectAnimationEndsOnTheAccumulatedSum.
    for (int step = 0; step < steps; ++step) {
        TambVizCore::Add(m_eye, eyeStep, m_eye);
        TambVizCore::Add(m_target, targetStep, m_target);
        TambVizCore::Add(m_up, upStep, m_up);
        OrvikOs::SleepMs(kMsPerStep);
        repaint();
    }
}

void ACamera::animateCamera(float* newEye, float* newTarget, float* newUp)
{
    // 1. Compare the viewing directions and distances.
    TambVizCore::Normalize(newUp);
    float curDir[3];
    float newDir[3];
    TambVizCore::Subtract(m_target, m_eye, curDir);
    TambVizCore::Subtract(newTarget, newEye, newDir);
    const float curDist = TambVizCore::Length(curDir);
    const int steps = wantedSteps();
    // Deliberate: a twentieth, also when the move is made in two halves of ten steps.
    // Held by ACameraOpposedTurns.CoverHalfTheDistanceInEachHalf.
    const float distStep = (TambVizCore::Length(newDir) - curDist) / static_cast<float>(steps);
    TambVizCore::Normalize(curDir);
    TambVizCore::Normalize(newDir);

    // 2. Find the turns of the viewing direction and of the up vector.
    float angle = TambVizCore::GetAngleRadians(curDir, newDir);
    bool flipped = false;
    float axis[3] = {0.0f, 0.0f, 0.0f};
    calculateRotationAxis(curDir, newDir, newUp, angle, flipped, axis);
    if (angle != 0.0f) {
        angle = TambVizCore::GetAngleRadians(curDir, newDir, axis);
    }
    float upAngle = 0.0f;
    float upAxis[3] = {0.0f, 0.0f, 0.0f};
    calculateUpRotation(curDir, m_up, newUp, upAngle, upAxis);
    if (angle == 0.0f && upAngle == kPi) {
        std::copy_n(curDir, 3, upAxis); // Upside down: about the line of sight.
    }

    // 3. Show small turns as a straight move.
    if (std::fabs(angle) < kSmallTurnRadians && std::fabs(upAngle) < kSmallTurnRadians) {
        animateCameraDirect(newEye, newTarget, newUp);
        return;
    }

    // 4. Turn, in two halves when the two turns would work against each other.
    if (TambVizCore::AreOpposite(axis, upAxis)) {
        const auto half = static_cast<float>(steps / 2);
        float halfAxis[3];
        TambVizCore::CrossProduct(upAxis, newDir, halfAxis);
        animateSteps(angle, axis, upAngle, halfAxis, half, kMsPerStep, curDist, distStep,
                     newTarget);
        animateSteps(0.0f, axis, upAngle, newDir, half, kMsPerStep, curDist, distStep, newTarget);
    } else {
        animateSteps(angle, axis, upAngle, upAxis, static_cast<float>(steps), kMsPerStep, curDist,
                     distStep, newTarget);
    }

    // 5. End exactly, whatever the steps came to.
    moveCamera(newEye, newTarget, newUp);
}

void ACamera::calculateRotationAxis(const float* curDir, const float* newDir, const float* newUp,
                                    float& angle, bool& flipped, float* axis)
{
    const float size = std::fabs(angle);
    if (TambVizCore::AreClose(size, 0.0f)) {
        angle = 0.0f;
        return;
    }
    if (size == kPi && TambVizCore::AreOpposite(m_up, newUp)) {
        TambVizCore::CrossProduct(curDir, m_up, axis);
        flipped = true;
    } else if (size == kPi && TambVizCore::AreClose(m_up, newUp)) {
        float side[3];
        TambVizCore::CrossProduct(curDir, m_up, side);
        TambVizCore::Normalize(side);
        TambVizCore::CrossProduct(side, curDir, axis);
    } else {
        TambVizCore::CrossProduct(curDir, newDir, axis);
    }
    normalizeAxis(axis);
}

void ACamera::calculateUpRotation(const float* curDir, float* curUp, float* newUp, float& upAngle,
                                  float* upAxis)
{
    TambVizCore::Normalize(curUp);
    TambVizCore::Normalize(newUp);
    if (TambVizCore::AreClose(curUp, newUp)) {
        upAngle = 0.0f;
        return;
    }
    if (TambVizCore::AreOpposite(curUp, newUp)) {
        upAngle = kPi;
        TambVizCore::CrossProduct(curDir, curUp, upAxis);
    } else {
        upAngle = TambVizCore::GetAngleRadians(curUp, newUp);
        TambVizCore::CrossProduct(curUp, newUp, upAxis);
    }
    normalizeAxis(upAxis);
}

void ACamera::animateSteps(float angle, float* axis, float upAngle, float* upAxis, float steps,
                           int msPerStep, float startDist, float distStep, const float* newTarget)
{
    // 1. Divide the turns; every step starts again from the first eye and up vector.
    const float angleStep = angle / steps;
    const float upAngleStep = upAngle / steps;
    float startEye[3];
    float startUp[3];
    float rotatedEye[3];
    float rotatedUp[3];
    float targetStep[3];
    const float origin[3] = {0.0f, 0.0f, 0.0f};
    std::copy_n(m_eye, 3, startEye);
    std::copy_n(m_eye, 3, rotatedEye);
    std::copy_n(m_up, 3, startUp);
    std::copy_n(m_up, 3, rotatedUp);
    for (int i = 0; i < 3; ++i) {
        targetStep[i] = (newTarget[i] - m_target[i]) / steps;
    }
    int lastPaintMs = 0;
    for (int step = 0; static_cast<float>(step) < steps; ++step) {
        // 2. Turn the eye about the target where it is now, and the up vector about the origin.
        const std::uint64_t stepStart = OrvikOs::Clock::NowMs();
        const float progress = easedProgress(step, steps);
        const float eyeTurn = angleStep * progress;
        const float upTurn = upAngleStep * progress;
        if (eyeTurn != 0.0f) {
            TambVizCore::RotatePointRadians(startEye, eyeTurn, m_target, axis, rotatedEye);
        }
        if (upTurn != 0.0f) {
            TambVizCore::RotatePointRadians(startUp, upTurn, origin, upAxis, rotatedUp);
        }

        // 3. Slide the target and set the distance.
        std::copy_n(rotatedEye, 3, m_eye);
        TambVizCore::Add(m_target, targetStep, m_target);
        std::copy_n(rotatedUp, 3, m_up);
        TambVizCore::Normalize(m_up);
        if (!TambVizCore::AreClose(distStep, 0.0f)) {
            setDistance(m_eye, m_target, startDist, startDist + distStep * progress);
        }

        // 4. Fill the step's time, of which the last repaint took its share; then repaint.
        const int elapsedMs = static_cast<int>(OrvikOs::Clock::NowMs() - stepStart) + lastPaintMs;
        OrvikOs::SleepMs(msPerStep - elapsedMs);
        lastPaintMs = repaint();
    }
}

} // namespace OrvikCore
