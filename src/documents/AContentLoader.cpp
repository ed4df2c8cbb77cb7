#include "OrvikCore/AContentLoader.h"

#include "ContentMessages.h"

#include <algorithm>

namespace OrvikCore {

AContentLoader::AContentLoader() : typeName("OrvikCore::AContentLoader") {}

AContentLoader::~AContentLoader() = default;

void AContentLoader::Load(const std::wstring& fileName, Document& document)
{
    resetMessages();
    load(fileName, document);
}

bool AContentLoader::CanLoad(const std::wstring& extension) const
{
    const bool isKnown = std::any_of(validExtensions.begin(), validExtensions.end(),
                                     [&](const auto& entry) { return entry.first == extension; });
    return isKnown && canLoad(extension);
}

std::wstring AContentLoader::GetErrorMessage() const
{
    return errorMessage;
}

std::vector<std::wstring> AContentLoader::GetWarningMessages() const
{
    return warningMessages;
}

bool AContentLoader::IsImporter() const
{
    return isImporter;
}

std::string AContentLoader::TypeName() const
{
    return typeName;
}

const AContentLoader::Extensions& AContentLoader::ValidExtensions() const
{
    return validExtensions;
}

void AContentLoader::resetMessages()
{
    errorMessage.clear();
    warningMessages.clear();
}

void AContentLoader::setErrorMessage(const std::wstring& text)
{
    AppendErrorLine(errorMessage, text);
}

void AContentLoader::addWarningMessage(const std::wstring& text)
{
    warningMessages.push_back(text);
}

} // namespace OrvikCore
