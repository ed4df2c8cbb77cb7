#include "CameraFixture.h"

#include "OrvikCore/CameraPanStrategy.h"
#include "OrvikCore/CameraRotateArcball.h"
#include "OrvikCore/CameraRotateWithCenter.h"
#include "OrvikCore/ViewOpPan.h"
#include "OrvikCore/ViewOpRotate.h"
#include "OrvikCore/ViewOpZoom.h"

#include <cmath>
#include <memory>

using OrvikCore::CameraPanStrategy;
using OrvikCore::CameraRotateArcball;
using OrvikCore::CameraRotateWithCenter;
using OrvikCore::IViewOpState;
using ::testing::ElementsAre;

namespace {

constexpr float kWidth = 800.0f;
constexpr float kHeight = 600.0f;

/// A camera at (0, 0, 100) that looks at the origin with y up, and drags in a window of 800 x 600.
class CameraStrategyTest : public ::testing::Test
{
protected:
    CameraStrategyTest() { m_camera.SetAnimate(false); }

    void drag(OrvikCore::ACameraMoveStrategy& strategy, int dx, int dy, float width = kWidth,
              float height = kHeight)
    {
        OrvikCore::ViewOpRotate op(100 + dx, 100 + dy, 100, 100, IViewOpState::Processing);
        strategy.Move(&op, width, height);
    }

    /// The angle in degrees by which the eye has turned about the y axis.
    float turnOfTheEye()
    {
        const Vector eye = tripleOf(m_camera).eye;
        return std::atan2(eye[0], eye[2]) * 180.0f / 3.1415927f;
    }

    void expectUnmoved()
    {
        EXPECT_THAT(tripleOf(m_camera).eye, ElementsAre(0.0f, 0.0f, 100.0f));
        EXPECT_THAT(tripleOf(m_camera).target, ElementsAre(0.0f, 0.0f, 0.0f));
    }

    PlainCamera m_camera;
};

using CameraRotateArcballTest = CameraStrategyTest;
using CameraRotateWithCenterTest = CameraStrategyTest;
using CameraPanStrategyTest = CameraStrategyTest;

/// Shows the turn of a triple without a camera's checks.
class ShownRotation : public CameraRotateWithCenter
{
public:
    using CameraRotateWithCenter::calculateCamera;
    using CameraRotateWithCenter::CameraRotateWithCenter;
    using CameraRotateWithCenter::rotate;
};

} // namespace

TEST_F(CameraRotateArcballTest, DragOverHalfTheWidthTurnsByNinetyDegrees)
{
    CameraRotateArcball strategy(&m_camera);

    drag(strategy, 400, 0);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(-100.0f, 0.0f, 0.0f));
    EXPECT_THAT(tripleOf(m_camera).up, IsNear(0.0f, 1.0f, 0.0f));
}

TEST_F(CameraRotateArcballTest, DragDownOverHalfTheHeightLooksFromAbove)
{
    CameraRotateArcball strategy(&m_camera);

    drag(strategy, 0, 300);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(0.0f, 100.0f, 0.0f));
    EXPECT_THAT(tripleOf(m_camera).up, IsNear(0.0f, 0.0f, -1.0f));
}

TEST_F(CameraRotateArcballTest, DragAcrossTurnsSidewaysFirst)
{
    // Sideways by 90 degrees to (-100, 0, 0), then up by 90 degrees.
    CameraRotateArcball strategy(&m_camera);

    drag(strategy, 400, 300);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(0.0f, 100.0f, 0.0f));
    EXPECT_THAT(tripleOf(m_camera).up, IsNear(1.0f, 0.0f, 0.0f));
}

TEST_F(CameraRotateArcballTest, TurnsAboutTheTarget)
{
    m_camera.Put({{10, 20, 130}, {10, 20, 30}, {0, 1, 0}});
    CameraRotateArcball strategy(&m_camera);

    drag(strategy, 400, 0);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(-90.0f, 20.0f, 30.0f));
    EXPECT_THAT(tripleOf(m_camera).target, ElementsAre(10.0f, 20.0f, 30.0f));
}

TEST_F(CameraRotateArcballTest, SmallTurnsStaySmall)
{
    CameraRotateArcball strategy(&m_camera);

    drag(strategy, 1, 0, 1000.0f);

    EXPECT_NEAR(turnOfTheEye(), -0.18f, 1e-3f);
}

TEST_F(CameraRotateArcballTest, RotationCenterIsTheTarget)
{
    m_camera.Put({{10, 20, 130}, {10, 20, 30}, {0, 1, 0}});
    CameraRotateArcball strategy(&m_camera);
    const Vector ignored{7, 8, 9};
    Vector center{};

    strategy.SetRotationCenter(ignored.data());
    strategy.GetRotationCenter(center.data());

    EXPECT_THAT(center, ElementsAre(10.0f, 20.0f, 30.0f));
}

TEST_F(CameraRotateArcballTest, CloneTurnsAnotherCamera)
{
    PlainCamera other;
    other.SetAnimate(false);
    CameraRotateArcball strategy(&m_camera);

    const std::unique_ptr<OrvikCore::ACameraRotateStrategy> clone(strategy.CloneTo(&other));
    drag(*clone, 400, 0);

    EXPECT_NE(dynamic_cast<CameraRotateArcball*>(clone.get()), nullptr);
    EXPECT_EQ(dynamic_cast<CameraRotateWithCenter*>(clone.get()), nullptr);
    EXPECT_THAT(tripleOf(other).eye, IsNear(-100.0f, 0.0f, 0.0f));
    expectUnmoved();
}

TEST_F(CameraRotateArcballTest, OtherOperationsAreIgnored)
{
    CameraRotateArcball strategy(&m_camera);
    OrvikCore::ViewOpZoom zoom(5, 300, 300);

    strategy.Move(nullptr, kWidth, kHeight);
    strategy.Move(&zoom, kWidth, kHeight);

    expectUnmoved();
}

TEST_F(CameraRotateArcballTest, PansAreReadLikeRotations)
{
    CameraRotateArcball strategy(&m_camera);
    OrvikCore::ViewOpPan pan(400, 0, 0, 0, IViewOpState::Processing);

    strategy.Move(&pan, kWidth, kHeight);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(-100.0f, 0.0f, 0.0f));
}

TEST_F(CameraRotateArcballTest, TurnOntoTheLineOfSightStopsMoving)
{
    // The up vector leans forward by so much that a further turn brings it onto the view.
    m_camera.Put({{0, 0, 100}, {0, 0, 0}, {0, 0.05f, -0.9987f}});
    CameraRotateWithCenter strategy(&m_camera);

    drag(strategy, 0, 0);

    EXPECT_THAT(tripleOf(m_camera).eye, ElementsAre(0.0f, 0.0f, 100.0f));
}

TEST_F(CameraRotateArcballTest, WindowWithoutSizeMovesNothing)
{
    CameraRotateArcball strategy(&m_camera);

    drag(strategy, 5, 5, 0.0f, 0.0f);

    expectUnmoved();
}

TEST(CameraRotateWithCenter, SmallTurnsBecomeOneDegree)
{
    PlainCamera camera;
    camera.SetAnimate(false);
    CameraRotateWithCenter strategy(&camera);
    OrvikCore::ViewOpRotate onePixel(1, 0, 0, 0, IViewOpState::Processing);

    strategy.Move(&onePixel, 1000.0f, 1000.0f);

    // 0.18 degrees by the drag, one whole degree by the strategy, to the left.
    const Vector eye = tripleOf(camera).eye;
    EXPECT_NEAR(std::atan2(eye[0], eye[2]) * 180.0f / 3.1415927f, -1.0f, 1e-4f);
}

TEST_F(CameraRotateWithCenterTest, SmallTurnsKeepTheirSign)
{
    CameraRotateWithCenter strategy(&m_camera);

    drag(strategy, -1, 0, 1000.0f);

    EXPECT_NEAR(turnOfTheEye(), 1.0f, 1e-4f);
}

TEST_F(CameraRotateWithCenterTest, LargerTurnsStayAsTheyAre)
{
    CameraRotateWithCenter strategy(&m_camera);

    drag(strategy, 10, 0, 1000.0f);

    EXPECT_NEAR(turnOfTheEye(), -1.8f, 1e-3f);
}

TEST_F(CameraRotateWithCenterTest, TurnsInTheDeadZoneAreNone)
{
    CameraRotateWithCenter strategy(&m_camera);

    drag(strategy, 1, 1, 20000.0f, 20000.0f); // 0.009 degrees.
    drag(strategy, 0, 0);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(0.0f, 0.0f, 100.0f, 1e-6f));
}

TEST_F(CameraRotateWithCenterTest, DeadZoneEndsAtAHundredthOfADegree)
{
    CameraRotateWithCenter strategy(&m_camera);

    drag(strategy, 1, 0, 17000.0f); // 0.0106 degrees.

    EXPECT_NEAR(turnOfTheEye(), -1.0f, 1e-4f);
}

TEST_F(CameraRotateWithCenterTest, EachAngleIsRaisedByItself)
{
    // 1.8 degrees sideways stay, 0.18 degrees downwards become 1.
    CameraRotateWithCenter strategy(&m_camera);

    drag(strategy, 10, 1, 1000.0f, 1000.0f);

    EXPECT_NEAR(turnOfTheEye(), -1.8f, 1e-3f);
    EXPECT_NEAR(tripleOf(m_camera).eye[1], 100.0f * std::sin(3.1415927f / 180.0f), 1e-3f);
}

TEST_F(CameraRotateWithCenterTest, CenterOnTheTargetIsTheArcball)
{
    PlainCamera other;
    other.SetAnimate(false);
    CameraRotateWithCenter withCenter(&m_camera);
    CameraRotateArcball arcball(&other);

    drag(withCenter, 70, -50);
    drag(arcball, 70, -50);

    EXPECT_EQ(tripleOf(m_camera).eye, tripleOf(other).eye);
    EXPECT_EQ(tripleOf(m_camera).up, tripleOf(other).up);
}

TEST_F(CameraRotateWithCenterTest, DragSidewaysSwingsEyeAndTargetRoundTheCenter)
{
    CameraRotateWithCenter strategy(&m_camera);
    const Vector center{0, 0, 50};
    strategy.SetRotationCenter(center.data());

    drag(strategy, 400, 0);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(-50.0f, 0.0f, 50.0f));
    EXPECT_THAT(tripleOf(m_camera).target, IsNear(50.0f, 0.0f, 50.0f));
    EXPECT_THAT(tripleOf(m_camera).up, IsNear(0.0f, 1.0f, 0.0f));
}

TEST_F(CameraRotateWithCenterTest, DragDownSwingsEyeAndTargetRoundTheCenter)
{
    CameraRotateWithCenter strategy(&m_camera);
    const Vector center{0, 0, 50};
    strategy.SetRotationCenter(center.data());

    drag(strategy, 0, 300);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(0.0f, 50.0f, 50.0f));
    EXPECT_THAT(tripleOf(m_camera).target, IsNear(0.0f, -50.0f, 50.0f));
    EXPECT_THAT(tripleOf(m_camera).up, IsNear(0.0f, 0.0f, -1.0f));
}

TEST_F(CameraRotateWithCenterTest, DragAcrossUsesTheHorizontalAxisFromBefore)
{
    // About y by -90 degrees, then about -x by 90 degrees: (0, 0, 50) goes to (-50, 0, 0) and
    // stays.
    CameraRotateWithCenter strategy(&m_camera);
    const Vector center{0, 0, 50};
    strategy.SetRotationCenter(center.data());

    drag(strategy, 400, 300);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(-50.0f, 0.0f, 50.0f));
    EXPECT_THAT(tripleOf(m_camera).target, IsNear(50.0f, 0.0f, 50.0f));
    EXPECT_THAT(tripleOf(m_camera).up, IsNear(0.0f, 0.0f, -1.0f));
}

TEST_F(CameraRotateWithCenterTest, SquaresTheTripleUpFirst)
{
    ShownRotation strategy(&m_camera);
    const Vector center{0, 0, 50};
    strategy.SetRotationCenter(center.data());
    Triple triple{{0, 0, 100}, {0, 0, 0}, {0, 3, -4}};

    strategy.calculateCamera(0.0f, 0.0f, triple.eye.data(), triple.target.data(), triple.up.data());

    EXPECT_THAT(triple.up, IsNear(0.0f, 1.0f, 0.0f, 1e-6f));
    EXPECT_THAT(triple.eye, IsNear(0.0f, 0.0f, 100.0f));
    EXPECT_THAT(triple.target, IsNear(0.0f, 0.0f, 0.0f));
}

TEST_F(CameraRotateWithCenterTest, CloneKeepsTheCenter)
{
    PlainCamera other;
    other.SetAnimate(false);
    CameraRotateWithCenter strategy(&m_camera);
    const Vector center{0, 0, 50};
    strategy.SetRotationCenter(center.data());

    const std::unique_ptr<OrvikCore::ACameraRotateStrategy> clone(strategy.CloneTo(&other));
    drag(*clone, 400, 0);

    Vector cloned{};
    clone->GetRotationCenter(cloned.data());
    EXPECT_EQ(cloned, center);
    EXPECT_NE(dynamic_cast<CameraRotateWithCenter*>(clone.get()), nullptr);
    EXPECT_THAT(tripleOf(other).eye, IsNear(-50.0f, 0.0f, 50.0f));
    expectUnmoved();
}

TEST_F(CameraPanStrategyTest, DragOverTheWholeHeightMovesByTheVisibleHeight)
{
    // 2 * 100 * tan(22.5 degrees) = 82.8427 units are seen.
    CameraPanStrategy strategy(&m_camera);

    drag(strategy, 0, 600);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(0.0f, 82.8427f, 100.0f));
    EXPECT_THAT(tripleOf(m_camera).target, IsNear(0.0f, 82.8427f, 0.0f));
}

TEST_F(CameraPanStrategyTest, DragOverTheWholeWidthMovesByTheVisibleWidth)
{
    CameraPanStrategy strategy(&m_camera);

    drag(strategy, 800, 0);

    EXPECT_THAT(tripleOf(m_camera).eye, IsNear(-110.4569f, 0.0f, 100.0f));
    EXPECT_THAT(tripleOf(m_camera).target, IsNear(-110.4569f, 0.0f, 0.0f));
}

TEST_F(CameraPanStrategyTest, MovesAlikeInPerspective)
{
    m_camera.m_orthographic = false;
    CameraPanStrategy strategy(&m_camera);

    drag(strategy, 0, 600);

    EXPECT_THAT(tripleOf(m_camera).target, IsNear(0.0f, 82.8427f, 0.0f));
}

TEST_F(CameraPanStrategyTest, MovesByThePartsOfADrag)
{
    CameraPanStrategy strategy(&m_camera);

    drag(strategy, -80, 60);

    EXPECT_THAT(tripleOf(m_camera).target, IsNear(11.04569f, 8.28427f, 0.0f));
}

TEST_F(CameraPanStrategyTest, OtherOperationsAreIgnored)
{
    CameraPanStrategy strategy(&m_camera);
    OrvikCore::ViewOpZoom zoom(5, 300, 300);

    strategy.Move(nullptr, kWidth, kHeight);
    strategy.Move(&zoom, kWidth, kHeight);

    expectUnmoved();
}

TEST_F(CameraPanStrategyTest, CloneMovesAnotherCamera)
{
    PlainCamera other;
    other.SetAnimate(false);
    CameraPanStrategy strategy(&m_camera);

    const std::unique_ptr<OrvikCore::ACameraMoveStrategy> clone(strategy.CloneTo(&other));
    drag(*clone, 0, 600);

    EXPECT_NE(dynamic_cast<CameraPanStrategy*>(clone.get()), nullptr);
    EXPECT_THAT(tripleOf(other).target, IsNear(0.0f, 82.8427f, 0.0f));
    expectUnmoved();
}
