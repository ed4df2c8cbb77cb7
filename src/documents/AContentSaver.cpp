#include "OrvikCore/AContentSaver.h"

#include "ContentMessages.h"

#include <algorithm>

namespace OrvikCore {

AContentSaver::AContentSaver() = default;

AContentSaver::~AContentSaver() = default;

bool AContentSaver::Save(const std::wstring& fileName, AContent* content)
{
    resetMessages();
    return save(fileName, content);
}

bool AContentSaver::CanSave(AContent* content, const std::wstring& extension)
{
    if (content == nullptr || !canSave(content, extension)) {
        return false;
    }
    return std::any_of(validExtensions.begin(), validExtensions.end(),
                       [&](const auto& entry) { return entry.first == extension; });
}

std::wstring AContentSaver::GetErrorMessage() const
{
    return errorMessage;
}

std::vector<std::wstring> AContentSaver::GetWarningMessages() const
{
    return warningMessages;
}

const AContentSaver::Extensions& AContentSaver::ValidExtensions() const
{
    return validExtensions;
}

void AContentSaver::resetMessages()
{
    errorMessage.clear();
    warningMessages.clear();
}

void AContentSaver::setErrorMessage(const std::wstring& text)
{
    AppendErrorLine(errorMessage, text);
}

void AContentSaver::addWarningMessage(const std::wstring& text)
{
    warningMessages.push_back(text);
}

} // namespace OrvikCore
