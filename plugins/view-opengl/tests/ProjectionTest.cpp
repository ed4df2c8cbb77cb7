#include "Projection.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/CameraYUp.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/VizBox.h>

#include <gtest/gtest.h>

#include <cmath>

namespace ViewOpenGl {
namespace {

using TambVizCore::VizBox;

class PerspectiveCamera : public OrvikCore::CameraYUp
{
public:
    using OrvikCore::CameraYUp::CameraYUp;
    bool IsOrthographic() const override { return false; }
};

/// Matrices of cameras without a view, a quarter turn wide: what is seen at distance d reaches from
/// -d to d.
class ProjectionOf : public ::testing::Test
{
protected:
    static Projection from(OrvikCore::ACamera& camera, const VizBox& eyeBox)
    {
        float eye[3] = {10.0f, 2.0f, 3.0f};
        float target[3] = {0.0f, 2.0f, 3.0f};
        float up[3] = {0.0f, 1.0f, 0.0f};
        camera.SetAnimate(false);
        camera.SetCamera(eye, target, up);
        camera.SetFieldOfView(90.0f);
        Projection projection = MakeProjection(camera, 200, 100);
        FitDepth(projection, eyeBox);
        return projection;
    }

    /// Applies the projection to a point of the eye space.
    static void apply(const Projection& projection, const float* p, double* clip)
    {
        for (int row = 0; row < 3; ++row) {
            clip[row] = projection.projection[12 + row];
            for (int i = 0; i < 3; ++i)
                clip[row] += static_cast<double>(projection.projection[4 * i + row] * p[i]);
        }
        const double w = projection.orthographic ? 1.0 : -static_cast<double>(p[2]);
        for (int row = 0; row < 3; ++row)
            clip[row] /= w;
    }

    OrvikCore::CameraYUp m_parallel{nullptr};
    PerspectiveCamera m_perspective{nullptr};
    const VizBox m_eyeBox{-1, -1, -12, 1, 1, -8};
};

TEST_F(ProjectionOf, ViewTakesTheTargetToTheMiddleAtItsDistance)
{
    const Projection projection = from(m_parallel, m_eyeBox);
    float point[3] = {0.0f, 2.0f, 3.0f};
    TambVizCore::TransformPoint(projection.view, point, point);

    EXPECT_NEAR(point[0], 0.0f, 1e-5f);
    EXPECT_NEAR(point[1], 0.0f, 1e-5f);
    EXPECT_NEAR(point[2], -10.0f, 1e-5f);
}

TEST_F(ProjectionOf, ViewHasRightToTheRightAndUpAbove)
{
    const Projection projection = from(m_parallel, m_eyeBox);
    // Looking along -x with y up, -z lies to the right.
    float point[3] = {0.0f, 3.0f, 1.0f};
    TambVizCore::TransformPoint(projection.view, point, point);

    EXPECT_NEAR(point[0], 2.0f, 1e-5f);
    EXPECT_NEAR(point[1], 1.0f, 1e-5f);
}

TEST_F(ProjectionOf, BorderOfThePictureIsAtOneInParallelProjection)
{
    const Projection projection = from(m_parallel, m_eyeBox);
    const float corner[3] = {20.0f, 10.0f, -9.0f};
    double clip[3];
    apply(projection, corner, clip);

    EXPECT_NEAR(clip[0], 1.0, 1e-5);
    EXPECT_NEAR(clip[1], 1.0, 1e-5);
    EXPECT_NEAR(projection.pixelSize, 0.2, 1e-6);
}

TEST_F(ProjectionOf, BorderOfThePictureIsAtOneInPerspective)
{
    const Projection projection = from(m_perspective, m_eyeBox);
    const float corner[3] = {18.0f, 9.0f, -9.0f};
    double clip[3];
    apply(projection, corner, clip);

    EXPECT_NEAR(clip[0], 1.0, 1e-5);
    EXPECT_NEAR(clip[1], 1.0, 1e-5);
}

TEST_F(ProjectionOf, PixelsCoveredAreThoseOfTheNearSide)
{
    EXPECT_NEAR(PixelsCovered(from(m_parallel, m_eyeBox), m_eyeBox), 10.0 * 10.0, 1e-3);
    EXPECT_NEAR(PixelsCovered(from(m_perspective, m_eyeBox), m_eyeBox), 12.5 * 12.5, 1e-3);
}

TEST_F(ProjectionOf, PixelsCoveredAreAtMostThePicture)
{
    const VizBox around{-1000, -1000, -1000, 1000, 1000, 1000};
    const VizBox beside{100, -1, -12, 101, 1, -8};

    for (OrvikCore::ACamera* const camera : {static_cast<OrvikCore::ACamera*>(&m_parallel),
                                             static_cast<OrvikCore::ACamera*>(&m_perspective)}) {
        const Projection projection = from(*camera, m_eyeBox);
        EXPECT_NEAR(PixelsCovered(projection, around), 200.0 * 100.0, 1e-3);
        EXPECT_EQ(PixelsCovered(projection, beside), 0.0);
    }
}

TEST_F(ProjectionOf, DepthsEncloseWhatIsDrawn)
{
    for (OrvikCore::ACamera* const camera : {static_cast<OrvikCore::ACamera*>(&m_parallel),
                                             static_cast<OrvikCore::ACamera*>(&m_perspective)}) {
        const Projection projection = from(*camera, m_eyeBox);
        double nearClip[3];
        double farClip[3];
        const float nearPoint[3] = {0.0f, 0.0f, -8.0f};
        const float farPoint[3] = {0.0f, 0.0f, -12.0f};
        apply(projection, nearPoint, nearClip);
        apply(projection, farPoint, farClip);

        EXPECT_GT(nearClip[2], -1.0);
        EXPECT_LT(nearClip[2], farClip[2]);
        EXPECT_LT(farClip[2], 1.0);
    }
}

TEST_F(ProjectionOf, WhatLiesBehindTheEyeIsKeptInParallelProjection)
{
    const Projection projection = from(m_parallel, VizBox(-1, -1, -1, 1, 1, 30));
    const float behind[3] = {0.0f, 0.0f, 30.0f};
    double clip[3];
    apply(projection, behind, clip);

    EXPECT_GT(clip[2], -1.0);
}

TEST_F(ProjectionOf, NearestDepthStaysAboveAThousandthInPerspective)
{
    const Projection projection = from(m_perspective, VizBox(-1, -1, -1000, 1, 1, 5));

    EXPECT_NEAR(projection.nearest / projection.farthest, 1e-3, 1e-9);
}

TEST_F(ProjectionOf, EmptySceneGivesAFiniteMatrix)
{
    for (OrvikCore::ACamera* const camera : {static_cast<OrvikCore::ACamera*>(&m_parallel),
                                             static_cast<OrvikCore::ACamera*>(&m_perspective)}) {
        const Projection projection = from(*camera, VizBox());

        for (const float value : projection.projection)
            EXPECT_TRUE(std::isfinite(value));
    }
}

TEST_F(ProjectionOf, BoxesBesideThePictureAreOutOfSight)
{
    const Projection parallel = from(m_parallel, m_eyeBox);
    const Projection perspective = from(m_perspective, m_eyeBox);

    EXPECT_TRUE(IsInSight(parallel, VizBox(19, -1, -12, 22, 1, -8)));
    EXPECT_FALSE(IsInSight(parallel, VizBox(21, -1, -12, 22, 1, -8)));
    EXPECT_FALSE(IsInSight(parallel, VizBox(-1, 11, -12, 1, 12, -8)));
    EXPECT_TRUE(IsInSight(perspective, VizBox(23, -1, -12, 25, 1, -8)));
    EXPECT_FALSE(IsInSight(perspective, VizBox(25, -1, -12, 27, 1, -8)));
    EXPECT_FALSE(IsInSight(perspective, VizBox(-1, -1, 1, 1, 1, 2)));
    EXPECT_FALSE(IsInSight(parallel, VizBox()));
}

} // namespace
} // namespace ViewOpenGl
