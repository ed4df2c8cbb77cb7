#include "Shapes.h"
#include "ViewTest.h"

#include <TambVizCore/IIdPictureProvider.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/Node.h>

#include <TestGeometry.h>

#include <random>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::IdPicture;
using TambVizCore::MakePartId;
using TambVizCore::Node;
using TambVizCore::PartKind;
using TambVizCore::RenderId;

class IdPictures : public ViewTest
{
protected:
    void draw(int width = 64, int height = 64)
    {
        EXPECT_TRUE(m_view->ReadIdPicture(width, height, m_picture)) << m_debug.Text();
    }
    std::size_t placeOf(double x, double y) const
    {
        const int column = static_cast<int>((x + 1.0) / 2.0 * m_picture.width);
        const int row = static_cast<int>((1.0 - y) / 2.0 * m_picture.height);
        return static_cast<std::size_t>(row * m_picture.width + column);
    }
    /// @return what is drawn at a place of the view, x and y from -1 to 1; empty for nothing.
    RenderId itemAt(double x, double y) const
    {
        const std::uint32_t number = m_picture.pixels.at(placeOf(x, y));
        return number == 0 ? RenderId() : m_picture.items.at(number - 1);
    }
    static RenderId faceOf(const GeoNode& node, std::uint32_t face = 0)
    {
        RenderId id = node.GetRenderId();
        id.AddValue(MakePartId(PartKind::Face, face));
        return id;
    }

    IdPicture m_picture;
};

TEST_F(IdPictures, NameTheFacesThatAreDrawn)
{
    const GeoNode& node =
        Add(MakeRectangles({{-0.8f, -0.5f, -0.2f, 0.5f}, {0.2f, -0.5f, 0.8f, 0.5f}}));
    draw();

    EXPECT_EQ(itemAt(-0.5, 0.0), faceOf(node, 0));
    EXPECT_EQ(itemAt(0.5, 0.0), faceOf(node, 1));
    EXPECT_TRUE(itemAt(0.0, 0.0).IsEmpty());
    EXPECT_TRUE(itemAt(0.0, 0.9).IsEmpty());
    EXPECT_EQ(m_picture.items.size(), 2u);
}

TEST_F(IdPictures, NameTheEdgesThatAreDrawn)
{
    const GeoNode& node = Add(MakeLine(0.0f));
    draw(63, 63);

    RenderId edge = node.GetRenderId();
    edge.AddValue(MakePartId(PartKind::Edge, 0));
    EXPECT_EQ(itemAt(0.0, 0.0), edge);
    Options().SetShowEdges(false);
    draw(63, 63);
    EXPECT_TRUE(m_picture.items.empty());
}

TEST_F(IdPictures, NameTheNodeOfWhatBelongsToNoPart)
{
    GeoNode& node = Add(MakeBox(0.5f));
    draw();

    EXPECT_EQ(itemAt(0.0, 0.0), node.GetRenderId());
}

TEST_F(IdPictures, TellHowFarAwayThingsAre)
{
    Add(MakeRectangles({{.z = 3.0f}}));
    draw();

    EXPECT_NEAR(m_picture.depths[placeOf(0.0, 0.0)], 7.0f, 1e-4f);
    EXPECT_EQ(m_picture.depths[placeOf(0.9, 0.9)], 0.0f);
}

TEST_F(IdPictures, TellHowFarAwayThingsAreInPerspective)
{
    UsePerspective();
    Add(MakeRectangles({{.z = 3.0f}}));
    draw();

    EXPECT_NEAR(m_picture.depths[placeOf(0.3, 0.3)], 7.0f, 1e-4f);
}

TEST_F(IdPictures, NearerThingsCoverFartherOnesAlsoWhereTheyAreTransparent)
{
    Add(MakeRectangles({{.z = 0.0f}}), kBlue);
    GeoNode& nearer = Add(MakeRectangles({{.z = 1.0f}}));
    nearer.SetOpacity(0.2f);
    Add(MakeRectangles({{.z = -1.0f}}), kGreen);
    draw();

    EXPECT_EQ(itemAt(0.0, 0.0), faceOf(nearer));
}

TEST_F(IdPictures, LeaveOutWhatIsHiddenCutAwayOrBesideTheModel)
{
    GeoNode& hidden = Add(MakeRectangles({{.z = 3.0f}}));
    hidden.SetVisible(false);
    GeoNode& hiddenFace = Add(MakeRectangles({{.z = 2.0f}}));
    hiddenFace.SetPartShown(0, false);
    Add(MakeRectangles({{.z = 1.0f}}));
    const GeoNode& left = Add(MakeRectangles({{.z = -1.0f}}));
    Options().SetClipPlanes({{{0.0f, 0.0f, -1.0f}, 0.0f}});
    m_view->DrawArrow(-0.5, 0.0, 4.0, 0.5, 0.0, 4.0);
    draw();

    EXPECT_EQ(itemAt(0.0, 0.0), faceOf(left));
    EXPECT_EQ(m_picture.items.size(), 1u);
}

TEST_F(IdPictures, CapsBelongToTheNodeThatTheyClose)
{
    GeoNode& box = Add(MakeBox(0.5f));
    Add(MakeRectangles({{.left = -0.9f, .bottom = -0.9f, .right = 0.9f, .top = 0.9f, .z = -2.0f}}));
    Options().SetClipPlanes({{{0.0f, 0.0f, -1.0f}, 0.25f}});
    draw();

    EXPECT_EQ(itemAt(0.0, 0.0), box.GetRenderId());
    EXPECT_NEAR(m_picture.depths[placeOf(0.0, 0.0)], 9.75f, 1e-4f);
    EXPECT_NE(itemAt(0.7, 0.7), box.GetRenderId());
}

TEST_F(IdPictures, PartsWithAStateAreNamedAsTheOthers)
{
    GeoNode& node = Add(MakeRectangles({{-0.8f, -0.5f, -0.2f, 0.5f}, {0.2f, -0.5f, 0.8f, 0.5f}}));
    node.SetPartColor(1, kGreen);
    node.SetPartSelected(0, true);
    draw();

    EXPECT_EQ(itemAt(-0.5, 0.0), faceOf(node, 0));
    EXPECT_EQ(itemAt(0.5, 0.0), faceOf(node, 1));
}

TEST_F(IdPictures, LeaveThePictureAsItWas)
{
    Add(MakeBox(0.5f));
    Options().SetClipPlanes({{{0.0f, 0.0f, -1.0f}, 0.25f}});
    const TambVizCore::Image before = Draw();
    draw(33, 20);

    EXPECT_EQ(Draw().rgba, before.rgba);
}

TEST_F(IdPictures, ASizeThatCannotBeDrawnIsRefusedWithItsReason)
{
    IdPicture picture;
    picture.width = 7;

    EXPECT_FALSE(m_view->ReadIdPicture(1000000, 10, picture));
    EXPECT_FALSE(m_view->ReadIdPicture(0, 10, picture));
    EXPECT_EQ(picture.width, 7);
    EXPECT_NE(m_debug.Text().find("1000000 x 10"), std::string::npos);
}

/// Squares at random places, some displaced, hidden or cut.
class IdPicturesAndHover : public IdPictures
{
protected:
    void addSquares(unsigned seed)
    {
        std::mt19937 random(seed);
        const auto place = [&random] {
            return static_cast<double>(random() % 2000) / 1000.0 - 1.0;
        };
        const auto square = TambVizCore::MakeSquare();
        for (int i = 0; i < 40; ++i) {
            GeoNode& node = Add(square);
            const double s = 0.2 + 0.2 * place();
            const double turn = place();
            const double placed[16] = {s, 0, turn, 0, 0,       s,       -turn * s,     0,
                                       0, 0, 1,    0, place(), place(), 2.0 * place(), 1};
            node.SetTransform(placed);
            const double away[3] = {place(), place(), place()};
            if (i % 3 == 0)
                node.SetDisplacement(away);
            node.SetVisible(i % 7 != 0);
        }
    }

    bool isEverywhere(int x, int y) const
    {
        for (int row = y - 1; row <= y + 1; ++row)
            for (int column = x - 1; column <= x + 1; ++column)
                if (numberAt(column, row) != numberAt(x, y))
                    return false;
        return true;
    }
    std::uint32_t numberAt(int x, int y) const
    {
        return m_picture.pixels[static_cast<std::size_t>(y * m_picture.width + x)];
    }

    /// Compares every pixel off silhouettes.
    void compare()
    {
        m_view->SetWindowSize(100, 80);
        Options().SetShowEdges(false);
        draw(100, 80);
        int compared = 0;
        for (int y = 1; y < 79; ++y)
            for (int x = 1; x < 99; ++x) {
                if (!isEverywhere(x, y))
                    continue;
                RenderId hovered;
                m_view->GetRenderIdAtPixel(x, y, hovered);
                const std::uint32_t number = numberAt(x, y);
                ASSERT_EQ(hovered, number == 0 ? RenderId() : m_picture.items[number - 1])
                    << x << " " << y;
                ++compared;
            }
        EXPECT_GT(compared, 4000);
        EXPECT_GT(m_picture.items.size(), 15u);
    }
};

TEST_F(IdPicturesAndHover, AgreeOffSilhouettes)
{
    addSquares(1);
    compare();
}

TEST_F(IdPicturesAndHover, AgreeInPerspective)
{
    UsePerspective();
    addSquares(2);
    compare();
}

TEST_F(IdPicturesAndHover, AgreeWhereSectionsCut)
{
    addSquares(3);
    Options().SetClipPlanes({{{0.3f, 0.2f, -0.9f}, 0.2f}, {{0.0f, 1.0f, 0.0f}, 0.5f}});
    compare();
}

} // namespace
} // namespace ViewOpenGl
