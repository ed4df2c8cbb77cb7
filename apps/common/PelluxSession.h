#ifndef APPSCOMMON_PELLUXSESSION_H
#define APPSCOMMON_PELLUXSESSION_H

#include <OrvikCore/ASession.h>
#include <TambVizCore/EntityId.h>

#include <atomic>
#include <unordered_set>
#include <vector>

namespace OrvikCore {
class AView3D;
}

namespace Pellux {

/// The session of both hosts: shows every content of the document and remembers what was picked.
///
/// What is picked is drawn until something else is picked: a highlight ends when the pointer moves
/// on or leaves the view, a pick does not.
///
/// Renderers are made when a content is first shown and deleted with the session. The tree, where
/// the host has set one, is filled by one renderer for all contents. Progress goes to
/// TambCommandsInfra::Progress, cancelling asks TambCommandsInfra::CancelToken. @thread Main
/// thread, except where ASession says otherwise.
class PelluxSession : public OrvikCore::ASession
{
public:
    PelluxSession();
    ~PelluxSession() override;

    PelluxSession(const PelluxSession&) = delete;
    PelluxSession& operator=(const PelluxSession&) = delete;

    /// No entities: what was selected or highlighted is given up, too.
    void SetPickedEntities(const std::vector<TambVizCore::EntityId>& picked) override;
    std::vector<TambVizCore::EntityId> GetPickedEntities() const override;

    using ASession::Highlight;
    using ASession::Select;

    /// A pick: the entity becomes the only one picked.
    void Highlight(const TambVizCore::EntityId& id) override;
    /// A pick beside others: the entity joins those picked.
    void Select(const TambVizCore::EntityId& id) override;
    /// Also forgets what was picked, and highlights it no more.
    void UnSelect() const override;

    void BeginProgress(const std::wstring& what) override;
    void ReportProgress(double fraction) override;
    void EndProgress() override;
    bool IsCancelRequested() const override;

    void UpdateAfterUndoRedo() override;

    /// Draws contents that have no renderer yet and brings the others up to date.
    void UpdateAfterContentModified() override;

    void UpdateDisplay() override;
    void Rerender() override;
    /// Fills the tree, where there is one, with what the document holds now.
    void RefreshTree() override;

    /// Also empties the tree.
    void DeleteAllRenderers() override;
    void ZoomAll() override;
    bool ZoomToPicked() override;

    void SetBusy(bool busy) override;
    bool IsBusy() const override;

    OrvikCore::IContentRenderer* CreateContentRenderer(OrvikCore::AContent& content) override;
    OrvikCore::ARendererTree* CreateTreeRenderer() override;

private:
    /// Has the view mark what is picked.
    void drawPicks() const;

    struct Picks
    {
        std::vector<TambVizCore::EntityId> inOrder;
        std::unordered_set<TambVizCore::EntityId> present; ///< The same.
    };

    mutable Picks m_picks;           ///< What was picked last; emptied with the selection.
    std::atomic<bool> m_busy{false}; ///< Written and read on both threads.
};

} // namespace Pellux

#endif
