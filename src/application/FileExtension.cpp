#include "FileExtension.h"

#include <algorithm>

namespace OrvikCore {

namespace {

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

wchar_t ToUpper(wchar_t character)
{
    return character >= L'a' && character <= L'z' ? static_cast<wchar_t>(character - L'a' + L'A')
                                                  : character;
}

bool GivesWay(const std::wstring& extension, NumberedCopies numberedCopies)
{
    if (extension.empty()) {
        return numberedCopies == NumberedCopies::SkippedOrEmpty;
    }
    return numberedCopies != NumberedCopies::Kept &&
           std::all_of(extension.begin(), extension.end(), IsDigit);
}

} // namespace

std::wstring FileExtension(const std::wstring& path, NumberedCopies numberedCopies)
{
    const std::size_t lastPoint = path.rfind(L'.');
    std::wstring extension = lastPoint == std::wstring::npos ? path : path.substr(lastPoint + 1);
    const bool hasSegmentBefore = lastPoint != std::wstring::npos && lastPoint > 0;
    if (hasSegmentBefore && GivesWay(extension, numberedCopies)) {
        const std::size_t pointBefore = path.rfind(L'.', lastPoint - 1);
        const std::size_t begin = pointBefore == std::wstring::npos ? 0 : pointBefore + 1;
        extension = path.substr(begin, lastPoint - begin);
    }
    std::transform(extension.begin(), extension.end(), extension.begin(), ToUpper);
    return extension;
}

} // namespace OrvikCore
