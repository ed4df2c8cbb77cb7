#include "window/ContextMenus.h"

#include "actions/ContextMenu.h"

#include <OrvikCore/ARendererTree.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderId.h>

#include <QMenu>

namespace Pellux {
namespace {

using OrvikCore::SessionMgr;
using TambVizCore::RenderId;

} // namespace

ContextMenus::ContextMenus(QWidget& window, CommandRunner& runner)
    : m_window(window), m_runner(runner)
{
}

ContextMenus::~ContextMenus() = default;

std::unique_ptr<QMenu> ContextMenus::MakeForView(const QPoint& at)
{
    TambVizCore::IView3D* const view = SessionMgr::Instance().CurrentSession().View3D();
    if (view == nullptr)
        return nullptr;
    RenderId id;
    TambVizCore::EntityId entity;
    MenuPlace place;
    if (!view->GetView3DAdapter()->GetRenderIdAtPixel(at.x(), at.y(), id) ||
        !view->Convert(id, entity) || !FindMenuPlace(entity, place))
        return nullptr;
    return MakeForRow(place.row);
}

std::unique_ptr<QMenu> ContextMenus::MakeForRow(const RenderId& path)
{
    OrvikCore::ARendererTree* const tree =
        SessionMgr::Instance().CurrentSession().GetTreeRenderer();
    if (tree == nullptr)
        return nullptr;
    auto menu = std::make_unique<QMenu>(&m_window);
    menu->setObjectName(QStringLiteral("contextMenu"));
    menu->setToolTipsVisible(true);
    // A face has no items of its own; those of its body are meant.
    MenuPlace place;
    for (place.row = path; !place.row.IsEmpty(); place.row.RemoveLast()) {
        if (!tree->ConvertToEntityId(place.row, place.entity))
            place.entity.Clear();
        if (tree->GetNodeStyle(place.row, place.style) &&
            FillContextMenu(*menu, m_runner, place) > 0)
            return menu;
    }
    return nullptr;
}

void ContextMenus::Show(std::unique_ptr<QMenu> menu, const QPoint& global)
{
    if (menu == nullptr)
        return;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu.release()->popup(global);
}

} // namespace Pellux
