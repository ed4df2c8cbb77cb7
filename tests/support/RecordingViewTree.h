#ifndef TESTS_RECORDINGVIEWTREE_H
#define TESTS_RECORDINGVIEWTREE_H

#include "OrvikCore/AViewTree.h"

#include <TambVizCore/RenderId.h>

#include <cstdint>
#include <string>
#include <vector>

/// A tree without a window that remembers its calls, with answers that a test sets.
class RecordingViewTree : public OrvikCore::AViewTree
{
public:
    void ConstructionBegin(bool incremental) override
    {
        m_calls.push_back(incremental ? "ConstructionBegin true" : "ConstructionBegin false");
    }
    void ConstructionEnd() override { m_calls.push_back("ConstructionEnd"); }
    bool CreateNode(std::uint64_t const& id, std::wstring const& name,
                    OrvikCore::ATreeItemStyle const* style) override
    {
        noteNode("CreateNode ", id, name, style);
        return m_creates;
    }
    bool OpenNode(std::uint64_t const& id, std::wstring const& name,
                  OrvikCore::ATreeItemStyle const* style) override
    {
        noteNode("OpenNode ", id, name, style);
        return m_opens;
    }
    void CloseNode() override { m_calls.push_back("CloseNode"); }
    void ClearAll() override { m_calls.push_back("ClearAll"); }
    void SetCurrentNodeEnabled(bool const& enabled) override
    {
        m_calls.push_back(enabled ? "SetCurrentNodeEnabled true" : "SetCurrentNodeEnabled false");
    }
    void HighlightNode(TambVizCore::RenderId const& path) override
    {
        m_calls.push_back("HighlightNode");
        m_highlighted.push_back(path);
    }
    void ClearHighlight() override
    {
        m_calls.push_back("ClearHighlight");
        m_highlighted.clear();
    }
    OrvikCore::TreeBuilder* GetTreeBuilder() override { return m_builder; }
    void EnsureNodeVisible(TambVizCore::RenderId const&) override {}
    int GetChildrenCountForNode(TambVizCore::RenderId const& path) override
    {
        return path.Length() + 100;
    }

    std::vector<std::string> m_calls;
    std::wstring m_lastName;
    OrvikCore::ATreeItemStyle const* m_lastStyle = nullptr; ///< Not owned.
    std::vector<TambVizCore::RenderId> m_highlighted;
    bool m_creates = true;
    bool m_opens = true;
    OrvikCore::TreeBuilder* m_builder = nullptr; ///< Not owned.

private:
    void noteNode(const char* call, std::uint64_t id, std::wstring const& name,
                  OrvikCore::ATreeItemStyle const* style)
    {
        m_calls.push_back(call + std::to_string(id));
        m_lastName = name;
        m_lastStyle = style;
    }
};

#endif
