#ifndef ORVIKCORE_VIEWOPZOOM_H
#define ORVIKCORE_VIEWOPZOOM_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IViewOp.h"

namespace OrvikCore {

/// Scales the distance of the eye from the target by 1 + delta / 100.
class ORVIKCORE_API ViewOpZoom : public IViewOp
{
public:
    /// @param delta  percent; positive moves the eye away.
    /// @param x, y   pointer position, window pixels.
    ViewOpZoom(int delta, int x, int y);

    int Delta() const { return m_delta; }
    int MouseX() const { return m_mouseX; }
    int MouseY() const { return m_mouseY; }

    /// @return true when the delta is not 0.
    bool IsValid() const;

    ViewOpType Type() const override;

    /// @return "ViewOpZoom".
    std::string ToString() const override;

private:
    int m_delta;  ///< Percent.
    int m_mouseX; ///< Window pixels.
    int m_mouseY; ///< Window pixels.
};

} // namespace OrvikCore

#endif
