#include "ReplayRun.h"

#include "ReplayReport.h"

#include <OrvikCore/SessionMgr.h>
#include <OrvikOs/Directory.h>
#include <OrvikOs/FileWriting.h>
#include <TambVizCore/Utils.h>

#include <Replay.h>

#include <iostream>

namespace PelluxBatch {

using TambVizCore::Utils;

bool ReplayRun::Prepare(Options& options, std::wstring& errorText)
{
    if (!Utils::GetFileContents(options.replay, m_text)) {
        errorText = L"Failed to read journal : " + options.replay;
        return false;
    }
    Pellux::JournalStart start;
    std::wstring reason;
    if (!Pellux::ParseJournalHead(m_text, start, reason)) {
        errorText = options.replay + L": " + reason;
        return false;
    }
    if (!options.isSizeGiven && start.width > 0) {
        options.width = start.width;
        options.height = start.height;
    }
    if (!options.isUpGiven)
        options.cameraName = start.isZUp ? "CameraZUp" : "CameraYUp";
    for (std::wstring* const path : {&options.output, &options.replayReport})
        if (!path->empty())
            *path = OrvikOs::AbsolutePath(*path);
    return true;
}

bool ReplayRun::Run(const Options& options, OrvikCore::Shell& shell, const BeforeForm& beforeForm,
                    const std::function<bool()>& goOn, const Drain& drain, std::wstring& errorText,
                    std::wstring& cutText) const
{
    Pellux::Replay replay(
        shell, OrvikCore::SessionMgr::Instance().CurrentSession(), beforeForm,
        [&options, &drain](const Pellux::ReplayedPick& pick) {
            drain();
            std::cout << DescribePick(pick, options.replay) << std::endl;
        },
        goOn);
    replay.FollowSizes(!options.isSizeGiven);
    const Pellux::ReplayOutcome outcome = replay.Run(m_text, options.replay);
    errorText = outcome.errorText;
    cutText = outcome.cutText;
    drain();
    std::cout << DescribeReplay(outcome) << std::flush;
    if (!options.replayReport.empty()) {
        const std::string report = DescribeReplayJson(outcome, options.replay);
        std::wstring reason;
        if (!OrvikOs::WriteFileAtomically(options.replayReport, report.data(), report.size(),
                                          &reason)) {
            errorText += (errorText.empty() ? L"" : L"\n") + options.replayReport + L": " + reason;
            return false;
        }
    }
    return outcome.IsGood();
}

} // namespace PelluxBatch
