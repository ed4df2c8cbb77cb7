#include "OrvikModel/Model.h"

#include "TestModels.h"

#include <gtest/gtest.h>

namespace OrvikModel {
namespace {

std::unique_ptr<ModelNode> makeNode(std::wstring name, std::size_t children = 0)
{
    auto node = std::make_unique<ModelNode>();
    node->name = std::move(name);
    for (std::size_t i = 0; i < children; ++i)
        node->children.push_back(makeNode(L"child"));
    return node;
}

TEST(Model, NumbersParentsBeforeTheirChildren)
{
    Model model;
    model.nodes.push_back(makeNode(L"first", 2));
    model.nodes.push_back(makeNode(L"second"));
    model.NumberNodes();
    EXPECT_EQ(model.nodes[0]->number, 1u);
    EXPECT_EQ(model.nodes[0]->children[1]->number, 3u);
    EXPECT_EQ(model.nodes[1]->number, 4u);
    EXPECT_EQ(model.nodes[0]->children[1]->parent, model.nodes[0].get());
    EXPECT_EQ(model.FindNode(4), model.nodes[1].get());
    EXPECT_EQ(model.FindNode(5), nullptr);
}

TEST(Model, LeavesOutTheNumbersOfGroupingRows)
{
    Model model;
    model.nodes.push_back(makeNode(L"all", 45000));
    model.NumberNodes();
    for (std::uint64_t reserved : {10001u, 10010u, 10012u, 10105u, 10999u, 40000u})
        EXPECT_EQ(model.FindNode(reserved), nullptr) << reserved;
    EXPECT_NE(model.FindNode(10000), nullptr);
    EXPECT_NE(model.FindNode(11000), nullptr);
    EXPECT_NE(model.FindNode(40001), nullptr);
    EXPECT_EQ(model.nodes[0]->children.back()->number, 46001u);
}

TEST(Model, PlacesANodeByAllTransformsAboveIt)
{
    Model model;
    model.nodes.push_back(makeNode(L"top", 1));
    model.nodes[0]->transform =
        std::vector<double>{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 0, 0, 1};
    model.nodes[0]->children[0]->transform =
        std::vector<double>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 2, 0, 0, 1};
    model.NumberNodes();
    double world[16];
    GetWorldTransform(*model.nodes[0]->children[0], world);
    // A quarter turn about z takes (2, 0, 0) to (0, 2, 0).
    EXPECT_EQ(world[12], 10.0);
    EXPECT_EQ(world[13], 2.0);
}

TEST(Model, BoxOfBodiesLeavesOutAnnotations)
{
    std::vector<NodePtr> nodes;
    nodes.push_back(MakeCube(NodeKind::Body, L"body"));
    nodes.push_back(MakeCube(NodeKind::Annotation, L"far away", 100.0));
    const auto model = MakeModel(std::move(nodes));

    EXPECT_DOUBLE_EQ(model->box.Hi()[0], 101.0);
    EXPECT_DOUBLE_EQ(model->bodyBox.Hi()[0], 1.0);
}

TEST(Model, BoxOfAnnotationsAloneIsThatOfAll)
{
    std::vector<NodePtr> nodes;
    nodes.push_back(MakeCube(NodeKind::Annotation, L"far away", 100.0));
    const auto model = MakeModel(std::move(nodes));

    EXPECT_EQ(model->bodyBox, model->box);
}

} // namespace
} // namespace OrvikModel
