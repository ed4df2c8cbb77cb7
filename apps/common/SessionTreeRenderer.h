#ifndef APPSCOMMON_SESSIONTREERENDERER_H
#define APPSCOMMON_SESSIONTREERENDERER_H

#include <OrvikCore/ARendererTree.h>

#include <memory>
#include <vector>

namespace OrvikCore {
class ASession;
} // namespace OrvikCore

namespace Pellux {

/// The tree renderer of a session: the scene row, named after the opened model, and below it what
/// one renderer for each content draws.
///
/// The renderers are made by the factory of the content's type and asked in the order of loading.
/// Contents without a factory have no rows; without any there is no scene row either. @thread Main
/// thread.
class SessionTreeRenderer final : public OrvikCore::ARendererTree
{
public:
    /// @param session  Whose document and view tree; not owned, outlives the renderer.
    explicit SessionTreeRenderer(OrvikCore::ASession& session);
    ~SessionTreeRenderer() override;

    /// Fills the tree with the contents that there are now.
    /// @return true when there is a row.
    bool Render() override;
    /// Empties the tree and fills it again.
    bool Rerender() override;
    bool IsRendererFor(OrvikCore::AContent* asked) override;
    bool ConvertToEntityId(const TambVizCore::RenderId& id, TambVizCore::EntityId& entity) override;
    bool ConvertToRenderId(const TambVizCore::EntityId& entity, TambVizCore::RenderId& id) override;
    bool Activate(TambVizCore::RenderId& id) override;
    bool ExpandRenderId(const TambVizCore::RenderId& id,
                        std::vector<TambVizCore::RenderId>& ids) override;
    std::wstring GetToolTip(const TambVizCore::RenderId& id) override;
    bool GetBodyList(std::vector<TambVizCore::EntityId>& bodies) override;
    void SetView(OrvikCore::AViewTree* tree) override;
    bool ExpandNode(const TambVizCore::RenderId& path) override;
    bool GetNodeStyle(const TambVizCore::RenderId& path,
                      OrvikCore::TreeBuilder::TreeItemStyles& style) const override;

private:
    void discard() override;
    void makeRenderers();
    ARendererTree* findRenderer(const TambVizCore::RenderId& path) const;

    OrvikCore::ASession& m_session;
    std::vector<std::unique_ptr<ARendererTree>> m_renderers; ///< In the order of the contents.
};

} // namespace Pellux

#endif
