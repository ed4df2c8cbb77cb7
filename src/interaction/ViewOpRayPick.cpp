#include "OrvikCore/ViewOpRayPick.h"

#include "FormatText.h"

#include <new>

namespace OrvikCore {

int ViewOpRayPick::APERTURE = 4;

ViewOpRayPick::ViewOpRayPick()
    : IViewOp(IViewOpState::Reset),
      m_pickBody(false),
      m_mouseX(0),
      m_mouseY(0),
      m_apertureRadius(-1),
      m_multiple(false)
{
}

ViewOpRayPick::ViewOpRayPick(const bool& pickBody, const int& x, const int& y, int apertureRadius,
                             bool multiple)
    : IViewOp(IViewOpState::Processing),
      m_pickBody(pickBody),
      m_mouseX(x),
      m_mouseY(y),
      m_apertureRadius(apertureRadius),
      m_multiple(multiple)
{
}

ViewOpRayPick* ViewOpRayPick::CreateViewOpReset()
{
    return new (std::nothrow) ViewOpRayPick();
}

bool ViewOpRayPick::IsReset(const ViewOpRayPick* op)
{
    return op->State() == IViewOpState::Reset;
}

ViewOpType ViewOpRayPick::Type() const
{
    return ViewOpType::RayPick;
}

std::string ViewOpRayPick::ToString() const
{
    return FormatText("ViewOpRayPick: pickBody = %d mouseX = %d mouseY = %d apertureRadius = %d",
                      m_pickBody ? 1 : 0, m_mouseX, m_mouseY, m_apertureRadius);
}

} // namespace OrvikCore
