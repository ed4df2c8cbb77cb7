#ifndef ORVIKCORE_ACONTENTLOADER_H
#define ORVIKCORE_ACONTENTLOADER_H

#include "OrvikCore/Export.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace OrvikCore {

class Document;

/// Base of everything that reads a file into a document.
///
/// A loader names the file extensions that it reads, and is asked by the session manager for the
/// extension of a file. A loader proper replaces the document's contents; an importer adds to them.
/// Failures are collected in the loader and read after Load(); they are not thrown.
/// The session manager owns the registered loaders.
///
/// @thread Load() on the worker; registration and look-up on the main thread.
class ORVIKCORE_API AContentLoader
{
public:
    /// An extension in upper case without its dot, and a text for the host, such as a description.
    using Extensions = std::set<std::pair<std::wstring, std::wstring>>;

    // Virtual operations in slot order; append only.
    virtual ~AContentLoader();

    AContentLoader(const AContentLoader&) = default;
    AContentLoader& operator=(const AContentLoader&) = default;

    /// Reads a file into a document, after forgetting the messages of the run before.
    ///
    /// @param fileName  path of the file.
    /// @param document  receives the contents; not owned.
    void Load(const std::wstring& fileName, Document& document);

    /// Tells whether files of this extension can be read. At the first entry of ValidExtensions()
    /// whose first text equals @p extension the loader itself decides.
    ///
    /// @param extension  upper case, without the dot; compared exactly.
    bool CanLoad(const std::wstring& extension) const;

    /// Returns the errors of the last run, one per line; empty when there were none.
    std::wstring GetErrorMessage() const;

    /// Returns the warnings of the last run, in the order in which they came.
    std::vector<std::wstring> GetWarningMessages() const;

    /// Tells whether this loader adds to a document instead of replacing its contents.
    bool IsImporter() const;

    /// Returns the loader's own type name; "OrvikCore::AContentLoader" unless replaced.
    std::string TypeName() const;

    /// Returns the extensions; valid as long as the loader.
    const Extensions& ValidExtensions() const;

protected:
    AContentLoader();

    /// Forgets errors and warnings.
    void resetMessages();

    /// Adds an error; the second and every later one begins a new line.
    void setErrorMessage(const std::wstring& text);

    /// Adds a warning.
    void addWarningMessage(const std::wstring& text);

    std::string typeName;                      ///< Replaced by the concrete loader.
    Extensions validExtensions;                ///< Filled by the concrete loader.
    bool isImporter = false;                   ///< Set by a loader that adds to the document.
    std::wstring errorMessage;                 ///< Errors of the present run, one per line.
    std::vector<std::wstring> warningMessages; ///< Warnings of the present run.

private:
    // Slots two and three of the table.

    /// Decides about an extension that is among the valid ones.
    virtual bool canLoad(const std::wstring& extension) const = 0;

    /// Reads the file and adds contents to the document; reports with setErrorMessage() and
    /// addWarningMessage().
    virtual void load(const std::wstring& fileName, Document& document) = 0;
};

} // namespace OrvikCore

#endif
