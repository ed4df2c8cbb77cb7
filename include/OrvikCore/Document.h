#ifndef ORVIKCORE_DOCUMENT_H
#define ORVIKCORE_DOCUMENT_H

#include "OrvikCore/Export.h"

#include <TambVizCore/PartKind.h>

#include <string>
#include <vector>

namespace TambVizCore {
class EntityId;
class Ray;
} // namespace TambVizCore

namespace OrvikCore {

class AContent;
class AContentFactory;
class AContentLoader;
class ASession;

/// The ordered list of contents that are loaded into one session, and the name of its model.
///
/// The document owns its contents and deletes them in ClearContents() and in its destructor.
/// Entries may be null. Loading, importing and saving go through the loaders and savers that are
/// registered with the session manager.
///
/// @thread Read on the worker while a job runs; contents are added and removed only while the main
///         thread is inside a commit. There is no lock.
class ORVIKCORE_API Document
{
public:
    /// @param session  the owning session; not owned, may be null.
    explicit Document(ASession* session);
    ~Document();

    /// Copies the three fields as they are.
    ///
    /// Deliberate: a copy shares the contents, and both would delete them. Of the original and its
    /// copies all but one must be emptied of contents by other means before they are destroyed; the
    /// core makes no copies. Held by DocumentTest.ACopySharesTheThreeFields.
    Document(const Document&) = default;
    Document& operator=(const Document&) = default;

    /// Returns the owning session.
    /// @throws std::runtime_error "null session" when there is none.
    ASession& Session() const;

    /// Appends a content (transferred in) unless the list holds that very object already.
    void AddContent(AContent& content);

    /// Makes a content and appends it, also when the factory made none (a null entry).
    ///
    /// @param factory  not owned; null for the session manager's default content factory.
    /// @return         the content; owned by the document.
    /// @throws std::runtime_error "could not get default content factory" when there is none.
    AContent* CreateContent(AContentFactory* factory);

    /// Deletes a content, removes it from the list and sets the caller's pointer to null.
    ///
    /// @throws std::invalid_argument "Attempting to delete a null content!" when it is null, and
    ///         "Cannot find the content you are trying to delete!" when the list does not hold it;
    ///         the list and the object are then as before.
    void DeleteContent(AContent*& content);

    /// Deletes every content in list order and empties the list.
    void ClearContents();

    /// Tells whether the list holds at least one entry that is not null.
    bool HasContent() const;

    /// Returns the list, null entries included; valid until the list changes.
    const std::vector<AContent*>& GetContentList() const;

    /// Reads a file with the loader or importer registered for its extension.
    ///
    /// Deliberate: where replacing is asked for, the old contents are gone before a loader is
    /// looked for, also when there is none.
    /// Held by DocumentFiles.ReplacingWithoutLoaderEmptiesTheDocument.
    ///
    /// @param fileName   path of the file.
    /// @param errorText  receives the loader's error, or, without a loader, "Cannot find a loader
    ///                   for " and the rest of that message; may be null.
    /// @param replace    true: delete the contents and use a loader; false: keep them and use an
    ///                   importer.
    /// @param warnings   replaced by the loader's warnings; may be null.
    /// @return           see the other form; false without a loader.
    bool LoadContent(const std::wstring& fileName, std::wstring* errorText, const bool& replace,
                     std::vector<std::wstring>* warnings);

    /// Reads a file with a given loader.
    ///
    /// @param loader     not owned.
    /// @param fileName   path of the file.
    /// @param errorText  receives the loader's error, empty when there was none; may be null, and
    ///                   then an error shows only in a document without content.
    /// @param warnings   replaced by the loader's warnings; may be null.
    /// @return           false when @p errorText received an error; else HasContent().
    bool LoadContent(AContentLoader& loader, const std::wstring& fileName, std::wstring* errorText,
                     std::vector<std::wstring>* warnings);

    /// Writes the first content that a registered saver manages to write; only one is written.
    ///
    /// @param fileName   path of the file.
    /// @param errorText  receives the error of the saver asked last; when nothing was saved, "Could
    ///                   not save " + fileName + " : " + that error, or "Could not save " +
    ///                   fileName + ". Saver for " + fileName + " not registered."; may be null.
    /// @return           true when a content was written.
    bool SaveContent(const std::wstring& fileName, std::wstring* errorText);

    /// Has every content record an undo point, in list order.
    void NoteState();

    /// Has every content forget its selection, in list order.
    void ClearSelection();

    /// Has every content undo one step, in list order, then tells the session.
    /// @throws std::runtime_error "null session" when there is none, after the contents went back.
    void Undo();

    /// Has every content redo one step, in list order, then tells the session.
    /// @throws std::runtime_error "null session" when there is none, after the contents went on.
    void Redo();

    /// Finds the entity under a ray in the first content, in list order, that reports a hit.
    ///
    /// @param ray  world units, with its aperture.
    /// @param hit  receives the entity.
    /// @return     true when a content is hit.
    /// @throws std::invalid_argument "NULL content found in the document!" for a null entry met
    ///         before any hit.
    bool RayPick(const TambVizCore::Ray& ray, TambVizCore::EntityId& hit);

    /// Finds the entity of one kind under a ray: as RayPick(), asking only those contents that are
    /// an IKindPicker.
    ///
    /// @throws std::invalid_argument "NULL content found in the document!" for a null entry met
    ///         before any hit.
    bool RayPickKind(const TambVizCore::Ray& ray, TambVizCore::PartKind kind,
                     TambVizCore::EntityId& hit);

    /// Returns the contents' short ids joined by " and ", blanks trimmed from both ends. No entry
    /// may be null.
    std::wstring GetContentIdsShort();

    /// Returns the contents' long ids joined by " and ", blanks trimmed from both ends. No entry
    /// may be null.
    std::wstring GetContentIdsLong();

    /// Returns the name of the model that was opened; empty until it is set.
    std::wstring GetOpenedModelName() const;

    /// Keeps the name of the model that was opened.
    void SetOpenedModelName(const std::wstring& name);

private:
    std::wstring GetContentIds(bool longForm);

    ASession* session;               ///< Not owned.
    std::vector<AContent*> contents; ///< Owned; may hold null.
    std::wstring openedModelName;
};

} // namespace OrvikCore

#endif
