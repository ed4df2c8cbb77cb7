#include "view/ViewFacts.h"

#include "runtime/QtText.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IContentRenderer.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderId.h>

namespace Pellux {
namespace {

std::uint64_t countBelow(const TambVizCore::Node& node)
{
    if (!node.IsVisible() || node.IsAuxiliary())
        return 0;
    std::uint64_t count = 0;
    const TambVizCore::GeoNode* const drawn = node.AsGeoNode();
    if (drawn != nullptr && drawn->GetGeometry() != nullptr)
        count = drawn->GetGeometry()->TriangleCount();
    for (std::size_t i = 0; i < node.ChildCount(); ++i)
        count += countBelow(*node.ChildAt(i));
    return count;
}

} // namespace

QString NameAt(const QPoint& at)
{
    const OrvikCore::ASession& session = OrvikCore::SessionMgr::Instance().CurrentSession();
    TambVizCore::IView3D* const view = session.View3D();
    TambVizCore::AView3DAdapter* const adapter =
        view == nullptr ? nullptr : view->GetView3DAdapter();
    TambVizCore::RenderId id;
    if (adapter == nullptr || !adapter->GetRenderIdAtPixel(at.x(), at.y(), id))
        return {};
    for (OrvikCore::AContent* const content : session.Document().GetContentList()) {
        OrvikCore::IContentRenderer* const renderer = session.Get3DRenderer(content);
        const std::wstring name = renderer == nullptr ? std::wstring() : renderer->GetToolTip(id);
        if (!name.empty())
            return ToQt(name);
    }
    return {};
}

std::uint64_t CountVisibleTriangles()
{
    TambVizCore::IView3D* const view = OrvikCore::SessionMgr::Instance().CurrentSession().View3D();
    return view == nullptr ? 0 : countBelow(view->GetSceneRoot());
}

} // namespace Pellux
