#include "ReplayReport.h"

#include "JsonText.h"

#include <TambVizCore/Utils.h>

#include <Replay.h>

namespace PelluxBatch {
namespace {

using Pellux::PickNote;
using Pellux::PickResult;
using Pellux::ReplayedPick;
using Pellux::ReplayOutcome;
using TambVizCore::Utils;

std::string nameOf(const PickNote& note)
{
    return note.isFound ? Utils::WstringToString(Pellux::DescribeEntity(note.entity)) : "nothing";
}

std::string numbersJson(const double* numbers, int count)
{
    std::string text = "[";
    for (int i = 0; i < count; ++i)
        text += (i == 0 ? "" : ", ") + Utils::FormatShortest(numbers[i]);
    return text + "]";
}

std::string noteJson(const PickNote& note)
{
    if (!note.isFound)
        return "null";
    std::string text = "{\"entity\": " + JsonQuoted(Pellux::EntityWords(note.entity));
    if (note.hasBox)
        text += ", \"box\": " + numbersJson(note.box, 6);
    if (note.hasPoint)
        text += ", \"point\": " + numbersJson(note.point, 3);
    return text + "}";
}

std::string pickJson(const ReplayedPick& pick)
{
    return "{\"line\": " + std::to_string(pick.line) + ", \"form\": " + JsonQuoted(pick.form) +
           ", \"result\": \"" + Pellux::PickResultName(pick.result) +
           "\", \"expected\": " + noteJson(pick.expected) + ", \"found\": " + noteJson(pick.found) +
           "}";
}

} // namespace

std::string DescribePick(const ReplayedPick& pick, const std::wstring& file)
{
    std::string text =
        std::string(Pellux::PickResultName(pick.result)) + ": " + nameOf(pick.expected);
    if (pick.result == PickResult::Other || pick.result == PickResult::Gone)
        text += ", found " + nameOf(pick.found);
    return text + " (" + Utils::WstringToString(file) + ":" + std::to_string(pick.line) + ")";
}

std::string DescribeReplay(const ReplayOutcome& outcome)
{
    std::string text = std::to_string(outcome.picks.size()) + " picks:";
    const char* separator = " ";
    for (std::size_t i = 0; i < Pellux::kPickResults; ++i) {
        const auto result = static_cast<PickResult>(i);
        text += separator + std::to_string(outcome.Count(result)) + " " +
                Pellux::PickResultName(result);
        separator = ", ";
    }
    return text + "\n";
}

std::string DescribeReplayJson(const ReplayOutcome& outcome, const std::wstring& file)
{
    const std::wstring& error = outcome.errorText.empty() ? outcome.stopText : outcome.errorText;
    std::string text =
        "{\"journal\": " + JsonQuoted(file) + ", \"forms\": " + std::to_string(outcome.formCount) +
        ", \"formsRun\": " + std::to_string(outcome.formsRun) + ", \"stoppedAtLine\": " +
        (outcome.stoppedLine == 0 ? "null" : std::to_string(outcome.stoppedLine)) +
        ", \"error\": " + (error.empty() ? "null" : JsonQuoted(error)) +
        ", \"cutAtLine\": " + (outcome.cutLine == 0 ? "null" : std::to_string(outcome.cutLine)) +
        ", \"cut\": " + (outcome.cutText.empty() ? "null" : JsonQuoted(outcome.cutText));
    for (std::size_t i = 0; i < Pellux::kPickResults; ++i) {
        const auto result = static_cast<PickResult>(i);
        text += std::string(", \"") + Pellux::PickResultName(result) +
                "\": " + std::to_string(outcome.Count(result));
    }
    text += ", \"picks\": [";
    for (std::size_t i = 0; i < outcome.picks.size(); ++i)
        text += (i == 0 ? "" : ", ") + pickJson(outcome.picks[i]);
    return text + "]}\n";
}

} // namespace PelluxBatch
