#ifndef ORVIKCORE_ICONFIGINITIALIZER_H
#define ORVIKCORE_ICONFIGINITIALIZER_H

#include "OrvikCore/Export.h"

#include <string>
#include <utility>
#include <vector>

namespace OrvikCore {

// The table holds four operations and no destructor: nothing deletes an initializer through this
// class, the host owns it by its own type.
#ifdef __GNUC__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// The source from which the host fills Config; implemented by the host.
///
/// Derived classes carry no data that needs a destructor call through this class. Main thread.
class ORVIKCORE_API IConfigInitializer
{
public:
    // Virtual operations in slot order; append only.

    /// @return a name of the source for people, such as the path of a file. Not called by Config.
    virtual std::wstring GetSourceName() const = 0;

    /// @return what went wrong with the source, one line per error; empty when all is well. Not
    ///         called by Config.
    virtual std::wstring GetErrorText() const = 0;

    /// Fills in the names of the sections.
    ///
    /// @param names      Empty on entry.
    /// @param reserved1  Always 0.
    /// @param reserved2  Always 0.
    virtual void ListSections(std::vector<std::wstring>& names, int reserved1, int reserved2) = 0;

    /// Appends the key and value pairs of one section, in their order; a key may come repeatedly.
    ///
    /// @param section  One of the names that ListSections gave.
    /// @param pairs    Not owned, never null, empty on entry.
    virtual void FillSection(const std::wstring& section,
                             std::vector<std::pair<std::wstring, std::wstring>>* pairs) = 0;
};

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif

} // namespace OrvikCore

#endif
