#include "content/PartBoxes.h"

#include <TambVizCore/PartKind.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using OrvikModel::PartBoxes;
using TambVizCore::Geometry;
using TambVizCore::GeometryBuilder;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::VizBox;

namespace {

/// A band of triangles along x, one large face of all but the last, and one of that alone.
std::shared_ptr<const Geometry> band(float width)
{
    constexpr std::uint32_t kTriangles = 200;
    std::vector<float> positions;
    std::vector<std::uint32_t> triangles;
    for (std::uint32_t i = 0; i < kTriangles + 2; ++i) {
        for (const float value : {static_cast<float>(i), i % 2 == 0 ? 0.0f : width, 0.0f})
            positions.push_back(value);
        for (std::uint32_t k = 0; k < 3 && i < kTriangles; ++k)
            triangles.push_back(i + k);
    }
    GeometryBuilder builder;
    builder.SetPositions(TambVizCore::SharedArray<float>(std::move(positions)));
    builder.SetTriangles(TambVizCore::SharedArray<std::uint32_t>(std::move(triangles)));
    builder.AddPart({PartKind::Face, 0, kTriangles - 1, MakePartId(PartKind::Face, 0)});
    builder.AddPart({PartKind::Face, kTriangles - 1, 1, MakePartId(PartKind::Face, 1)});
    std::string error;
    auto geometry = builder.Build(error);
    EXPECT_TRUE(geometry) << error;
    return geometry;
}

} // namespace

TEST(PartBoxes, AreThoseOfTheGeometryHoweverOftenTheyAreAsked)
{
    PartBoxes boxes;
    const auto narrow = band(1.0f);
    const auto wide = band(3.0f);

    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(boxes.BoxOf(narrow, 0), VizBox(0, 0, 0, 200, 1, 0));
        EXPECT_EQ(boxes.BoxOf(wide, 0), VizBox(0, 0, 0, 200, 3, 0));
        EXPECT_EQ(boxes.BoxOf(wide, 1), VizBox(199, 0, 0, 201, 3, 0));
    }
    EXPECT_TRUE(boxes.BoxOf(wide, 2).IsEmpty());
}

TEST(PartBoxes, AreNotThoseOfAGeometryThatHadTheSameAddress)
{
    PartBoxes boxes;

    for (int width = 1; width <= 50; ++width)
        EXPECT_EQ(boxes.BoxOf(band(static_cast<float>(width)), 0),
                  VizBox(0, 0, 0, 200, static_cast<float>(width), 0));
}
