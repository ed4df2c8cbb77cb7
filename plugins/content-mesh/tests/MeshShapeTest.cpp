#include "content/MeshShape.h"

#include "Models.h"

#include <gtest/gtest.h>

TEST(MeshShape, PartsAreMadeOnFirstUseOnly)
{
    const OrvikMesh::MeshShape body(PlainGeometry(Cube()));
    EXPECT_TRUE(body.Present()->Parts().empty());

    const auto withParts = body.WithParts();

    EXPECT_EQ(body.Present(), withParts);
    EXPECT_EQ(body.WithParts(), withParts);
    EXPECT_NE(withParts->Index(), nullptr);
    EXPECT_EQ(withParts->Parts().size(), 26u);
}

TEST(MeshShape, PointsOfACloudHaveAnIndexAndNoParts)
{
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(TambVizCore::SharedArray<float>(std::vector<float>{0, 0, 0, 1, 1, 1}));
    builder.SetPoints(TambVizCore::SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1}));
    std::string error;
    const OrvikMesh::MeshShape cloud(builder.Build(error));

    EXPECT_TRUE(cloud.WithParts()->Parts().empty());
    EXPECT_NE(cloud.Present()->Index(), nullptr);
}
