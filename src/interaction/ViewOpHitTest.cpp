#include "OrvikCore/ViewOpHitTest.h"

#include "FormatText.h"

namespace OrvikCore {

ViewOpHitTest::ViewOpHitTest(int x, int y, bool useEnhancedMode)
    : IViewOp(IViewOpState::Processing),
      m_mouseX(x),
      m_mouseY(y),
      m_useEnhancedMode(useEnhancedMode)
{
}

ViewOpType ViewOpHitTest::Type() const
{
    return ViewOpType::HitTest;
}

std::string ViewOpHitTest::ToString() const
{
    return FormatText("ViewOpHitTest: mouseX = %d mouseY = %d useEnhancedMode = %s", m_mouseX,
                      m_mouseY, m_useEnhancedMode ? "true" : "false");
}

} // namespace OrvikCore
