#ifndef TAMBCOMMANDSINFRA_ICOMMANDOBJECT_H
#define TAMBCOMMANDSINFRA_ICOMMANDOBJECT_H

#include "TambCommandsInfra/Export.h"

#include <string>

namespace TambCommandsInfra {

/// Something of the application that scripts hold and hand back without looking inside: an entity,
/// a content.
///
/// Shared by reference count (std::shared_ptr<const ICommandObject>) between commands and script
/// engine, and immutable. The last reference may be dropped by the engine at any time.
///
/// @thread  Any thread.
class TAMBCOMMANDSINFRA_API ICommandObject
{
public:
    virtual ~ICommandObject();

    /// Names the type in messages and for argument checks: ASCII, lower case, as "entity". Valid
    /// for ever.
    virtual const char* TypeName() const = 0;

    /// Describes the object in one short line for the console, without its type: "face 12 of body
    /// 3".
    virtual std::wstring Describe() const = 0;

    /// Tells whether @p other stands for the same thing. The default compares addresses.
    virtual bool IsSameAs(const ICommandObject& other) const;
};

} // namespace TambCommandsInfra

#endif
