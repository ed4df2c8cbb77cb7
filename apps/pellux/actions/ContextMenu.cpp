#include "actions/ContextMenu.h"

#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"

#include <OrvikCore/AMenuTemplate.h>
#include <OrvikCore/ARendererTree.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/IApplication.h>
#include <OrvikCore/IMenuAction.h>
#include <OrvikCore/MenuItem.h>
#include <OrvikCore/MessageType.h>
#include <OrvikCore/SessionMgr.h>

#include <JournalText.h>

#include <QMenu>

namespace Pellux {
namespace {

using OrvikCore::SessionMgr;

void runItem(CommandRunner& runner, OrvikCore::IMenuAction& action, const std::wstring& text,
             const MenuPlace& place)
{
    runner.RunOther([&] {
        if (!action.Run(place.row)) {
            SessionMgr::Instance().CurrentSession().PrintMessage(
                L"The menu item \"" + text + L"\" failed.", OrvikCore::MessageType::Error);
            return;
        }
        const std::wstring form =
            place.entity.IsEmpty() ? std::wstring() : MenuForm(text, place.entity);
        if (form.empty())
            return;
        Q_EMIT runner.Echoed(ToQt(form));
        if (OrvikCore::IApplication* const application = SessionMgr::Instance().GetApplication())
            application->RecordCommand(form);
    });
}

} // namespace

bool FindMenuPlace(const TambVizCore::EntityId& entity, MenuPlace& place)
{
    OrvikCore::ARendererTree* const tree =
        SessionMgr::Instance().CurrentSession().GetTreeRenderer();
    place.entity = entity;
    return tree != nullptr && tree->ConvertToRenderId(entity, place.row) &&
           tree->GetNodeStyle(place.row, place.style);
}

int FillContextMenu(QMenu& menu, CommandRunner& runner, const MenuPlace& place)
{
    const OrvikCore::AMenuTemplate* const items = SessionMgr::Instance().MenuTemplate();
    int count = 0;
    if (items == nullptr)
        return count;
    for (auto item = items->MenuItemsBegin(); item != items->MenuItemsEnd(); ++item) {
        OrvikCore::IMenuAction* const action = (*item)->Action();
        if (action == nullptr || !(*item)->IsApplicableTo(place.style))
            continue;
        const std::wstring text = (*item)->Text();
        QAction* const entry = menu.addAction(ToQt(text));
        entry->setToolTip(ToQt((*item)->Tip()));
        entry->setEnabled((*item)->IsEnabled() && !runner.IsRunning());
        QObject::connect(entry, &QAction::triggered, &runner, [&runner, action, text, place] {
            Guarded([&] { runItem(runner, *action, text, place); });
        });
        ++count;
    }
    return count;
}

} // namespace Pellux
