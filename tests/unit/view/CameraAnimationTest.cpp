#include "CameraFixture.h"
#include "FakeSession.h"

#include "OrvikCore/ISessionObserver.h"

#include <OrvikOs/Clock.h>
#include <OrvikOs/Sleeper.h>
#include <TambVizCore/Settings.h>

#include <cmath>
#include <cstdint>

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::SizeIs;

namespace {

/// The eased progress after each of 20 steps.
constexpr float kProgress[20] = {0.1f,  0.4f,  0.9f,  1.6f,  2.5f,  4.0f,  5.5f,
                                 7.0f,  8.5f,  10.0f, 11.5f, 13.0f, 14.5f, 16.0f,
                                 17.5f, 18.4f, 19.1f, 19.6f, 19.9f, 20.0f};

constexpr float kPi = 3.1415925f;

/// Time that passes only in sleeps and where a test lets it pass.
class ManualTime : public OrvikOs::IClock, public OrvikOs::ISleeper
{
public:
    ManualTime()
    {
        OrvikOs::SetClock(this);
        OrvikOs::SetSleeper(this);
    }
    ~ManualTime() override
    {
        OrvikOs::SetSleeper(nullptr);
        OrvikOs::SetClock(nullptr);
    }
    ManualTime(const ManualTime&) = delete;
    ManualTime& operator=(const ManualTime&) = delete;

    std::uint64_t NowUs() override { return m_nowUs; }
    void SleepMs(int milliseconds) override
    {
        m_sleepsMs.push_back(milliseconds);
        Pass(milliseconds);
    }
    void Pass(int milliseconds) { m_nowUs += static_cast<std::uint64_t>(milliseconds) * 1000u; }

    std::uint64_t m_nowUs = 5'000'000;
    std::vector<int> m_sleepsMs;
};

/// Keeps the camera's triple of every repaint; a repaint takes as long as a test says.
class RepaintRecorder : public OrvikCore::ISessionObserver
{
public:
    RepaintRecorder(OrvikCore::ACamera& camera, ManualTime& time) : m_camera(camera), m_time(time)
    {
    }

    void Notify(int eventCode) override
    {
        if (eventCode == 2) {
            m_triples.push_back(tripleOf(m_camera));
            m_time.Pass(m_paintMs);
        }
    }

    int m_paintMs = 0;
    std::vector<Triple> m_triples;

private:
    OrvikCore::ACamera& m_camera;
    ManualTime& m_time;
};

/// An animated camera at (0, 0, 100), looking at the origin with y up.
class ACameraAnimation : public ::testing::Test
{
protected:
    ACameraAnimation() { MakeCurrentFakeSession().SetOutputObserver(&m_repaints); }
    ~ACameraAnimation() override { OrvikCore::SessionMgr::Instance().Terminate(); }

    void moveTo(const Triple& triple) { setTriple(m_camera, triple); }

    void expectAt(const Triple& triple)
    {
        const Triple now = tripleOf(m_camera);
        EXPECT_EQ(now.eye, triple.eye);
        EXPECT_EQ(now.target, triple.target);
        EXPECT_EQ(now.up, triple.up);
    }

    float distanceAt(std::size_t repaint) const
    {
        const Triple& triple = m_repaints.m_triples[repaint];
        return std::hypot(triple.eye[0] - triple.target[0], triple.eye[1] - triple.target[1],
                          triple.eye[2] - triple.target[2]);
    }

    ManualTime m_time;
    PlainCamera m_camera;
    RepaintRecorder m_repaints{m_camera, m_time};
};

const Triple kFromTheRight{{100, 0, 0}, {0, 0, 0}, {0, 1, 0}};

} // namespace

TEST_F(ACameraAnimation, DoesNotHappenWhenSwitchedOff)
{
    m_camera.SetAnimate(false);

    moveTo(kFromTheRight);

    expectAt(kFromTheRight);
    EXPECT_THAT(m_repaints.m_triples, SizeIs(0));
    EXPECT_THAT(m_time.m_sleepsMs, SizeIs(0));
}

TEST_F(ACameraAnimation, OfATurnRepaintsTwentyTimesAndEndsExactly)
{
    moveTo(kFromTheRight);

    EXPECT_THAT(m_repaints.m_triples, SizeIs(20));
    expectAt(kFromTheRight);
}

TEST_F(ACameraAnimation, TakesAsManyStepsAsTheSettingsSay)
{
    TambVizCore::Settings::Current()->SetAnimationSteps(6);

    moveTo(kFromTheRight);

    EXPECT_THAT(m_repaints.m_triples, SizeIs(6));
    expectAt(kFromTheRight);

    moveTo({{100, 1, 0}, {0, 1, 0}, {0, 1, 0}});

    EXPECT_THAT(m_repaints.m_triples, SizeIs(12));
    EXPECT_THAT(m_time.m_sleepsMs, SizeIs(12));
}

TEST_F(ACameraAnimation, OfATurnIsEased)
{
    moveTo(kFromTheRight);

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    for (std::size_t i = 0; i < 20; ++i) {
        const float turn = kPi / 2.0f * kProgress[i] / 20.0f;
        EXPECT_THAT(m_repaints.m_triples[i].eye,
                    IsNear(100.0f * std::sin(turn), 0.0f, 100.0f * std::cos(turn)))
            << "step " << i;
        EXPECT_THAT(m_repaints.m_triples[i].up, IsNear(0.0f, 1.0f, 0.0f));
    }
}

TEST_F(ACameraAnimation, OfATurnKeepsThePace)
{
    moveTo(kFromTheRight);

    EXPECT_THAT(m_time.m_sleepsMs, SizeIs(20));
    EXPECT_THAT(m_time.m_sleepsMs, Each(30));
}

TEST_F(ACameraAnimation, OfATurnCountsTheRepaintBefore)
{
    m_repaints.m_paintMs = 12;

    moveTo(kFromTheRight);

    ASSERT_THAT(m_time.m_sleepsMs, SizeIs(20));
    EXPECT_EQ(m_time.m_sleepsMs.front(), 30);
    m_time.m_sleepsMs.erase(m_time.m_sleepsMs.begin());
    EXPECT_THAT(m_time.m_sleepsMs, Each(18));
}

TEST_F(ACameraAnimation, OfATurnDoesNotSleepAfterSlowRepaints)
{
    m_repaints.m_paintMs = 31;

    moveTo(kFromTheRight);

    EXPECT_THAT(m_time.m_sleepsMs, ElementsAre(30));
    EXPECT_THAT(m_repaints.m_triples, SizeIs(20));
}

TEST_F(ACameraAnimation, OfATurnChangesTheDistanceAlong)
{
    moveTo({{50, 0, 0}, {0, 0, 0}, {0, 1, 0}});

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    for (std::size_t i = 0; i < 20; ++i) {
        EXPECT_NEAR(distanceAt(i), 100.0f - 2.5f * kProgress[i], 1e-3f) << "step " << i;
    }
}

TEST_F(ACameraAnimation, OfATurnSlidesTheTargetEvenly)
{
    moveTo({{120, 0, 0}, {20, 0, 0}, {0, 1, 0}});

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    for (std::size_t i = 0; i < 20; ++i) {
        EXPECT_THAT(m_repaints.m_triples[i].target, IsNear(static_cast<float>(i + 1), 0.0f, 0.0f));
    }
}

TEST_F(ACameraAnimation, OfTheImageUpsideDownTurnsAboutTheLineOfSight)
{
    const Triple upsideDown{{0, 0, 100}, {0, 0, 0}, {0, -1, 0}};

    moveTo(upsideDown);

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    EXPECT_THAT(m_repaints.m_triples[9].up, IsNear(1.0f, 0.0f, 0.0f));
    EXPECT_THAT(m_repaints.m_triples[9].eye, IsNear(0.0f, 0.0f, 100.0f));
    expectAt(upsideDown);
}

TEST_F(ACameraAnimation, OfAReversalTurnsAboutTheUpVector)
{
    const Triple fromBehind{{0, 0, -100}, {0, 0, 0}, {0, 1, 0}};

    moveTo(fromBehind);

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    EXPECT_THAT(m_repaints.m_triples[9].eye, IsNear(100.0f, 0.0f, 0.0f));
    EXPECT_THAT(m_repaints.m_triples[9].up, IsNear(0.0f, 1.0f, 0.0f));
    expectAt(fromBehind);
}

TEST_F(ACameraAnimation, OfAReversalWithAnOppositeUpIsOneEasedRun)
{
    const Triple overTheTop{{0, 0, -100}, {0, 0, 0}, {0, -1, 0}};

    moveTo(overTheTop);

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    const float firstTurn = kPi * 0.1f / 20.0f;
    EXPECT_THAT(m_repaints.m_triples[0].eye,
                IsNear(0.0f, -100.0f * std::sin(firstTurn), 100.0f * std::cos(firstTurn)));
    EXPECT_THAT(m_repaints.m_triples[9].eye, IsNear(0.0f, -100.0f, 0.0f));
    EXPECT_THAT(m_repaints.m_triples[9].up, IsNear(0.0f, 0.0f, 1.0f));
    expectAt(overTheTop);
}

TEST_F(ACameraAnimation, OfAReversalWithACrossingUpStaysFinite)
{
    const Triple crossing{{0, 0, -100}, {0, 0, 0}, {1, 0, 0}};

    moveTo(crossing);

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    for (const Triple& triple : m_repaints.m_triples) {
        EXPECT_THAT(triple.eye, IsNear(0.0f, 0.0f, 100.0f));
        EXPECT_TRUE(std::isfinite(triple.up[0] + triple.up[1] + triple.up[2]));
    }
    expectAt(crossing);
}

/// The view turns about +y while the up vector turns about -y.
class ACameraOpposedTurns : public ACameraAnimation
{
protected:
    ACameraOpposedTurns() { m_camera.Put({{0, 0, 100}, {0, 0, 0}, {1, 0, 0}}); }

    const Triple m_goal{{100, 0, 0}, {0, 0, 0}, {0, 0, 1}};
};

TEST_F(ACameraOpposedTurns, RunInTwoEvenHalves)
{
    moveTo(m_goal);

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    for (std::size_t i = 0; i < 10; ++i) {
        const float turn = kPi / 2.0f * static_cast<float>(i + 1) / 10.0f;
        EXPECT_THAT(m_repaints.m_triples[i].eye,
                    IsNear(100.0f * std::sin(turn), 0.0f, 100.0f * std::cos(turn)));
        EXPECT_THAT(m_repaints.m_triples[i].up, IsNear(std::cos(turn), -std::sin(turn), 0.0f));
        EXPECT_THAT(m_repaints.m_triples[10 + i].eye, IsNear(100.0f, 0.0f, 0.0f));
        EXPECT_THAT(m_repaints.m_triples[10 + i].up, IsNear(0.0f, -std::cos(turn), std::sin(turn)));
    }
    expectAt(m_goal);
}

TEST_F(ACameraOpposedTurns, CoverHalfTheDistanceInEachHalf)
{
    moveTo({{50, 0, 0}, {0, 0, 0}, {0, 0, 1}});

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    EXPECT_NEAR(distanceAt(9), 75.0f, 1e-3f);
    EXPECT_NEAR(distanceAt(10), 97.5f, 1e-3f);
    EXPECT_NEAR(distanceAt(19), 75.0f, 1e-3f);
    EXPECT_THAT(tripleOf(m_camera).eye, ElementsAre(50.0f, 0.0f, 0.0f));
}

TEST_F(ACameraAnimation, OfASmallTurnIsAStraightMove)
{
    // 0.29 radians: 5 % of the way in the first step, where an eased turn covers 0.5 %.
    const float x = 100.0f * std::sin(0.29f);
    const float z = 100.0f * std::cos(0.29f);

    moveTo({{x, 0, z}, {0, 0, 0}, {0, 1, 0}});

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    EXPECT_THAT(m_repaints.m_triples[0].eye,
                IsNear(x / 20.0f, 0.0f, 100.0f + (z - 100.0f) / 20.0f));
    EXPECT_THAT(m_repaints.m_triples[9].eye, IsNear(x / 2.0f, 0.0f, (100.0f + z) / 2.0f));
    EXPECT_THAT(m_repaints.m_triples[19].eye, IsNear(x, 0.0f, z));
}

TEST_F(ACameraAnimation, OfAnyLargerTurnIsEased)
{
    const float x = 100.0f * std::sin(0.31f);
    const float z = 100.0f * std::cos(0.31f);

    moveTo({{x, 0, z}, {0, 0, 0}, {0, 1, 0}});

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    EXPECT_NEAR(m_repaints.m_triples[0].eye[0], 100.0f * std::sin(0.31f * 0.1f / 20.0f), 1e-3f);
}

TEST_F(ACameraAnimation, OfALargeTurnOfTheUpVectorAloneIsEased)
{
    moveTo({{0, 0, 100}, {0, 0, 0}, {std::sin(0.31f), std::cos(0.31f), 0}});

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    EXPECT_NEAR(m_repaints.m_triples[0].up[0], std::sin(0.31f * 0.1f / 20.0f), 1e-4f);
}

TEST_F(ACameraAnimation, OfAStraightMoveSleepsThirtyMillisecondsAStep)
{
    m_repaints.m_paintMs = 12;

    moveTo({{0, 0, 50}, {0, 0, 0}, {0, 1, 0}});

    EXPECT_THAT(m_time.m_sleepsMs, SizeIs(20));
    EXPECT_THAT(m_time.m_sleepsMs, Each(30));
    EXPECT_THAT(m_repaints.m_triples, SizeIs(20));
}

TEST(ACamera, DirectAnimationEndsOnTheAccumulatedSum)
{
    ManualTime time;
    MakeCurrentFakeSession();
    PlainCamera camera;
    const float step = (33.3f - 100.0f) / 20.0f;
    float sum = 100.0f;
    for (int i = 0; i < 20; ++i) {
        sum += step;
    }
    ASSERT_NE(sum, 33.3f);

    setTriple(camera, {{0, 0, 33.3f}, {0, 0, 0}, {0, 1, 0}});

    EXPECT_EQ(tripleOf(camera).eye[2], sum);
    OrvikCore::SessionMgr::Instance().Terminate();
}

TEST_F(ACameraAnimation, OfAStraightMoveDoesNotNormaliseTheUpVector)
{
    moveTo({{0, 0, 99}, {0, 0, 0}, {std::sin(0.28f), std::cos(0.28f), 0}});

    // Half-way between two unit vectors that stand 0.28 radians apart: cos(0.14) long.
    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    const Vector& up = m_repaints.m_triples[9].up;
    EXPECT_NEAR(std::hypot(up[0], up[1], up[2]), std::cos(0.14f), 1e-5f);
}

TEST_F(ACameraAnimation, OfAMoveThatLeavesTheEyeIsNone)
{
    const Triple goal{{0, 0, 100}, {1, 0, 0}, {0, 1, 0}};

    moveTo(goal);

    expectAt(goal);
    EXPECT_THAT(m_repaints.m_triples, SizeIs(0));
    EXPECT_THAT(m_time.m_sleepsMs, SizeIs(0));
}

TEST_F(ACameraAnimation, OfAMoveByAThousandthIsStillOne)
{
    moveTo({{0, 0, 100.002f}, {0, 0, 0}, {0, 1, 0}});

    EXPECT_THAT(m_repaints.m_triples, SizeIs(20));
}

TEST_F(ACameraAnimation, NormalisesTheCamerasOwnUpVector)
{
    m_camera.Put({{0, 0, 100}, {0, 0, 0}, {0, 3, 0}});

    moveTo(kFromTheRight);

    ASSERT_THAT(m_repaints.m_triples, SizeIs(20));
    EXPECT_THAT(m_repaints.m_triples[0].up, IsNear(0.0f, 1.0f, 0.0f, 1e-6f));
}

TEST(ACamera, RotationAxisIsUntouchedWithoutATurn)
{
    PlainCamera camera;
    const Vector along{0, 0, -1};
    const Vector up{0, 1, 0};
    float angle = 1e-7f;
    bool isFlipped = false;
    Vector axis{7, 8, 9};

    camera.calculateRotationAxis(along.data(), along.data(), up.data(), angle, isFlipped,
                                 axis.data());

    EXPECT_EQ(angle, 0.0f);
    EXPECT_THAT(axis, ElementsAre(7.0f, 8.0f, 9.0f));
    EXPECT_FALSE(isFlipped);
}

TEST(ACamera, RotationAxisOfAReversalWithAnOppositeUpIsFlipped)
{
    PlainCamera camera;
    const Vector from{0, 0, -1};
    const Vector to{0, 0, 1};
    const Vector up{0, -1, 0};
    float angle = kPi;
    bool isFlipped = false;
    Vector axis{};

    camera.calculateRotationAxis(from.data(), to.data(), up.data(), angle, isFlipped, axis.data());

    EXPECT_TRUE(isFlipped);
    EXPECT_EQ(angle, kPi);
    EXPECT_THAT(axis, IsNear(1.0f, 0.0f, 0.0f, 1e-6f));
}

TEST(ACamera, UpRotationIsUntouchedBetweenCloseVectors)
{
    PlainCamera camera;
    const Vector along{0, 0, -1};
    Vector up{0, 2, 0};
    Vector newUp{0, 5, 0};
    float angle = 9.0f;
    Vector axis{7, 8, 9};

    camera.calculateUpRotation(along.data(), up.data(), newUp.data(), angle, axis.data());

    EXPECT_EQ(angle, 0.0f);
    EXPECT_THAT(axis, ElementsAre(7.0f, 8.0f, 9.0f));
    EXPECT_THAT(up, ElementsAre(0.0f, 1.0f, 0.0f));
    EXPECT_THAT(newUp, ElementsAre(0.0f, 1.0f, 0.0f));
}

TEST(ACamera, UpRotationBetweenOppositeVectorsIsPiAcrossTheView)
{
    PlainCamera camera;
    const Vector along{0, 0, -1};
    Vector up{0, 1, 0};
    Vector newUp{0, -1, 0};
    float angle = 0.0f;
    Vector axis{};

    camera.calculateUpRotation(along.data(), up.data(), newUp.data(), angle, axis.data());

    EXPECT_EQ(angle, kPi);
    EXPECT_THAT(axis, IsNear(1.0f, 0.0f, 0.0f, 1e-6f));
}

TEST(ACamera, UpRotationBetweenOthersIsTheAngleBetweenThem)
{
    PlainCamera camera;
    const Vector along{0, 0, -1};
    Vector up{0, 1, 0};
    Vector newUp{1, 0, 0};
    float angle = 0.0f;
    Vector axis{};

    camera.calculateUpRotation(along.data(), up.data(), newUp.data(), angle, axis.data());

    EXPECT_NEAR(angle, kPi / 2.0f, 1e-6f);
    EXPECT_THAT(axis, IsNear(0.0f, 0.0f, -1.0f, 1e-6f));
}
