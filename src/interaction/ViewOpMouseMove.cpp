#include "OrvikCore/ViewOpMouseMove.h"

#include "FormatText.h"

namespace OrvikCore {

ViewOpMouseMove::ViewOpMouseMove(int x, int y)
    : IViewOp(IViewOpState::Processing), m_mouseX(x), m_mouseY(y)
{
}

ViewOpType ViewOpMouseMove::Type() const
{
    return ViewOpType::MouseMove;
}

std::string ViewOpMouseMove::ToString() const
{
    return FormatText("ViewOpMouseMove: mouseX = %d mouseY = %d", m_mouseX, m_mouseY);
}

} // namespace OrvikCore
