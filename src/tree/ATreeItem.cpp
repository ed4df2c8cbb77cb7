#include "OrvikCore/ATreeItem.h"

#include "OrvikCore/ATreeItemStyle.h"

namespace OrvikCore {

ATreeItem::ATreeItem(ATreeItemStyle const& style) : defaultStyle(&style), currentStyle(&style) {}

ATreeItem::~ATreeItem() = default;

ATreeItemStyle* ATreeItem::CurrentStyle() const
{
    // The result type is fixed; the style itself is shared and stays as it is.
    return const_cast<ATreeItemStyle*>(currentStyle);
}

void ATreeItem::SetCurrentStyle(ATreeItemStyle const& style)
{
    currentStyle = &style;
    applyStyle(style);
}

} // namespace OrvikCore
