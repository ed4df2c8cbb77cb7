#ifndef ORVIKCORE_ACONTENTSAVER_H
#define ORVIKCORE_ACONTENTSAVER_H

#include "OrvikCore/Export.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace OrvikCore {

class AContent;

/// Base of everything that writes a content to a file.
///
/// Failures are collected in the saver and read after Save(); they are not thrown. The session
/// manager owns the registered savers.
///
/// @thread Save() on the worker; registration and look-up on the main thread.
class ORVIKCORE_API AContentSaver
{
public:
    /// An extension in upper case without its dot, and a text for the host, such as a description.
    using Extensions = std::set<std::pair<std::wstring, std::wstring>>;

    // Virtual operations in slot order; append only.
    virtual ~AContentSaver();

    AContentSaver(const AContentSaver&) = default;
    AContentSaver& operator=(const AContentSaver&) = default;

    /// Writes a content to a file, after forgetting the messages of the run before.
    ///
    /// @param fileName  path of the file.
    /// @param content   not owned.
    /// @return          true when the file was written.
    bool Save(const std::wstring& fileName, AContent* content);

    /// Tells whether this saver can write this content to files of this extension.
    ///
    /// @param content    not owned; null is never accepted.
    /// @param extension  upper case, without the dot; compared exactly.
    bool CanSave(AContent* content, const std::wstring& extension);

    /// Returns the errors of the last run, one per line; empty when there were none.
    std::wstring GetErrorMessage() const;

    /// Returns the warnings of the last run, in the order in which they came.
    std::vector<std::wstring> GetWarningMessages() const;

    /// Returns the extensions; valid as long as the saver.
    const Extensions& ValidExtensions() const;

protected:
    AContentSaver();

    /// Forgets errors and warnings.
    void resetMessages();

    /// Adds an error; the second and every later one begins a new line.
    void setErrorMessage(const std::wstring& text);

    /// Adds a warning.
    void addWarningMessage(const std::wstring& text);

    Extensions validExtensions;                ///< Filled by the concrete saver.
    std::wstring errorMessage;                 ///< Errors of the present run, one per line.
    std::vector<std::wstring> warningMessages; ///< Warnings of the present run.

private:
    // Slots two and three of the table.

    /// Writes the content; reports with setErrorMessage() and addWarningMessage().
    virtual bool save(const std::wstring& fileName, AContent* content) = 0;

    /// Tells whether this saver can write the content at all; asked before the extensions.
    virtual bool canSave(AContent* content, const std::wstring& extension) = 0;
};

} // namespace OrvikCore

#endif
