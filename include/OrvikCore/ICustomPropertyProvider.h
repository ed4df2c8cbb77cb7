#ifndef ORVIKCORE_ICUSTOMPROPERTYPROVIDER_H
#define ORVIKCORE_ICUSTOMPROPERTYPROVIDER_H

#include "OrvikCore/Export.h"

#include <string>
#include <utility>
#include <vector>

namespace OrvikCore {

/// Objects that offer properties of their own to the host, such as view objects with settings.
///
/// Found with `dynamic_cast`; never deleted through this interface.
///
/// @thread Main thread.
class ORVIKCORE_API ICustomPropertyProvider
{
public:
    // Virtual operations in slot order; append only.

    /// Lists the properties as names and values, in the order in which to show them.
    virtual std::vector<std::pair<std::wstring, std::wstring>> GetCustomProperties() const = 0;

    /// Changes one property.
    /// @return false when there is no property of that name or the value does not fit; nothing is
    ///         then changed.
    virtual bool SetCustomProperty(std::wstring const& name, std::wstring const& value) = 0;

protected:
    ~ICustomPropertyProvider() = default;
};

} // namespace OrvikCore

#endif
