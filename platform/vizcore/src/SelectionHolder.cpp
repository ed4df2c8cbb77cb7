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
}

void SelectionHolder::apply(const RenderId& id, Mark mark, bool on) const
{
    const NodeMatch match = m_root != nullptr ? FindRenderId(*m_root, id) : NodeMatch{};
    if (match.node == nullptr) {
        return;
    }
    if (match.part >= 0) {
        const auto part = static_cast<std::uint32_t>(match.part);
        GeoNode& geoNode = *match.node->AsGeoNode();
        mark == Mark::Highlight ? geoNode.SetPartHighlighted(part, on)
                                : geoNode.SetPartSelected(part, on);
        return;
    }
    mark == Mark::Highlight ? match.node->SetHighlighted(on) : match.node->SetSelected(on);
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
