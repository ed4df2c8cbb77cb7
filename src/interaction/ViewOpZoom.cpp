#include "OrvikCore/ViewOpZoom.h"

namespace OrvikCore {

ViewOpZoom::ViewOpZoom(int delta, int x, int y)
    : IViewOp(IViewOpState::Processing), m_delta(delta), m_mouseX(x), m_mouseY(y)
{
}

bool ViewOpZoom::IsValid() const
{
    return m_delta != 0;
}

ViewOpType ViewOpZoom::Type() const
{
    return ViewOpType::Zoom;
}

std::string ViewOpZoom::ToString() const
{
    return "ViewOpZoom";
}

} // namespace OrvikCore
