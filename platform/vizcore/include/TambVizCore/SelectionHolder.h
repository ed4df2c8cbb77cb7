#ifndef TAMBVIZCORE_SELECTIONHOLDER_H
#define TAMBVIZCORE_SELECTIONHOLDER_H

#include "TambVizCore/Export.h"
#include "TambVizCore/RenderId.h"

#include <cstdint>
#include <unordered_set>
#include <vector>

namespace TambVizCore {

class Node;

/// What is highlighted, selected and was picked last in one view.
///
/// The holder keeps the ids and, when it has a scene root, marks the nodes and parts that they
/// name. Ids that name nothing (yet) are kept all the same; Reapply marks them once the scene has
/// them. A highlight replaces the one before, selections gather. A highlight follows the pointer
/// and ends with it; what was picked last stays marked until something else is picked.
///
/// @thread Main thread.
class TAMBVIZCORE_API SelectionHolder
{
public:
    /// @param root  the scene that is marked; not owned, may be null; outlives the holder or is
    ///              taken away with SetSceneRoot(nullptr).
    explicit SelectionHolder(Node* root = nullptr);
    virtual ~SelectionHolder();
    SelectionHolder(const SelectionHolder&) = delete;
    SelectionHolder& operator=(const SelectionHolder&) = delete;

    /// Marks another scene; the old one is left as it is. Not owned.
    void SetSceneRoot(Node* root);

    /// Clears the highlight and highlights @p id; an empty id only clears.
    virtual void Highlight(const RenderId& id);
    /// Highlights @p id beside what is highlighted; an empty or present id changes nothing.
    virtual void AddHighlight(const RenderId& id);
    virtual void ClearHighlight();

    /// Selects @p id beside what is selected; an empty or present id changes nothing.
    virtual void Select(const RenderId& id);
    /// Takes @p id out of the selection.
    virtual void Deselect(const RenderId& id);
    virtual void ClearSelection();

    /// Marks ids as those that were picked last, and nothing else; empty ids are passed over.
    void SetPicked(const std::vector<RenderId>& ids);

    /// @return true when that very id is highlighted, or a node above it.
    virtual bool IsHighlighted(const RenderId& id) const;
    /// @return true when that very id is selected, or a node above it.
    virtual bool IsSelected(const RenderId& id) const;

    /// In the order in which they came; valid until the next change.
    const std::vector<RenderId>& GetHighlighted() const { return m_highlighted.list; }
    const std::vector<RenderId>& GetSelected() const { return m_selected.list; }
    const std::vector<RenderId>& GetPicked() const { return m_picked.list; }

    /// Marks everything again, after nodes were added or their geometry replaced.
    void Reapply();

    /// Starts at 0 and grows by one with every change.
    std::uint64_t Revision() const { return m_revision; }

private:
    enum class Mark
    {
        Highlight,
        Selection,
        Pick
    };
    /// Ids in the order in which they came, and the same as a set.
    struct Ids
    {
        std::vector<RenderId> list;
        std::unordered_set<RenderId> set;
    };
    void apply(const RenderId& id, Mark mark, bool on) const;
    void add(Ids& ids, const RenderId& id, Mark mark);
    void clear(Ids& ids, Mark mark);

    Node* m_root; ///< Not owned.
    Ids m_highlighted;
    Ids m_selected;
    Ids m_picked;
    std::uint64_t m_revision = 0;
};

} // namespace TambVizCore

#endif
