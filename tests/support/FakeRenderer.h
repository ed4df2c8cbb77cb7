#ifndef TESTS_FAKERENDERER_H
#define TESTS_FAKERENDERER_H

#include "OrvikCore/ARendererTree.h"
#include "OrvikCore/IContentRenderer.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/RenderId.h>

#include <string>
#include <vector>

/// A renderer of either kind whose conversions are the pairs that a test enters.
/// @tparam Base  OrvikCore::IContentRenderer or OrvikCore::ARendererTree.
template <typename Base> class FakeRendererOf : public Base
{
public:
    using Base::Base;

    bool Render() override
    {
        m_calls.push_back("Render");
        return true;
    }
    bool Rerender() override
    {
        m_calls.push_back("Rerender");
        return true;
    }
    bool IsRendererFor(OrvikCore::AContent* asked) override { return asked == this->content; }
    bool ConvertToEntityId(const TambVizCore::RenderId& id, TambVizCore::EntityId& entity) override
    {
        for (const Pair& pair : m_pairs) {
            if (pair.id == id) {
                entity = pair.entity;
                return true;
            }
        }
        entity = m_entityOnFailure;
        return false;
    }
    bool ConvertToRenderId(const TambVizCore::EntityId& entity, TambVizCore::RenderId& id) override
    {
        for (const Pair& pair : m_pairs) {
            if (pair.entity == entity) {
                id = pair.id;
                return true;
            }
        }
        return false;
    }
    bool ExpandRenderId(const TambVizCore::RenderId& id,
                        std::vector<TambVizCore::RenderId>& ids) override
    {
        ids = m_expanded.empty() ? std::vector<TambVizCore::RenderId>{id} : m_expanded;
        return m_expands;
    }
    std::wstring GetToolTip(const TambVizCore::RenderId&) override { return m_toolTip; }

    using Base::SetBoxEmpty;
    using Base::SetBoxHi;
    using Base::SetBoxLo;

    struct Pair
    {
        TambVizCore::RenderId id;
        TambVizCore::EntityId entity;
    };
    std::vector<Pair> m_pairs;
    TambVizCore::EntityId m_entityOnFailure; ///< What a failed conversion leaves behind.
    std::vector<TambVizCore::RenderId> m_expanded;
    bool m_expands = true;
    std::wstring m_toolTip;
    std::vector<std::string> m_calls;

protected:
    void discard() override { m_calls.push_back("discard"); }
};

class Fake3DRenderer : public FakeRendererOf<OrvikCore::IContentRenderer>
{
public:
    explicit Fake3DRenderer(OrvikCore::AContent* rendered = nullptr) : FakeRendererOf(rendered) {}

    using IContentRenderer::boxHi;
    using IContentRenderer::boxLo;
    using IContentRenderer::content;
    using IContentRenderer::geometryCenter;
    using IContentRenderer::geometryRadius;
    using IContentRenderer::useProgressCallback;
};

class FakeTreeRenderer : public FakeRendererOf<OrvikCore::ARendererTree>
{
public:
    explicit FakeTreeRenderer(OrvikCore::AContent* rendered = nullptr,
                              OrvikCore::AViewTree* tree = nullptr)
        : FakeRendererOf(rendered, tree, nullptr)
    {
    }

    bool ExpandNode(const TambVizCore::RenderId&) override { return false; }
    bool GetNodeStyle(const TambVizCore::RenderId&,
                      OrvikCore::TreeBuilder::TreeItemStyles&) const override
    {
        return false;
    }

    using ARendererTree::getTreeBuilder;
};

#endif
