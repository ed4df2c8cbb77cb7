#ifndef ORVIKCORE_ACONTENT_H
#define ORVIKCORE_ACONTENT_H

#include "OrvikCore/Export.h"

#include <string>

namespace TambVizCore {
class EntityId;
class Ray;
class RenderId;
class VizBox;
} // namespace TambVizCore

namespace OrvikCore {

class Document;

/// Base of everything that a loader puts into a document.
///
/// A content is what a plugin made of a file: the core never looks inside it and reaches it only
/// through the operations below. The document that holds a content owns it. A content that can
/// answer picks restricted to one kind of entity also implements IKindPicker.
///
/// @thread Read on the worker while a job runs; created, changed and deleted only while the main
///         thread is inside a commit.
class ORVIKCORE_API AContent
{
public:
    // Virtual operations in slot order; append only.
    virtual ~AContent();

    /// Returns a short identifier, such as the file's name without its folder.
    virtual std::wstring GetShortId() = 0;

    /// Returns a long identifier, such as the file's whole path.
    virtual std::wstring GetLongId() = 0;

    /// Records the present state as an undo point.
    virtual void NoteState() = 0;

    /// Goes back to the undo point before the present state; without one nothing changes.
    virtual void Undo() = 0;

    /// Takes the last Undo() back; without one nothing changes.
    virtual void Redo() = 0;

    /// Returns the name under which the renderer factories for this kind of content are registered.
    /// The session hands it to SessionMgr::GetContentRendererFactory and GetTreeRendererFactory.
    virtual std::string GetTypeName() const = 0;

    /// Finds the box around everything in this content.
    ///
    /// @param box  receives the box, world units; left alone when the result is false.
    /// @return     false when the content has no extent (nothing in it).
    virtual bool GetBoundingBox(TambVizCore::VizBox& box) const = 0;

    /// Forgets what is selected in this content.
    virtual void ClearSelection() = 0;

    /// Highlights more than what lies under the pointer, where the content knows better.
    ///
    /// @param id  what lies under the pointer in the 3D view.
    /// @return    true when the content took over the highlighting; false by default.
    virtual bool TryHighlight(const TambVizCore::RenderId& id);

    /// Finds the entity that a ray hits first. A vertex within the ray's aperture wins over an edge
    /// and an edge over a face, unless a face hides it.
    ///
    /// @param ray  world units, with its aperture.
    /// @param hit  receives the entity; left alone when nothing is hit.
    /// @return     true when the ray hits this content.
    virtual bool RayPick(const TambVizCore::Ray& ray, TambVizCore::EntityId& hit) = 0;

    /// Returns the document given to the constructor; not owned.
    Document& GetDocument();

protected:
    /// @param document  the document that will own the content; must outlive it.
    explicit AContent(Document& document);

    /// A copy belongs to the same document, which does not know it until it is added.
    AContent(const AContent&) = default;

private:
    Document& document; ///< Not owned.
};

} // namespace OrvikCore

#endif
