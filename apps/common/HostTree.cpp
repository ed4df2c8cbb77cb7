#include "HostTree.h"

#include <algorithm>
#include <utility>

namespace Pellux {

using OrvikCore::ATreeItemStyle;
using OrvikCore::TreeBuilder;
using TambVizCore::RenderId;

void IHostTreeObserver::RowsAboutToBeAnnounced(const HostTreeRow& /*parent*/, std::size_t /*first*/,
                                               std::size_t /*last*/)
{
}

void IHostTreeObserver::RowsAnnounced() {}

void IHostTreeObserver::RowsAboutToBeCleared() {}

void IHostTreeObserver::RowsCleared() {}

HostTree::HostTree(FillRows fillRows)
    : m_fillRows(std::move(fillRows)),
      m_plainStyle(/*bold=*/false, /*italic=*/false),
      m_builder(TreeBuilder::CreateTreeBuilder(this)),
      m_root(std::make_unique<HostTreeRow>(0, L"", m_plainStyle))
{
    // The use of a kind without a style would enter null for good.
    AddRowStyles(*m_builder);
}

HostTree::~HostTree() = default;

void HostTree::ConstructionBegin(bool incremental)
{
    m_constructions.push_back({m_open.size(), incremental});
    m_current = nullptr;
}

void HostTree::ConstructionEnd()
{
    if (m_constructions.empty())
        return;
    m_open.resize(firstOpen());
    m_constructions.pop_back();
    m_current = nullptr;
    if (!m_constructions.empty())
        return;
    if (m_isFilling)
        return;
    showAllHighlights();
    notifyRows();
}

bool HostTree::CreateNode(std::uint64_t const& id, std::wstring const& name,
                          ATreeItemStyle const* style)
{
    m_current = &enterRow(id, name, style);
    return true;
}

bool HostTree::OpenNode(std::uint64_t const& id, std::wstring const& name,
                        ATreeItemStyle const* style)
{
    m_current = &enterRow(id, name, style);
    m_open.push_back(m_current);
    return true;
}

void HostTree::CloseNode()
{
    if (m_open.size() > firstOpen())
        m_open.pop_back();
    m_current = m_open.size() > firstOpen() ? m_open.back() : nullptr;
}

void HostTree::ClearAll()
{
    m_open.clear();
    m_constructions.clear();
    m_current = nullptr;
    m_highlighted.clear();
    m_grown.clear();
    if (m_observer != nullptr)
        m_observer->RowsAboutToBeCleared();
    m_root->removeChildren();
    if (m_observer != nullptr)
        m_observer->RowsCleared();
    notifyRows();
}

void HostTree::SetCurrentNodeEnabled(bool const& enabled)
{
    if (m_current != nullptr)
        m_current->m_isEnabled = enabled;
}

void HostTree::HighlightNode(RenderId const& path)
{
    if (findHighlightRow(path) == nullptr || !m_wanted.insert(path).second)
        return;
    showHighlight(path);
    if (m_observer != nullptr)
        m_observer->HighlightChanged();
}

void HostTree::ClearHighlight()
{
    if (m_wanted.empty())
        return;
    m_wanted.clear();
    showAllHighlights();
    if (m_observer != nullptr)
        m_observer->HighlightChanged();
}

TreeBuilder* HostTree::GetTreeBuilder()
{
    return m_builder.get();
}

void HostTree::EnsureNodeVisible(RenderId const& path)
{
    HostTreeRow* row = m_root.get();
    for (int i = 0; i < path.Length(); ++i) {
        if (row->findChild(path[i]) == nullptr && row != m_root.get())
            fill(*row);
        row = row->findChild(path[i]);
        if (row == nullptr)
            return;
    }
    if (row != m_root.get() && m_observer != nullptr)
        m_observer->ShowRow(*row);
}

int HostTree::GetChildrenCountForNode(RenderId const& path)
{
    const HostTreeRow* const row = find(path);
    return row == nullptr ? -1 : static_cast<int>(row->ChildCount());
}

const HostTreeRow* HostTree::Find(const RenderId& path) const
{
    return find(path);
}

std::vector<const HostTreeRow*> HostTree::HighlightedRows() const
{
    std::vector<const HostTreeRow*> rows;
    rows.reserve(m_highlighted.size());
    for (const auto& [row, paths] : m_highlighted)
        rows.push_back(row);
    return rows;
}

void HostTree::Fill(const RenderId& path)
{
    if (HostTreeRow* const row = find(path))
        fill(*row);
}

void HostTree::FillAll()
{
    fillBelow(*m_root);
}

void HostTree::SetObserver(IHostTreeObserver* observer)
{
    m_observer = observer;
}

/// The root stands for the empty path, though it is no row.
HostTreeRow* HostTree::find(const RenderId& path) const
{
    HostTreeRow* row = m_root.get();
    for (int i = 0; i < path.Length() && row != nullptr; ++i)
        row = row->findChild(path[i]);
    return row;
}

/// @return the row that shows @p path as highlighted; null when it is unknown.
HostTreeRow* HostTree::findHighlightRow(const RenderId& path) const
{
    HostTreeRow* row = m_root.get();
    for (int i = 0; i < path.Length(); ++i) {
        HostTreeRow* const child = row->findChild(path[i]);
        if (child == nullptr)
            return row == m_root.get() || row->m_isFilled ? nullptr : row;
        row = child;
    }
    return row == m_root.get() ? nullptr : row;
}

/// @return how many of the open rows belong to constructions further out.
std::size_t HostTree::firstOpen() const
{
    return m_constructions.empty() ? 0 : m_constructions.back().firstOpen;
}

HostTreeRow& HostTree::enterRow(std::uint64_t id, const std::wstring& name,
                                const ATreeItemStyle* style)
{
    HostTreeRow& parent = m_open.size() > firstOpen() ? *m_open.back() : *m_root;
    if (HostTreeRow* const present = parent.findChild(id)) {
        if (m_constructions.empty() || !m_constructions.back().isIncremental)
            present->m_text = name;
        return *present;
    }
    if (parent.m_announced == parent.m_children.size())
        m_grown.push_back(&parent);
    return parent.addChild(
        std::make_unique<HostTreeRow>(id, name, style == nullptr ? m_plainStyle : *style));
}

void HostTree::fill(HostTreeRow& row)
{
    if (row.m_isFilled || &row == m_root.get())
        return;
    row.m_isFilled = true;
    const bool hasRows = askForRows(row);
    // What the row stood for has a row of its own now, or none.
    const auto stoodFor = m_highlighted.extract(&row);
    row.m_isHighlighted = false;
    if (!stoodFor.empty())
        for (const RenderId& path : stoodFor.mapped())
            showHighlight(path);
    if (hasRows)
        notifyRows();
}

/// The construction in which the rows come leaves highlights and the observer to fill().
bool HostTree::askForRows(const HostTreeRow& row)
{
    struct Filling
    {
        explicit Filling(bool& flag) : m_flag(flag) { m_flag = true; }
        ~Filling() { m_flag = false; }
        bool& m_flag;
    };
    const Filling filling(m_isFilling);
    return m_fillRows && m_fillRows(row.Path());
}

void HostTree::fillBelow(HostTreeRow& row)
{
    fill(row);
    // Filling may add rows beside those that are there.
    for (std::size_t i = 0; i < row.m_children.size(); ++i)
        fillBelow(*row.m_children[i]);
}

void HostTree::showHighlight(const RenderId& path)
{
    if (HostTreeRow* const row = findHighlightRow(path)) {
        row->m_isHighlighted = true;
        m_highlighted[row].push_back(path);
    }
}

void HostTree::showAllHighlights()
{
    for (const auto& [row, paths] : m_highlighted)
        row->m_isHighlighted = false;
    m_highlighted.clear();
    for (const RenderId& path : m_wanted)
        showHighlight(path);
}

void HostTree::notifyRows()
{
    announceRows();
    if (m_observer != nullptr)
        m_observer->RowsChanged();
}

/// Tells the observer of new rows, the topmost new ones only: those below come with them.
void HostTree::announceRows()
{
    const auto isAnnounced = [this](const HostTreeRow* row) {
        while (row != m_root.get() && row->m_position < row->m_parent->m_announced)
            row = row->m_parent;
        return row == m_root.get();
    };
    std::vector<HostTreeRow*> grown;
    grown.swap(m_grown);
    const auto firstNew = std::partition(grown.begin(), grown.end(), isAnnounced);
    std::for_each(firstNew, grown.end(),
                  [](HostTreeRow* row) { row->m_announced = row->m_children.size(); });
    std::for_each(grown.begin(), firstNew, [this](HostTreeRow* row) {
        const std::size_t count = row->m_children.size();
        if (m_observer != nullptr)
            m_observer->RowsAboutToBeAnnounced(*row, row->m_announced, count - 1);
        row->m_announced = count;
        if (m_observer != nullptr)
            m_observer->RowsAnnounced();
    });
}

} // namespace Pellux
