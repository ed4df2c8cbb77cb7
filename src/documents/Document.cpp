#include "OrvikCore/Document.h"

#include "DocumentTexts.h"

#include "OrvikCore/AContent.h"
#include "OrvikCore/AContentFactory.h"
#include "OrvikCore/AContentLoader.h"
#include "OrvikCore/AContentSaver.h"
#include "OrvikCore/ASession.h"
#include "OrvikCore/IKindPicker.h"
#include "OrvikCore/SessionMgr.h"

#include <algorithm>
#include <stdexcept>

namespace OrvikCore {

namespace {

// Calls an operation of every content that is not null, in list order.
void callEach(const std::vector<AContent*>& contents, void (AContent::*operation)())
{
    for (AContent* content : contents) {
        if (content != nullptr) {
            (content->*operation)();
        }
    }
}

// Asks each content in list order until one reports a hit.
template <typename Pick> bool pickFirst(const std::vector<AContent*>& contents, const Pick& pick)
{
    for (AContent* content : contents) {
        if (content == nullptr) {
            throw std::invalid_argument(kNullContentInDocument);
        }
        if (pick(*content)) {
            return true;
        }
    }
    return false;
}

std::wstring trimBlanks(const std::wstring& text)
{
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

} // namespace

Document::Document(ASession* owner) : session(owner) {}

Document::~Document()
{
    session = nullptr;
    ClearContents();
}

ASession& Document::Session() const
{
    if (session == nullptr) {
        throw std::runtime_error(kNullSession);
    }
    return *session;
}

void Document::AddContent(AContent& content)
{
    if (std::find(contents.begin(), contents.end(), &content) == contents.end()) {
        contents.push_back(&content);
    }
}

AContent* Document::CreateContent(AContentFactory* factory)
{
    if (factory == nullptr) {
        factory = SessionMgr::Instance().GetDefaultContentFactory();
        if (factory == nullptr) {
            throw std::runtime_error(kNoContentFactory);
        }
    }
    contents.push_back(factory->CreateContent(*this));
    return contents.back();
}

void Document::DeleteContent(AContent*& content)
{
    if (content == nullptr) {
        throw std::invalid_argument(kDeleteNullContent);
    }
    const auto found = std::find(contents.begin(), contents.end(), content);
    if (found == contents.end()) {
        throw std::invalid_argument(kDeleteUnknownContent);
    }
    // The entry goes first: what the content's destructor sees no longer holds it.
    AContent* const deleted = content;
    contents.erase(found);
    delete deleted;
    content = nullptr;
}

void Document::ClearContents()
{
    for (AContent* content : contents) {
        delete content;
    }
    contents.clear();
}

bool Document::HasContent() const
{
    return std::any_of(contents.begin(), contents.end(),
                       [](const AContent* content) { return content != nullptr; });
}

const std::vector<AContent*>& Document::GetContentList() const
{
    return contents;
}

bool Document::LoadContent(const std::wstring& fileName, std::wstring* errorText,
                           const bool& replace, std::vector<std::wstring>* warnings)
{
    SessionMgr& manager = SessionMgr::Instance();
    AContentLoader* loader = nullptr;
    if (replace) {
        // Deliberate: the contents are gone also when no loader is found.
        // Held by DocumentFiles.ReplacingWithoutLoaderEmptiesTheDocument.
        ClearContents();
        loader = manager.GetContentLoader(fileName);
    } else {
        loader = manager.GetContentImporter(fileName);
    }
    if (loader == nullptr) {
        if (errorText != nullptr) {
            *errorText = kNoLoaderBefore + fileName + kNoLoaderAfter;
        }
        return false;
    }
    return LoadContent(*loader, fileName, errorText, warnings);
}

bool Document::LoadContent(AContentLoader& loader, const std::wstring& fileName,
                           std::wstring* errorText, std::vector<std::wstring>* warnings)
{
    loader.Load(fileName, *this);
    if (warnings != nullptr) {
        *warnings = loader.GetWarningMessages();
    }
    if (errorText != nullptr) {
        *errorText = loader.GetErrorMessage();
        if (!errorText->empty()) {
            return false;
        }
    }
    return HasContent();
}

bool Document::SaveContent(const std::wstring& fileName, std::wstring* errorText)
{
    if (errorText != nullptr) {
        errorText->clear();
    }
    bool saved = false;
    for (AContent* content : contents) {
        AContentSaver* const saver = SessionMgr::Instance().GetContentSaver(content, fileName);
        if (saver == nullptr) {
            continue;
        }
        saved = saver->Save(fileName, content);
        if (errorText != nullptr) {
            *errorText = saver->GetErrorMessage();
        }
        if (saved) {
            break;
        }
    }
    if (!saved && errorText != nullptr) {
        if (errorText->empty()) {
            *errorText = kCouldNotSave + fileName + kSaverFor + fileName + kNotRegistered;
        } else {
            *errorText = kCouldNotSave + fileName + kSaverError + *errorText;
        }
    }
    return saved;
}

void Document::NoteState()
{
    callEach(contents, &AContent::NoteState);
}

void Document::ClearSelection()
{
    callEach(contents, &AContent::ClearSelection);
}

void Document::Undo()
{
    callEach(contents, &AContent::Undo);
    Session().UpdateAfterUndoRedo();
}

void Document::Redo()
{
    callEach(contents, &AContent::Redo);
    Session().UpdateAfterUndoRedo();
}

bool Document::RayPick(const TambVizCore::Ray& ray, TambVizCore::EntityId& hit)
{
    return pickFirst(contents, [&](AContent& content) { return content.RayPick(ray, hit); });
}

bool Document::RayPickKind(const TambVizCore::Ray& ray, TambVizCore::PartKind kind,
                           TambVizCore::EntityId& hit)
{
    return pickFirst(contents, [&](AContent& content) {
        auto* const picker = dynamic_cast<IKindPicker*>(&content);
        return picker != nullptr && picker->RayPickKind(ray, kind, hit);
    });
}

std::wstring Document::GetContentIdsShort()
{
    return GetContentIds(/*longForm=*/false);
}

std::wstring Document::GetContentIdsLong()
{
    return GetContentIds(/*longForm=*/true);
}

std::wstring Document::GetOpenedModelName() const
{
    return openedModelName;
}

void Document::SetOpenedModelName(const std::wstring& name)
{
    openedModelName = name;
}

std::wstring Document::GetContentIds(bool longForm)
{
    std::wstring ids;
    for (std::size_t i = 0; i < contents.size(); ++i) {
        if (i > 0) {
            ids += kBetweenContentIds;
        }
        ids += longForm ? contents[i]->GetLongId() : contents[i]->GetShortId();
    }
    return trimBlanks(ids);
}

} // namespace OrvikCore
