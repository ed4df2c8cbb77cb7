#ifndef ORVIKCAD_KERNEL_CADKERNEL_H
#define ORVIKCAD_KERNEL_CADKERNEL_H

#include "interface/ICadKernel.h"
#include "kernel/KernelWatch.h"

namespace OrvikCad {

/// The kernel behind ICadKernel: Open CASCADE with its documents.
///
/// @thread  As ICadKernel. Making one silences the kernel's own output for the process.
class CadKernel final : public ICadKernel
{
public:
    explicit CadKernel(const KernelLimits& limits = {});

    bool Read(const std::wstring& fileName, CadFormat format, const CadOptions& options,
              OrvikModel::Model& model, CadMessages& messages) override;
    bool CanWrite(const OrvikModel::Model& model) const override;
    bool Write(const std::wstring& fileName, CadFormat format, const OrvikModel::Model& model,
               CadMessages& messages) override;

private:
    KernelLimits m_limits;
};

} // namespace OrvikCad

#endif
