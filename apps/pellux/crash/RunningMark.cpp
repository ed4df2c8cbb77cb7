#include "crash/RunningMark.h"

#include <OrvikOs/AtomicFile.h>
#include <OrvikOs/Directory.h>
#include <OrvikOs/Process.h>
#include <OrvikOs/Thread.h>
#include <OrvikOs/Utf8.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace Pellux {
namespace {

using TambVizCore::Utils;

constexpr std::wstring_view kSuffix = L".mark";

std::wstring textOf(const RunRecord& record)
{
    return L"process=" + std::to_wstring(record.processId) + L"\nstarted=" +
           std::to_wstring(record.startTime) + L"\njournal=" + record.journal + L"\nreport=" +
           record.report + L"\n";
}

bool readNumber(const std::wstring& text, std::uint64_t& number)
{
    long long value = 0;
    if (!Utils::ParseInt(Utils::WstringToString(text), value) || value < 0)
        return false;
    number = static_cast<std::uint64_t>(value);
    return true;
}

/// @return false for a text that is no mark.
bool readRecord(const std::wstring& text, RunRecord& record)
{
    bool hasProcess = false;
    bool hasStart = false;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find(L'\n', begin), text.size());
        const std::wstring line = text.substr(begin, end - begin);
        begin = end + 1;
        const std::size_t sign = line.find(L'=');
        if (sign == std::wstring::npos)
            continue;
        const std::wstring key = line.substr(0, sign);
        const std::wstring value = line.substr(sign + 1);
        std::uint64_t number = 0;
        if (key == L"process" && readNumber(value, number)) {
            record.processId = static_cast<std::uint32_t>(number);
            hasProcess = true;
        } else if (key == L"started" && readNumber(value, number)) {
            record.startTime = number;
            hasStart = true;
        } else if (key == L"journal") {
            record.journal = value;
        } else if (key == L"report") {
            record.report = value;
        }
    }
    return hasProcess && hasStart;
}

bool isRunning(const RunRecord& record)
{
    return OrvikOs::ProcessStartTime(record.processId) == record.startTime;
}

} // namespace

RunningMark::RunningMark(std::wstring folder) : m_folder(std::move(folder)) {}

RunningMark::~RunningMark()
{
    Remove();
}

bool RunningMark::Write(const std::wstring& journal, const std::wstring& report,
                        std::wstring& errorText)
{
    RunRecord record;
    record.processId = OrvikOs::CurrentProcessId();
    record.startTime = OrvikOs::ProcessStartTime(record.processId).value_or(0);
    record.journal = journal;
    record.report = report;
    if (!OrvikOs::MakeDirectories(m_folder, &errorText))
        return false;
    const std::wstring path =
        m_folder + L"/" + std::to_wstring(record.processId) + std::wstring(kSuffix);
    const std::string text = OrvikOs::WideToUtf8(textOf(record));
    OrvikOs::AtomicFile file;
    if (!file.Open(path) || !file.Write(text.data(), text.size()) || !file.Commit()) {
        errorText = path + L": " + file.ErrorText();
        return false;
    }
    m_path = path;
    return true;
}

void RunningMark::Remove()
{
    if (!m_path.empty())
        OrvikOs::RemoveFile(m_path);
    m_path.clear();
}

std::vector<CrashedRun> FindCrashedRuns(const std::wstring& folder)
{
    std::vector<OrvikOs::DirectoryEntry> entries;
    OrvikOs::ListDirectory(folder, entries);
    std::vector<CrashedRun> runs;
    for (const OrvikOs::DirectoryEntry& entry : entries) {
        CrashedRun run;
        run.mark = folder + L"/" + entry.name;
        std::wstring text;
        if (entry.kind != OrvikOs::EntryKind::File || !entry.name.ends_with(kSuffix) ||
            !Utils::GetFileContents(run.mark, text) || !readRecord(text, run.record) ||
            isRunning(run.record))
            continue;
        run.hasJournal = !run.record.journal.empty() && OrvikOs::IsFile(run.record.journal);
        run.hasReport = !run.record.report.empty() && OrvikOs::IsFile(run.record.report);
        runs.push_back(std::move(run));
    }
    std::sort(runs.begin(), runs.end(), [](const CrashedRun& a, const CrashedRun& b) {
        return a.record.startTime > b.record.startTime;
    });
    return runs;
}

void ForgetCrashedRun(const CrashedRun& run)
{
    OrvikOs::RemoveFile(run.mark);
}

} // namespace Pellux
