#ifndef ORVIKCORE_MOUSEGESTURE_H
#define ORVIKCORE_MOUSEGESTURE_H

#include "OrvikCore/Export.h"
#include "OrvikCore/ModifierKey.h"
#include "OrvikCore/MouseButton.h"

#include <string>

namespace OrvikCore {

/// Mouse buttons held together with modifier keys, and their text form: "Ctrl-Shift-left+middle".
///
/// A value. @thread  Any thread.
struct ORVIKCORE_API MouseGesture
{
    ModifierKey modifiers = ModifierKey::None;
    MouseButton buttons = MouseButton::None;

    /// Reads a text: "Ctrl", "Shift" and "Alt" joined by "-", then "left", "middle" and "right"
    /// joined by "+", each at most once, in any order among their kind. Either may be left out; an
    /// empty text is no button and no key. Compared exactly.
    ///
    /// @return false, with @p gesture unchanged, for anything else.
    static bool FromText(const std::wstring& text, MouseGesture& gesture);

    /// @return the text form, in the order of the names above; empty for no button and no key.
    std::wstring ToText() const;

    bool operator==(const MouseGesture& other) const = default;
};

} // namespace OrvikCore

#endif
