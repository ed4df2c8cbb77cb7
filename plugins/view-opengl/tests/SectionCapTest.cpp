#include "Shapes.h"
#include "ViewTest.h"

#include <TambVizCore/ClipPlane.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/Node.h>

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

class SectionCaps : public ViewTest
{
protected:
    /// A closed box around the origin, red.
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
