#include "Shapes.h"
#include "ViewTest.h"

#include <OrvikCore/ACamera.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/Node.h>

#include <algorithm>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::RGBAColor;
using TambVizCore::SharedArray;

class BodyPicture : public ViewTest
{
protected:
    /// Turns the body round the y axis, so that its back is seen.
    static void turnRound(GeoNode& node)
    {
        const double turned[16] = {-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1};
        node.SetTransform(turned);
    }

    /// Swaps left and right.
    static void mirror(GeoNode& node)
    {
        const double mirrored[16] = {-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
        node.SetTransform(mirrored);
    }

    static std::shared_ptr<const TambVizCore::Geometry> closedRectangle()
    {
        auto builder = RectangleBuilder({{}});
        builder.SetClosed(true);
        return Build(builder);
    }
};

TEST_F(BodyPicture, FaceInFrontHidesTheOneBehind)
{
    Add(MakeRectangles({{.z = 1.0f}}), kRed);
    Add(MakeRectangles({{.z = -1.0f}}), kGreen);

    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
}

TEST_F(BodyPicture, FaceInFrontHidesTheOneBehindInPerspective)
{
    UsePerspective();
    Add(MakeRectangles({{.z = 1.0f}}), kRed);
    Add(MakeRectangles({{.z = -1.0f}}), kGreen);

    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
}

TEST_F(BodyPicture, FarBodyIsSmallerInPerspectiveOnly)
{
    Add(MakeRectangles({{.left = -0.9f, .right = 0.9f, .z = -10.0f}}));

    EXPECT_EQ(DrawnAt(0.8, 0), Shows::Red);
    UsePerspective();
    EXPECT_EQ(DrawnAt(0.8, 0), Shows::Background);
    EXPECT_EQ(At(0.4, 0), Shows::Red);
}

TEST_F(BodyPicture, BodyWithoutColourTakesTheDefault)
{
    Options().SetDefaultBodyColor(kBlue);
    Add(MakeRectangles({{}})).SetColor(std::nullopt);

    EXPECT_EQ(DrawnAt(0, 0), Shows::Blue);
}

TEST_F(BodyPicture, VertexColoursHoldWhereTheNodeHasNone)
{
    auto builder = RectangleBuilder({{}});
    std::vector<std::uint8_t> colors;
    for (int i = 0; i < 4; ++i)
        colors.insert(colors.end(), {0, 220, 0, 255});
    builder.SetColors(SharedArray<std::uint8_t>(std::move(colors)));
    GeoNode& node = Add(Build(builder));

    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
    node.SetColor(std::nullopt);
    EXPECT_EQ(DrawnAt(0, 0), Shows::Green);
}

TEST_F(BodyPicture, BothSidesOfAnOpenBodyAreLitAlike)
{
    GeoNode& node = Add(MakeRectangles({{}}));
    Draw();
    const RGBAColor front = ColorAt(0, 0);

    turnRound(node);
    Draw();

    EXPECT_EQ(ColorAt(0, 0), front);
}

TEST_F(BodyPicture, BackOfAnOpenBodyIsDrawn)
{
    turnRound(Add(MakeRectangles({{}})));

    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
}

TEST_F(BodyPicture, BackOfAClosedBodyIsNotDrawn)
{
    turnRound(Add(closedRectangle()));

    EXPECT_EQ(DrawnAt(0, 0), Shows::Background);
}

TEST_F(BodyPicture, FrontOfAClosedBodyIsDrawn)
{
    Add(closedRectangle());

    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
}

TEST_F(BodyPicture, FrontOfAMirroredClosedBodyIsDrawn)
{
    mirror(Add(closedRectangle()));

    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
}

TEST_F(BodyPicture, NormalsOfAMirroredBodyStayOutside)
{
    // The face leans to the left by its normals, once mirrored to the right.
    const auto leaning = [](float x) {
        auto builder = RectangleBuilder({{}});
        std::vector<float> normals;
        for (int i = 0; i < 4; ++i)
            normals.insert(normals.end(), {x, 0.0f, 0.8f});
        builder.SetNormals(SharedArray<float>(std::move(normals)));
        return Build(builder);
    };
    mirror(Add(leaning(0.6f)));
    Draw();
    const RGBAColor mirrored = ColorAt(0, 0);

    m_view->GetSceneRoot().RemoveAllChildren();
    Add(leaning(-0.6f));
    Draw();

    EXPECT_EQ(ColorAt(0, 0), mirrored);
}

TEST_F(BodyPicture, FaceTowardTheLightIsBrighterThanOneAwayFromIt)
{
    const auto withNormal = [](float x, float y, float z) {
        auto builder = RectangleBuilder({{}});
        std::vector<float> normals;
        for (int i = 0; i < 4; ++i)
            normals.insert(normals.end(), {x, y, z});
        builder.SetNormals(SharedArray<float>(std::move(normals)));
        return Build(builder);
    };
    GeoNode& node = Add(withNormal(-0.4f, 0.6f, 0.7f));
    Draw();
    const int bright = ColorAt(0, 0).r;

    node.SetGeometry(withNormal(0.4f, -0.6f, 0.7f));
    Draw();

    EXPECT_GT(bright, ColorAt(0, 0).r + 50);
    EXPECT_GT(ColorAt(0, 0).r, 60);
}

TEST_F(BodyPicture, EdgeOnAFaceIsDrawn)
{
    Options().SetDefaultEdgeColor(kBlack);
    Add(MakeRectangles({{}}));
    Add(MakeLine(0.0f));
    Draw(65, 65);

    EXPECT_EQ(At(0.2, 0), Shows::Black);
    EXPECT_EQ(At(0.2, 0.2), Shows::Red);
}

TEST_F(BodyPicture, EdgeOnAFaceIsDrawnInPerspective)
{
    UsePerspective();
    Options().SetDefaultEdgeColor(kBlack);
    Add(MakeRectangles({{}}));
    Add(MakeLine(0.0f));
    Draw(65, 65);

    EXPECT_EQ(At(0.2, 0), Shows::Black);
}

TEST_F(BodyPicture, EdgeBehindAFaceIsHidden)
{
    for (const bool perspective : {false, true}) {
        if (perspective)
            UsePerspective();
        Add(MakeRectangles({{}}));
        Add(MakeLine(-0.2f));
        Draw(65, 65);

        EXPECT_EQ(At(0.2, 0), Shows::Red) << perspective;
    }
}

TEST_F(BodyPicture, WideLineIsWide)
{
    Options().SetDefaultEdgeColor(kBlack);
    GeoNode& line = Add(MakeLine(0.0f));
    line.SetLineWidthPixels(9.0f);
    Draw(65, 65);

    EXPECT_EQ(At(0.2, 0.1), Shows::Black);
    EXPECT_EQ(At(0.2, 0.2), Shows::Background);
}

TEST_F(BodyPicture, LinesHoldInPicturesLargerThanTheWindow)
{
    Options().SetDefaultEdgeColor(kBlack);
    Add(MakeLine(0.0f)).SetLineWidthPixels(5.0f);
    Draw(256, 256);

    EXPECT_EQ(At(0.2, 0.06), Shows::Black);
    EXPECT_EQ(At(0.2, 0.1), Shows::Background);
}

TEST_F(BodyPicture, WideLinesOfALargePictureStayBeforeSlantedFaces)
{
    Options().SetDefaultEdgeColor(kBlack);
    float eye[3] = {4.0f, 3.0f, 9.0f}, target[3] = {0, 0, 0}, up[3] = {0, 1, 0};
    m_view->GetCamera()->SetCamera(eye, target, up);
    Add(MakeRectangles({{}}));
    Add(MakeLine(0.0f)).SetLineWidthPixels(3.0f);
    Draw(512, 512);

    int thin = 0;
    for (double x = -0.15; x < 0.15; x += 0.01) {
        int black = 0;
        for (double y = -0.2; y < 0.2; y += 2.0 / 512.0)
            black += At(x, y) == Shows::Black ? 1 : 0;
        thin += black < 20 ? 1 : 0;
    }
    EXPECT_EQ(thin, 0) << "columns of the line that the face covers in part";
}

TEST_F(BodyPicture, PointsHoldInPicturesLargerThanTheWindow)
{
    Options().SetShowVertices(true);
    Options().SetDefaultVertexColor(kBlack);
    Add(MakePoint()).SetPointSizePixels(8.0f);
    Draw(256, 256);

    EXPECT_EQ(At(0.1, 0.0), Shows::Black);
    EXPECT_EQ(At(0.16, 0.0), Shows::Background);
}

TEST_F(BodyPicture, LinesKeepTheirWidthInSmallPictures)
{
    Options().SetDefaultEdgeColor(kBlack);
    Add(MakeLine(0.0f));
    Draw(33, 33);

    EXPECT_EQ(At(0.2, 0.0), Shows::Black);
}

TEST_F(BodyPicture, EdgesFollowTheirSwitch)
{
    Options().SetShowEdges(false);
    Add(MakeLine(0.0f));
    Draw(65, 65);

    EXPECT_EQ(At(0.2, 0), Shows::Background);
}

TEST_F(BodyPicture, FacesFollowTheirSwitch)
{
    Options().SetShowFaces(false);
    Add(MakeRectangles({{}}));

    EXPECT_EQ(DrawnAt(0, 0), Shows::Background);
}

TEST_F(BodyPicture, VerticesFollowTheirSwitch)
{
    Options().SetDefaultVertexColor(kBlack);
    Add(MakePoint());

    EXPECT_EQ(DrawnAt(0, 0), Shows::Background);
    Options().SetShowVertices(true);
    EXPECT_EQ(DrawnAt(0, 0), Shows::Black);
}

TEST_F(BodyPicture, TessellationFollowsItsSwitch)
{
    Options().SetDefaultTessEdgeColor(kBlack);
    Add(MakeRectangles({{}}));
    const auto blackOnDiagonal = [this] {
        Draw(65, 65);
        int count = 0;
        for (double t = -0.4; t < 0.4; t += 0.01)
            count += At(t, t) == Shows::Black ? 1 : 0;
        return count;
    };

    EXPECT_EQ(blackOnDiagonal(), 0);
    Options().SetShowTessellation(true);
    EXPECT_GT(blackOnDiagonal(), 40);
}

TEST_F(BodyPicture, EdgesLieOverTheBordersOfTriangles)
{
    Options().SetDefaultTessEdgeColor(kBlue);
    Options().SetDefaultEdgeColor(kBlack);
    Options().SetShowTessellation(true);
    Add(MakeRectangles({{}}));
    Add(MakeLine(0.0f));

    EXPECT_EQ(DrawnAt(0, 0), Shows::Black);
}

TEST_F(BodyPicture, PointCloudFollowsItsOwnSwitch)
{
    GeoNode& cloud = Add(MakePoint());
    cloud.SetCategory(GeoNode::Category::PointCloud);
    cloud.SetPointSizePixels(3.0f);

    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
    Options().SetShowPointClouds(false);
    Options().SetShowVertices(true);
    EXPECT_EQ(DrawnAt(0, 0), Shows::Background);
}

TEST_F(BodyPicture, PmiFollowsItsOwnSwitch)
{
    Options().SetShowEdges(false);
    Add(MakeLine(0.0f)).SetCategory(GeoNode::Category::PMI);
    Draw(65, 65);
    EXPECT_EQ(At(0.2, 0), Shows::Red);

    Options().SetShowPMI(false);
    Draw(65, 65);

    EXPECT_EQ(At(0.2, 0), Shows::Background);
}

} // namespace
} // namespace ViewOpenGl
