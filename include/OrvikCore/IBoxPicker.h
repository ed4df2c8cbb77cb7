#ifndef ORVIKCORE_IBOXPICKER_H
#define ORVIKCORE_IBOXPICKER_H

#include "OrvikCore/Export.h"

#include <vector>

namespace TambVizCore {
class EntityId;
} // namespace TambVizCore

namespace OrvikCore {

/// A rectangle in the window and what it asks for.
struct PickBox
{
    int x1 = 0; ///< A corner, window pixels from the upper left; any place, also outside.
    int y1 = 0;
    int x2 = 0; ///< The opposite corner.
    int y2 = 0;
    /// True: bodies of which something lies in the rectangle; false: those that lie in it wholly.
    bool touching = false;
};

/// Views that find what lies in a rectangle of their window, as their rubber band does; found with
/// `dynamic_cast`.
///
/// @thread Main thread.
class ORVIKCORE_API IBoxPicker
{
public:
    // Virtual operations in slot order; append only.
    virtual ~IBoxPicker();

    /// Finds the bodies in a rectangle as the present camera shows them: not what is hidden, not
    /// what section planes cut away.
    ///
    /// @return entities in the order of the scene, each once; none while the window has no size.
    virtual std::vector<TambVizCore::EntityId> FindInBox(const PickBox& box) = 0;
};

} // namespace OrvikCore

#endif
