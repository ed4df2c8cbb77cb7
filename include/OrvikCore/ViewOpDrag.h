#ifndef ORVIKCORE_VIEWOPDRAG_H
#define ORVIKCORE_VIEWOPDRAG_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IViewOp.h"

namespace OrvikCore {

/// Drags a rubber band; the state of the drag is the state of the operation.
class ORVIKCORE_API ViewOpDrag : public IViewOp
{
public:
    /// @param x, y   pointer position, window pixels.
    /// @param state  place in the drag.
    ViewOpDrag(int x, int y, IViewOpState state);

    int MouseX() const { return m_mouseX; }
    int MouseY() const { return m_mouseY; }

    ViewOpType Type() const override;

    /// @return "ViewOpDrag: mouseX = 1 mouseY = 2 dragState = 3", the state as a number.
    std::string ToString() const override;

private:
    int m_mouseX; ///< Window pixels.
    int m_mouseY; ///< Window pixels.
};

} // namespace OrvikCore

#endif
