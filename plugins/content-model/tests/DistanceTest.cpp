#include "ExactShape.h"
#include "OrvikModel/ModelContent.h"
#include "OrvikModel/ModelEntity.h"
#include "content/PrimitiveTree.h"

#include "OrvikCore/Document.h"

#include <TambCommandsInfra/CancelToken.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using OrvikCore::DistanceResult;
using OrvikCore::Document;
using OrvikCore::PlacedShape;
using OrvikModel::FindNearest;
using OrvikModel::MakeEntity;
using OrvikModel::ModelContent;
using OrvikModel::NearestPoints;
using OrvikModel::NodeKind;
using OrvikModel::Primitives;
using OrvikModel::PrimitiveTree;
using TambVizCore::EntityId;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;

namespace {

/// Triangles strewn about a box beside the origin.
std::shared_ptr<const TambVizCore::Geometry> strewn(std::uint32_t count, float shift, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> place(0.0f, 1.0f);
    std::vector<float> positions;
    std::vector<std::uint32_t> triangles;
    for (std::uint32_t i = 0; i < count; ++i) {
        const float base[3] = {place(random) + shift, place(random), place(random)};
        for (std::uint32_t corner = 0; corner < 3; ++corner) {
            for (const float value : base)
                positions.push_back(value + 0.1f * place(random));
            triangles.push_back(i * 3 + corner);
        }
    }
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(TambVizCore::SharedArray<float>(std::move(positions)));
    builder.SetTriangles(TambVizCore::SharedArray<std::uint32_t>(std::move(triangles)));
    std::string error;
    return builder.Build(error);
}

NearestPoints infinitelyFar()
{
    NearestPoints points;
    points.squaredDistance = std::numeric_limits<double>::infinity();
    return points;
}

class DistanceTest : public testing::Test
{
protected:
    EntityId entityOf(const wchar_t* name, std::uint64_t partId = 0) const
    {
        return MakeEntity(*m_content.GetModel(), NodeNamed(*m_content.GetModel(), name), partId);
    }

    Document m_document{nullptr};
    ModelContent m_content{m_document, FullModel(), "Test"};
    DistanceResult m_result;
};

} // namespace

TEST(PrimitiveTree, FindsWhatComparingAllPairsFinds)
{
    const double world[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    for (unsigned seed = 0; seed < 6; ++seed) {
        const Primitives one(strewn(300, 0.0f, seed), 0, world);
        const Primitives other(strewn(200, seed % 2 == 0 ? 1.3f : 0.9f, seed + 100), 0, world);

        NearestPoints best = infinitelyFar();
        EXPECT_TRUE(PrimitiveTree::FindNearest(PrimitiveTree(one), PrimitiveTree(other), best));

        double least = std::numeric_limits<double>::infinity();
        for (std::uint32_t i = 0; i < one.Count(); ++i)
            for (std::uint32_t k = 0; k < other.Count(); ++k)
                least = std::min(least, FindNearest(one.At(i), other.At(k)).squaredDistance);
        EXPECT_NEAR(best.squaredDistance, least, 1e-12);
    }
}

TEST(PrimitiveTree, LargeMeshesAreNotComparedPairByPair)
{
    // All pairs would be 10^10 and take hours.
    const double world[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    const PrimitiveTree one(Primitives(strewn(100000, 0.0f, 1), 0, world));
    const PrimitiveTree other(Primitives(strewn(100000, 1.5f, 2), 0, world));
    NearestPoints best = infinitelyFar();

    EXPECT_TRUE(PrimitiveTree::FindNearest(one, other, best));

    EXPECT_NEAR(std::sqrt(best.squaredDistance), 0.4, 0.1);
}

TEST_F(DistanceTest, BetweenBodiesWithThePointsOnBoth)
{
    ASSERT_TRUE(
        m_content.MeasureDistance(entityOf(L"left body"), entityOf(L"right body"), m_result));

    EXPECT_DOUBLE_EQ(m_result.distance, 4.0);
    EXPECT_DOUBLE_EQ(m_result.from[0], 1.0);
    EXPECT_DOUBLE_EQ(m_result.to[0], 5.0);
    EXPECT_FALSE(m_result.exact);
}

TEST_F(DistanceTest, BetweenPartsOfTheSameBody)
{
    const std::uint64_t low = MakePartId(PartKind::Face, 4);
    const std::uint64_t corner = MakePartId(PartKind::Vertex, 7);

    ASSERT_TRUE(
        m_content.MeasureDistance(entityOf(L"closed", low), entityOf(L"closed", corner), m_result));

    EXPECT_DOUBLE_EQ(m_result.distance, 1.0);
    EXPECT_DOUBLE_EQ(m_result.to[0], 11.0);
    EXPECT_DOUBLE_EQ(m_result.from[2], 0.0);
}

TEST_F(DistanceTest, BetweenGroupsItIsThatOfTheNearestMembers)
{
    ASSERT_TRUE(m_content.MeasureDistance(entityOf(L"closed"), entityOf(L"assembly"), m_result));

    EXPECT_DOUBLE_EQ(m_result.distance, 3.0);
    EXPECT_DOUBLE_EQ(m_result.to[0], 7.0);
}

TEST_F(DistanceTest, ToShapesOfAnotherContent)
{
    const ModelContent other(m_document, CubeModel(1, 9), "Test");
    std::vector<PlacedShape> shapes;
    ASSERT_TRUE(other.GetShapes(EntityId(), shapes));

    ASSERT_TRUE(m_content.MeasureDistanceToShapes(entityOf(L"right body"), shapes, m_result));

    EXPECT_DOUBLE_EQ(m_result.distance, 4.0);
    EXPECT_FALSE(m_content.MeasureDistanceToShapes(entityOf(L"right body"), {}, m_result));
}

TEST_F(DistanceTest, BodiesThatTouchHaveNone)
{
    ASSERT_TRUE(m_content.MeasureDistance(entityOf(L"left body"), entityOf(L"left"), m_result));

    EXPECT_EQ(m_result.distance, 0.0);
}

TEST_F(DistanceTest, WhatHasNoShapeHasNoDistance)
{
    EXPECT_FALSE(m_content.MeasureDistance(entityOf(L"front"), entityOf(L"closed"), m_result));
    EXPECT_FALSE(m_content.MeasureDistance(entityOf(L"closed"), entityOf(L"views"), m_result));
    EXPECT_FALSE(m_content.MeasureDistance(entityOf(L"closed"), EntityId(1, 77, {}), m_result));
}

TEST(Distance, IsExactWhereBothAre)
{
    Document document(nullptr);
    std::vector<NodePtr> nodes;
    std::vector<std::shared_ptr<ExactShape>> shapes;
    for (int i = 0; i < 3; ++i) {
        shapes.push_back(std::make_shared<ExactShape>(i == 2 ? 500.0 : 2.0 * i, 0.0, 0.0, 1.0));
        nodes.push_back(MakeNode(NodeKind::Body, L"body"));
        nodes[static_cast<std::size_t>(i)]->shape = shapes.back();
    }
    nodes.push_back(MakeCube(NodeKind::Mesh, L"mesh", 4.0));
    const ModelContent content(document, MakeModel(std::move(nodes)), "Test");
    const auto& model = *content.GetModel();
    const auto entityOf = [&](std::size_t i) { return MakeEntity(model, *model.nodes[i]); };
    DistanceResult result;

    ASSERT_TRUE(content.MeasureDistance(entityOf(0), entityOf(1), result));
    EXPECT_TRUE(result.exact);
    EXPECT_EQ(result.distance, 0.25);
    ASSERT_TRUE(content.MeasureDistance(entityOf(1), entityOf(3), result));
    EXPECT_FALSE(result.exact);
    EXPECT_DOUBLE_EQ(result.distance, 1.0);
}

TEST(Distance, ExactGeometryIsAskedOnlyWhereItCanBeNearest)
{
    Document document(nullptr);
    std::vector<NodePtr> nodes;
    nodes.push_back(MakeNode(NodeKind::Assembly, L"row"));
    const auto shape = std::make_shared<ExactShape>(0.0, 0.0, 0.0, 1.0);
    for (int i = 0; i < 50; ++i) {
        auto& body = AddChild(*nodes[0], MakeNode(NodeKind::Body, L"body"));
        body.shape = shape;
        body.transform = Moved(10.0 * i, 0.0, 0.0);
    }
    nodes.push_back(MakeNode(NodeKind::Body, L"other"));
    nodes[1]->shape = shape;
    nodes[1]->transform = Moved(-3.0, 0.0, 0.0);
    const ModelContent content(document, MakeModel(std::move(nodes)), "Test");
    const auto& model = *content.GetModel();
    DistanceResult result;

    ASSERT_TRUE(content.MeasureDistance(MakeEntity(model, *model.nodes[0]),
                                        MakeEntity(model, *model.nodes[1]), result));

    EXPECT_TRUE(result.exact);
    EXPECT_EQ(shape->m_distances, 1);
}
