#include "OrvikCore/ARendererTree.h"

#include "FakeRenderer.h"
#include "RecordingViewTree.h"
#include "VirtualSlot.h"

#include "OrvikCore/AContentRendererFactory.h"
#include "OrvikCore/ATreeRendererFactory.h"
#include "OrvikCore/TreeBuilder.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

using OrvikCore::AContentRendererFactory;
using OrvikCore::ARendererTree;
using OrvikCore::ATreeRendererFactory;
using OrvikCore::TreeBuilder;

TEST(ARendererTree, HasNoBuilderWithoutAView)
{
    FakeTreeRenderer renderer;

    EXPECT_EQ(renderer.getTreeBuilder(), nullptr);
}

TEST(ARendererTree, TakesTheBuilderThatItsViewReports)
{
    RecordingViewTree tree;
    const std::unique_ptr<TreeBuilder> builder(TreeBuilder::CreateTreeBuilder(&tree));
    tree.m_builder = builder.get();
    FakeTreeRenderer renderer(nullptr, &tree);

    EXPECT_EQ(renderer.getTreeBuilder(), builder.get());
}

TEST(ARendererTree, SetViewChangesTheViewAskedForTheBuilder)
{
    RecordingViewTree tree;
    const std::unique_ptr<TreeBuilder> builder(TreeBuilder::CreateTreeBuilder(&tree));
    tree.m_builder = builder.get();
    FakeTreeRenderer renderer;

    renderer.SetView(&tree);
    EXPECT_EQ(renderer.getTreeBuilder(), builder.get());
    renderer.SetView(nullptr);
    EXPECT_EQ(renderer.getTreeBuilder(), nullptr);
}

TEST(ARendererTree, AddsThreeOperationsAfterTheInheritedOnes)
{
    EXPECT_EQ(VirtualSlot(&ARendererTree::SetView), 14);
    EXPECT_EQ(VirtualSlot(&ARendererTree::ExpandNode), 15);
    EXPECT_EQ(VirtualSlot(&ARendererTree::GetNodeStyle), 16);
}

TEST(RendererFactories, NameComesFirstThenDestructorThenCreation)
{
    EXPECT_EQ(VirtualSlot(&AContentRendererFactory::GetName), 0);
    EXPECT_EQ(VirtualSlot(&AContentRendererFactory::CreateRenderer), 3);
    EXPECT_EQ(VirtualSlot(&ATreeRendererFactory::GetName), 0);
    EXPECT_EQ(VirtualSlot(&ATreeRendererFactory::CreateRenderer), 3);
}

TEST(RendererFactories, AreCopyable)
{
    EXPECT_TRUE(std::is_copy_assignable_v<AContentRendererFactory>);
    EXPECT_TRUE(std::is_copy_assignable_v<ATreeRendererFactory>);
}
