#include "JournalCut.h"

#include <utility>

namespace Pellux {
namespace {

constexpr wchar_t kMarkStart[] = L";=";
constexpr wchar_t kNothing[] = L";= pick nothing";

} // namespace

std::wstring CutOffMark(std::vector<std::wstring>& lines)
{
    const std::wstring& last = lines.back();
    const bool isMark = last.starts_with(kMarkStart) || last == L";";
    if (!isMark || last == FailureLine() || last == InputLine() || last == kNothing)
        return std::wstring();
    return std::exchange(lines.back(), std::wstring());
}

bool IsCutShort(const std::vector<PlacedForm>& forms)
{
    if (forms.empty() || !forms.back().text.starts_with(L'('))
        return false;
    const std::wstring& rest = forms.back().text;
    return rest.find(L"\n(") == std::wstring::npos &&
           rest.find(std::wstring(L"\n") + kMarkStart) == std::wstring::npos;
}

} // namespace Pellux
