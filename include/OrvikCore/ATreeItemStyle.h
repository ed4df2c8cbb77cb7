#ifndef ORVIKCORE_ATREEITEMSTYLE_H
#define ORVIKCORE_ATREEITEMSTYLE_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

/// How a row of the model tree looks. Hosts derive from it to add icons and colours.
///
/// @thread Main thread.
class ORVIKCORE_API ATreeItemStyle
{
public:
    ATreeItemStyle(bool bold, bool italic);
    ATreeItemStyle(const ATreeItemStyle&) = default;
    ATreeItemStyle& operator=(const ATreeItemStyle&) = default;
    virtual ~ATreeItemStyle();

    bool IsFontBold() const;
    bool IsFontItalic() const;

private:
    bool fontBold;
    bool fontItalic;
};

} // namespace OrvikCore

#endif
