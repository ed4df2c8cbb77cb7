#ifndef ORVIKCAD_KERNEL_KERNELPROGRESS_H
#define ORVIKCAD_KERNEL_KERNELPROGRESS_H

#include <Message_ProgressIndicator.hxx>

namespace OrvikCad {

/// Carries the kernel's progress to the process's Progress, and the running job's cancel to the
/// kernel.
///
/// @thread  Any thread.
class KernelProgress final : public Message_ProgressIndicator
{
public:
    enum class Reports
    {
        Yes,
        No, ///< Only cancels; for work of which many pieces run at once.
    };

    explicit KernelProgress(Reports reports);

protected:
    Standard_Boolean UserBreak() override;
    void Show(const Message_ProgressScope& scope, const Standard_Boolean isForced) override;

private:
    Reports m_reports;
};

} // namespace OrvikCad

#endif
