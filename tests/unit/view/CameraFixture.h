#ifndef ORVIKCORE_TESTS_CAMERAFIXTURE_H
#define ORVIKCORE_TESTS_CAMERAFIXTURE_H

#include "FakeView3D.h"

#include "OrvikCore/ACameraMoveStrategy.h"
#include "OrvikCore/ACameraRotateStrategy.h"
#include "OrvikCore/CameraYUp.h"
#include "OrvikCore/CameraZUp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string>
#include <vector>

using Vector = std::array<float, 3>;

/// The viewing triple of a camera.
struct Triple
{
    Vector eye;
    Vector target;
    Vector up;
};

inline Triple tripleOf(OrvikCore::ACamera& camera)
{
    Triple triple{};
    camera.GetCamera(triple.eye.data(), triple.target.data(), triple.up.data());
    return triple;
}

/// Sets a triple through SetCamera, which may change the up vector.
/// @return the up vector as SetCamera left it.
inline Vector setTriple(OrvikCore::ACamera& camera, Triple triple)
{
    camera.SetCamera(triple.eye.data(), triple.target.data(), triple.up.data());
    return triple.up;
}

/// Matches a vector whose components each differ by at most @p tolerance.
inline ::testing::Matcher<const Vector&> IsNear(float x, float y, float z, float tolerance = 1e-3f)
{
    using ::testing::ElementsAre;
    using ::testing::FloatNear;
    return ElementsAre(FloatNear(x, tolerance), FloatNear(y, tolerance), FloatNear(z, tolerance));
}

/// A camera that names no standard views: what ACamera itself does, and its helpers.
class PlainCamera : public OrvikCore::ACamera
{
public:
    explicit PlainCamera(TambVizCore::IView3D* view = nullptr) : ACamera(view) {}

    char* GetName() override { return m_name; }
    void SetStandardPosition(float*, float*, float*) override {}
    void Top() override {}
    void Bottom() override {}
    void Front() override {}
    void Back() override {}
    void Right() override {}
    void Left() override {}
    void Isometric() override {}

    using ACamera::animateCamera;
    using ACamera::animateCameraDirect;
    using ACamera::calculateRotationAxis;
    using ACamera::calculateUpRotation;
    using ACamera::copySettingsFrom;
    using ACamera::isANumber;
    using ACamera::isFinite;
    using ACamera::isValid;
    using ACamera::m_animate;
    using ACamera::m_fieldOfView;
    using ACamera::m_orthographic;
    using ACamera::m_panStrategy;
    using ACamera::m_rotateStrategy;
    using ACamera::moveCamera;

    /// Moves at once, unchecked.
    void Put(const Triple& triple)
    {
        moveCamera(triple.eye.data(), triple.target.data(), triple.up.data());
    }

    /// Replaces the strategies; both transferred in, null allowed.
    void SetStrategies(OrvikCore::ACameraRotateStrategy* rotation,
                       OrvikCore::ACameraMoveStrategy* pan)
    {
        delete m_rotateStrategy;
        delete m_panStrategy;
        m_rotateStrategy = rotation;
        m_panStrategy = pan;
    }

protected:
    OrvikCore::ACamera* cloneTo(TambVizCore::IView3D*) const override { return nullptr; }
    void setFront(float* const, float* const, float* const, bool) override {}

private:
    char m_name[6] = "Plain";
};

/// A rotate strategy that writes down its calls and its end.
class RecordingRotation : public OrvikCore::ACameraRotateStrategy
{
public:
    RecordingRotation(OrvikCore::ACamera* camera, std::vector<std::string>& log)
        : ACameraRotateStrategy(camera), m_log(log)
    {
    }
    ~RecordingRotation() override { m_log.push_back("rotation deleted"); }

    OrvikCore::ACameraRotateStrategy* CloneTo(OrvikCore::ACamera* camera) override
    {
        m_log.push_back("rotation cloned");
        return new RecordingRotation(camera, m_log);
    }

    OrvikCore::ACamera* Camera() const { return m_camera; }

protected:
    void rotate(float angleX, float angleY) override
    {
        m_log.push_back("rotate " + std::to_string(angleX) + " " + std::to_string(angleY) +
                        (m_camera->GetAnimate() ? " animated" : ""));
    }

private:
    std::vector<std::string>& m_log;
};

/// A pan strategy that writes down its calls and its end.
class RecordingPan : public OrvikCore::ACameraMoveStrategy
{
public:
    RecordingPan(OrvikCore::ACamera* camera, std::vector<std::string>& log)
        : ACameraMoveStrategy(camera), m_log(log)
    {
    }
    ~RecordingPan() override { m_log.push_back("pan deleted"); }

    void Move(OrvikCore::IViewOp*, float width, float height) override
    {
        m_log.push_back("pan in " + std::to_string(width) + " x " + std::to_string(height) +
                        (m_camera->GetAnimate() ? " animated" : ""));
    }
    OrvikCore::ACameraMoveStrategy* CloneTo(OrvikCore::ACamera* camera) override
    {
        m_log.push_back("pan cloned");
        return new RecordingPan(camera, m_log);
    }

    OrvikCore::ACamera* Camera() const { return m_camera; }

private:
    std::vector<std::string>& m_log;
};

#endif
