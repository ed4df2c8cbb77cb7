#ifndef ORVIKCAD_KERNEL_PMIWORDS_H
#define ORVIKCAD_KERNEL_PMIWORDS_H

#include <cstddef>
#include <string>

namespace OrvikCad {

/// What the texts of annotations are put together from, the same in every locale.

inline constexpr wchar_t kDiameterSign[] = L"\u2300";

/// The shortest text of a number, without the noise that conversions of units leave in its last
/// digits.
std::wstring ShortNumber(double value);

/// @param decimals  Places after the point, at most 15; 0 for as many as there are (ShortNumber).
std::wstring NumberText(double value, int decimals);

/// NumberText with "+" or "-" in front of it.
std::wstring SignedNumberText(double value, int decimals);

/// Adds a word after a blank; nothing where the word is empty.
void AppendWord(std::wstring& text, const std::wstring& word);

/// @param words  An array in the order of one of the kernel's enumerations.
/// @return       empty for a number beyond its end.
template <class Words> std::wstring WordAt(const Words& words, int index)
{
    const auto position = static_cast<std::size_t>(index);
    return position < words.size() ? std::wstring(words[position]) : std::wstring();
}

} // namespace OrvikCad

#endif
