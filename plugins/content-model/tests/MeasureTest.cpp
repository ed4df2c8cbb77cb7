#include "ExactShape.h"
#include "OrvikModel/ModelContent.h"
#include "OrvikModel/ModelEntity.h"

#include "OrvikCore/Document.h"

#include <TambVizCore/Geometry.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <optional>

using OrvikCore::Document;
using OrvikCore::EntityMeasure;
using OrvikCore::MeasureResult;
using OrvikModel::MakeContainerEntity;
using OrvikModel::MakeEntity;
using OrvikModel::ModelContent;
using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;

namespace {

constexpr std::uint64_t face(std::uint32_t index)
{
    return MakePartId(PartKind::Face, index);
}

/// One node below an assembly that moves and enlarges it.
class MeasureTest : public testing::Test
{
protected:
    void place(NodePtr node, std::vector<double> transform)
    {
        std::vector<NodePtr> nodes;
        nodes.push_back(MakeNode(NodeKind::Assembly, L"top"));
        nodes[0]->transform = std::move(transform);
        m_node = &AddChild(*nodes[0], std::move(node));
        m_content = std::make_unique<ModelContent>(m_document, MakeModel(std::move(nodes)), "Test");
    }
    void placeShape(std::shared_ptr<const OrvikModel::ModelShape> shape,
                    std::vector<double> transform)
    {
        NodePtr node = MakeNode(NodeKind::Body, L"body");
        node->shape = std::move(shape);
        place(std::move(node), std::move(transform));
    }
    std::optional<MeasureResult> measure(EntityMeasure what, std::uint64_t partId = 0) const
    {
        MeasureResult result;
        const auto entity = MakeEntity(*m_content->GetModel(), *m_node, partId);
        return m_content->Measure(entity, what, result) ? std::optional(result) : std::nullopt;
    }

    Document m_document{nullptr};
    const ModelNode* m_node = nullptr; ///< Not owned.
    std::unique_ptr<ModelContent> m_content;
};

/// A geometry that a test makes, with one face of all triangles and one edge of all segments.
class PlainShape : public OrvikModel::ModelShape
{
public:
    PlainShape(std::vector<float> positions, std::vector<std::uint32_t> triangles,
               std::vector<std::uint32_t> segments)
    {
        using TambVizCore::SharedArray;
        TambVizCore::GeometryBuilder builder;
        if (!triangles.empty())
            builder.AddPart(
                {PartKind::Face, 0, static_cast<std::uint32_t>(triangles.size() / 3), face(0)});
        if (!segments.empty())
            builder.AddPart({PartKind::Edge, 0, static_cast<std::uint32_t>(segments.size() / 2),
                             MakePartId(PartKind::Edge, 0)});
        builder.SetPositions(SharedArray<float>(std::move(positions)));
        builder.SetTriangles(SharedArray<std::uint32_t>(std::move(triangles)));
        builder.SetSegments(SharedArray<std::uint32_t>(std::move(segments)));
        std::string error;
        m_geometry = builder.Build(error);
    }
    std::shared_ptr<const TambVizCore::Geometry> Present() const override { return m_geometry; }
    std::shared_ptr<const TambVizCore::Geometry> WithParts() const override { return m_geometry; }
    void MakeParts() const override {}
    const TambVizCore::VizBox& BoundingBox() const override { return m_geometry->BoundingBox(); }

private:
    std::shared_ptr<const TambVizCore::Geometry> m_geometry;
};

/// The wall of a cylinder of radius 3 about z, from z = 0 to 4, with its lower rim as edge.
std::shared_ptr<PlainShape> makeWall()
{
    constexpr std::uint32_t steps = 48;
    std::vector<float> positions;
    std::vector<std::uint32_t> triangles;
    std::vector<std::uint32_t> segments;
    for (std::uint32_t i = 0; i < steps; ++i) {
        const double at = 2.0 * std::numbers::pi * i / steps;
        for (const float z : {0.0f, 4.0f}) {
            positions.push_back(static_cast<float>(3.0 * std::cos(at)));
            positions.push_back(static_cast<float>(3.0 * std::sin(at)));
            positions.push_back(z);
        }
        const std::uint32_t a = i * 2;
        const std::uint32_t b = (i + 1) % steps * 2;
        triangles.insert(triangles.end(), {a, b, b + 1, a, b + 1, a + 1});
        segments.insert(segments.end(), {a, b});
    }
    return std::make_shared<PlainShape>(positions, triangles, segments);
}

} // namespace

TEST_F(MeasureTest, CubeOfTrianglesHasItsSizesInTheWorld)
{
    place(MakeCube(NodeKind::PolyBody, L"cube"), Moved(1000.0, 0.0, 0.0, 2.0));

    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Area)->value, 24.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Volume)->value, 8.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Center)->vector[0], 1001.0);
    EXPECT_FALSE(measure(EntityMeasure::Volume)->exact);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Area, face(1))->value, 4.0);
    EXPECT_FALSE(measure(EntityMeasure::Volume, face(1)));
    EXPECT_FALSE(measure(EntityMeasure::Length));
}

TEST_F(MeasureTest, PlaneFacesHaveNormalsOutOfTheBody)
{
    place(MakeCube(NodeKind::PolyBody, L"cube"), Moved(0.0, 0.0, 0.0));

    EXPECT_EQ(measure(EntityMeasure::Surface, face(0))->word, "plane");
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Normal, face(0))->vector[0], -1.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Normal, face(3))->vector[1], 1.0);
    EXPECT_FALSE(measure(EntityMeasure::Radius, face(0)));
    EXPECT_FALSE(measure(EntityMeasure::Normal));
    EXPECT_FALSE(measure(EntityMeasure::Surface));
}

TEST_F(MeasureTest, EdgesAndVerticesHaveTheirOwnMeasures)
{
    place(MakeCube(NodeKind::PolyBody, L"cube"), Moved(0.0, 0.0, 0.0, 3.0));
    const std::uint64_t edge = MakePartId(PartKind::Edge, 8); // Along z at x = 0, y = 0.
    const std::uint64_t vertex = MakePartId(PartKind::Vertex, 3);

    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Length, edge)->value, 3.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Center, edge)->vector[2], 1.5);
    EXPECT_EQ(measure(EntityMeasure::Curve, edge)->word, "line");
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Direction, edge)->vector[2], 1.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Center, vertex)->vector[1], 3.0);
    EXPECT_FALSE(measure(EntityMeasure::Area, edge));
    EXPECT_FALSE(measure(EntityMeasure::Length, vertex));
    EXPECT_FALSE(measure(EntityMeasure::Curve, vertex));
}

TEST_F(MeasureTest, CylindersAndCirclesAreRecognised)
{
    placeShape(makeWall(), Moved(0.0, 10.0, 0.0, 2.0));
    const std::uint64_t rim = MakePartId(PartKind::Edge, 0);

    EXPECT_EQ(measure(EntityMeasure::Surface, face(0))->word, "cylinder");
    EXPECT_NEAR(measure(EntityMeasure::Radius, face(0))->value, 6.0, 1e-5);
    EXPECT_NEAR(measure(EntityMeasure::Direction, face(0))->vector[2], 1.0, 1e-9);
    EXPECT_NEAR(measure(EntityMeasure::Origin, face(0))->vector[1], 10.0, 1e-5);
    EXPECT_NEAR(measure(EntityMeasure::Origin, face(0))->vector[2], 4.0, 1e-5);
    EXPECT_FALSE(measure(EntityMeasure::Normal, face(0)));
    EXPECT_EQ(measure(EntityMeasure::Curve, rim)->word, "circle");
    EXPECT_NEAR(measure(EntityMeasure::Radius, rim)->value, 6.0, 1e-5);
}

TEST_F(MeasureTest, CylindersThatAreStretchedAcrossAreNoneAnyMore)
{
    placeShape(makeWall(), {1, 0, 0, 0, 0, 1.5, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});

    EXPECT_EQ(measure(EntityMeasure::Surface, face(0))->word, "freeform");
    EXPECT_FALSE(measure(EntityMeasure::Radius, face(0)));
    EXPECT_EQ(measure(EntityMeasure::Curve, MakePartId(PartKind::Edge, 0))->word, "polyline");
}

TEST_F(MeasureTest, OpenBodiesHaveNoVolumeAndTheirCentreIsThatOfTheirArea)
{
    placeShape(makeWall(), Moved(0.0, 0.0, 0.0));

    EXPECT_FALSE(measure(EntityMeasure::Volume));
    EXPECT_NEAR(measure(EntityMeasure::Center)->vector[2], 2.0, 1e-6);
}

TEST_F(MeasureTest, MirroredBodiesHaveTheirVolume)
{
    place(MakeCube(NodeKind::PolyBody, L"cube"), {-2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});

    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Volume)->value, 2.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Center)->vector[0], -1.0);
}

TEST_F(MeasureTest, WiresAndPointsHaveLengthAndCentre)
{
    placeShape(std::make_shared<PlainShape>(std::vector<float>{0, 0, 0, 2, 0, 0, 2, 1, 0},
                                            std::vector<std::uint32_t>{},
                                            std::vector<std::uint32_t>{0, 1, 1, 2}),
               Moved(0.0, 0.0, 0.0, 10.0));

    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Length)->value, 30.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Center)->vector[0], 40.0 / 3.0);
    EXPECT_FALSE(measure(EntityMeasure::Area));
}

TEST_F(MeasureTest, ExactAnswersAreCarriedIntoTheWorld)
{
    // A quarter turn about z, twice as large, moved.
    placeShape(std::make_shared<ExactShape>(0.0, 0.0, 0.0, 1.0),
               {0, 2, 0, 0, -2, 0, 0, 0, 0, 0, 2, 0, 100, 0, 0, 1});

    EXPECT_TRUE(measure(EntityMeasure::Area)->exact);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Area)->value, 40.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Volume)->value, 80.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Length)->value, 20.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Radius, face(0))->value, 20.0);
    EXPECT_EQ(measure(EntityMeasure::Surface, face(0))->word, "torus");
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Normal, face(0))->vector[1], 1.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Center)->vector[0], 100.0);
    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Center)->vector[1], 2.0);
}

TEST_F(MeasureTest, StretchedSolidsAreMeasuredByTheirTriangles)
{
    placeShape(std::make_shared<ExactShape>(0.0, 0.0, 0.0, 1.0),
               {1, 0, 0, 0, 0, 2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 1});

    EXPECT_DOUBLE_EQ(measure(EntityMeasure::Volume)->value, 6.0);
    EXPECT_FALSE(measure(EntityMeasure::Volume)->exact);
}

TEST(Measure, GroupsAddUp)
{
    Document document(nullptr);
    const ModelContent content(document, FullModel(), "Test");
    const auto& model = *content.GetModel();
    const auto assembly = MakeEntity(model, NodeNamed(model, L"assembly"));
    MeasureResult result;

    ASSERT_TRUE(content.Measure(assembly, EntityMeasure::Volume, result));
    EXPECT_DOUBLE_EQ(result.value, 9.0); // One of size 1, one of size 2.
    ASSERT_TRUE(content.Measure(assembly, EntityMeasure::Center, result));
    EXPECT_DOUBLE_EQ(result.vector[0], (0.5 * 1.0 + 6.0 * 8.0) / 9.0);
    ASSERT_TRUE(content.Measure(MakeContainerEntity(model), EntityMeasure::Area, result));
    EXPECT_DOUBLE_EQ(result.value, 6.0 * 6.0 + 24.0);
    EXPECT_FALSE(content.Measure(MakeEntity(model, NodeNamed(model, L"front")), EntityMeasure::Area,
                                 result));
    EXPECT_FALSE(content.Measure(assembly, EntityMeasure::Normal, result));
}

TEST_F(MeasureTest, LinesMeetTheExactSurface)
{
    placeShape(std::make_shared<ExactShape>(0.0, 0.0, 0.0, 1.0), Moved(0.0, 0.0, 0.0));
    const double origin[3] = {0.3, 0.4, 10.0};
    const double direction[3] = {0.0, 0.0, -1.0};
    std::vector<OrvikCore::LineHit> hits;

    ASSERT_TRUE(m_content->IntersectLine(origin, direction, false, hits));

    EXPECT_TRUE(hits[0].exact);
    EXPECT_DOUBLE_EQ(hits[0].distance, 8.875);
    EXPECT_DOUBLE_EQ(hits[0].position[2], 1.125);
}
