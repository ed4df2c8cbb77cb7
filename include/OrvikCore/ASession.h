#ifndef ORVIKCORE_ASESSION_H
#define ORVIKCORE_ASESSION_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IControllerProvider.h"
#include "OrvikCore/MessageType.h"

#include <OrvikOs/Snapshot.h>

#include <map>
#include <string>
#include <vector>

namespace TambVizCore {

class EntityId;
class IView3D;
struct RGBAColor;
class RenderId;

} // namespace TambVizCore

namespace OrvikCore {

class AContent;
class ARendererTree;
class AViewTree;
class Controller;
class Document;
class IContentRenderer;
class IOutputListener;
class ISessionObserver;
class Shell;

/// One open working context: a document, a 3D view, a model tree, the renderers that draw the
/// contents into both, and the listeners of the text output.
///
/// It keeps view and tree in step: what is selected or highlighted in one is converted through the
/// renderers into identifiers of the other and applied there too. A RenderId of origin 1 names an
/// item of the 3D view, one of origin 2 an item of the tree.
///
/// Owns the document, the view and the tree; not the renderers (DeleteAllRenderers frees them; a
/// derived destructor calls it first), the observer and the listeners. SessionMgr owns sessions and
/// deletes them in Terminate(). Main thread, except PrintMessage, which the worker calls too.
/// Constructors and destructors of sessions must not call SessionMgr::CurrentSession().
///
/// Failed conversions throw only while TambVizCore::GetAllowThrow() is true.
class ORVIKCORE_API ASession : public IControllerProvider
{
public:
    ASession(const ASession&) = delete;
    ASession& operator=(const ASession&) = delete;

    // Virtual operations in slot order; append only. The pure ones are the host's.

    /// Deletes view, tree and document in this order. Renderers and listeners are forgotten.
    ~ASession() override;

    /// @return the controller of the view, or null without one; not owned.
    Controller* GetController() const override;

    /// Remembers what was picked last; an empty list forgets it. Pellux draws it and reads it back.
    virtual void SetPickedEntities(const std::vector<TambVizCore::EntityId>& picked) = 0;

    /// @return what SetPickedEntities stored last.
    virtual std::vector<TambVizCore::EntityId> GetPickedEntities() const = 0;

    /// Begins to show the progress of something long.
    ///
    /// @param what  What is being done, for people.
    /// @thread Any thread; does not wait.
    virtual void BeginProgress(const std::wstring& what) = 0;

    /// Shows how far it has come.
    ///
    /// @param fraction  0 to 1; a negative value when it cannot be told.
    /// @thread Any thread; does not wait.
    virtual void ReportProgress(double fraction) = 0;

    /// Ends what BeginProgress began. Any thread; does not wait.
    virtual void EndProgress() = 0;

    /// @return true once the user asked for the end of what runs. Any thread; cheap.
    virtual bool IsCancelRequested() const = 0;

    /// @return the 3D view, or null when none could be made; not owned, valid as long as this.
    virtual TambVizCore::IView3D* View3D() const;

    /// @return the tree or null; not owned.
    virtual AViewTree* ViewTree() const;

    /// Keeps @p viewTree (transferred in, may be null); what it replaces is left alone.
    virtual void SetViewTree(AViewTree* viewTree);

    /// @return the shell of the process or null; not owned.
    virtual Shell* GetShell() const;

    /// @return Get3DRenderer of the document's first content; null when it has none.
    virtual IContentRenderer* Get3DRendererForFirstContent() const;

    /// @return the first renderer, in the order of addresses, that draws @p content and is no tree
    ///         renderer; null if none; not owned.
    virtual IContentRenderer* Get3DRenderer(AContent* content) const;

    /// @return the first renderer, in the order of addresses, that is a tree renderer, or null; not
    ///         owned.
    virtual ARendererTree* GetTreeRenderer() const;

    /// Switches the tree renderer on or off.
    ///
    /// Off: an existing one whose flag is false is deleted; one added with true stays. On: where
    /// there is none, CreateTreeRenderer makes one, which is then rendered.
    ///
    /// @return true when there was a tree renderer before the call.
    virtual bool EnableTreeRenderer(bool enable);

    /// Enters @p renderer (not owned until DeleteAllRenderers) with a flag; a known one keeps its
    /// flag. A renderer that reports receives the address of the render report mode first.
    ///
    /// @param renderer  Never null.
    /// @param keep      true when EnableTreeRenderer(false) must not delete it.
    virtual void AddRenderer(IContentRenderer* renderer, bool keep);

    /// Deletes every renderer and forgets them.
    virtual void DeleteAllRenderers();

    /// Called by Document after Undo and Redo: brings view and tree to the state of the contents.
    virtual void UpdateAfterUndoRedo() = 0;

    /// Called when a content was changed: draws it again, unless updating was switched off with
    /// EnableUpdateOnContentModified(false).
    virtual void UpdateAfterContentModified() = 0;

    /// Sends event 2 (SessionEvent::UpdateDisplay) to the observer, if any.
    virtual void UpdateDisplay();

    /// Sends event 3 (SessionEvent::UpdatePreferences) to the observer, if any.
    virtual void UpdatePreferences();

    /// Draws the whole view again from the contents, even where nothing seems to have changed.
    virtual void Rerender() = 0;

    /// Fills the tree again from the contents.
    virtual void RefreshTree() = 0;

    /// Highlights an entity, in view and tree, by the RenderId overload.
    ///
    /// @throws std::invalid_argument "Could not convert EntityId to RenderId in
    ///         ASession::Highlight" when it cannot be converted and throwing is allowed.
    virtual void Highlight(const TambVizCore::EntityId& id);

    /// Highlights an item. Origin 1: highlighted in the view and, where it converts, in the tree.
    /// Origin 2: what it stands for is *selected* in the view. An empty id of origin 1 clears.
    ///
    /// @throws std::invalid_argument "RenderId has Unknown origin" for another origin when throwing
    ///         is allowed; and as convertToViewTreeId and convertToView3DId.
    virtual void Highlight(const TambVizCore::RenderId& id);

    /// Clears the highlight of view and tree.
    virtual void UnHighlight() const;

    /// Selects an entity, in view and tree, by the RenderId overload. One that cannot be converted
    /// is reported by PrintMessage "Could not convert EntityId to RenderId in ASession::Select".
    virtual void Select(const TambVizCore::EntityId& id);

    /// Selects an item. Origin 1: selected in the view and, where it converts, *highlighted* in the
    /// tree. Origin 2: what it stands for is selected in the view. After a conversion that
    /// succeeded the tool tip of @p id is shown.
    ///
    /// @throws as Highlight.
    virtual void Select(const TambVizCore::RenderId& id);

    /// Clears the selection of the view and the highlight of the tree.
    virtual void UnSelect() const;

    /// Moves the camera to the box of an entity.
    /// @return false when there is no camera or no box.
    virtual bool ZoomTo(const TambVizCore::EntityId& id);

    /// Moves the camera to the box of the item that a tree path stands for. Origin 1 does nothing.
    ///
    /// @return false when there is no camera or no box, and for every origin but 2.
    /// @throws as Highlight.
    virtual bool ZoomTo(const TambVizCore::RenderId& id);

    /// Moves the camera so that everything is seen.
    virtual void ZoomAll() = 0;

    /// Moves the camera to the box of what was picked last.
    /// @return false when nothing is picked or it has no box.
    virtual bool ZoomToPicked() = 0;

    /// Keeps @p observer (not owned, may be null); what it replaces is left alone.
    virtual void SetOutputObserver(ISessionObserver* observer);

    /// Shows that the application is (@p busy true) or is no longer busy. Any thread; does not
    /// wait.
    virtual void SetBusy(bool busy) = 0;

    /// @return what SetBusy said last. Any thread.
    virtual bool IsBusy() const = 0;

    /// Draws polylines over the model; nothing when the view is no IViewObjectProvider.
    ///
    /// @param polylines  Each a sequence of x, y, z in world units: 3, 6, 9, ... doubles.
    /// @param color      Colour of all of them.
    virtual void DrawMarkupObjects(const std::vector<std::vector<double>>& polylines,
                                   const TambVizCore::RGBAColor& color);

    /// As above, as closed or filled polygons.
    virtual void DrawMarkupObjects(const std::vector<std::vector<double>>& polylines, bool closed,
                                   bool filled, const TambVizCore::RGBAColor& color);

    /// Makes the 3D renderer of @p content and enters it with AddRenderer.
    /// @return the renderer, or null when there is none for it; not owned.
    virtual IContentRenderer* CreateContentRenderer(AContent& content) = 0;

    /// Makes the tree renderer and enters it with AddRenderer; EnableTreeRenderer(true) then
    /// renders it.
    /// @return the renderer, or null when there is none; not owned.
    virtual ARendererTree* CreateTreeRenderer() = 0;

private:
    /// Draws an arrow from (x1, y1, z1) to (x2, y2, z2), world units.
    virtual void DrawArrowImpl(double x1, double y1, double z1, double x2, double y2, double z2);

    /// Draws triangles; see DrawTessellationData.
    virtual void DrawTessellationDataImpl(std::vector<float>& points, std::vector<float>& normals,
                                          std::vector<float>& colors, std::vector<int>& indices);

public:
    // Operations outside the table.

    /// @return the number given to the constructor.
    int Id() const;

    /// @return the document; owned by the session, valid as long as it.
    OrvikCore::Document& Document() const;

    /// Allows or forbids drawing again whenever a content is modified; allowed at the start.
    /// @return the value before.
    bool EnableUpdateOnContentModified(bool enable);

    /// Sets the render report mode, off at the start; a change hands the address of the flag to
    /// every renderer that reports.
    /// @return the value before.
    bool SetRenderReportMode(bool enable);

    /// @return the render report mode.
    bool GetRenderReportMode() const;

    /// Appends @p listener (not owned, not null) unless it is registered already.
    void RegisterOutputCb(IOutputListener* listener);

    /// Removes @p listener; nothing when it is not registered. A print that is going on on the
    /// worker may still reach it once.
    void UnRegisterOutputCb(IOutputListener* listener);

    /// Hands a text to every listener in order and keeps it as the last message.
    ///
    /// @param text  An empty text is ignored altogether.
    /// @thread Main thread and worker thread; listeners are called on the calling one.
    void PrintMessage(const std::wstring& text, const MessageType& type);

    /// Fills in the last text that PrintMessage printed. Any thread.
    void GetLastMessage(std::wstring& text) const;

    /// Has every listener forget its output.
    void ClearOutput();

    /// Hands a tool tip to every listener in order.
    void ShowToolTip(const std::wstring& text);

    /// Shows the tool tip that the renderer of the id's origin has for it; nothing when it is empty
    /// or the origin is neither 1 nor 2.
    void ShowToolTip(const TambVizCore::RenderId& id);

    /// Draws an arrow from (x1, y1, z1) to (x2, y2, z2), world units, over the model; nothing when
    /// the view is no IViewObjectProvider.
    void DrawArrow(double x1, double y1, double z1, double x2, double y2, double z2);

    /// Draws triangles over the model; nothing when the view is no IViewObjectProvider, which says
    /// what the four lists hold.
    void DrawTessellationData(std::vector<float>& points, std::vector<float>& normals,
                              std::vector<float>& colors, std::vector<int>& indices);

    /// Removes what the drawing operations drew.
    void ClearDrawingObjects();

protected:
    /// Makes the document and, through View3DFactory, the view and its controller.
    ///
    /// @param id  Number of the session; ASessionFactory::GetNextId() gives fresh ones.
    explicit ASession(int id);

    /// @return whether UpdateAfterContentModified is to draw again.
    bool isUpdateOnContentModified() const;

    /// Converts an id of the view into the entity it draws.
    ///
    /// @param renderer  Receives the renderer that converted (not owned); unchanged on false.
    bool convert3DViewRenderIdToEntityId(const TambVizCore::RenderId& id,
                                         TambVizCore::EntityId& entity,
                                         IContentRenderer*& renderer) const;

    /// Converts an entity into the id that draws it in the view; @p renderer as above.
    bool convert3DViewEntityIdToRenderId(const TambVizCore::EntityId& entity,
                                         TambVizCore::RenderId& id,
                                         IContentRenderer*& renderer) const;

    /// Converts an id of the view into one of the tree; without a tree renderer the entity suffices
    /// and @p treeId is left alone.
    ///
    /// @throws std::invalid_argument "Could not convert <entity> to RenderId in
    ///         ASession::convertToViewTreeId" when the view's id does not convert, the entity left
    ///         behind is neither blank nor of type 10007, and throwing is allowed.
    bool convertToViewTreeId(const TambVizCore::RenderId& id3d,
                             TambVizCore::RenderId& treeId) const;

    /// Converts an id of the tree into all ids of the view that draw the entity.
    ///
    /// @throws std::invalid_argument "Could not convert <entity> to RenderId in
    ///         ASession::convertToView3DId" when the tree's id converts and the entity does not,
    ///         under the conditions of convertToViewTreeId.
    bool convertToView3DId(const TambVizCore::RenderId& treeId,
                           std::vector<TambVizCore::RenderId>& ids3d) const;

private:
    int m_id;
    OrvikCore::Document* m_document = nullptr;           ///< Owned.
    TambVizCore::IView3D* m_view = nullptr;              ///< Owned; null when none could be made.
    IControllerProvider* m_controllerProvider = nullptr; ///< Not owned.
    AViewTree* m_viewTree = nullptr;                     ///< Owned once set.
    ISessionObserver* m_outputObserver = nullptr;        ///< Not owned.
    /// Not owned, in registration order; written on the main thread, read on the worker.
    OrvikOs::Snapshot<std::vector<IOutputListener*>> m_outputListeners;
    bool m_updateOnContentModified = true;
    /// Written and read on both threads.
    OrvikOs::Snapshot<std::wstring> m_lastMessage;
    std::map<IContentRenderer*, bool> m_renderers; ///< Not owned; see DeleteAllRenderers.
    bool m_renderReportMode = false;
};

} // namespace OrvikCore

#endif
