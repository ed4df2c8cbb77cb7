#include "OrvikCore/AViewTree.h"

#include "VirtualSlot.h"

#include <gtest/gtest.h>

using OrvikCore::AViewTree;

TEST(AViewTree, VirtualOperationsKeepTheirOrder)
{
    EXPECT_EQ(VirtualSlot(&AViewTree::ConstructionBegin), 2);
    EXPECT_EQ(VirtualSlot(&AViewTree::ConstructionEnd), 3);
    EXPECT_EQ(VirtualSlot(&AViewTree::CreateNode), 4);
    EXPECT_EQ(VirtualSlot(&AViewTree::OpenNode), 5);
    EXPECT_EQ(VirtualSlot(&AViewTree::CloseNode), 6);
    EXPECT_EQ(VirtualSlot(&AViewTree::ClearAll), 7);
    EXPECT_EQ(VirtualSlot(&AViewTree::SetCurrentNodeEnabled), 8);
    EXPECT_EQ(VirtualSlot(&AViewTree::HighlightNode), 9);
    EXPECT_EQ(VirtualSlot(&AViewTree::ClearHighlight), 10);
    EXPECT_EQ(VirtualSlot(&AViewTree::GetTreeBuilder), 11);
    EXPECT_EQ(VirtualSlot(&AViewTree::EnsureNodeVisible), 12);
    EXPECT_EQ(VirtualSlot(&AViewTree::GetChildrenCountForNode), 13);
}
