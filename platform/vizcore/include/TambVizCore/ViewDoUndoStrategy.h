#ifndef TAMBVIZCORE_VIEWDOUNDOSTRATEGY_H
#define TAMBVIZCORE_VIEWDOUNDOSTRATEGY_H

#include "TambVizCore/IViewAttribute.h"
#include "TambVizCore/IViewDoUndoStrategy.h"
#include "TambVizCore/RenderId.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace TambVizCore {

class Node;

/// The do/undo strategy of a view whose scene is a tree of nodes.
///
/// Steps name their items by id, so a step whose nodes have gone is passed over without harm. At
/// most 1000 steps are kept; the oldest is forgotten first.
///
/// @thread Main thread.
class TAMBVIZCORE_API ViewDoUndoStrategy : public IViewDoUndoStrategy
{
public:
    static constexpr std::size_t kMaxSteps = 1000;

    /// @param root  the scene; not owned, outlives the strategy.
    explicit ViewDoUndoStrategy(Node& root);
    ~ViewDoUndoStrategy() override;
    ViewDoUndoStrategy(const ViewDoUndoStrategy&) = delete;
    ViewDoUndoStrategy& operator=(const ViewDoUndoStrategy&) = delete;

    bool Apply(const RenderId& id, const IViewAttribute& attribute) override;
    bool ApplyToAll(const std::vector<RenderId>& ids, const IViewAttribute& attribute) override;
    bool Undo() override;
    bool Redo() override;

    std::size_t UndoCount() const { return m_undo.size(); }
    std::size_t RedoCount() const { return m_redo.size(); }

private:
    struct Change
    {
        RenderId id;
        std::unique_ptr<IViewAttribute> attribute;
    };
    using Step = std::vector<Change>;

    bool moveStep(std::vector<Step>& from, std::vector<Step>& to);

    Node& m_root;
    std::vector<Step> m_undo;
    std::vector<Step> m_redo;
};

} // namespace TambVizCore

#endif
