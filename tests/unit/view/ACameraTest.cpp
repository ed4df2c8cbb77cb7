#include "CameraFixture.h"

#include "OrvikCore/ViewOpPan.h"
#include "OrvikCore/ViewOpRotate.h"
#include "OrvikCore/ViewOpZoom.h"

#include <TambVizCore/Ray.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

using OrvikCore::IViewOpState;
using ::testing::ElementsAre;

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kLargest = std::numeric_limits<float>::max();

/// A camera that does not animate, in a window of 800 x 600.
class ACameraTest : public ::testing::Test
{
protected:
    ACameraTest() { m_camera.SetAnimate(false); }

    void expectAtStart()
    {
        const Triple triple = tripleOf(m_camera);
        EXPECT_THAT(triple.eye, ElementsAre(0.0f, 0.0f, 100.0f));
        EXPECT_THAT(triple.target, ElementsAre(0.0f, 0.0f, 0.0f));
        EXPECT_THAT(triple.up, ElementsAre(0.0f, 1.0f, 0.0f));
    }

    FakeView3D m_view;
    std::vector<std::string> m_log; ///< Of the camera's strategies.
    PlainCamera m_camera{&m_view};
};

struct RefusedRow
{
    const char* name;
    Triple triple;
};

class RefusedTriple : public ACameraTest, public ::testing::WithParamInterface<RefusedRow>
{
};

} // namespace

TEST_F(ACameraTest, StartsBeforeTheOriginWithYUp)
{
    expectAtStart();
}

TEST_F(ACameraTest, StartsOrthographicAndAnimated)
{
    PlainCamera camera(&m_view);

    EXPECT_TRUE(camera.IsOrthographic());
    EXPECT_TRUE(camera.GetAnimate());
    EXPECT_EQ(camera.GetView3D(), &m_view);
}

TEST_F(ACameraTest, StartsWithFortyFiveDegrees)
{
    EXPECT_FLOAT_EQ(m_camera.GetFieldOfView(), 45.0f);
    EXPECT_EQ(m_camera.GetFieldOfViewRadians(), 45.0f * 3.1415925f / 180.0f);
}

TEST_F(ACameraTest, StartsWithTheRotationCenterAtTheOrigin)
{
    Vector center{1.0f, 1.0f, 1.0f};

    m_camera.GetRotationCenter(center.data());

    EXPECT_THAT(center, ElementsAre(0.0f, 0.0f, 0.0f));
}

TEST_F(ACameraTest, ConvertsDegreesWithItsOwnPi)
{
    m_camera.SetFieldOfView(180.0f);

    EXPECT_EQ(std::bit_cast<std::uint32_t>(m_camera.GetFieldOfViewRadians()), 0x40490FDAu);
}

TEST_F(ACameraTest, KeepsRadiansAsGiven)
{
    m_camera.SetFieldOfViewRadians(0.5f);

    EXPECT_EQ(m_camera.GetFieldOfViewRadians(), 0.5f);
    EXPECT_FLOAT_EQ(m_camera.GetFieldOfView(), 28.647890f);
}

TEST_P(RefusedTriple, LeavesTheCameraAlone)
{
    setTriple(m_camera, GetParam().triple);

    expectAtStart();
}

const RefusedRow kRefusedRows[] = {
    {"EyeOnTarget", {{5, 5, 5}, {5, 5, 5}, {0, 1, 0}}},
    {"EyeNearerThanATenThousandth", {{0, 0, 0.00009f}, {0, 0, 0}, {0, 1, 0}}},
    {"EyeNotANumber", {{0, kNaN, 9}, {0, 0, 0}, {0, 1, 0}}},
    {"TargetNotANumber", {{0, 0, 9}, {0, 0, kNaN}, {0, 1, 0}}},
    {"UpNotANumber", {{0, 0, 9}, {0, 0, 0}, {kNaN, 1, 0}}},
    {"EyeInfinite", {{kInfinity, 0, 9}, {0, 0, 0}, {0, 1, 0}}},
    {"TargetInfinite", {{0, 0, 9}, {0, -kInfinity, 0}, {0, 1, 0}}},
    {"UpInfinite", {{0, 0, 9}, {0, 0, 0}, {0, kInfinity, 0}}},
    {"UpZero", {{0, 0, 9}, {0, 0, 0}, {0, 0, 0}}},
    {"UpAlongTheView", {{0, 0, 9}, {0, 0, 0}, {0, 0, -2}}},
    {"UpAgainstTheView", {{0, 0, 9}, {0, 0, 0}, {0, 0, 2}}},
    {"UpNearlyAlongTheView", {{0, 0, 9}, {0, 0, 0}, {0, 0.04f, -1}}},
    {"UpNearlyAgainstTheView", {{0, 0, 9}, {0, 0, 0}, {0, 0.04f, 1}}},
};

INSTANTIATE_TEST_SUITE_P(Rows, RefusedTriple, ::testing::ValuesIn(kRefusedRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(ACameraTest, TakesAnEyeJustFarEnough)
{
    setTriple(m_camera, {{0, 0, 0.00011f}, {0, 0, 0}, {0, 1, 0}});

    EXPECT_THAT(tripleOf(m_camera).eye, ElementsAre(0.0f, 0.0f, 0.00011f));
}

TEST_F(ACameraTest, NormalisesTheUpVector)
{
    setTriple(m_camera, {{0, 0, 9}, {0, 0, 0}, {0, 5, 0}});

    EXPECT_THAT(tripleOf(m_camera).up, ElementsAre(0.0f, 1.0f, 0.0f));
}

TEST_F(ACameraTest, NormalisesTheCallersUpVectorOfARefusedTripleToo)
{
    const Vector up = setTriple(m_camera, {{0, 0, kNaN}, {0, 0, 0}, {0, 5, 0}});

    EXPECT_THAT(up, ElementsAre(0.0f, 1.0f, 0.0f));
}

TEST_F(ACameraTest, UpLeaningForwardIsKept)
{
    // 60 degrees from the viewing direction (0, 0, -1): a dot product of 0.5.
    setTriple(m_camera, {{0, 0, 9}, {0, 0, 0}, {0, 0.8660254f, -0.5f}});

    EXPECT_THAT(tripleOf(m_camera).up, IsNear(0.0f, 0.8660254f, -0.5f, 1e-6f));
}

TEST_F(ACameraTest, UpLeaningBackIsStraightened)
{
    // A dot product of -0.5: replaced by its part across the viewing direction.
    const Vector up = setTriple(m_camera, {{0, 0, 9}, {0, 0, 0}, {0, 0.8660254f, 0.5f}});

    EXPECT_THAT(tripleOf(m_camera).up, IsNear(0.0f, 0.8660254f, 0.0f, 1e-6f));
    EXPECT_THAT(up, IsNear(0.0f, 0.8660254f, 0.0f, 1e-6f));
}

TEST_F(ACameraTest, UpLeaningBackALittleIsKept)
{
    // A dot product of -0.0995.
    setTriple(m_camera, {{0, 0, 9}, {0, 0, 0}, {0, 1.0f, 0.1f}});

    EXPECT_THAT(tripleOf(m_camera).up, IsNear(0.0f, 0.9950372f, 0.0995037f, 1e-6f));
}

TEST_F(ACameraTest, TellsNumbersFromOthers)
{
    EXPECT_TRUE(m_camera.isANumber(0.0f));
    EXPECT_TRUE(m_camera.isANumber(kInfinity));
    EXPECT_FALSE(m_camera.isANumber(kNaN));
}

TEST_F(ACameraTest, TellsFiniteNumbersFromOthers)
{
    EXPECT_TRUE(m_camera.isFinite(kLargest));
    EXPECT_TRUE(m_camera.isFinite(-kLargest));
    EXPECT_FALSE(m_camera.isFinite(kInfinity));
    EXPECT_FALSE(m_camera.isFinite(-kInfinity));
    EXPECT_FALSE(m_camera.isFinite(kNaN));
}

TEST_F(ACameraTest, ForwardsTheRotationCenter)
{
    const Vector center{1.0f, 2.0f, 3.0f};
    Vector read{};

    m_camera.SetRotationCenter(center.data());
    m_camera.SetRotationCenter(nullptr);
    m_camera.GetRotationCenter(read.data());
    m_camera.GetRotationCenter(nullptr);

    EXPECT_EQ(read, center);
}

TEST_F(ACameraTest, WithoutStrategiesTurnsAndPansNothing)
{
    m_camera.SetStrategies(nullptr, nullptr);
    OrvikCore::ViewOpRotate rotation(10, 10, 0, 0, IViewOpState::Processing);
    OrvikCore::ViewOpPan pan(10, 10, 0, 0, IViewOpState::Processing);
    Vector center{4.0f, 5.0f, 6.0f};

    m_camera.Rotate(&rotation);
    m_camera.Pan(&pan);
    m_camera.SetRotationCenter(center.data());
    m_camera.GetRotationCenter(center.data());

    expectAtStart();
    EXPECT_THAT(center, ElementsAre(4.0f, 5.0f, 6.0f));
}

TEST_F(ACameraTest, WithoutViewTurnsPansAndFitsNothing)
{
    PlainCamera camera;
    camera.SetAnimate(false);
    OrvikCore::ViewOpRotate rotation(10, 10, 0, 0, IViewOpState::Processing);
    OrvikCore::ViewOpPan pan(10, 10, 0, 0, IViewOpState::Processing);

    camera.Rotate(&rotation);
    camera.Pan(&pan);
    camera.ZoomAll();
    camera.ZoomToBox(0, 0, 0, 1, 1, 1);

    EXPECT_THAT(tripleOf(camera).eye, ElementsAre(0.0f, 0.0f, 100.0f));
}

TEST_F(ACameraTest, NullOperationsAreIgnored)
{
    m_camera.Rotate(nullptr);
    m_camera.Pan(nullptr);
    m_camera.Zoom(nullptr);

    expectAtStart();
}

TEST_F(ACameraTest, TurnsThroughItsStrategyWithoutAnimation)
{
    m_camera.SetStrategies(new RecordingRotation(&m_camera, m_log), nullptr);
    m_camera.SetAnimate(true);
    OrvikCore::ViewOpRotate rotation(400, 150, 0, 0, IViewOpState::Processing);

    m_camera.Rotate(&rotation);

    EXPECT_THAT(m_log, ElementsAre("rotate 90.000000 45.000000"));
    EXPECT_TRUE(m_camera.GetAnimate());
}

TEST_F(ACameraTest, PansThroughItsStrategyWithoutAnimation)
{
    m_camera.SetStrategies(nullptr, new RecordingPan(&m_camera, m_log));
    m_camera.SetAnimate(true);
    OrvikCore::ViewOpPan pan(400, 150, 0, 0, IViewOpState::Processing);

    m_camera.Pan(&pan);

    EXPECT_THAT(m_log, ElementsAre("pan in 800.000000 x 600.000000"));
    EXPECT_TRUE(m_camera.GetAnimate());
}

TEST_F(ACameraTest, AnimationSwitchedOffStaysOffAfterAMove)
{
    OrvikCore::ViewOpRotate rotation(400, 150, 0, 0, IViewOpState::Processing);

    m_camera.Rotate(&rotation);

    EXPECT_FALSE(m_camera.GetAnimate());
}

TEST_F(ACameraTest, ZoomScalesTheDistanceByPercent)
{
    OrvikCore::ViewOpZoom away(20, 0, 0);
    m_camera.Put({{10, 0, 100}, {10, 0, 0}, {0, 1, 0}});

    m_camera.Zoom(&away);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(10.0f, 0.0f, 120.0f, 1e-4f));
    EXPECT_THAT(tripleOf(m_camera).target, ElementsAre(10.0f, 0.0f, 0.0f));
}

TEST_F(ACameraTest, ZoomOfMinusHundredPutsTheEyeOnTheTarget)
{
    OrvikCore::ViewOpZoom onto(-100, 0, 0);

    m_camera.Zoom(&onto);

    EXPECT_THAT(tripleOf(m_camera).eye, ElementsAre(0.0f, 0.0f, 0.0f));
}

TEST(ACamera, ZoomBelowMinusHundredPassesThroughTheTarget)
{
    PlainCamera camera;
    OrvikCore::ViewOpZoom through(-150, 0, 0);

    camera.Zoom(&through);

    EXPECT_THAT(tripleOf(camera).eye, IsNear(0.0f, 0.0f, -50.0f, 1e-4f));
}

TEST_F(ACameraTest, ZoomAllFitsTheSphere)
{
    // 10 / tan(22.5 degrees) * 1.5 = 36.2132.
    m_view.m_radius = 10.0f;
    std::copy_n(Vector{1.0f, 2.0f, 3.0f}.data(), 3, m_view.m_center);
    Vector center{};

    m_camera.ZoomAll();
    m_camera.GetRotationCenter(center.data());

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(1.0f, 2.0f, 39.2132f));
    EXPECT_THAT(tripleOf(m_camera).target, ElementsAre(1.0f, 2.0f, 3.0f));
    EXPECT_THAT(tripleOf(m_camera).up, ElementsAre(0.0f, 1.0f, 0.0f));
    EXPECT_THAT(center, ElementsAre(1.0f, 2.0f, 3.0f));
}

TEST_F(ACameraTest, ZoomAllStandsBackInATallWindow)
{
    m_view.m_radius = 10.0f;
    m_view.m_width = 600;
    m_view.m_height = 1200;

    m_camera.ZoomAll();

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(0.0f, 0.0f, 72.4264f));
}

TEST_F(ACameraTest, ZoomAllDoesNothingForAnEmptyWindowOrModel)
{
    m_camera.ZoomAll();
    expectAtStart();

    m_view.m_radius = 10.0f;
    m_view.m_width = 0;
    m_camera.ZoomAll();
    expectAtStart();

    m_view.m_width = 800;
    m_view.m_height = 0;
    m_camera.ZoomAll();
    expectAtStart();
}

TEST_F(ACameraTest, ZoomToBoxFitsTheBox)
{
    // Half the diagonal is sqrt(16 + 36 + 64) / 2 = 5.385165; / tan(22.5 degrees) * 1.5 = 19.50141.
    Vector center{};

    m_camera.ZoomToBox(-1, -2, -3, 3, 4, 5);
    m_camera.GetRotationCenter(center.data());

    EXPECT_THAT(tripleOf(m_camera).target, ElementsAre(1.0f, 1.0f, 1.0f));
    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(1.0f, 1.0f, 20.50141f));
    EXPECT_THAT(center, ElementsAre(1.0f, 1.0f, 1.0f));
}

TEST_F(ACameraTest, ZoomToBoxStandsBackInATallWindow)
{
    m_view.m_width = 300;

    m_camera.ZoomToBox(3, 4, 5, -1, -2, -3);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(1.0f, 1.0f, 40.00282f));
}

TEST_F(ACameraTest, ZoomToBoxOfOnePointStandsOneUnitAway)
{
    m_camera.ZoomToBox(5, 6, 7, 5, 6, 7);

    EXPECT_THAT(tripleOf(m_camera).target, ElementsAre(5.0f, 6.0f, 7.0f));
    EXPECT_THAT(tripleOf(m_camera).eye, ElementsAre(5.0f, 6.0f, 8.0f));
}

TEST_F(ACameraTest, ZoomToBoxDoesNothingForAnEmptyWindow)
{
    m_view.m_width = 0;
    m_camera.ZoomToBox(0, 0, 0, 1, 1, 1);
    expectAtStart();

    m_view.m_width = 800;
    m_view.m_height = 0;
    m_camera.ZoomToBox(0, 0, 0, 1, 1, 1);
    expectAtStart();
}

TEST_F(ACameraTest, ParallelRayStartsBesideTheEye)
{
    // At the target 100 * tan(22.5 degrees) * 2 = 82.8427 by 110.4569 units are seen; the middle of
    // pixel (0, 0) lies at -0.499375 of the width and 0.4991667 of the height.
    const TambVizCore::Ray ray = m_camera.Make3DRay(0, 0, 4);

    EXPECT_NEAR(ray.Origin()[0], -55.1594f, 1e-3f);
    EXPECT_NEAR(ray.Origin()[1], 41.3523f, 1e-3f);
    EXPECT_NEAR(ray.Origin()[2], 100.0f, 1e-3f);
    EXPECT_NEAR(ray.Direction()[0], 0.0f, 1e-6f);
    EXPECT_NEAR(ray.Direction()[1], 0.0f, 1e-6f);
    EXPECT_NEAR(ray.Direction()[2], -1.0f, 1e-6f);
}

TEST_F(ACameraTest, PerspectiveRayStartsAtTheEye)
{
    m_camera.m_orthographic = false;

    const TambVizCore::Ray ray = m_camera.Make3DRay(0, 0, 4);

    // (-55.1594, 41.3523, -100) divided by its length 121.4596.
    EXPECT_NEAR(ray.Origin()[2], 100.0f, 1e-3f);
    EXPECT_NEAR(ray.Origin()[0], 0.0f, 1e-3f);
    EXPECT_NEAR(ray.Direction()[0], -0.454138f, 1e-5f);
    EXPECT_NEAR(ray.Direction()[1], 0.340462f, 1e-5f);
    EXPECT_NEAR(ray.Direction()[2], -0.823319f, 1e-5f);
}

TEST_F(ACameraTest, RayRadiusIsTheApertureAtTheTarget)
{
    // 4 pixels of 82.8427 / 600 units.
    EXPECT_NEAR(m_camera.Make3DRay(400, 300, 4).Radius(), 0.552285, 1e-5);
    EXPECT_EQ(m_camera.Make3DRay(400, 300, 0).Radius(), 0.0);
}

TEST_F(ACameraTest, RayWithoutWindowRunsThroughTheMiddle)
{
    m_view.m_width = 0;
    m_view.m_height = 0;

    const TambVizCore::Ray ray = m_camera.Make3DRay(7, 7, 4);

    EXPECT_NEAR(ray.Origin()[0], 0.0f, 1e-3f);
    EXPECT_NEAR(ray.Origin()[1], 0.0f, 1e-3f);
    EXPECT_EQ(ray.Radius(), 0.0);
}

TEST_F(ACameraTest, RayWithoutViewRunsThroughTheMiddle)
{
    PlainCamera camera;

    EXPECT_NEAR(camera.Make3DRay(7, 7, 4).Direction()[2], -1.0f, 1e-6f);
}

TEST_F(ACameraTest, CopiesTheSettingsOfAnother)
{
    PlainCamera other;
    other.Put({{1, 2, 3}, {4, 5, 6}, {0, 0, 1}});
    other.m_orthographic = false;
    other.SetAnimate(false);
    other.SetFieldOfViewRadians(0.5f);
    PlainCamera camera(&m_view);

    camera.copySettingsFrom(other);

    EXPECT_THAT(tripleOf(camera).eye, ElementsAre(1.0f, 2.0f, 3.0f));
    EXPECT_THAT(tripleOf(camera).target, ElementsAre(4.0f, 5.0f, 6.0f));
    EXPECT_THAT(tripleOf(camera).up, ElementsAre(0.0f, 0.0f, 1.0f));
    EXPECT_FALSE(camera.IsOrthographic());
    EXPECT_FALSE(camera.GetAnimate());
    EXPECT_EQ(camera.GetFieldOfViewRadians(), 0.5f);
    EXPECT_EQ(camera.GetView3D(), &m_view);
}

TEST_F(ACameraTest, CopyingReplacesTheStrategiesByClones)
{
    std::vector<std::string> own;
    std::vector<std::string> others;
    PlainCamera camera;
    PlainCamera other;
    camera.SetStrategies(new RecordingRotation(&camera, own), new RecordingPan(&camera, own));
    other.SetStrategies(new RecordingRotation(&other, others), new RecordingPan(&other, others));

    camera.copySettingsFrom(other);

    EXPECT_THAT(own, ElementsAre("rotation deleted", "pan deleted"));
    EXPECT_THAT(others, ElementsAre("rotation cloned", "pan cloned"));
    EXPECT_EQ(static_cast<RecordingRotation*>(camera.m_rotateStrategy)->Camera(), &camera);
    EXPECT_EQ(static_cast<RecordingPan*>(camera.m_panStrategy)->Camera(), &camera);
}

TEST_F(ACameraTest, CopyingFromACameraWithoutStrategiesKeepsTheOwn)
{
    PlainCamera other;
    other.SetStrategies(nullptr, nullptr);
    const auto* rotation = m_camera.m_rotateStrategy;
    const auto* pan = m_camera.m_panStrategy;

    m_camera.copySettingsFrom(other);

    EXPECT_EQ(m_camera.m_rotateStrategy, rotation);
    EXPECT_EQ(m_camera.m_panStrategy, pan);
}

TEST_F(ACameraTest, CopyingFromItselfChangesNothing)
{
    const auto* rotation = m_camera.m_rotateStrategy;

    m_camera.copySettingsFrom(m_camera);

    EXPECT_EQ(m_camera.m_rotateStrategy, rotation);
}

TEST(ACamera, DeletesThePanStrategyThenTheRotateStrategy)
{
    std::vector<std::string> log;
    {
        PlainCamera camera;
        camera.SetStrategies(new RecordingRotation(&camera, log), new RecordingPan(&camera, log));
    }

    EXPECT_THAT(log, ElementsAre("pan deleted", "rotation deleted"));
}

TEST(ACamera, IsNotCopiedByValue)
{
    EXPECT_FALSE(std::is_copy_constructible_v<OrvikCore::CameraYUp>);
    EXPECT_FALSE(std::is_copy_assignable_v<OrvikCore::CameraYUp>);
}
