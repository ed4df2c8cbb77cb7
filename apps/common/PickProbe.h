#ifndef APPSCOMMON_PICKPROBE_H
#define APPSCOMMON_PICKPROBE_H

#include "JournalText.h"

#include <OrvikCore/IJob.h>
#include <TambCommandsInfra/Command.h>
#include <TambVizCore/PartKind.h>
#include <TambVizCore/Ray.h>

#include <vector>

namespace OrvikCore {
class ASession;
class Document;
} // namespace OrvikCore

namespace Pellux {

/// Finds what a ray hits and where that is.
///
/// @param kind  None for whatever is hit first; else the kind that is looked for.
/// @thread Worker thread while a job runs.
PickNote ProbePick(OrvikCore::Document& document, const TambVizCore::Ray& ray,
                   TambVizCore::PartKind kind);

/// Fills in where an entity is.
/// @return false when the document has no such entity.
/// @thread As ProbePick().
bool LocateEntity(const OrvikCore::Document& document, PickNote& note);

/// Repeats the question that a command has asked: those of the family app:pick-..., entity:by-id
/// and view:pick give one answer, sel:box one for each body.
///
/// @return nothing for every other command.
/// @thread As ProbePick(); questions to the view cross the call gate.
std::vector<PickNote> ProbeCommand(OrvikCore::ASession& session,
                                   const TambCommandsInfra::Command& command,
                                   const TambCommandsInfra::Arguments& arguments);

/// ProbePick() as a job of its own.
class PickProbeJob final : public OrvikCore::IJob
{
public:
    /// @param document  Not owned, outlives the job.
    PickProbeJob(OrvikCore::Document& document, const TambVizCore::Ray& ray);

    bool Execute() override;

    /// What was found; after the job.
    const PickNote& Note() const { return m_note; }

private:
    OrvikCore::Document& m_document;
    TambVizCore::Ray m_ray;
    PickNote m_note;
};

} // namespace Pellux

#endif
