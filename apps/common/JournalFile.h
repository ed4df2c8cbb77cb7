#ifndef APPSCOMMON_JOURNALFILE_H
#define APPSCOMMON_JOURNALFILE_H

#include <OrvikOs/AppendFile.h>

#include <string>

namespace Pellux {

/// The date and time of this moment.
struct DateAndTime
{
    int year = 1970, month = 1, day = 1, hour = 0, minute = 0, second = 0;
};

/// @return the present moment in Universal Time.
DateAndTime NowInUniversalTime();

/// The file of one journal, in a folder that keeps the last ones.
/// @thread Main thread.
class JournalFile
{
public:
    /// How many journals the folder keeps, this one included.
    static constexpr std::size_t kKept = 50;

    /// Makes the file "<date>-<time>-<process>.journal.scm" and removes the oldest ones beyond
    /// kKept.
    ///
    /// @param folder     Made where it is missing.
    /// @param errorText  Receives "<path>: <reason>" on false.
    bool Create(const std::wstring& folder, const DateAndTime& when, std::uint32_t processId,
                std::wstring& errorText);

    /// Writes lines; they are with the system when this returns.
    /// @param errorText  As above.
    bool Append(const std::wstring& lines, std::wstring& errorText);

    /// @return the path of the file; empty without one.
    const std::wstring& Path() const { return m_path; }

private:
    OrvikOs::AppendFile m_file;
    std::wstring m_path;
};

} // namespace Pellux

#endif
