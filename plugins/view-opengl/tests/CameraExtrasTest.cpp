#include "PerspectiveCamera.h"
#include "View3dOpenGlSG.h"
#include "ViewTest.h"

#include <OrvikCore/ACameraFactory.h>
#include <OrvikCore/ViewOpZoom.h>
#include <TambVizCore/Ray.h>

#include <memory>

namespace ViewOpenGl {
namespace {

using OrvikCore::CameraYUp;
using OrvikCore::CameraZUp;

class ZoomedView : public View3dOpenGlSG
{
public:
    void Zoom(int delta, int x, int y)
    {
        OrvikCore::ViewOpZoom op(delta, x, y);
        ControllerNotify(&op);
    }
};

/// A window of 100 x 100 pixels on the square from -1 to 1.
class ZoomToPointer : public ::testing::Test
{
protected:
    ZoomToPointer()
    {
        m_view.SetWindowSize(100, 100);
        PlaceCamera(m_view);
    }

    /// Writes where the ray through a pixel meets the plane z = 0.
    void pointUnder(int x, int y, float* point)
    {
        const TambVizCore::Ray ray = m_view.GetCamera()->Make3DRay(x, y, 1);
        const float along = -ray.Origin()[2] / ray.Direction()[2];
        for (int i = 0; i < 3; ++i)
            point[i] = ray.Origin()[i] + along * ray.Direction()[i];
    }

    double distance()
    {
        float eye[3], target[3], up[3];
        m_view.GetCamera()->GetCamera(eye, target, up);
        return static_cast<double>(eye[2] - target[2]);
    }

    ZoomedView m_view;
};

TEST_F(ZoomToPointer, KeepsWhatIsUnderThePointer)
{
    float before[3], after[3];
    pointUnder(80, 30, before);
    m_view.Zoom(-40, 80, 30);
    pointUnder(80, 30, after);

    EXPECT_NEAR(distance(), 6.0, 1e-5);
    EXPECT_NEAR(before[0], after[0], 0.01);
    EXPECT_NEAR(before[1], after[1], 0.01);
}

TEST_F(ZoomToPointer, KeepsWhatIsUnderThePointerInPerspective)
{
    m_view.SetCamera(new PerspectiveCamera<CameraYUp>(&m_view));
    PlaceCamera(m_view);
    float before[3], after[3];
    pointUnder(20, 90, before);
    m_view.Zoom(50, 20, 90);
    pointUnder(20, 90, after);

    EXPECT_NEAR(distance(), 15.0, 1e-5);
    EXPECT_NEAR(before[0], after[0], 0.02);
    EXPECT_NEAR(before[1], after[1], 0.02);
}

TEST_F(ZoomToPointer, OutsideTheWindowTheTargetStays)
{
    m_view.Zoom(-50, 400, 30);
    float eye[3], target[3], up[3];
    m_view.GetCamera()->GetCamera(eye, target, up);

    EXPECT_EQ(target[0], 0.0f);
    EXPECT_NEAR(distance(), 5.0, 1e-5);
}

TEST(PerspectiveCamera, HasANameOfItsOwn)
{
    EXPECT_STREQ(PerspectiveCamera<CameraYUp>(nullptr).GetName(), "CameraYUpPerspective");
    EXPECT_STREQ(PerspectiveCamera<CameraZUp>(nullptr).GetName(), "CameraZUpPerspective");
}

TEST(PerspectiveCamera, KeepsThePlaceOfTheCameraItIsMadeFrom)
{
    OrvikCore::ACameraFactory factory;
    factory.AddPrototype(new CameraZUp(nullptr));
    factory.AddPrototype(new PerspectiveCamera<CameraZUp>(nullptr));
    CameraYUp old(nullptr);
    old.SetAnimate(false);
    float eye[3] = {1, 2, 30}, target[3] = {1, 2, 3}, up[3] = {0, 1, 0};
    old.SetCamera(eye, target, up);

    const std::unique_ptr<OrvikCore::ACamera> made(factory.MakeCamera(old, "CameraZUpPerspective"));
    ASSERT_NE(made, nullptr);
    EXPECT_FALSE(made->IsOrthographic());
    float newEye[3], newTarget[3], newUp[3];
    made->GetCamera(newEye, newTarget, newUp);
    EXPECT_EQ(newEye[2], 30.0f);

    const std::unique_ptr<OrvikCore::ACamera> back(factory.MakeCamera(*made, "CameraZUp"));
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(back->IsOrthographic());
}

} // namespace
} // namespace ViewOpenGl
