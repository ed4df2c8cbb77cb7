#ifndef ORVIKCORE_VIEWOPPAN_H
#define ORVIKCORE_VIEWOPPAN_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IViewOp.h"

namespace OrvikCore {

/// Slides the camera parallel to the image plane, so that the model follows the pointer.
class ORVIKCORE_API ViewOpPan : public IViewOp
{
public:
    /// @param x, y          pointer position, window pixels.
    /// @param prevX, prevY  pointer position before, window pixels.
    /// @param state         place in the gesture.
    ViewOpPan(const int& x, const int& y, const int& prevX, const int& prevY,
              const IViewOpState& state);

    int MouseX() const { return m_mouseX; }
    int MouseY() const { return m_mouseY; }
    int PrevX() const { return m_prevX; }
    int PrevY() const { return m_prevY; }

    ViewOpType Type() const override;

    /// @return "ViewOpPan: mouseX = 1 mouseY = 2 prevX = 3 prevY = 4".
    std::string ToString() const override;

private:
    int m_mouseX; ///< Window pixels.
    int m_mouseY; ///< Window pixels.
    int m_prevX;  ///< Window pixels, of the event before.
    int m_prevY;  ///< Window pixels, of the event before.
};

} // namespace OrvikCore

#endif
