#ifndef ORVIKMODEL_TESTS_STORINGVIEWTREE_H
#define ORVIKMODEL_TESTS_STORINGVIEWTREE_H

#include "OrvikCore/AViewTree.h"
#include "OrvikCore/TreeBuilder.h"

#include <TambVizCore/RenderId.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// A tree without a window that keeps its rows, as a host's would.
class StoringViewTree : public OrvikCore::AViewTree
{
public:
    struct Row
    {
        std::uint64_t id = 0;
        std::wstring name;
        bool isEnabled = true;
        std::vector<std::unique_ptr<Row>> children;
    };

    StoringViewTree() : m_builder(OrvikCore::TreeBuilder::CreateTreeBuilder(this)) {}

    void ConstructionBegin(bool incremental) override
    {
        ++m_constructions;
        m_isIncremental = incremental;
        m_open.assign(1, &m_top);
    }
    void ConstructionEnd() override { m_openAtEnd = m_open.size() - 1; }
    bool CreateNode(std::uint64_t const& id, std::wstring const& name,
                    OrvikCore::ATreeItemStyle const* style) override
    {
        return OpenNode(id, name, style);
    }
    bool OpenNode(std::uint64_t const& id, std::wstring const& name,
                  OrvikCore::ATreeItemStyle const*) override
    {
        Row* row = m_isIncremental ? childOf(*m_open.back(), id) : nullptr;
        if (!row) {
            auto added = std::make_unique<Row>();
            row = added.get();
            row->id = id;
            row->name = name;
            m_open.back()->children.push_back(std::move(added));
        }
        m_open.push_back(row);
        return true;
    }
    void CloseNode() override { m_open.pop_back(); }
    void ClearAll() override
    {
        m_top.children.clear();
        m_open.assign(1, &m_top);
    }
    void SetCurrentNodeEnabled(bool const& enabled) override { m_open.back()->isEnabled = enabled; }
    void HighlightNode(TambVizCore::RenderId const&) override {}
    void ClearHighlight() override {}
    OrvikCore::TreeBuilder* GetTreeBuilder() override { return m_builder.get(); }
    void EnsureNodeVisible(TambVizCore::RenderId const&) override {}
    int GetChildrenCountForNode(TambVizCore::RenderId const& path) override
    {
        const Row* row = Find(path);
        return row ? static_cast<int>(row->children.size()) : -1;
    }

    const Row* Find(TambVizCore::RenderId const& path) const
    {
        const Row* row = &m_top;
        for (int i = 0; row && i < path.Length(); ++i)
            row = childOf(*row, path[i]);
        return row;
    }

    /// The paths of all rows, a row before those below it.
    std::vector<TambVizCore::RenderId> Paths() const
    {
        std::vector<TambVizCore::RenderId> paths;
        collect(m_top, TambVizCore::RenderId(TambVizCore::RenderId::kOriginTree), paths);
        return paths;
    }

    Row m_top; ///< Above the top rows.
    int m_constructions = 0;
    std::size_t m_openAtEnd = 0; ///< Rows left open by the construction that ended last.

private:
    static Row* childOf(const Row& row, std::uint64_t id)
    {
        for (const auto& child : row.children)
            if (child->id == id)
                return child.get();
        return nullptr;
    }
    static void collect(const Row& row, const TambVizCore::RenderId& path,
                        std::vector<TambVizCore::RenderId>& paths)
    {
        for (const auto& child : row.children) {
            TambVizCore::RenderId below = path;
            below.AddValue(child->id);
            paths.push_back(below);
            collect(*child, below, paths);
        }
    }

    std::unique_ptr<OrvikCore::TreeBuilder> m_builder;
    std::vector<Row*> m_open{&m_top}; ///< Not owned.
    bool m_isIncremental = false;
};

#endif
