#ifndef ORVIKCORE_VIEWOPTARGETCAMERA_H
#define ORVIKCORE_VIEWOPTARGETCAMERA_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IViewOp.h"

namespace OrvikCore {

/// Makes the surface point under the pointer, or the model's centre, the centre of rotation.
class ORVIKCORE_API ViewOpTargetCamera : public IViewOp
{
public:
    /// @param x, y  pointer position, window pixels.
    ViewOpTargetCamera(int x, int y);

    int MouseX() const { return m_mouseX; }
    int MouseY() const { return m_mouseY; }

    ViewOpType Type() const override;

    /// @return "ViewOpTargetCamera: mouseX = 1 mouseY = 2".
    std::string ToString() const override;

private:
    int m_mouseX; ///< Window pixels.
    int m_mouseY; ///< Window pixels.
};

} // namespace OrvikCore

#endif
