#include "SessionTreeRenderer.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/ATreeRendererFactory.h>
#include <OrvikCore/AViewTree.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderId.h>

#include <algorithm>

namespace Pellux {

using OrvikCore::AContent;
using OrvikCore::ARendererTree;
using OrvikCore::TreeBuilder;
using TambVizCore::EntityId;
using TambVizCore::RenderId;

namespace {

/// Of a document that was filled by imports only.
constexpr wchar_t kSceneName[] = L"Scene";

TambVizCore::Node* sceneRootOf(const OrvikCore::ASession& session)
{
    TambVizCore::IView3D* const view = session.View3D();
    return view == nullptr ? nullptr : &view->GetSceneRoot();
}

} // namespace

SessionTreeRenderer::SessionTreeRenderer(OrvikCore::ASession& session)
    : ARendererTree(nullptr, session.ViewTree(), sceneRootOf(session)), m_session(session)
{
}

SessionTreeRenderer::~SessionTreeRenderer() = default;

bool SessionTreeRenderer::Render()
{
    if (!m_renderers.empty())
        return true;
    TreeBuilder* const builder = getTreeBuilder();
    if (builder == nullptr)
        return false;
    makeRenderers();
    if (m_renderers.empty())
        return false;
    const std::wstring name = m_session.Document().GetOpenedModelName();
    builder->ConstructionBegin();
    builder->SceneBegin(kSceneRowId, name.empty() ? std::wstring(kSceneName) : name);
    for (const auto& renderer : m_renderers)
        renderer->Render();
    builder->SceneEnd();
    builder->ConstructionEnd();
    return true;
}

bool SessionTreeRenderer::Rerender()
{
    discard();
    return Render();
}

bool SessionTreeRenderer::IsRendererFor(AContent* asked)
{
    return std::any_of(m_renderers.begin(), m_renderers.end(),
                       [asked](const auto& renderer) { return renderer->IsRendererFor(asked); });
}

bool SessionTreeRenderer::ConvertToEntityId(const RenderId& id, EntityId& entity)
{
    return std::any_of(m_renderers.begin(), m_renderers.end(), [&](const auto& renderer) {
        return renderer->ConvertToEntityId(id, entity);
    });
}

bool SessionTreeRenderer::ConvertToRenderId(const EntityId& entity, RenderId& id)
{
    return std::any_of(m_renderers.begin(), m_renderers.end(), [&](const auto& renderer) {
        return renderer->ConvertToRenderId(entity, id);
    });
}

bool SessionTreeRenderer::Activate(RenderId& id)
{
    ARendererTree* const renderer = findRenderer(id);
    return renderer != nullptr && renderer->Activate(id);
}

bool SessionTreeRenderer::ExpandRenderId(const RenderId& id, std::vector<RenderId>& ids)
{
    return std::any_of(m_renderers.begin(), m_renderers.end(),
                       [&](const auto& renderer) { return renderer->ExpandRenderId(id, ids); });
}

std::wstring SessionTreeRenderer::GetToolTip(const RenderId& id)
{
    ARendererTree* const renderer = findRenderer(id);
    return renderer == nullptr ? std::wstring() : renderer->GetToolTip(id);
}

bool SessionTreeRenderer::GetBodyList(std::vector<EntityId>& bodies)
{
    std::vector<EntityId> all;
    bool hasList = false;
    for (const auto& renderer : m_renderers) {
        std::vector<EntityId> some;
        if (!renderer->GetBodyList(some))
            continue;
        hasList = true;
        all.insert(all.end(), some.begin(), some.end());
    }
    if (hasList)
        bodies = std::move(all);
    return hasList;
}

void SessionTreeRenderer::SetView(OrvikCore::AViewTree* tree)
{
    ARendererTree::SetView(tree);
    for (const auto& renderer : m_renderers)
        renderer->SetView(tree);
}

bool SessionTreeRenderer::ExpandNode(const RenderId& path)
{
    return std::any_of(m_renderers.begin(), m_renderers.end(),
                       [&path](const auto& renderer) { return renderer->ExpandNode(path); });
}

bool SessionTreeRenderer::GetNodeStyle(const RenderId& path,
                                       TreeBuilder::TreeItemStyles& style) const
{
    return std::any_of(m_renderers.begin(), m_renderers.end(),
                       [&](const auto& renderer) { return renderer->GetNodeStyle(path, style); });
}

void SessionTreeRenderer::discard()
{
    m_renderers.clear();
    if (TreeBuilder* const builder = getTreeBuilder())
        builder->ClearAll();
}

void SessionTreeRenderer::makeRenderers()
{
    for (AContent* const drawn : m_session.Document().GetContentList()) {
        if (drawn == nullptr)
            continue;
        OrvikCore::ATreeRendererFactory* const factory =
            OrvikCore::SessionMgr::Instance().GetTreeRendererFactory(drawn->GetTypeName());
        if (factory == nullptr)
            continue;
        std::unique_ptr<ARendererTree> renderer(factory->CreateRenderer(drawn, view, node));
        if (renderer != nullptr)
            m_renderers.push_back(std::move(renderer));
    }
}

/// @return the renderer of a row; null when it is no row. Not owned.
ARendererTree* SessionTreeRenderer::findRenderer(const RenderId& path) const
{
    TreeBuilder::TreeItemStyles style;
    const auto found =
        std::find_if(m_renderers.begin(), m_renderers.end(),
                     [&](const auto& renderer) { return renderer->GetNodeStyle(path, style); });
    return found == m_renderers.end() ? nullptr : found->get();
}

} // namespace Pellux
