#include "OrvikCore/ATreeItem.h"

#include "VirtualSlot.h"

#include "OrvikCore/ATreeItemStyle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

using OrvikCore::ATreeItem;
using OrvikCore::ATreeItemStyle;
using testing::ElementsAre;

namespace {

class RecordingItem : public ATreeItem
{
public:
    using ATreeItem::applyStyle;
    using ATreeItem::ATreeItem;
    using ATreeItem::defaultStyle;

    std::vector<ATreeItemStyle const*> m_applied;
    ATreeItemStyle* m_currentWhenApplied = nullptr;

protected:
    void applyStyle(ATreeItemStyle const& style) override
    {
        m_applied.push_back(&style);
        m_currentWhenApplied = CurrentStyle();
    }
};

struct ExposedItem : ATreeItem
{
    using ATreeItem::applyStyle;
};

} // namespace

TEST(ATreeItemStyle, KeepsBoldAndItalic)
{
    const ATreeItemStyle bold(true, false);
    const ATreeItemStyle italic(false, true);

    EXPECT_TRUE(bold.IsFontBold());
    EXPECT_FALSE(bold.IsFontItalic());
    EXPECT_FALSE(italic.IsFontBold());
    EXPECT_TRUE(italic.IsFontItalic());
}

TEST(ATreeItemStyle, IsAPolymorphicCopyableBase)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<ATreeItemStyle>);
    EXPECT_TRUE(std::is_copy_constructible_v<ATreeItemStyle>);
    EXPECT_TRUE(std::is_copy_assignable_v<ATreeItemStyle>);
}

TEST(ATreeItem, StartsWithItsDefaultStyle)
{
    const ATreeItemStyle style(true, false);
    const RecordingItem item(style);

    EXPECT_EQ(item.CurrentStyle(), &style);
    EXPECT_EQ(item.defaultStyle, &style);
    EXPECT_TRUE(item.m_applied.empty());
}

TEST(ATreeItem, StoresTheCurrentStyleBeforeItIsApplied)
{
    const ATreeItemStyle first(true, false);
    const ATreeItemStyle second(false, true);
    RecordingItem item(first);

    item.SetCurrentStyle(second);

    EXPECT_THAT(item.m_applied, ElementsAre(&second));
    EXPECT_EQ(item.m_currentWhenApplied, &second);
    EXPECT_EQ(item.defaultStyle, &first);
}

TEST(ATreeItem, VirtualOperationsKeepTheirOrder)
{
    EXPECT_EQ(VirtualSlot(&ATreeItem::CurrentStyle), 2);
    EXPECT_EQ(VirtualSlot(&ATreeItem::SetCurrentStyle), 3);
    EXPECT_EQ(VirtualSlot(&ExposedItem::applyStyle), 4);
}
