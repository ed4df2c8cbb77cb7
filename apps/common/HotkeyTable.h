#ifndef APPSCOMMON_HOTKEYTABLE_H
#define APPSCOMMON_HOTKEYTABLE_H

#include <OrvikCore/Hotkey.h>

#include <string>
#include <vector>

namespace OrvikCore {
class KeyEventArgs;
}

namespace Pellux {

class ConfigurationFile;

/// The keyboard shortcuts of the configuration's section [hotkeys]: "Ctrl-f" = "(view:zoom-all)".
///
/// @thread  Main thread.
class HotkeyTable
{
public:
    struct Entry
    {
        std::wstring text;     ///< As the configuration spells it.
        OrvikCore::Hotkey key; ///< Valid.
        std::wstring script;   ///< One or more forms; not empty.
    };

    /// Reads the section; several values of a key are run one after the other, and an empty text
    /// takes away what another file has bound.
    ///
    /// @param errorText  Gets a line "<path>:<line>:<column>: <reason>" for each key that is not
    ///                   the text of a hotkey with a modifier, and for one that is bound already.
    /// @return false when there was an error; the other keys are taken all the same.
    bool Read(ConfigurationFile& configuration, std::wstring& errorText);

    /// @return what the key of an event is bound to, press or release; null when nothing. Not
    ///         owned, valid until Read().
    const Entry* Find(OrvikCore::KeyEventArgs& event) const;

private:
    const Entry* find(const OrvikCore::Hotkey& key) const;

    std::vector<Entry> m_entries;
};

} // namespace Pellux

#endif
