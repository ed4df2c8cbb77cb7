#ifndef APPSCOMMON_BANDECHO_H
#define APPSCOMMON_BANDECHO_H

#include <optional>
#include <string>

namespace OrvikCore {
class ViewOpDrag;
}

namespace Pellux {

/// Follows the rubber band and tells which command selects the same.
///
/// @thread  Main thread.
class BandEcho
{
public:
    /// Learns of a drag, behind the view.
    ///
    /// @param isAdding  Whether what was selected before stays.
    /// @return the command at the end of a band that has selected, such as
    ///         "(sel:box 10 20 300 200 'enclosed)"; empty otherwise.
    std::wstring Follow(const OrvikCore::ViewOpDrag& op, bool isAdding);

private:
    /// Where the band began, and its last point on the way; window pixels.
    struct Band
    {
        int x1, y1, x2, y2;
    };

    std::optional<Band> m_band;
};

} // namespace Pellux

#endif
