#ifndef ORVIKCORE_PLUGINS_PLUGINFILES_H
#define ORVIKCORE_PLUGINS_PLUGINFILES_H

#include "PluginTexts.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace OrvikOs {
class Library;
}

namespace OrvikCore {

/// How long the thread pauses after an error of loading was told to the host, in milliseconds.
inline constexpr int kErrorPauseMs = 500;

/// Lists the plugin libraries of the executable's folder, with their full paths, in the order of
/// the file system: names that end in exactly ".dll" and contain "Plugin".
///
/// @param foreignWord  Names that contain it are left out.
/// @param excluded     Names that are left out.
std::vector<std::wstring> FindPluginFiles(const wchar_t* foreignWord,
                                          std::initializer_list<const wchar_t*> excluded);

/// Says why the last load of @p library failed.
std::wstring LoadErrorText(const std::wstring& fileName, const OrvikOs::Library& library);

/// Writes wide text to the debugger output.
void WriteDebugText(const std::wstring& text);

/// Widens character by character; bytes stay the numbers they are.
std::wstring WidenPlainly(const std::string& text);

/// Returns a new[] copy of a zero-terminated text; null for null.
template <typename Character> Character* NewCopy(const Character* text)
{
    if (text == nullptr) {
        return nullptr;
    }
    const std::basic_string<Character> source(text);
    auto* const copy = new Character[source.size() + 1];
    source.copy(copy, source.size());
    copy[source.size()] = Character();
    return copy;
}

/// Frees the text in @p held and stores a copy of @p replacement.
template <typename Character> void ReplaceText(Character*& held, const Character* replacement)
{
    Character* const copy = NewCopy(replacement);
    delete[] held;
    held = copy;
}

/// Gives the factory of a record; one whose library throws is traced and counts as missing, so that
/// it cannot keep the others from being found.
template <typename Record> auto InstanceOrNull(Record& record) -> decltype(record.GetInstance())
{
    try {
        return record.GetInstance();
    } catch (...) {
        WriteDebugText(kDebugError + (kCannotCreateFactory + std::wstring(record.GetFileName())) +
                       L"\n");
        return nullptr;
    }
}

/// Appends a backslash, unless @p buffer ends in a separator, and "*.dll" to @p buffer.
void AppendSearchPattern(const wchar_t* folder, wchar_t* buffer);

} // namespace OrvikCore

#endif
