#ifndef ORVIKCORE_COMMANDLINEOPTIONS_H
#define ORVIKCORE_COMMANDLINEOPTIONS_H

#include "OrvikCore/Export.h"

#include <map>
#include <string>

namespace OrvikCore {

/// The options of the command line, filled by the host: option name to value.
///
/// A plain value. The core reads no option by itself; AppController::Options hands the process-wide
/// object out. Not locked: filled before any reader runs.
class ORVIKCORE_API CommandLineOptions
{
public:
    /// @return the value stored under @p key, or an empty text when there is none; the map is not
    ///         changed.
    std::wstring Get(std::wstring key) const;

    /// Stores @p value under @p key, replacing the value stored before.
    void Set(std::wstring key, std::wstring value);

private:
    std::map<std::wstring, std::wstring> m_options;
};

} // namespace OrvikCore

#endif
