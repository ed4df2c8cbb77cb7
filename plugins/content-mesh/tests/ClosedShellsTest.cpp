#include "content/ClosedShells.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using OrvikMesh::AreClosedShells;

namespace {

/// Tetrahedra, each with vertices of its own and its outside outside.
struct Tetrahedra
{
    explicit Tetrahedra(std::uint32_t count)
    {
        for (std::uint32_t i = 0; i < count; ++i) {
            const float x = 1000.0f + 3.0f * static_cast<float>(i);
            positions.insert(positions.end(), {x, 0, 0, x + 1, 0, 0, x, 1, 0, x, 0, 1});
            for (const std::uint32_t corner : {0u, 2u, 1u, 0u, 1u, 3u, 1u, 2u, 3u, 2u, 0u, 3u})
                triangles.push_back(4 * i + corner);
        }
    }

    void TurnTriangle(std::size_t index)
    {
        std::swap(triangles[index * 3], triangles[index * 3 + 1]);
    }

    bool AreClosed() const
    {
        return AreClosedShells(positions.data(), positions.size() / 3, triangles.data(),
                               triangles.size() / 3);
    }

    std::vector<float> positions;
    std::vector<std::uint32_t> triangles;
};

} // namespace

TEST(ClosedShells, SolidIsClosed)
{
    EXPECT_TRUE(Tetrahedra(1).AreClosed());
}

TEST(ClosedShells, ManySolidsAreClosed)
{
    EXPECT_TRUE(Tetrahedra(50000).AreClosed());
}

TEST(ClosedShells, NoTriangleIsNotClosed)
{
    EXPECT_FALSE(Tetrahedra(0).AreClosed());
}

TEST(ClosedShells, MissingTriangleOpens)
{
    Tetrahedra solid(50000);
    solid.triangles.resize(solid.triangles.size() - 3);

    EXPECT_FALSE(solid.AreClosed());
}

TEST(ClosedShells, TurnedTriangleOpens)
{
    Tetrahedra solid(3);
    solid.TurnTriangle(5);

    EXPECT_FALSE(solid.AreClosed());
}

TEST(ClosedShells, ShellInsideOutAmongOthersIsFound)
{
    Tetrahedra solid(3);
    for (std::size_t i = 4; i < 8; ++i)
        solid.TurnTriangle(i);

    EXPECT_FALSE(solid.AreClosed());
}

TEST(ClosedShells, FlatPairOfTrianglesIsNoSolid)
{
    Tetrahedra pair(1);
    pair.triangles = {0, 1, 2, 0, 2, 1};

    EXPECT_FALSE(pair.AreClosed());
}

TEST(ClosedShells, TriangleWithoutAreaChangesNothing)
{
    Tetrahedra solid(1);
    solid.triangles.insert(solid.triangles.end(), {1, 1, 2, 2, 1, 1});

    EXPECT_TRUE(solid.AreClosed());
}

TEST(ClosedShells, IndexOutOfRangeIsNotClosed)
{
    Tetrahedra solid(1);
    solid.triangles.insert(solid.triangles.end(), {4, 4, 4});

    EXPECT_FALSE(solid.AreClosed());
}
