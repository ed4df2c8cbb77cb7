#include "kernel/KernelProgress.h"

#include "kernel/KernelWatch.h"

#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/Progress.h>

namespace OrvikCad {

KernelProgress::KernelProgress(Reports reports) : m_reports(reports) {}

Standard_Boolean KernelProgress::UserBreak()
{
    ShowSignOfLife();
    return TambCommandsInfra::CancelToken::Instance().IsCancelled();
}

void KernelProgress::Show(const Message_ProgressScope& /*scope*/,
                          const Standard_Boolean /*isForced*/)
{
    if (m_reports == Reports::Yes)
        TambCommandsInfra::Progress::Instance().Report(GetPosition());
}

} // namespace OrvikCad
