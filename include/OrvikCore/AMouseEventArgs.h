#ifndef ORVIKCORE_AMOUSEEVENTARGS_H
#define ORVIKCORE_AMOUSEEVENTARGS_H

#include "OrvikCore/AEventArgs.h"
#include "OrvikCore/Export.h"

namespace OrvikCore {

/// An event with a pointer position: window pixels, x to the right, y downwards, origin at the
/// upper left corner of the view.
class ORVIKCORE_API AMouseEventArgs : public AEventArgs
{
public:
    /// @return the pointer's column in window pixels.
    int X() const { return x; }

    /// @return the pointer's row in window pixels.
    int Y() const { return y; }

protected:
    /// @param column  window pixels from the left edge.
    /// @param row     window pixels from the upper edge.
    AMouseEventArgs(int const& column, int const& row);
    AMouseEventArgs(const AMouseEventArgs&) = default;
    AMouseEventArgs& operator=(const AMouseEventArgs&) = default;
    ~AMouseEventArgs() = default;

private:
    int x;
    int y;
};

} // namespace OrvikCore

#endif
