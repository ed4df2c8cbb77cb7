#include "OrvikCore/ViewOpPan.h"

#include "FormatText.h"

namespace OrvikCore {

ViewOpPan::ViewOpPan(const int& x, const int& y, const int& prevX, const int& prevY,
                     const IViewOpState& state)
    : IViewOp(state), m_mouseX(x), m_mouseY(y), m_prevX(prevX), m_prevY(prevY)
{
}

ViewOpType ViewOpPan::Type() const
{
    return ViewOpType::Pan;
}

std::string ViewOpPan::ToString() const
{
    return FormatText("ViewOpPan: mouseX = %d mouseY = %d prevX = %d prevY = %d", m_mouseX,
                      m_mouseY, m_prevX, m_prevY);
}

} // namespace OrvikCore
