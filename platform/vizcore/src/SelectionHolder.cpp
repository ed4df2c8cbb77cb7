#include "TambVizCore/SelectionHolder.h"

#include "TambVizCore/GeoNode.h"
#include "TambVizCore/Node.h"

#include <algorithm>

namespace TambVizCore {

namespace {

/// Looks for an id or anything above it.
bool holds(const std::unordered_set<RenderId>& ids, const RenderId& id)
{
    if (ids.empty()) {
        return false;
    }
    for (RenderId above = id; !above.IsEmpty(); above.RemoveLast()) {
        if (ids.contains(above)) {
            return true;
        }
    }
    return false;
}

/// How a part and a node are marked.
struct Setters
{
    bool (GeoNode::*part)(std::uint32_t, bool);
    void (Node::*node)(bool);
};

} // namespace

SelectionHolder::SelectionHolder(Node* root) : m_root(root) {}

SelectionHolder::~SelectionHolder() = default;

void SelectionHolder::SetSceneRoot(Node* root)
{
    m_root = root;
    Reapply();
}

void SelectionHolder::Highlight(const RenderId& id)
{
    if (m_highlighted.list.size() == 1 && m_highlighted.list.front() == id) {
        return;
    }
    clear(m_highlighted, Mark::Highlight);
    add(m_highlighted, id, Mark::Highlight);
}

void SelectionHolder::AddHighlight(const RenderId& id)
{
    add(m_highlighted, id, Mark::Highlight);
}

void SelectionHolder::ClearHighlight()
{
    clear(m_highlighted, Mark::Highlight);
}

void SelectionHolder::Select(const RenderId& id)
{
    add(m_selected, id, Mark::Selection);
}

void SelectionHolder::Deselect(const RenderId& id)
{
    if (m_selected.set.erase(id) == 0) {
        return;
    }
    m_selected.list.erase(std::find(m_selected.list.begin(), m_selected.list.end(), id));
    apply(id, Mark::Selection, false);
    ++m_revision;
}

void SelectionHolder::ClearSelection()
{
    clear(m_selected, Mark::Selection);
}

void SelectionHolder::SetPicked(const std::vector<RenderId>& ids)
{
    clear(m_picked, Mark::Pick);
    for (const RenderId& id : ids) {
        add(m_picked, id, Mark::Pick);
    }
}

bool SelectionHolder::IsHighlighted(const RenderId& id) const
{
    return holds(m_highlighted.set, id);
}

bool SelectionHolder::IsSelected(const RenderId& id) const
{
    return holds(m_selected.set, id);
}

void SelectionHolder::Reapply()
{
    for (const RenderId& id : m_highlighted.list) {
        apply(id, Mark::Highlight, true);
    }
    for (const RenderId& id : m_selected.list) {
        apply(id, Mark::Selection, true);
    }
    for (const RenderId& id : m_picked.list) {
        apply(id, Mark::Pick, true);
    }
}

void SelectionHolder::apply(const RenderId& id, Mark mark, bool on) const
{
    const NodeMatch match = m_root != nullptr ? FindRenderId(*m_root, id) : NodeMatch{};
    if (match.node == nullptr) {
        return;
    }
    // In the order of Mark.
    static constexpr Setters kSetters[] = {
        {&GeoNode::SetPartHighlighted, &Node::SetHighlighted},
        {&GeoNode::SetPartSelected, &Node::SetSelected},
        {&GeoNode::SetPartPicked, &Node::SetPicked},
    };
    const Setters& setters = kSetters[static_cast<std::size_t>(mark)];
    if (match.part >= 0) {
        (match.node->AsGeoNode()->*setters.part)(static_cast<std::uint32_t>(match.part), on);
        return;
    }
    (match.node->*setters.node)(on);
}

void SelectionHolder::add(Ids& ids, const RenderId& id, Mark mark)
{
    if (id.IsEmpty() || !ids.set.insert(id).second) {
        return;
    }
    ids.list.push_back(id);
    apply(id, mark, true);
    ++m_revision;
}

void SelectionHolder::clear(Ids& ids, Mark mark)
{
    if (ids.list.empty()) {
        return;
    }
    for (const RenderId& id : ids.list) {
        apply(id, mark, false);
    }
    ids.list.clear();
    ids.set.clear();
    ++m_revision;
}

} // namespace TambVizCore
