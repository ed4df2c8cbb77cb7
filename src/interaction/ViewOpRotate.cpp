#include "OrvikCore/ViewOpRotate.h"

#include "FormatText.h"

namespace OrvikCore {

namespace {

/// Every state but the first two counts as the end.
const char* stateWord(IViewOpState state)
{
    switch (state) {
    case IViewOpState::Start:
        return "start";
    case IViewOpState::Processing:
        return "processing";
    default:
        return "end";
    }
}

} // namespace

ViewOpRotate::ViewOpRotate(const int& x, const int& y, const int& prevX, const int& prevY,
                           const IViewOpState& state)
    : IViewOp(state), m_mouseX(x), m_mouseY(y), m_prevX(prevX), m_prevY(prevY)
{
}

ViewOpType ViewOpRotate::Type() const
{
    return ViewOpType::Rotate;
}

std::string ViewOpRotate::ToString() const
{
    return FormatText("ViewOpRotate: mouseX = %d mouseY = %d prevX = %d prevY = %d state = %s",
                      m_mouseX, m_mouseY, m_prevX, m_prevY, stateWord(State()));
}

} // namespace OrvikCore
