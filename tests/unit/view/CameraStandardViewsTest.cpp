#include "CameraFixture.h"

#include <functional>
#include <ostream>

using ::testing::ElementsAre;

namespace {

using View = void (OrvikCore::ACamera::*)();

/// Shows the helpers of a concrete camera.
template <typename Camera> class ShownCamera : public Camera
{
public:
    using Camera::Camera;
    using Camera::setFront;
};

struct ViewRow
{
    const char* name;
    View view;
    Vector eye; ///< From the centre of the geometry.
    Vector up;
};

void PrintTo(const ViewRow& row, std::ostream* out)
{
    *out << row.name;
}

/// A geometry of radius 10 about (1, 2, 3), seen from 50 units.
template <typename Camera>
class StandardView : public ::testing::Test, public ::testing::WithParamInterface<ViewRow>
{
protected:
    StandardView()
    {
        m_view.m_radius = 10.0f;
        std::copy_n(Vector{1.0f, 2.0f, 3.0f}.data(), 3, m_view.m_center);
        m_camera.SetAnimate(false);
        setTriple(m_camera, {{0, 30, 40}, {0, 0, 0}, {1, 0, 0}});
    }

    void expectRow()
    {
        const ViewRow& row = this->GetParam();

        (m_camera.*row.view)();

        const Triple triple = tripleOf(m_camera);
        EXPECT_THAT(triple.target, ElementsAre(1.0f, 2.0f, 3.0f));
        EXPECT_THAT(triple.eye, IsNear(1.0f + row.eye[0], 2.0f + row.eye[1], 3.0f + row.eye[2]));
        EXPECT_THAT(triple.up, IsNear(row.up[0], row.up[1], row.up[2], 1e-5f));
        Vector center{};
        m_camera.GetRotationCenter(center.data());
        EXPECT_THAT(center, ElementsAre(1.0f, 2.0f, 3.0f));
    }

    FakeView3D m_view;
    ShownCamera<Camera> m_camera{&m_view};
};

using CameraYUpView = StandardView<OrvikCore::CameraYUp>;
using CameraZUpView = StandardView<OrvikCore::CameraZUp>;
using Camera = OrvikCore::ACamera;

constexpr float kRoot = 0.70710678f;

const ViewRow kYUpRows[] = {
    {"Front", &Camera::Front, {0, 0, 50}, {0, 1, 0}},
    {"Back", &Camera::Back, {0, 0, -50}, {0, 1, 0}},
    {"Right", &Camera::Right, {50, 0, 0}, {0, 1, 0}},
    {"Left", &Camera::Left, {-50, 0, 0}, {0, 1, 0}},
    {"Top", &Camera::Top, {0, 50, 0}, {0, 0, -1}},
    {"Bottom", &Camera::Bottom, {0, -50, 0}, {0, 0, 1}},
    {"Isometric", &Camera::Isometric, {25, 35.355339f, 25}, {-0.5f, kRoot, -0.5f}},
};

const ViewRow kZUpRows[] = {
    {"Front", &Camera::Front, {50, 0, 0}, {0, 0, 1}},
    {"Back", &Camera::Back, {-50, 0, 0}, {0, 0, 1}},
    {"Right", &Camera::Right, {0, 50, 0}, {0, 0, 1}},
    {"Left", &Camera::Left, {0, -50, 0}, {0, 0, 1}},
    {"Top", &Camera::Top, {0, 0, 50}, {-1, 0, 0}},
    {"Bottom", &Camera::Bottom, {0, 0, -50}, {1, 0, 0}},
    {"Isometric", &Camera::Isometric, {25, 25, 35.355339f}, {-0.5f, -0.5f, kRoot}},
};

/// The same for both cameras.
template <typename Camera> class AnyStandardCamera : public ::testing::Test
{
protected:
    AnyStandardCamera() { m_camera.SetAnimate(false); }

    FakeView3D m_view;
    ShownCamera<Camera> m_camera{&m_view};
};

using Cameras = ::testing::Types<OrvikCore::CameraYUp, OrvikCore::CameraZUp>;

} // namespace

TEST_P(CameraYUpView, LooksFromItsSideAtThePresentDistance)
{
    expectRow();
}

INSTANTIATE_TEST_SUITE_P(Rows, CameraYUpView, ::testing::ValuesIn(kYUpRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(CameraZUpView, LooksFromItsSideAtThePresentDistance)
{
    expectRow();
}

INSTANTIATE_TEST_SUITE_P(Rows, CameraZUpView, ::testing::ValuesIn(kZUpRows),
                         [](const auto& test) { return std::string(test.param.name); });

TYPED_TEST_SUITE(AnyStandardCamera, Cameras);

TYPED_TEST(AnyStandardCamera, StartsOnTheXAxisWithZUp)
{
    const Triple triple = tripleOf(this->m_camera);

    EXPECT_THAT(triple.eye, ElementsAre(100.0f, 0.0f, 0.0f));
    EXPECT_THAT(triple.target, ElementsAre(0.0f, 0.0f, 0.0f));
    EXPECT_THAT(triple.up, ElementsAre(0.0f, 0.0f, 1.0f));
    EXPECT_FLOAT_EQ(this->m_camera.GetFieldOfView(), 45.0f);
    EXPECT_TRUE(this->m_camera.IsOrthographic());
}

TYPED_TEST(AnyStandardCamera, IsoFollowsAnyOtherView)
{
    this->m_camera.Bottom();
    this->m_camera.Isometric();
    const Triple afterBottom = tripleOf(this->m_camera);

    this->m_camera.Left();
    this->m_camera.Isometric();

    EXPECT_THAT(tripleOf(this->m_camera).eye,
                IsNear(afterBottom.eye[0], afterBottom.eye[1], afterBottom.eye[2]));
    EXPECT_THAT(tripleOf(this->m_camera).up,
                IsNear(afterBottom.up[0], afterBottom.up[1], afterBottom.up[2]));
}

TEST(CameraYUp, StartsLikeTheZUpCamera)
{
    OrvikCore::CameraYUp camera(nullptr);

    EXPECT_THAT(tripleOf(camera).eye, ElementsAre(100.0f, 0.0f, 0.0f));
    EXPECT_THAT(tripleOf(camera).up, ElementsAre(0.0f, 0.0f, 1.0f));
}

TEST(CameraYUp, HasItsName)
{
    EXPECT_STREQ(OrvikCore::CameraYUp(nullptr).GetName(), "CameraYUp");
}

TEST(CameraZUp, HasItsName)
{
    EXPECT_STREQ(OrvikCore::CameraZUp(nullptr).GetName(), "CameraZUp");
}

TEST(CameraYUp, StandardPositionShowsTheRadiusFromZ)
{
    // 20 / tan(22.5 degrees) * 1.5 = 72.4264.
    FakeView3D view;
    view.m_radius = 20.0f;
    OrvikCore::CameraYUp camera(&view);
    Triple triple{};

    camera.SetStandardPosition(triple.eye.data(), triple.target.data(), triple.up.data());

    EXPECT_THAT(triple.eye, IsNear(0.0f, 0.0f, 72.4264f));
    EXPECT_THAT(triple.target, ElementsAre(0.0f, 0.0f, 0.0f));
    EXPECT_THAT(triple.up, ElementsAre(0.0f, 1.0f, 0.0f));
}

TEST(CameraZUp, StandardPositionShowsTheRadiusFromX)
{
    FakeView3D view;
    view.m_radius = 20.0f;
    OrvikCore::CameraZUp camera(&view);
    Triple triple{};

    camera.SetStandardPosition(triple.eye.data(), triple.target.data(), triple.up.data());

    EXPECT_THAT(triple.eye, IsNear(72.4264f, 0.0f, 0.0f));
    EXPECT_THAT(triple.target, ElementsAre(0.0f, 0.0f, 0.0f));
    EXPECT_THAT(triple.up, ElementsAre(0.0f, 0.0f, 1.0f));
}

TEST(CameraYUp, StandardPositionOfNothingShowsARadiusOfTen)
{
    FakeView3D empty;
    OrvikCore::CameraYUp camera(&empty);
    OrvikCore::CameraYUp prototype(nullptr);
    Triple ofEmpty{};
    Triple ofNone{};

    camera.SetStandardPosition(ofEmpty.eye.data(), ofEmpty.target.data(), ofEmpty.up.data());
    prototype.SetStandardPosition(ofNone.eye.data(), ofNone.target.data(), ofNone.up.data());

    EXPECT_THAT(ofEmpty.eye, IsNear(0.0f, 0.0f, 36.2132f));
    EXPECT_THAT(ofNone.eye, IsNear(0.0f, 0.0f, 36.2132f));
}

TEST(CameraYUp, StandardPositionMovesNothing)
{
    OrvikCore::CameraYUp camera(nullptr);
    Triple triple{};

    camera.SetStandardPosition(triple.eye.data(), triple.target.data(), triple.up.data());

    EXPECT_THAT(tripleOf(camera).eye, ElementsAre(100.0f, 0.0f, 0.0f));
}

TEST(CameraYUp, FrontMayTakeTheStandardDistance)
{
    FakeView3D view;
    view.m_radius = 10.0f;
    view.m_center[0] = 7.0f;
    ShownCamera<OrvikCore::CameraYUp> camera(&view);
    Triple triple{};

    camera.setFront(triple.eye.data(), triple.target.data(), triple.up.data(),
                    /*keepDistance=*/false);

    EXPECT_THAT(triple.eye, IsNear(7.0f, 0.0f, 36.2132f));
    EXPECT_THAT(triple.target, ElementsAre(7.0f, 0.0f, 0.0f));
    EXPECT_THAT(tripleOf(camera).eye, ElementsAre(100.0f, 0.0f, 0.0f)) << "not applied";
}

TEST(CameraZUp, FrontMayTakeTheStandardDistance)
{
    FakeView3D view;
    view.m_radius = 10.0f;
    view.m_center[2] = 7.0f;
    ShownCamera<OrvikCore::CameraZUp> camera(&view);
    Triple triple{};

    camera.setFront(triple.eye.data(), triple.target.data(), triple.up.data(),
                    /*keepDistance=*/false);

    EXPECT_THAT(triple.eye, IsNear(36.2132f, 0.0f, 7.0f));
}

TEST(CameraYUp, PrototypeLooksAtTheOrigin)
{
    OrvikCore::CameraYUp prototype(nullptr);
    prototype.SetAnimate(false);

    prototype.Front();

    EXPECT_THAT(tripleOf(prototype).eye, ElementsAre(0.0f, 0.0f, 100.0f));
    EXPECT_THAT(tripleOf(prototype).target, ElementsAre(0.0f, 0.0f, 0.0f));
}
