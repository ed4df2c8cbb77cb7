#include "OrvikCore/AMenuTemplate.h"
#include "OrvikCore/IMenuAction.h"
#include "OrvikCore/MenuItem.h"

#include <TambVizCore/RenderId.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

using OrvikCore::AMenuTemplate;
using OrvikCore::MenuItem;
using Style = OrvikCore::TreeBuilder::TreeItemStyles;

namespace {

class FakeAction final : public OrvikCore::IMenuAction
{
public:
    bool Run(const TambVizCore::RenderId&) override { return true; }
};

std::vector<int> applicableOf(const MenuItem& item)
{
    std::vector<int> styles;
    for (auto style = item.ApplicableBegin(); style != item.ApplicableEnd(); ++style) {
        styles.push_back(static_cast<int>(*style));
    }
    return styles;
}

} // namespace

TEST(MenuItem, StartsEmptyAndEnabled)
{
    const MenuItem item;

    EXPECT_EQ(item.Text(), L"");
    EXPECT_EQ(item.Tip(), L"");
    EXPECT_TRUE(item.IsEnabled());
    EXPECT_EQ(item.Action(), nullptr);
    EXPECT_EQ(item.ApplicableBegin(), item.ApplicableEnd());
}

TEST(MenuItem, WithoutStyleAppliesToEveryNode)
{
    FakeAction action;
    const MenuItem item(L"&Text", &action);

    EXPECT_EQ(item.Text(), L"&Text");
    EXPECT_EQ(item.Action(), &action);
    EXPECT_TRUE(item.IsApplicableTo(Style::Body));
    EXPECT_TRUE(item.IsApplicableTo(Style::PointSet));
}

TEST(MenuItem, WithStyleAppliesToThatStyleOnly)
{
    FakeAction action;
    const MenuItem item(L"&Text", &action, Style::Body);

    EXPECT_TRUE(item.IsApplicableTo(static_cast<Style>(4)));
    EXPECT_FALSE(item.IsApplicableTo(static_cast<Style>(1)));
}

TEST(MenuItem, FirstAddedStyleEndsApplyingToAll)
{
    MenuItem item(L"&Text", nullptr);

    item.AddApplicable(static_cast<Style>(4));

    EXPECT_TRUE(item.IsApplicableTo(static_cast<Style>(4)));
    EXPECT_FALSE(item.IsApplicableTo(static_cast<Style>(13)));
}

TEST(MenuItem, StyleAddedTwiceStillAppliesToThatStyleOnly)
{
    MenuItem item(L"&Text", nullptr, static_cast<Style>(4));

    item.AddApplicable(static_cast<Style>(4));

    EXPECT_EQ(applicableOf(item), (std::vector<int>{4, 4}));
    EXPECT_TRUE(item.IsApplicableTo(static_cast<Style>(4)));
    EXPECT_FALSE(item.IsApplicableTo(static_cast<Style>(2)));
}

TEST(MenuItem, KeepsWhatIsSet)
{
    FakeAction action;
    MenuItem item;

    item.SetText(L"text");
    item.SetTip(L"tip");
    item.SetEnabled(false);
    item.SetAction(&action);

    EXPECT_EQ(item.Text(), L"text");
    EXPECT_EQ(item.Tip(), L"tip");
    EXPECT_FALSE(item.IsEnabled());
    EXPECT_EQ(item.Action(), &action);
}

TEST(MenuItem, CopySharesTheAction)
{
    FakeAction action;
    const MenuItem item(L"&Text", &action, Style::Body);

    const MenuItem copy = item;

    EXPECT_EQ(copy.Action(), &action);
    EXPECT_EQ(copy.Text(), L"&Text");
    EXPECT_EQ(applicableOf(copy), (std::vector<int>{4}));
    EXPECT_TRUE(std::has_virtual_destructor_v<MenuItem>);
}

TEST(AMenuTemplate, StartsEmpty)
{
    const AMenuTemplate menu;

    EXPECT_EQ(menu.MenuItemsCount(), 0);
    EXPECT_EQ(menu.MenuItemsBegin(), menu.MenuItemsEnd());
}

TEST(AMenuTemplate, KeepsItemsInOrderWithRepetitions)
{
    AMenuTemplate menu;
    MenuItem first;
    MenuItem second;

    menu.AddMenuItem(&first);
    menu.AddMenuItem(&second);
    menu.AddMenuItem(&first);

    const std::vector<MenuItem*> items(menu.MenuItemsBegin(), menu.MenuItemsEnd());
    EXPECT_EQ(menu.MenuItemsCount(), 3);
    EXPECT_EQ(items, (std::vector<MenuItem*>{&first, &second, &first}));
}

TEST(IMenuAction, HasNoVirtualDestructor)
{
    EXPECT_FALSE(std::has_virtual_destructor_v<OrvikCore::IMenuAction>);
}
