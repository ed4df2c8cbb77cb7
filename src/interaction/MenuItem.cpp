#include "OrvikCore/MenuItem.h"

#include <algorithm>
#include <utility>

namespace OrvikCore {

MenuItem::MenuItem() = default;

MenuItem::MenuItem(std::wstring menuText, IMenuAction* menuAction)
    : text(std::move(menuText)), action(menuAction)
{
}

MenuItem::MenuItem(std::wstring menuText, IMenuAction* menuAction,
                   TreeBuilder::TreeItemStyles style)
    : text(std::move(menuText)), action(menuAction), applicable{style}
{
}

MenuItem::~MenuItem() = default;

void MenuItem::SetText(std::wstring menuText)
{
    text = std::move(menuText);
}

void MenuItem::SetTip(std::wstring menuTip)
{
    tip = std::move(menuTip);
}

void MenuItem::AddApplicable(TreeBuilder::TreeItemStyles style)
{
    applicable.push_back(style);
}

std::vector<TreeBuilder::TreeItemStyles>::const_iterator MenuItem::ApplicableBegin() const
{
    return applicable.begin();
}

std::vector<TreeBuilder::TreeItemStyles>::const_iterator MenuItem::ApplicableEnd() const
{
    return applicable.end();
}

bool MenuItem::IsApplicableTo(TreeBuilder::TreeItemStyles style) const
{
    return applicable.empty() ||
           std::find(applicable.begin(), applicable.end(), style) != applicable.end();
}

} // namespace OrvikCore
