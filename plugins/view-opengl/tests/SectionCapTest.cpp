#include "Shapes.h"
#include "ViewTest.h"

#include <OrvikCore/ACamera.h>
#include <TambVizCore/ClipPlane.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/Node.h>

#include <array>
#include <cstdlib>
#include <set>
#include <vector>

namespace ViewOpenGl {
namespace {

using TambVizCore::ClipPlane;
using TambVizCore::GeoNode;

/// Keeps what lies at or below z, so that one looks at the cut.
ClipPlane below(float z)
{
    return {{0.0f, 0.0f, -1.0f}, z};
}

ClipPlane leftOf(float x)
{
    return {{-1.0f, 0.0f, 0.0f}, x};
}

/// A transform, column-major.
std::array<double, 16> stretched(const std::array<double, 3>& scale,
                                 const std::array<double, 3>& place)
{
    return {scale[0], 0, 0,        0, 0,        scale[1], 0,        0,
            0,        0, scale[2], 0, place[0], place[1], place[2], 1};
}

class SectionCaps : public ViewTest
{
protected:
    /// Writes where a point of the world is in the picture, x and y from -1 to 1.
    void placeInPicture(double x, double y, double z, double* place)
    {
        const Projection projection = MakeProjection(*m_view->GetCamera(), 64, 64);
        for (int row = 0; row < 2; ++row) {
            const double* const m = projection.view + row;
            place[row] = (m[0] * x + m[4] * y + m[8] * z + m[12]) / projection.halfHeight;
        }
    }

    /// @return the red shares of all colours in the picture.
    std::set<int> redsOfPicture() const
    {
        std::set<int> reds;
        for (std::size_t at = 0; at < m_image.rgba.size(); at += 4)
            reds.insert(m_image.rgba[at]);
        return reds;
    }

    /// A closed box around the origin.
    GeoNode& addBox(const TambVizCore::RGBAColor& color = kRed)
    {
        return Add(MakeBox(0.5f), color);
    }
};

TEST_F(SectionCaps, CutSolidIsClosedInItsOwnColour)
{
    addBox();
    // Without a cap one would look at the box's far side, seen from inside, or through it.
    Add(MakeRectangles({{.left = -0.9f, .bottom = -0.9f, .right = 0.9f, .top = 0.9f, .z = -2.0f}}),
        kBlue);
    Options().SetClipPlanes({below(0.0f)});
    Draw();

    EXPECT_EQ(At(0.0, 0.0), Shows::Red);
    EXPECT_EQ(At(0.7, 0.7), Shows::Blue);
}

TEST_F(SectionCaps, AreLeftOutOnRequest)
{
    addBox();
    // Within the box, below the plane.
    Add(MakeRectangles({{.left = -0.2f, .bottom = -0.2f, .right = 0.2f, .top = 0.2f, .z = -0.2f}}),
        kGreen);
    Options().SetClipPlanes({below(0.0f)});
    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Red);

    Options().SetShowCaps(false);
    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Green);
}

TEST_F(SectionCaps, CapLiesOnThePlane)
{
    addBox();
    // Nearer to the eye than the plane, but within the part that is cut away.
    Add(MakeRectangles({{.left = -0.2f, .bottom = -0.2f, .right = 0.2f, .top = 0.2f, .z = -0.1f}}),
        kGreen);
    Options().SetClipPlanes({below(0.0f)});
    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Red);

    Options().SetClipPlanes({below(-0.2f)});
    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Red);
}

TEST_F(SectionCaps, HollowOfABodyStaysOpen)
{
    // The inner box faces inwards: the material lies between the two.
    Add(MakeHollowBox(0.6f, 0.3f));
    Add(MakeRectangles({{.left = -0.9f, .bottom = -0.9f, .right = 0.9f, .top = 0.9f, .z = -2.0f}}),
        kBlue);
    Options().SetClipPlanes({below(0.0f)});
    Draw();

    EXPECT_EQ(At(0.45, 0.0), Shows::Red);
    EXPECT_NE(At(0.0, 0.0), Shows::Blue) << "the far wall of the hollow is seen";
    EXPECT_LT(ColorAt(0.0, 0.0).r, ColorAt(0.45, 0.0).r + 1);
}

TEST_F(SectionCaps, CapIsCutByTheOtherPlanes)
{
    addBox();
    Options().SetClipPlanes({below(0.0f), leftOf(0.0f)});
    Draw();

    EXPECT_EQ(At(-0.25, 0.0), Shows::Red);
    EXPECT_EQ(At(0.25, 0.0), Shows::Background);
}

TEST_F(SectionCaps, CapOfOneBodyLeavesNoTraceInAnother)
{
    // The second body is long: its cap is looked for all around it.
    addBox(kRed).SetTransform(stretched({0.2, 0.2, 0.2}, {0.45, 0.3, 0.0}).data());
    addBox(kGreen).SetTransform(stretched({0.9, 0.1, 0.2}, {0.45, 0.0, 0.0}).data());
    Options().SetClipPlanes({below(0.0f)});
    Draw();

    EXPECT_EQ(At(0.45, 0.3), Shows::Red);
    EXPECT_EQ(At(0.45, 0.0), Shows::Green);
}

TEST_F(SectionCaps, CapIsWholeSeenFromACorner)
{
    float eye[3] = {10.0f, 8.0f, 6.0f}, target[3] = {0, 0, 0}, up[3] = {0, 1, 0};
    m_view->GetCamera()->SetCamera(eye, target, up);
    addBox();
    Options().SetClipPlanes({leftOf(0.0f)});
    Draw(128, 128);
    // Where the plane x = 0 is met inside the box, the picture has the one colour of the cap.
    const TambVizCore::RGBAColor cap = ColorAt(0.0, 0.0);
    int strange = 0;
    for (double y = -0.45; y < 0.46; y += 0.05)
        for (double z = -0.45; z < 0.46; z += 0.05) {
            double place[2];
            placeInPicture(0.0, y, z, place);
            const TambVizCore::RGBAColor color = ColorAt(place[0], place[1]);
            strange += std::abs(color.r - cap.r) > 3 ? 1 : 0;
        }

    EXPECT_EQ(strange, 0);
}

TEST_F(SectionCaps, CapKeepsItsColourBesideOthersOnThePlane)
{
    float eye[3] = {10.0f, 10.0f, 10.0f}, target[3] = {0, 0, 0}, up[3] = {0, 1, 0};
    m_view->GetCamera()->SetCamera(eye, target, up);
    addBox(kRed).SetTransform(stretched({0.5, 0.5, 0.5}, {0.0, 0.4, -0.3}).data());
    addBox(kGreen).SetTransform(stretched({1.2, 0.2, 1.2}, {0.0, 0.0, 0.0}).data());
    Options().SetClipPlanes({leftOf(0.0f)});
    Draw(512, 512);
    int strange = 0;
    for (double y = 0.16; y < 0.64; y += 0.02)
        for (double z = -0.54; z < -0.06; z += 0.02) {
            double place[2];
            placeInPicture(0.0, y, z, place);
            const TambVizCore::RGBAColor color = ColorAt(place[0], place[1]);
            strange += color.g > 10 || color.r < 50 ? 1 : 0;
        }

    EXPECT_EQ(strange, 0);
}

/// Eyes that look at the plane x = 0 from where x is positive.
constexpr float kEyes[][3] = {{10.0f, 10.0f, 10.0f}, {10.0f, -7.0f, 3.0f}, {9.0f, 2.0f, -8.0f}};

/// Bodies within each other, cut by the plane x = 0; the innermost is blue.
class NestedCaps : public SectionCaps
{
protected:
    void SetUp() override
    {
        SectionCaps::SetUp();
        addBox(kGreen).SetTransform(stretched({0.5, 0.5, 0.5}, {0.0, 0.0, 0.0}).data());
        addBox(kRed);
        addBox(kBlue).SetTransform(stretched({0.45, 0.45, 0.45}, {0.0, 0.0, 0.0}).data());
        Options().SetClipPlanes({leftOf(0.0f)});
    }
    void lookFrom(const float* from)
    {
        float eye[3] = {from[0], from[1], from[2]}, target[3] = {0, 0, 0}, up[3] = {0, 1, 0};
        m_view->GetCamera()->SetCamera(eye, target, up);
        Draw(512, 512);
    }
    bool isBlueAt(double x, double y) const
    {
        const TambVizCore::RGBAColor color = ColorAt(x, y);
        return color.b > color.r + 20 && color.b > color.g + 20;
    }
};

TEST_F(NestedCaps, InnermostIsSeenWhole)
{
    for (const auto& eye : kEyes) {
        lookFrom(eye);
        for (double y = -0.21; y < 0.22; y += 0.02)
            for (double z = -0.21; z < 0.22; z += 0.02) {
                double place[2];
                placeInPicture(0.0, y, z, place);
                ASSERT_TRUE(isBlueAt(place[0], place[1])) << eye[0] << ": " << y << " " << z;
            }
    }
}

TEST_F(NestedCaps, InnermostIsSeenWholeInPerspective)
{
    UsePerspective();
    for (const auto& eye : kEyes) {
        lookFrom(eye);
        for (double x = -0.04; x < 0.05; x += 0.005)
            for (double y = -0.04; y < 0.05; y += 0.005)
                ASSERT_TRUE(isBlueAt(x, y)) << eye[0] << ": " << x << " " << y;
    }
}

TEST_F(SectionCaps, CapOfATransparentBodyIsAsTransparent)
{
    GeoNode& box = addBox();
    Add(MakeRectangles({{.left = -0.9f, .bottom = -0.9f, .right = 0.9f, .top = 0.9f, .z = -2.0f}}),
        kBlue);
    Options().SetClipPlanes({below(0.0f)});
    box.SetOpacity(0.5f);
    Options().SetShowCaps(false);
    Draw();
    const TambVizCore::RGBAColor open = ColorAt(0.0, 0.0);
    Options().SetShowCaps(true);
    Draw();
    const TambVizCore::RGBAColor closed = ColorAt(0.0, 0.0);

    // Half of what is seen through the open cut, half of the cap.
    EXPECT_GT(closed.r, open.r + 30);
    EXPECT_NEAR(closed.b, 0.5 * open.b, 6.0);
    EXPECT_GT(closed.b, 10);
}

TEST_F(SectionCaps, OpaqueBodyWithinATransparentOneHasItsCapInFront)
{
    addBox(kRed).SetOpacity(0.4f);
    addBox(kGreen).SetTransform(stretched({0.5, 0.5, 0.5}, {0.0, 0.0, 0.0}).data());
    Options().SetClipPlanes({below(0.0f)});
    Draw();

    EXPECT_EQ(At(0.0, 0.0), Shows::Green);
    EXPECT_GT(ColorAt(0.4, 0.4).r, ColorAt(0.4, 0.4).g + 20) << "the cap around it";
    EXPECT_GT(ColorAt(0.4, 0.4).g, 40) << "the background is seen through";
}

TEST_F(SectionCaps, TransparentCapsAreLeftOutBehindWhatIsOpaque)
{
    addBox(kRed).SetOpacity(0.4f);
    Options().SetClipPlanes({below(0.0f)});
    Add(MakeRectangles({{.left = -0.2f, .bottom = -0.2f, .right = 0.2f, .top = 0.2f, .z = 0.9f}}),
        kGreen);
    m_view->GetSceneRoot().ChildAt(1)->SetAuxiliary(true);
    Draw();

    EXPECT_EQ(At(0.0, 0.0), Shows::Green);
    EXPECT_NE(At(0.4, 0.4), Shows::Green);
}

TEST_F(SectionCaps, TransparentBodiesBehindEachOtherAreClosedInTheirOrder)
{
    // Two planes keep what lies left of x = 0.3 and below z = 0: two caps, the second body's too.
    addBox(kRed).SetTransform(stretched({0.6, 0.6, 0.6}, {0.0, 0.0, 0.0}).data());
    addBox(kBlue).SetTransform(stretched({1.0, 1.0, 0.4}, {0.0, 0.0, -0.8}).data());
    m_view->GetSceneRoot().ChildAt(0)->AsGeoNode()->SetOpacity(0.5f);
    m_view->GetSceneRoot().ChildAt(1)->AsGeoNode()->SetOpacity(0.5f);
    Options().SetClipPlanes({below(0.0f)});
    Draw();

    // The red cap in front counts for half; blue and background share the rest.
    EXPECT_GT(ColorAt(0.0, 0.0).r, ColorAt(0.0, 0.0).b);
    EXPECT_GT(ColorAt(0.45, 0.0).b, ColorAt(0.45, 0.0).r + 20);
}

TEST_F(SectionCaps, XRayedBodyIsClosedSeeThrough)
{
    addBox();
    Add(MakeRectangles({{.left = -0.9f, .bottom = -0.9f, .right = 0.9f, .top = 0.9f, .z = -2.0f}}),
        kBlue);
    Options().SetClipPlanes({below(0.0f)});
    Options().SetXRay(true);
    Draw();
    const TambVizCore::RGBAColor closed = ColorAt(0.0, 0.0);
    Options().SetShowCaps(false);
    Draw();

    EXPECT_GT(closed.r, ColorAt(0.0, 0.0).r + 5);
    EXPECT_LT(closed.r, 200);
}

TEST_F(SectionCaps, CapThatFacesAwayLeavesNoSpecklesAtTheBorderOfTheCut)
{
    float eye[3] = {10.0f, -10.0f, 10.0f}, target[3] = {0, 0, 0}, up[3] = {0, 0, 1};
    m_view->GetCamera()->SetCamera(eye, target, up);
    addBox().SetTransform(stretched({1.5, 1.2, 0.3}, {0.0, 0.0, 0.0}).data());
    Draw(512, 512);
    const std::set<int> shades = redsOfPicture();
    std::set<int> strange;
    for (float offset = -0.3f; offset < 0.3f; offset += 0.07f) {
        Options().SetClipPlanes({{{0.6f, -1.0f, 0.4f}, offset}});
        Draw(512, 512);
        for (const int red : redsOfPicture())
            if (!shades.contains(red))
                strange.insert(red);
    }

    EXPECT_EQ(strange, std::set<int>());
}

TEST_F(SectionCaps, CapThatFacesAwayInTheMiddleOfAPerspectiveIsDrawnWhereTheEyeSeesIt)
{
    // The normal of the cap points away from the view direction, and still the eye lies before it.
    UsePerspective();
    double place[16];
    TambVizCore::SetIdentity(place);
    place[12] = -0.5;
    addBox().SetTransform(place);
    Add(MakeRectangles({{.left = -0.9f, .bottom = -0.9f, .right = 0.9f, .top = 0.9f, .z = -2.0f}}),
        kBlue);
    Options().SetClipPlanes({{{-1.0f, 0.0f, 0.02f}, -0.4f}});
    Draw(256, 256);

    EXPECT_GT(ColorAt(-0.4, 0.0).r, 60);
    EXPECT_LT(ColorAt(-0.4, 0.0).b, 20);
}

TEST_F(SectionCaps, MirroredBodyIsClosedToo)
{
    double mirror[16];
    TambVizCore::SetIdentity(mirror);
    mirror[0] = -1.0;
    addBox().SetTransform(mirror);
    Options().SetClipPlanes({below(0.0f)});

    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Red);
}

TEST_F(SectionCaps, BodiesKeepTheirOwnColours)
{
    double left[16];
    TambVizCore::SetIdentity(left);
    left[0] = left[5] = left[10] = 0.5;
    left[12] = -0.5;
    addBox(kRed).SetTransform(left);
    left[12] = 0.5;
    addBox(kGreen).SetTransform(left);
    Options().SetClipPlanes({below(0.0f)});
    Draw();

    EXPECT_EQ(At(-0.5, 0.0), Shows::Red);
    EXPECT_EQ(At(0.5, 0.0), Shows::Green);
}

TEST_F(SectionCaps, OpenBodyGetsNoCap)
{
    Add(MakeRectangles({{.z = 0.5f}, {.z = -0.5f}}), kRed);
    Options().SetClipPlanes({below(-1.0f)});

    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Background);
}

TEST_F(SectionCaps, AreDrawnInPerspectiveAndSmoothed)
{
    UsePerspective();
    addBox();
    Options().SetClipPlanes({below(0.0f)});
    Options().SetAntialiasLevel(4);

    EXPECT_EQ(DrawnAt(0.0, 0.0), Shows::Red);
}

TEST_F(SectionCaps, HighlightedBodyHasAHighlightedCap)
{
    Options().SetHighlightColor(kGreen);
    addBox().SetHighlighted(true);
    Options().SetClipPlanes({below(0.0f)});
    Draw();

    EXPECT_GT(ColorAt(0.0, 0.0).g, ColorAt(0.0, 0.0).r);
}

} // namespace
} // namespace ViewOpenGl
