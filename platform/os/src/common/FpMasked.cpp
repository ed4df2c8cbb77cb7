#include <OrvikOs/FpMasked.h>

namespace OrvikOs {

FpMasked::FpMasked() noexcept : m_previous(FpControl::Save())
{
    FpControl::SetControlWord(kMCW_EM, kMCW_EM);
}

FpMasked::~FpMasked()
{
    FpControl::Restore(m_previous);
}

} // namespace OrvikOs
