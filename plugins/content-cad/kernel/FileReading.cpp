#include "kernel/FileReading.h"

#include "kernel/KernelWatch.h"

#include <TambCommandsInfra/Progress.h>
#include <TambVizCore/Utils.h>

namespace OrvikCad {

std::wstring CadFile::Name() const
{
    return TambVizCore::Utils::GetFileNameOnly(path);
}

std::wstring CadFile::Stem() const
{
    const std::wstring name = Name();
    const std::size_t dot = name.rfind(L'.');
    return dot == std::wstring::npos || dot == 0 ? name : name.substr(0, dot);
}

void BeginReadingPhase(const wchar_t* what, const CadFile& file)
{
    PollJob();
    TambCommandsInfra::Progress::Instance().BeginPhase(what + file.Name());
}

} // namespace OrvikCad
