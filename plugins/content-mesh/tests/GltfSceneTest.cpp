#include "GltfFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::wstring> namesOf(const std::vector<std::unique_ptr<ModelNode>>& nodes)
{
    std::vector<std::wstring> names;
    for (const auto& node : nodes)
        names.push_back(node->name);
    return names;
}

/// A file with one triangle's mesh and nodes that name no scene.
GltfText meshOnly()
{
    GltfText text;
    text.AddTriangles({0, 0, 0, 1, 0, 0, 0, 1, 0}, {0, 1, 2});
    return text;
}

} // namespace

TEST(GltfScene, BuildsTheHierarchyWithItsTransforms)
{
    const GltfResult result = ReadGltfBytes(AllSorts().Binary());

    ASSERT_TRUE(result.ok) << testing::PrintToString(result.error);
    EXPECT_THAT(result.warnings, IsEmpty());
    const ModelNode& top = result.Node(0);
    EXPECT_EQ(top.kind, NodeKind::Assembly);
    EXPECT_EQ(*top.transform,
              (std::vector<double>{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1}));
    EXPECT_THAT(namesOf(top.children), ElementsAre(L"left", L"right", L"sheet"));
    const std::vector<double> turned = *top.children[1]->transform;
    const std::vector<double> expected = {0.56, 1.92, 0, 0, -1.92, 0.56, 0, 0,
                                          0,    0,    2, 0, 0,     0,    0, 1};
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_NEAR(turned[i], expected[i], 1e-12) << i;
    EXPECT_THAT(namesOf(top.children[2]->children),
                ElementsAre(L"sheet 1", L"sheet 2", L"sheet 3", L"Node 4"));
    EXPECT_EQ(top.number, 1u);
    EXPECT_FALSE(result.model.box.IsEmpty());
}

TEST(GltfScene, NodesOfOneMeshShareItsShape)
{
    const GltfResult result = ReadGltfBytes(AllSorts().Binary());

    ASSERT_TRUE(result.ok);
    const ModelNode& top = result.Node(0);
    EXPECT_EQ(top.children[0]->shape, top.children[1]->shape);
    EXPECT_EQ(result.shapesMade, 6u);
}

TEST(GltfScene, PrimitivesOfTheSameNumbersShareAShapeAndKeepTheirColours)
{
    GltfText text;
    text.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, 3);
    text.AddMaterial("\"pbrMetallicRoughness\":{\"baseColorFactor\":[1,0,0,1]}");
    text.AddMaterial("\"pbrMetallicRoughness\":{\"baseColorFactor\":[0,0,1,1]}");
    for (const char* material : {"0", "1"}) {
        const std::size_t mesh =
            text.AddMesh(std::string("\"primitives\":[{\"attributes\":{\"POSITION\":0},"
                                     "\"material\":") +
                         material + "}]");
        text.AddNode("\"mesh\":" + std::to_string(mesh));
    }

    const GltfResult result = ReadGltfBytes(text.Binary());

    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.Node(0).shape, result.Node(1).shape);
    EXPECT_EQ(result.Node(0).color, TambVizCore::RGBAColor(255, 0, 0));
    EXPECT_EQ(result.Node(1).color, TambVizCore::RGBAColor(0, 0, 255));
}

TEST(GltfScene, ReadsNumbersHoweverTheyAreWritten)
{
    GltfText text;
    const std::size_t mesh = text.AddTriangles({0, 0, 0, 1, 0, 0, 0, 1, 0}, {0, 1, 2});
    text.AddNode("\"mesh\":" + std::to_string(mesh) +
                 ",\"translation\":[0e-30,0.00000000000000000000000000000000e99,"
                 "1234567890123456789012345678901234567890e-37]");

    const GltfResult result = ReadGltfBytes(text.Binary());

    ASSERT_TRUE(result.ok);
    const auto& place = result.Node(0).transform;
    ASSERT_TRUE(place);
    EXPECT_EQ((*place)[12], 0.0);
    EXPECT_EQ((*place)[13], 0.0);
    EXPECT_NEAR((*place)[14], 123.456789012345678, 1e-12);
}

TEST(GltfScene, ReadsTheDefaultSceneAndTellsOfOthers)
{
    GltfText text = meshOnly();
    text.AddNode("\"mesh\":0,\"name\":\"a\"");
    text.AddNode("\"mesh\":0,\"name\":\"b\"");
    text.AddScene("\"nodes\":[0]");
    text.AddScene("\"nodes\":[1]");
    text.AddRootMember("\"scene\":1");

    const GltfResult result = ReadGltfBytes(text.Binary());

    EXPECT_THAT(namesOf(result.model.nodes), ElementsAre(L"b"));
    EXPECT_THAT(result.warnings, ElementsAre(L"test: the file has 2 scenes; scene 1 was read"));
}

TEST(GltfScene, WithoutAnySceneReadsAllNodesThatHaveNoParent)
{
    GltfText text = meshOnly();
    text.AddNode("\"mesh\":0,\"name\":\"child\"");
    text.AddNode("\"name\":\"parent\",\"children\":[0]");
    text.AddNode("\"mesh\":0,\"name\":\"other\"");

    const GltfResult result = ReadGltfBytes(text.Binary());

    EXPECT_THAT(namesOf(result.model.nodes), ElementsAre(L"parent", L"other"));
}

TEST(GltfScene, ASceneThatIsNotThereIsTold)
{
    GltfText text = OneTriangle();
    text.AddRootMember("\"scene\":3");

    const GltfResult result = ReadGltfBytes(text.Binary());

    ASSERT_TRUE(result.ok);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: there is no scene 3; all nodes without a "
                                             L"parent were read"));
}

TEST(GltfScene, RefusesNodesThatContainThemselves)
{
    GltfText inScene = meshOnly();
    inScene.AddNode("\"mesh\":0,\"children\":[1]");
    inScene.AddNode("\"children\":[0]");
    const GltfText withoutScene = inScene;
    inScene.AddScene("\"nodes\":[0]");

    for (const GltfText& text : {inScene, withoutScene}) {
        const GltfResult result = ReadGltfBytes(text.Binary());
        EXPECT_FALSE(result.ok);
        EXPECT_EQ(result.error, L"test: node 0 contains itself");
    }
}

TEST(GltfScene, KeepsANodeOfTwoParentsAtTheFirst)
{
    GltfText text = meshOnly();
    text.AddNode("\"name\":\"a\",\"children\":[2]");
    text.AddNode("\"name\":\"b\",\"children\":[2]");
    text.AddNode("\"mesh\":0");

    const GltfResult result = ReadGltfBytes(text.Binary());

    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.Node(0).children.size(), 1u);
    EXPECT_THAT(result.Node(1).children, IsEmpty());
    EXPECT_THAT(result.warnings, ElementsAre(L"test: node 2 has more than one parent; only the "
                                             L"first one was kept"));
}

TEST(GltfScene, RefusesNodesNestedTooDeep)
{
    for (const std::size_t depth : {1000u, 1001u}) {
        GltfText text = meshOnly();
        for (std::size_t i = 1; i < depth; ++i)
            text.AddNode("\"children\":[" + std::to_string(i) + "]");
        text.AddNode("\"mesh\":0");
        const GltfResult result = ReadGltfBytes(text.Binary());
        EXPECT_EQ(result.ok, depth == 1000u);
        EXPECT_EQ(result.error, result.ok ? L"" : L"test: nodes are nested more than 1000 deep");
    }
}

TEST(GltfScene, LeavesOutATransformThatPlacesNothing)
{
    for (const char* members :
         {"\"matrix\":[1e300,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1]", "\"rotation\":[0,0,0,0]",
          "\"matrix\":[1,0,0,0,0,1,0,0,0,0,1,1,0,0,0,1]"}) {
        GltfText text = meshOnly();
        text.AddNode(std::string("\"mesh\":0,") + members);
        const GltfResult result = ReadGltfBytes(text.Binary());
        ASSERT_TRUE(result.ok);
        EXPECT_EQ(result.Node(0).transform, std::nullopt);
        EXPECT_THAT(result.warnings, ElementsAre(L"test: node 0: the transform is not made of "
                                                 L"numbers that place anything and was left out"));
    }
}

TEST(GltfScene, TellsOfChildrenAndMeshesThatAreNotThere)
{
    GltfText text = meshOnly();
    text.AddNode("\"mesh\":0,\"children\":[7]");
    text.AddNode("\"mesh\":9");

    const GltfResult result = ReadGltfBytes(text.Binary());

    ASSERT_TRUE(result.ok);
    EXPECT_THAT(result.warnings, ElementsAre(L"test: node 0 names a child 7, which does not exist",
                                             L"test: node 1 names a mesh 9, which does not exist"));
}

TEST(GltfScene, AFileWithoutGeometryIsAnError)
{
    GltfText text;
    text.AddNode("\"name\":\"empty\"");

    EXPECT_EQ(ReadGltfBytes(text.Binary()).error, L"test: the file holds no geometry");
}

TEST(GltfScene, KeepsNamesInAnyScript)
{
    GltfText text = meshOnly();
    text.AddNode("\"mesh\":0,\"name\":\"\\u6b6f\\u8eca \xC3\xA4\"");

    EXPECT_EQ(ReadGltfBytes(text.Binary()).Node(0).name, L"\u6b6f\u8eca \u00e4");
}
