#ifndef TESTS_FAKELOADER_H
#define TESTS_FAKELOADER_H

#include "FakeContent.h"

#include "OrvikCore/AContentLoader.h"
#include "OrvikCore/AContentSaver.h"
#include "OrvikCore/Document.h"

#include <string>
#include <vector>

/// A loader that adds one content and reports what a test sets.
class FakeLoader : public OrvikCore::AContentLoader
{
public:
    /// @param extension  the one extension it reads, in upper case.
    FakeLoader(const std::wstring& extension, CallLog& log, bool isAnImporter = false) : m_log(&log)
    {
        validExtensions.insert({extension, L"Fake files"});
        isImporter = isAnImporter;
    }

    using AContentLoader::addWarningMessage;
    using AContentLoader::errorMessage;
    using AContentLoader::isImporter;
    using AContentLoader::setErrorMessage;
    using AContentLoader::typeName;
    using AContentLoader::validExtensions;
    using AContentLoader::warningMessages;

    bool m_accepts = true;
    bool m_addsContent = true;
    std::vector<std::wstring> m_errors;
    std::vector<std::wstring> m_warnings;
    std::wstring m_fileName;
    mutable std::vector<std::wstring> m_extensionsAsked;

private:
    bool canLoad(const std::wstring& extension) const override
    {
        m_extensionsAsked.push_back(extension);
        return m_accepts;
    }
    void load(const std::wstring& fileName, OrvikCore::Document& document) override
    {
        m_fileName = fileName;
        if (m_addsContent) {
            document.AddContent(*new FakeContent(document, "loaded", *m_log));
        }
        for (const std::wstring& text : m_errors) {
            setErrorMessage(text);
        }
        for (const std::wstring& text : m_warnings) {
            addWarningMessage(text);
        }
    }

    CallLog* m_log; ///< Not owned.
};

/// A saver that reports what a test sets.
class FakeSaver : public OrvikCore::AContentSaver
{
public:
    /// @param extension  the one extension it writes, in upper case.
    explicit FakeSaver(const std::wstring& extension)
    {
        validExtensions.insert({extension, L"Fake files"});
    }

    using AContentSaver::addWarningMessage;
    using AContentSaver::errorMessage;
    using AContentSaver::setErrorMessage;
    using AContentSaver::validExtensions;
    using AContentSaver::warningMessages;

    OrvikCore::AContent* m_only = nullptr; ///< Not owned; the only content it takes, null for any.
    bool m_saves = true;
    std::vector<std::wstring> m_errors;
    std::vector<OrvikCore::AContent*> m_saved;
    std::wstring m_fileName;
    int m_timesAsked = 0;

private:
    bool save(const std::wstring& fileName, OrvikCore::AContent* content) override
    {
        m_fileName = fileName;
        m_saved.push_back(content);
        for (const std::wstring& text : m_errors) {
            setErrorMessage(text);
        }
        return m_saves;
    }
    bool canSave(OrvikCore::AContent* content, const std::wstring&) override
    {
        ++m_timesAsked;
        return m_only == nullptr || content == m_only;
    }
};

#endif
