#include "OrvikCore/AMenuTemplate.h"

namespace OrvikCore {

AMenuTemplate::~AMenuTemplate() = default;

void AMenuTemplate::AddMenuItem(MenuItem* item)
{
    items.push_back(item);
}

int AMenuTemplate::MenuItemsCount() const
{
    return static_cast<int>(items.size());
}

std::vector<MenuItem*>::const_iterator AMenuTemplate::MenuItemsBegin() const
{
    return items.begin();
}

std::vector<MenuItem*>::const_iterator AMenuTemplate::MenuItemsEnd() const
{
    return items.end();
}

} // namespace OrvikCore
