#include "content/PatchBuilder.h"

#include "Models.h"

#include <OrvikOs/ParallelFor.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using OrvikMesh::BuildPatches;
using TambVizCore::Geometry;
using TambVizCore::GeometryPart;
using TambVizCore::PartKind;

namespace {

std::size_t countOf(const Geometry& geometry, PartKind kind)
{
    return static_cast<std::size_t>(
        std::count_if(geometry.Parts().begin(), geometry.Parts().end(),
                      [kind](const GeometryPart& part) { return part.kind == kind; }));
}

std::shared_ptr<const Geometry> patchesOf(const std::vector<Triangle>& triangles)
{
    return BuildPatches(*PlainGeometry(triangles));
}

/// A floor of 40,000 squares with steps of whole numbers: thousands of faces, edges and vertices.
std::vector<Triangle> steppedFloor()
{
    constexpr int kSize = 200;
    const auto point = [](int x, int y) {
        return Point{static_cast<float>(x), static_cast<float>(y),
                     (x * x + y * 3) % 7 < 2 ? 1.0f : 0.0f};
    };
    std::vector<Triangle> triangles;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            triangles.push_back({point(x, y), point(x + 1, y), point(x + 1, y + 1)});
            triangles.push_back({point(x, y), point(x + 1, y + 1), point(x, y + 1)});
        }
    return triangles;
}

/// A number made of all parts and of the triangles and segments that they number.
std::uint64_t digestOf(const Geometry& geometry)
{
    std::uint64_t digest = 14695981039346656037u;
    const auto add = [&](std::uint64_t value) { digest = (digest ^ value) * 1099511628211u; };
    for (const GeometryPart& part : geometry.Parts())
        for (const std::uint64_t value : {static_cast<std::uint64_t>(part.kind), part.id,
                                          std::uint64_t{part.first}, std::uint64_t{part.count}})
            add(value);
    for (const std::uint32_t vertex : geometry.Triangles().Span())
        add(vertex);
    for (const std::uint32_t vertex : geometry.Segments().Span())
        add(vertex);
    return digest;
}

Triangle turned(const Triangle& triangle)
{
    return {triangle[0], triangle[2], triangle[1]};
}

} // namespace

TEST(PatchBuilder, CubeHasSixFacesTwelveEdgesAndEightVertices)
{
    const auto cube = patchesOf(Cube());

    EXPECT_EQ(countOf(*cube, PartKind::Face), 6u);
    EXPECT_EQ(countOf(*cube, PartKind::Edge), 12u);
    EXPECT_EQ(countOf(*cube, PartKind::Vertex), 8u);
    EXPECT_TRUE(cube->IsClosed());
}

TEST(PatchBuilder, FineCylinderHasThreeFacesTwoEdgesAndNoVertex)
{
    const auto cylinder = patchesOf(Cylinder(64));

    EXPECT_EQ(countOf(*cylinder, PartKind::Face), 3u);
    EXPECT_EQ(countOf(*cylinder, PartKind::Edge), 2u);
    EXPECT_EQ(countOf(*cylinder, PartKind::Vertex), 0u);
    EXPECT_EQ(cylinder->SegmentCount(), 128u);
}

TEST(PatchBuilder, CoarsePrismHasAFaceForEachSide)
{
    const auto prism = patchesOf(Cylinder(6));

    EXPECT_EQ(countOf(*prism, PartKind::Face), 8u);
    EXPECT_EQ(countOf(*prism, PartKind::Edge), 18u);
    EXPECT_EQ(countOf(*prism, PartKind::Vertex), 12u);
}

TEST(PatchBuilder, TorusIsOneFaceWithoutEdges)
{
    const auto torus = patchesOf(Torus(5000));

    EXPECT_EQ(torus->Parts().size(), 1u);
    EXPECT_TRUE(torus->IsClosed());
}

TEST(PatchBuilder, OpenSquareHasFourEdgesAndFourCorners)
{
    const auto square = patchesOf({{Point{0, 0, 0}, Point{1, 0, 0}, Point{1, 1, 0}},
                                   {Point{0, 0, 0}, Point{1, 1, 0}, Point{0, 1, 0}}});

    EXPECT_EQ(countOf(*square, PartKind::Face), 1u);
    EXPECT_EQ(countOf(*square, PartKind::Edge), 4u);
    EXPECT_EQ(countOf(*square, PartKind::Vertex), 4u);
    EXPECT_FALSE(square->IsClosed());
}

TEST(PatchBuilder, TrianglesOfAFaceLieTogetherInTheirOldOrder)
{
    const auto plain = PlainGeometry(Cube());
    const auto cube = BuildPatches(*plain);

    // The cube's own list has two triangles per side, side by side: nothing moves.
    EXPECT_TRUE(std::equal(plain->Triangles().Span().begin(), plain->Triangles().Span().end(),
                           cube->Triangles().Span().begin()));
    EXPECT_EQ(cube->Parts()[2].first, 4u);
    EXPECT_EQ(cube->Parts()[2].count, 2u);
}

TEST(PatchBuilder, FacesAreNumberedByTheirFirstTriangle)
{
    std::vector<Triangle> triangles = Cube();
    std::rotate(triangles.begin(), triangles.begin() + 1, triangles.end());

    const auto cube = patchesOf(triangles);

    // The first side's other triangle has moved to the end of the file, and comes back to it.
    const Point second = {0, 1, 0};
    const std::uint32_t corner = cube->Triangles()[4];
    EXPECT_EQ((Point{cube->Positions()[corner * 3], cube->Positions()[corner * 3 + 1],
                     cube->Positions()[corner * 3 + 2]}),
              second);
    EXPECT_EQ(countOf(*cube, PartKind::Face), 6u);
}

TEST(PatchBuilder, NumbersAreTheSameInEveryProcessOnAnyNumberOfThreads)
{
    const auto plain = PlainGeometry(steppedFloor());
    const auto onMany = BuildPatches(*plain);
    std::shared_ptr<const Geometry> onOne;
    // What runs inside a piece of a loop stays on its thread.
    OrvikOs::ParallelFor(2, 1, [&](std::size_t begin, std::size_t) {
        if (begin == 0)
            onOne = BuildPatches(*plain);
    });

    EXPECT_GT(countOf(*onMany, PartKind::Face), 1000u);
    // Scripts and journals keep such numbers: a change breaks them.
    EXPECT_EQ(digestOf(*onMany), 14245369244806447375u);
    EXPECT_EQ(digestOf(*onOne), digestOf(*onMany));
}

TEST(PatchBuilder, SharesTheVertexArraysOfThePlainShape)
{
    const auto plain = PlainGeometry(Cube());

    EXPECT_EQ(BuildPatches(*plain)->Positions().Data(), plain->Positions().Data());
}

TEST(PatchBuilder, PointsSplitForNormalsStillHangTogether)
{
    ReadResult read;
    const auto bodies = BodiesOfObj("v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nvn 0 0 1\nvn 0 0.1 1\n"
                                    "f 1//1 2//1 3//1\nf 1//2 3//2 4//2\n",
                                    read);

    EXPECT_EQ(countOf(*bodies.front()->shape->WithParts(), PartKind::Face), 1u);
}

TEST(PatchBuilder, TriangleWoundTheOtherWayStaysInItsFaceButOpensTheBody)
{
    std::vector<Triangle> triangles = Cube();
    triangles[0] = turned(triangles[0]);

    const auto cube = patchesOf(triangles);

    EXPECT_EQ(countOf(*cube, PartKind::Face), 6u);
    EXPECT_FALSE(cube->IsClosed());
}

TEST(PatchBuilder, SideOfThreeTrianglesIsAnEdge)
{
    const auto fins = patchesOf({{Point{0, 0, 0}, Point{0, 0, 1}, Point{1, 0, 0}},
                                 {Point{0, 0, 1}, Point{0, 0, 0}, Point{-1, 0.1f, 0}},
                                 {Point{0, 0, 1}, Point{0, 0, 0}, Point{-1, -0.1f, 0}}});

    EXPECT_EQ(countOf(*fins, PartKind::Face), 3u);
    EXPECT_FALSE(fins->IsClosed());
    EXPECT_EQ(fins->SegmentCount(), 7u);
}

TEST(PatchBuilder, TriangleWithoutAreaCarriesNoFaceOverAnEdge)
{
    // A wall and a floor that touch only through a sliver of no area.
    const auto geometry = patchesOf({{Point{0, 0, 0}, Point{2, 0, 0}, Point{2, 2, 0}},
                                     {Point{0, 0, 0}, Point{1, 0, 0}, Point{2, 0, 0}},
                                     {Point{1, 0, 0}, Point{0, 0, 0}, Point{0, 0, 2}}});

    EXPECT_EQ(countOf(*geometry, PartKind::Face), 2u);
}

TEST(PatchBuilder, TrianglesWithEqualCornersDoNoHarm)
{
    const Point a{1, 2, 3};

    const auto geometry =
        patchesOf({{a, a, a}, {a, a, Point{0, 0, 0}}, {a, Point{0, 0, 0}, Point{1, 0, 0}}});

    EXPECT_EQ(geometry->TriangleCount(), 3u);
}

TEST(PatchBuilder, SegmentsOfAnEdgeFollowOneAnother)
{
    const auto cylinder = patchesOf(Cylinder(64));

    for (const GeometryPart& part : cylinder->Parts()) {
        if (part.kind != PartKind::Edge)
            continue;
        for (std::uint32_t i = part.first + 1; i < part.first + part.count; ++i)
            EXPECT_EQ(cylinder->Segments()[i * 2], cylinder->Segments()[i * 2 - 1]);
        EXPECT_EQ(cylinder->Segments()[part.first * 2],
                  cylinder->Segments()[(part.first + part.count) * 2 - 1]);
    }
}
