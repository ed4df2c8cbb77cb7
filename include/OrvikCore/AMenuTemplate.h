#ifndef ORVIKCORE_AMENUTEMPLATE_H
#define ORVIKCORE_AMENUTEMPLATE_H

#include "OrvikCore/Export.h"

#include <vector>

namespace OrvikCore {

class MenuItem;

/// The items from which the host builds the context menu of the model tree.
///
/// Made by the host, filled at the activation of the session manager and by plugins. The items are
/// stored, not owned. @thread  Main thread.
class ORVIKCORE_API AMenuTemplate
{
public:
    AMenuTemplate() = default;
    AMenuTemplate(const AMenuTemplate&) = default;
    AMenuTemplate& operator=(const AMenuTemplate&) = default;
    virtual ~AMenuTemplate();

    /// Appends @p item (not owned); an item added twice is there twice.
    void AddMenuItem(MenuItem* item);

    /// @return how many items there are.
    int MenuItemsCount() const;

    /// @return the first item, in the order added.
    std::vector<MenuItem*>::const_iterator MenuItemsBegin() const;
    /// @return the end of the items.
    std::vector<MenuItem*>::const_iterator MenuItemsEnd() const;

private:
    std::vector<MenuItem*> items; ///< Not owned.
};

} // namespace OrvikCore

#endif
