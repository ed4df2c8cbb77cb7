#ifndef PELLUX_TREE_ROWVISIBILITY_H
#define PELLUX_TREE_ROWVISIBILITY_H

#include <TambVizCore/EntityId.h>

#include <cstdint>
#include <unordered_set>

namespace OrvikCore {
class ASession;
}
namespace TambVizCore {
class Node;
}

namespace Pellux {

/// What a row of the model tree shows of what it stands for.
enum class Shown
{
    Undrawn, ///< Nothing is drawn for it, so nothing can be hidden.
    Yes,
    Partly, ///< It is shown, something below it is hidden.
    No,
};

/// Answers whether what rows stand for is shown in the 3D view of a session; always as it is now,
/// whoever has hidden or shown it. @thread Main thread.
class RowVisibility
{
public:
    /// @param session  Not owned; outlives this object.
    explicit RowVisibility(OrvikCore::ASession& session);

    Shown Of(const TambVizCore::EntityId& entity);

    /// Tells whether something above hides it, or it is hidden itself.
    bool IsSeen(const TambVizCore::EntityId& entity);

private:
    TambVizCore::Node* sceneRoot() const;
    struct Place
    {
        TambVizCore::Node* node = nullptr; ///< Not owned; null when nothing is drawn.
        std::int64_t part = -1;            ///< -1 for the whole node.
        bool IsShown() const;
    };
    Place find(const TambVizCore::EntityId& entity) const;
    void collect();

    OrvikCore::ASession& m_session;
    std::uint64_t m_stamp = 0; ///< Of the scene when m_partly was collected.
    bool m_isCollected = false;
    std::unordered_set<const TambVizCore::Node*> m_partly; ///< With something hidden below them.
};

} // namespace Pellux

#endif
