#ifndef PELLUXBATCH_REPLAYREPORT_H
#define PELLUXBATCH_REPLAYREPORT_H

#include <string>

namespace Pellux {
struct ReplayedPick;
struct ReplayOutcome;
} // namespace Pellux

namespace PelluxBatch {

/// One line for people, without a line end: "moved: face 3 of mesh 1 (run.journal.scm:12)"; "other"
/// also says what was found. In UTF-8.
std::string DescribePick(const Pellux::ReplayedPick& pick, const std::wstring& file);

/// The last line for people: "4 picks: 3 same, 1 moved, 0 other, 0 gone", and a line end.
std::string DescribeReplay(const Pellux::ReplayOutcome& outcome);

/// One JSON object and a line end: "journal"; "forms" and "formsRun"; "stoppedAtLine", a number or
/// null; "error", a string or null; "same", "moved", "other", "gone", numbers of picks; "picks", a
/// list of objects with "line", "form", "result", "expected" and "found". The last two are null for
/// nothing, else objects with "entity", and where known "box" (6 numbers) and "point" (3 numbers).
std::string DescribeReplayJson(const Pellux::ReplayOutcome& outcome, const std::wstring& file);

} // namespace PelluxBatch

#endif
