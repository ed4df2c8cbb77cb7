#include "OrvikCore/ViewOpTargetCamera.h"

#include "FormatText.h"

namespace OrvikCore {

ViewOpTargetCamera::ViewOpTargetCamera(int x, int y)
    : IViewOp(IViewOpState::Processing), m_mouseX(x), m_mouseY(y)
{
}

ViewOpType ViewOpTargetCamera::Type() const
{
    return ViewOpType::TargetCamera;
}

std::string ViewOpTargetCamera::ToString() const
{
    return FormatText("ViewOpTargetCamera: mouseX = %d mouseY = %d", m_mouseX, m_mouseY);
}

} // namespace OrvikCore
