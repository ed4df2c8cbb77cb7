#ifndef ORVIKCORE_VIEWOPMOUSEMOVE_H
#define ORVIKCORE_VIEWOPMOUSEMOVE_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IViewOp.h"

namespace OrvikCore {

/// Tells that the pointer moved; does nothing in the view.
class ORVIKCORE_API ViewOpMouseMove : public IViewOp
{
public:
    /// @param x, y  pointer position, window pixels.
    ViewOpMouseMove(int x, int y);

    int MouseX() const { return m_mouseX; }
    int MouseY() const { return m_mouseY; }

    ViewOpType Type() const override;

    /// @return "ViewOpMouseMove: mouseX = 1 mouseY = 2".
    std::string ToString() const override;

private:
    int m_mouseX; ///< Window pixels.
    int m_mouseY; ///< Window pixels.
};

} // namespace OrvikCore

#endif
