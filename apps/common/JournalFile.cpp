#include "JournalFile.h"

#include <OrvikOs/Directory.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace Pellux {
namespace {

using TambVizCore::Utils;

constexpr wchar_t kEnding[] = L".journal.scm";

std::wstring digits(int number, std::size_t count)
{
    const std::wstring text = std::to_wstring(number);
    return std::wstring(count - std::min(count, text.size()), L'0') + text;
}

/// Removes the oldest journals until there is room for one more.
void removeOldest(const std::wstring& folder)
{
    std::vector<OrvikOs::DirectoryEntry> entries;
    OrvikOs::ListDirectory(folder, entries);
    std::vector<std::wstring> journals;
    for (const OrvikOs::DirectoryEntry& entry : entries)
        if (entry.kind == OrvikOs::EntryKind::File && entry.name.ends_with(kEnding))
            journals.push_back(entry.name);
    if (journals.size() < JournalFile::kKept)
        return;
    // Names begin with date and time.
    std::sort(journals.begin(), journals.end());
    for (std::size_t i = 0; i <= journals.size() - JournalFile::kKept; ++i)
        OrvikOs::RemoveFile(folder + L"/" + journals[i]);
}

} // namespace

DateAndTime NowInUniversalTime()
{
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const auto today = std::chrono::floor<std::chrono::days>(now);
    const std::chrono::year_month_day date(today);
    const std::chrono::hh_mm_ss<std::chrono::seconds> time(now - today);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

bool JournalFile::Create(const std::wstring& folder, const DateAndTime& when,
                         std::uint32_t processId, std::wstring& errorText)
{
    m_path.clear();
    std::wstring reason;
    if (!OrvikOs::MakeDirectories(folder, &reason)) {
        errorText = folder + L": " + reason;
        return false;
    }
    removeOldest(folder);
    const std::wstring path = folder + L"/" + digits(when.year, 4) + digits(when.month, 2) +
                              digits(when.day, 2) + L"-" + digits(when.hour, 2) +
                              digits(when.minute, 2) + digits(when.second, 2) + L"-" +
                              std::to_wstring(processId) + kEnding;
    if (!m_file.Open(path, &reason)) {
        errorText = path + L": " + reason;
        return false;
    }
    m_path = path;
    return true;
}

bool JournalFile::Append(const std::wstring& lines, std::wstring& errorText)
{
    std::wstring reason;
    if (m_file.Append(Utils::WstringToString(lines), &reason))
        return true;
    errorText = m_path + L": " + reason;
    return false;
}

} // namespace Pellux
