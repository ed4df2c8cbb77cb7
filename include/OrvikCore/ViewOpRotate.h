#ifndef ORVIKCORE_VIEWOPROTATE_H
#define ORVIKCORE_VIEWOPROTATE_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IViewOp.h"

namespace OrvikCore {

/// Turns the camera by the way of the pointer: a whole window is 180 degrees.
class ORVIKCORE_API ViewOpRotate : public IViewOp
{
public:
    /// @param x, y          pointer position, window pixels.
    /// @param prevX, prevY  pointer position before, window pixels.
    /// @param state         place in the gesture.
    ViewOpRotate(const int& x, const int& y, const int& prevX, const int& prevY,
                 const IViewOpState& state);

    int MouseX() const { return m_mouseX; }
    int MouseY() const { return m_mouseY; }
    int PrevX() const { return m_prevX; }
    int PrevY() const { return m_prevY; }

    ViewOpType Type() const override;

    /// @return "ViewOpRotate: mouseX = 1 mouseY = 2 prevX = 3 prevY = 4 state = processing"; the
    ///         state is "start", "processing" or, for every other value, "end".
    std::string ToString() const override;

private:
    int m_mouseX; ///< Window pixels.
    int m_mouseY; ///< Window pixels.
    int m_prevX;  ///< Window pixels, of the event before.
    int m_prevY;  ///< Window pixels, of the event before.
};

} // namespace OrvikCore

#endif
