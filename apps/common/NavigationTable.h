#ifndef APPSCOMMON_NAVIGATIONTABLE_H
#define APPSCOMMON_NAVIGATIONTABLE_H

#include <OrvikCore/MouseGesture.h>

#include <string>
#include <utility>
#include <vector>

namespace Pellux {

/// What a drag, and for Select and Add a click too, does.
enum class NavigationAction
{
    None,
    Rotate,
    Pan,
    Zoom,       ///< By vertical motion.
    WindowZoom, ///< Zooms to the rectangle that is dragged.
    Select,     ///< A rubber band; a click picks.
    Add,        ///< A rubber band that adds to the selection; a click adds what it hits.
};

/// Reads the name of an action: "rotate", "pan", "zoom", "window-zoom", "select", "add", "none".
/// @return false, with @p action unchanged, for another text.
bool ReadNavigationAction(const std::wstring& text, NavigationAction& action);

/// @return the names of the actions, "none" last.
std::vector<std::wstring> NavigationActionNames();

/// Which action belongs to which buttons and modifier keys. A value.
class NavigationTable
{
public:
    using Row = std::pair<OrvikCore::MouseGesture, NavigationAction>;

    NavigationTable() = default;
    explicit NavigationTable(std::vector<Row> rows);

    /// @return the action of a gesture; None where no row names it.
    NavigationAction Find(const OrvikCore::MouseGesture& gesture) const;

    /// Adds a row, or replaces the one of the same gesture.
    void Set(const OrvikCore::MouseGesture& gesture, NavigationAction action);

    /// Does the same with a row in words: "Ctrl-left" and "pan".
    /// @return what is wrong with the row; empty when it was taken.
    std::wstring SetRow(const std::wstring& gesture, const std::wstring& action);

private:
    std::vector<Row> m_rows;
};

/// A table that comes with the program.
struct NavigationPreset
{
    const wchar_t* name;
    NavigationTable table;
};

/// @return "left-rotates", "middle-rotates", "right-rotates", each named after its main idea.
const std::vector<NavigationPreset>& NavigationPresets();

} // namespace Pellux

#endif
