#include "TestGeometry.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <thread>
#include <vector>

namespace TambVizCore {
namespace {

SharedArray<float> floats(std::vector<float> values)
{
    return SharedArray<float>(std::move(values));
}

SharedArray<std::uint32_t> indices(std::vector<std::uint32_t> values)
{
    return SharedArray<std::uint32_t>(std::move(values));
}

/// Three vertices, nothing else.
GeometryBuilder threeVertices()
{
    GeometryBuilder builder;
    builder.SetPositions(floats({0, 0, 0, 1, 0, 0, 0, 1, 0}));
    return builder;
}

/// Expects that Build refuses with a text.
void expectError(GeometryBuilder builder, const char* text)
{
    std::string error;
    EXPECT_EQ(builder.Build(error), nullptr);
    EXPECT_EQ(error, text);
}

TEST(SharedArray, TakesAVectorOverWithoutACopy)
{
    std::vector<float> values = {1, 2, 3};
    const float* const where = values.data();

    const SharedArray<float> array(std::move(values));

    EXPECT_EQ(array.Data(), where);
    EXPECT_EQ(array.Size(), 3u);
    EXPECT_EQ(array.MemoryBytes(), 12u);
}

TEST(SharedArray, TakesABlockOver)
{
    auto block = std::make_unique<std::uint32_t[]>(2);
    block[1] = 7;

    const SharedArray<std::uint32_t> array(std::move(block), 2);

    EXPECT_EQ(array[1], 7u);
    EXPECT_EQ(array.Span().size(), 2u);
}

TEST(SharedArray, CopiesShareTheElementsAndKeepThemAlive)
{
    SharedArray<float> copy;
    {
        const SharedArray<float> array(std::vector<float>{4, 5});
        copy = array;
        EXPECT_EQ(copy.Data(), array.Data());
    }

    EXPECT_EQ(copy[1], 5.0f);
}

TEST(Geometry, CountsWhatItWasGiven)
{
    const auto square = MakeSquare();

    EXPECT_EQ(square->VertexCount(), 4u);
    EXPECT_EQ(square->TriangleCount(), 2u);
    EXPECT_EQ(square->SegmentCount(), 4u);
    EXPECT_EQ(square->PointCount(), 4u);
    EXPECT_EQ(square->Parts().size(), 10u);
    EXPECT_FALSE(square->IsClosed());
}

TEST(Geometry, AnEmptyBuilderMakesAnEmptyGeometry)
{
    std::string error = "left over";

    const auto geometry = GeometryBuilder().Build(error);

    ASSERT_NE(geometry, nullptr);
    EXPECT_EQ(error, "");
    EXPECT_EQ(geometry->VertexCount(), 0u);
    EXPECT_TRUE(geometry->BoundingBox().IsEmpty());
}

TEST(Geometry, TheBuilderIsEmptyAfterBuild)
{
    GeometryBuilder builder = SquareBuilder();
    std::string error;
    builder.Build(error);

    EXPECT_EQ(builder.Build(error)->VertexCount(), 0u);
}

TEST(Geometry, TheBoxHoldsAllVertices)
{
    std::string error;

    const auto geometry =
        GeometryBuilder().SetPositions(floats({-1, 5, 2, 3, -4, 2.5f})).Build(error);

    EXPECT_EQ(geometry->BoundingBox(), VizBox(-1, -4, 2, 3, 5, 2.5));
}

TEST(Geometry, PartsAreSortedByTheirIds)
{
    const auto square = MakeSquare();

    EXPECT_EQ(square->Parts()[0], (GeometryPart{PartKind::Face, 0, 1, 0x100000000u}));
    EXPECT_EQ(square->Parts()[kFirstEdge].id, 0x200000000u);
    EXPECT_EQ(square->Parts()[kFirstVertex].id, 0x300000000u);
}

TEST(Geometry, FindPartKnowsEveryIdAndNoOther)
{
    const auto square = MakeSquare();

    EXPECT_EQ(square->FindPart(MakePartId(PartKind::Face, 1)), 1);
    EXPECT_EQ(square->FindPart(MakePartId(PartKind::Vertex, 3)), kFirstVertex + 3);
    EXPECT_EQ(square->FindPart(MakePartId(PartKind::Face, 2)), -1);
    EXPECT_EQ(square->FindPart(0), -1);
    EXPECT_EQ(square->FindPart(0xFFFFFFFFFFFFFFFFu), -1);
}

TEST(Geometry, PartOfPrimitiveKeepsTheKindsApart)
{
    const auto square = MakeSquare();

    EXPECT_EQ(square->PartOfPrimitive(PartKind::Face, 1), 1u);
    EXPECT_EQ(square->PartOfPrimitive(PartKind::Edge, 1), kFirstEdge + 1);
    EXPECT_EQ(square->PartOfPrimitive(PartKind::Vertex, 1), kFirstVertex + 1);
    EXPECT_EQ(square->PartOfPrimitive(PartKind::None, 1), kNoPart);
}

TEST(Geometry, PrimitivesBetweenPartsBelongToNone)
{
    std::string error;
    // Parts in the order of their ids, not of their runs; points 0, 3 and 5 are in none.
    const auto geometry = threeVertices()
                              .SetPoints(indices({0, 1, 2, 0, 1, 2}))
                              .AddPart({PartKind::Vertex, 4, 1, 1})
                              .AddPart({PartKind::Vertex, 1, 2, 2})
                              .AddPart({PartKind::Vertex, 3, 0, 3})
                              .Build(error);

    ASSERT_NE(geometry, nullptr) << error;
    const std::uint32_t expected[] = {kNoPart, 1, 1, kNoPart, 0, kNoPart, kNoPart};
    for (std::uint32_t i = 0; i < 7; ++i) {
        EXPECT_EQ(geometry->PartOfPrimitive(PartKind::Vertex, i), expected[i]) << i;
    }
}

TEST(Geometry, PartBoxHoldsTheVerticesOfItsRun)
{
    const auto square = MakeSquare();

    EXPECT_EQ(square->PartBox(0), VizBox(0, 0, 0, 1, 1, 0));
    EXPECT_EQ(square->PartBox(kFirstEdge + 1), VizBox(1, 0, 0, 1, 1, 0));
    EXPECT_EQ(square->PartBox(kFirstVertex + 3), VizBox(0, 1, 0, 0, 1, 0));
    EXPECT_TRUE(square->PartBox(10).IsEmpty());
    EXPECT_TRUE(square->PartBox(kNoPart).IsEmpty());
}

TEST(Geometry, MemoryBytesCountsTheArrays)
{
    const auto square = MakeSquare();
    const std::size_t arrays = 12 * sizeof(float) + (6 + 8 + 4) * sizeof(std::uint32_t);

    EXPECT_GE(square->MemoryBytes(), arrays + 10 * sizeof(GeometryPart));
    EXPECT_LT(square->MemoryBytes(), arrays + 4096);
}

TEST(Geometry, GeometriesMayShareTheirArrays)
{
    std::string error;
    const auto square = MakeSquare();

    const auto other = GeometryBuilder().SetPositions(square->Positions()).Build(error);

    EXPECT_EQ(other->Positions().Data(), square->Positions().Data());
}

TEST(Geometry, TheFirstPublishedIndexStays)
{
    std::string error;
    const auto geometry = SquareBuilder().Build(error);
    EXPECT_EQ(geometry->Index(), nullptr);

    EXPECT_TRUE(geometry->PublishIndex(std::make_unique<BruteForceIndex>(*geometry)));
    const IGeometryIndex* const first = geometry->Index();
    EXPECT_FALSE(geometry->PublishIndex(std::make_unique<BruteForceIndex>(*geometry)));

    EXPECT_NE(first, nullptr);
    EXPECT_EQ(geometry->Index(), first);
}

TEST(Geometry, OneOfTwoThreadsPublishes)
{
    std::string error;
    const auto geometry = SquareBuilder().Build(error);
    std::atomic<int> published{0};
    const auto publish = [&] {
        if (geometry->PublishIndex(std::make_unique<BruteForceIndex>(*geometry))) {
            ++published;
        }
    };

    std::thread other(publish);
    publish();
    other.join();

    EXPECT_EQ(published, 1);
}

TEST(GeometryBuilder, RefusesHalfAVertex)
{
    GeometryBuilder builder;
    builder.SetPositions(floats({0, 0, 0, 1}));

    expectError(std::move(builder), "The number of coordinates is not a multiple of three.");
}

TEST(GeometryBuilder, RefusesNormalsOfAnotherNumber)
{
    expectError(std::move(threeVertices().SetNormals(floats({0, 0, 1}))),
                "The number of normals does not match the number of vertices.");
}

TEST(GeometryBuilder, RefusesColoursOfAnotherNumber)
{
    SharedArray<std::uint8_t> colors(std::vector<std::uint8_t>(9));

    expectError(std::move(threeVertices().SetColors(colors)),
                "The number of colours does not match the number of vertices.");
}

TEST(GeometryBuilder, RefusesHalfATriangle)
{
    expectError(std::move(threeVertices().SetTriangles(indices({0, 1, 2, 0}))),
                "The number of triangle indices is not a multiple of three.");
}

TEST(GeometryBuilder, RefusesHalfASegment)
{
    expectError(std::move(threeVertices().SetSegments(indices({0, 1, 2}))),
                "The number of segment indices is not a multiple of two.");
}

TEST(GeometryBuilder, RefusesCoordinatesThatAreNotFinite)
{
    for (const float bad :
         {std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
          std::numeric_limits<float>::quiet_NaN()}) {
        GeometryBuilder builder;
        builder.SetPositions(floats({0, 0, 0, 1, 1, bad}));

        expectError(std::move(builder), "Vertex 1 has a coordinate that is not finite.");
    }
}

/// Longer than one task of the builder's checks.
constexpr std::uint32_t kManyVertices = 2500000;

TEST(GeometryBuilder, ChecksLongArraysToTheirEnd)
{
    std::vector<float> positions(std::size_t{kManyVertices} * 3, 1.0f);
    positions[1] = -5.0f;
    positions[positions.size() - 3] = 7.0f;
    std::vector<std::uint32_t> points(kManyVertices);
    points.back() = kManyVertices - 1;
    std::string error;

    const auto geometry = GeometryBuilder()
                              .SetPositions(floats(std::move(positions)))
                              .SetPoints(indices(std::move(points)))
                              .Build(error);

    ASSERT_NE(geometry, nullptr) << error;
    EXPECT_EQ(geometry->BoundingBox(), VizBox(1, -5, 1, 7, 1, 1));
}

TEST(GeometryBuilder, FindsTheBadVertexFarBack)
{
    std::vector<float> positions(std::size_t{kManyVertices} * 3, 1.0f);
    positions[positions.size() - 4] = -std::numeric_limits<float>::infinity();
    GeometryBuilder builder;
    builder.SetPositions(floats(std::move(positions)));

    expectError(std::move(builder), "Vertex 2499998 has a coordinate that is not finite.");
}

TEST(GeometryBuilder, FindsTheBadIndexFarBack)
{
    std::vector<std::uint32_t> points(kManyVertices);
    points[2400000] = 3;

    expectError(std::move(threeVertices().SetPoints(indices(std::move(points)))),
                "Point 2400000 names vertex 3, but there are only 3.");
}

TEST(GeometryBuilder, AcceptsDenormalAndHugeCoordinates)
{
    std::string error;

    const auto geometry =
        GeometryBuilder().SetPositions(floats({1e-45f, 3.4e38f, -3.4e38f})).Build(error);

    ASSERT_NE(geometry, nullptr) << error;
    EXPECT_FALSE(geometry->BoundingBox().IsEmpty());
}

TEST(GeometryBuilder, RefusesATriangleThatNamesAMissingVertex)
{
    expectError(std::move(threeVertices().SetTriangles(indices({0, 1, 2, 0, 1, 3}))),
                "Triangle 1 names vertex 3, but there are only 3.");
}

TEST(GeometryBuilder, RefusesTheLargestIndex)
{
    expectError(std::move(threeVertices().SetSegments(indices({0, 1, 2, 0xFFFFFFFFu}))),
                "Segment 1 names vertex 4294967295, but there are only 3.");
}

TEST(GeometryBuilder, RefusesPointsWithoutVertices)
{
    expectError(std::move(GeometryBuilder().SetPoints(indices({0}))),
                "Point 0 names vertex 0, but there are only 0.");
}

TEST(GeometryBuilder, RefusesAPartWithoutKind)
{
    for (const PartKind kind : {PartKind::None, static_cast<PartKind>(9)}) {
        expectError(std::move(threeVertices().AddPart({kind, 0, 0, 7})),
                    "The part of id 7 has no kind.");
    }
}

TEST(GeometryBuilder, RefusesThePartIdZero)
{
    expectError(std::move(threeVertices().AddPart({PartKind::Face, 0, 0, 0})),
                "A part has the id 0.");
}

TEST(GeometryBuilder, RefusesTwoPartsOfOneId)
{
    expectError(std::move(threeVertices()
                              .AddPart({PartKind::Face, 0, 0, 9})
                              .AddPart({PartKind::Face, 0, 0, 8})
                              .AddPart({PartKind::Edge, 0, 0, 9})),
                "Two parts have the id 9.");
}

TEST(GeometryBuilder, RefusesAPartBeyondItsPrimitives)
{
    expectError(
        std::move(
            threeVertices().SetTriangles(indices({0, 1, 2})).AddPart({PartKind::Face, 0, 2, 5})),
        "The part of id 5 reaches beyond its primitives.");
}

TEST(GeometryBuilder, RefusesAPartWhoseEndOverflows)
{
    expectError(std::move(threeVertices()
                              .SetTriangles(indices({0, 1, 2}))
                              .AddPart({PartKind::Face, 0xFFFFFFFFu, 2, 5})),
                "The part of id 5 reaches beyond its primitives.");
}

TEST(GeometryBuilder, RefusesPartsThatOverlap)
{
    expectError(std::move(threeVertices()
                              .SetPoints(indices({0, 1, 2}))
                              .AddPart({PartKind::Vertex, 1, 2, 4})
                              .AddPart({PartKind::Vertex, 0, 2, 6})),
                "The parts of ids 4 and 6 overlap.");
}

TEST(GeometryBuilder, PartsOfDifferentKindsDoNotOverlap)
{
    std::string error;

    EXPECT_NE(threeVertices()
                  .SetPoints(indices({0}))
                  .SetSegments(indices({0, 1}))
                  .AddPart({PartKind::Vertex, 0, 1, 4})
                  .AddPart({PartKind::Edge, 0, 1, 6})
                  .Build(error),
              nullptr);
}

} // namespace
} // namespace TambVizCore
