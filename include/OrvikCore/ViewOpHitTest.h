#ifndef ORVIKCORE_VIEWOPHITTEST_H
#define ORVIKCORE_VIEWOPHITTEST_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IViewOp.h"

namespace OrvikCore {

/// Hovers: highlights or selects what lies under the pointer.
class ORVIKCORE_API ViewOpHitTest : public IViewOp
{
public:
    /// @param x, y            pointer position, window pixels.
    /// @param useEnhancedMode true to ask every content in turn by jobs.
    ViewOpHitTest(int x, int y, bool useEnhancedMode);

    int MouseX() const { return m_mouseX; }
    int MouseY() const { return m_mouseY; }
    bool UseEnhancedMode() const { return m_useEnhancedMode; }

    ViewOpType Type() const override;

    /// @return "ViewOpHitTest: mouseX = 1 mouseY = 2 useEnhancedMode = true" (or "false").
    std::string ToString() const override;

private:
    int m_mouseX; ///< Window pixels.
    int m_mouseY; ///< Window pixels.
    bool m_useEnhancedMode;
};

} // namespace OrvikCore

#endif
