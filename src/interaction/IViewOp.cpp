#include "OrvikCore/IViewOp.h"

namespace OrvikCore {

IViewOp::IViewOp(const IViewOpState& state) : m_state(state) {}

IViewOp::~IViewOp() = default;

} // namespace OrvikCore
