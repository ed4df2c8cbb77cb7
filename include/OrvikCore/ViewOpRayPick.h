#ifndef ORVIKCORE_VIEWOPRAYPICK_H
#define ORVIKCORE_VIEWOPRAYPICK_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IViewOp.h"

namespace OrvikCore {

/// Picks along the ray through a pixel; the reset operation only clears the selection.
class ORVIKCORE_API ViewOpRayPick : public IViewOp
{
public:
    /// The aperture of a pick with the mouse, in pixels.
    static int APERTURE;

    /// @param pickBody       true to take the whole body of what is hit.
    /// @param x, y           pointer position, window pixels.
    /// @param apertureRadius radius of the aperture about the ray, in pixels.
    /// @param multiple       true to add to the selection, false to highlight what is hit alone.
    ViewOpRayPick(const bool& pickBody, const int& x, const int& y, int apertureRadius,
                  bool multiple);

    bool PickBody() const { return m_pickBody; }
    int MouseX() const { return m_mouseX; }
    int MouseY() const { return m_mouseY; }
    int ApertureRadius() const { return m_apertureRadius; }
    bool IsMultiple() const { return m_multiple; }

    /// @return a new operation that clears the selection (transferred out).
    static ViewOpRayPick* CreateViewOpReset();

    /// @param op  not null.
    /// @return true when @p op only clears the selection.
    static bool IsReset(const ViewOpRayPick* op);

    ViewOpType Type() const override;

    /// @return "ViewOpRayPick: pickBody = 0 mouseX = 1 mouseY = 2 apertureRadius = 4".
    std::string ToString() const override;

protected:
    /// Makes the reset operation: state Reset, position 0 0, aperture -1.
    ViewOpRayPick();

private:
    bool m_pickBody;
    int m_mouseX;         ///< Window pixels.
    int m_mouseY;         ///< Window pixels.
    int m_apertureRadius; ///< Pixels; -1 in the reset operation.
    bool m_multiple;
};

} // namespace OrvikCore

#endif
