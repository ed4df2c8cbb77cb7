#include "OrvikCore/ATreeItemStyle.h"

namespace OrvikCore {

ATreeItemStyle::ATreeItemStyle(bool bold, bool italic) : fontBold(bold), fontItalic(italic) {}

ATreeItemStyle::~ATreeItemStyle() = default;

bool ATreeItemStyle::IsFontBold() const
{
    return fontBold;
}

bool ATreeItemStyle::IsFontItalic() const
{
    return fontItalic;
}

} // namespace OrvikCore
