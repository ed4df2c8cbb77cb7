#include "OrvikCore/ViewOpDrag.h"

#include "FormatText.h"

namespace OrvikCore {

ViewOpDrag::ViewOpDrag(int x, int y, IViewOpState state) : IViewOp(state), m_mouseX(x), m_mouseY(y)
{
}

ViewOpType ViewOpDrag::Type() const
{
    return ViewOpType::Drag;
}

std::string ViewOpDrag::ToString() const
{
    return FormatText("ViewOpDrag: mouseX = %d mouseY = %d dragState = %d", m_mouseX, m_mouseY,
                      static_cast<int>(State()));
}

} // namespace OrvikCore
