#ifndef ORVIKMESH_CONTENT_PROGRESSPHASE_H
#define ORVIKMESH_CONTENT_PROGRESSPHASE_H

#include <TambCommandsInfra/Progress.h>

#include <string>

namespace OrvikMesh {

/// Begins a phase of the progress and ends it, however the work ends.
class ProgressPhase
{
public:
    explicit ProgressPhase(const std::wstring& name)
    {
        TambCommandsInfra::Progress::Instance().BeginPhase(name);
    }
    ~ProgressPhase() { TambCommandsInfra::Progress::Instance().End(); }
    ProgressPhase(const ProgressPhase&) = delete;
    ProgressPhase& operator=(const ProgressPhase&) = delete;
};

} // namespace OrvikMesh

#endif
