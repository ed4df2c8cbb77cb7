#include "OrvikModel/ModelEntity.h"

#include "TestModels.h"

#include <gtest/gtest.h>

#include <set>

using OrvikModel::EntityMatch;
using OrvikModel::FindEntity;
using OrvikModel::MakeContainerEntity;
using OrvikModel::MakeEntity;
using OrvikModel::ModelNode;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;

TEST(ModelEntity, EveryNodeHasAnEntityOfItsOwn)
{
    const auto model = FullModel(3);
    std::set<EntityId> entities{MakeContainerEntity(*model)};

    for (const ModelNode* node : model->InOrder()) {
        const EntityId entity = MakeEntity(*model, *node);
        EXPECT_TRUE(entities.insert(entity).second) << entity.ToString();
        EXPECT_EQ(FindEntity(*model, entity).node, node);
    }
    EXPECT_TRUE(FindEntity(*model, MakeContainerEntity(*model)).isContainer);
}

TEST(ModelEntity, IsMadeOfNodeModelAndKind)
{
    const auto model = FullModel(3);
    const ModelNode& body = NodeNamed(*model, L"left body");

    EXPECT_EQ(MakeEntity(*model, body), EntityId(body.number, 3, EntityType::Body));
    EXPECT_EQ(MakeEntity(*model, body, MakePartId(PartKind::Edge, 4)).SubEntityIndex(), 4);
    EXPECT_EQ(MakeEntity(*model, NodeNamed(*model, L"open")).Type(), EntityType::Mesh);
}

TEST(ModelEntity, ViewsOfTwoModelsAreNotTheSame)
{
    const auto one = FullModel(1);
    const auto two = FullModel(2);
    const EntityId view = MakeEntity(*one, NodeNamed(*one, L"front"));

    EXPECT_NE(view, MakeEntity(*two, NodeNamed(*two, L"front")));
    EXPECT_FALSE(FindEntity(*two, view).IsFound());
}

TEST(ModelEntity, PartsAreNamedByKindAndIndex)
{
    const auto model = CubeModel();
    const std::uint64_t part = MakePartId(PartKind::Vertex, 7);

    const EntityMatch match = FindEntity(*model, MakeEntity(*model, *model->nodes[0], part));

    EXPECT_EQ(match.node, model->nodes[0].get());
    EXPECT_EQ(match.partId, part);
    EXPECT_TRUE(HasPart(*match.node, part));
    EXPECT_FALSE(HasPart(*match.node, MakePartId(PartKind::Vertex, 8)));
}

TEST(ModelEntity, OthersAreNotFound)
{
    const auto model = CubeModel();

    EXPECT_FALSE(FindEntity(*model, EntityId()).IsFound());
    EXPECT_FALSE(FindEntity(*model, EntityId(1, 1, EntityType::Body)).IsFound());
    EXPECT_FALSE(FindEntity(*model, EntityId(1, 2, EntityType::Mesh)).IsFound());
    EXPECT_FALSE(FindEntity(*model, EntityId(2, 1, EntityType::Mesh)).IsFound());
    EXPECT_FALSE(FindEntity(*model, EntityId(0, 10005, EntityType::View)).IsFound());
    EXPECT_FALSE(FindEntity(*FullModel(), EntityId(0, 10005, EntityType::View)).IsFound());
}
