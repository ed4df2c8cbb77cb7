#include "TreeMenu.h"

#include <OrvikCore/AMenuTemplate.h>
#include <OrvikCore/ARendererTree.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/IMenuAction.h>
#include <OrvikCore/MenuItem.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/RenderId.h>

#include <algorithm>

namespace Pellux {

using OrvikCore::MenuItem;
using OrvikCore::SessionMgr;
using OrvikCore::TreeBuilder;

namespace {

std::wstring plainText(std::wstring text)
{
    std::erase(text, L'&');
    return text;
}

/// @return the first enabled item of that text for rows of a kind; null when there is none.
MenuItem* findItem(const std::wstring& text, TreeBuilder::TreeItemStyles style)
{
    const OrvikCore::AMenuTemplate* const menu = SessionMgr::Instance().MenuTemplate();
    if (menu == nullptr)
        return nullptr;
    const auto found =
        std::find_if(menu->MenuItemsBegin(), menu->MenuItemsEnd(), [&](const MenuItem* item) {
            return plainText(item->Text()) == plainText(text) && item->IsEnabled() &&
                   item->IsApplicableTo(style);
        });
    return found == menu->MenuItemsEnd() ? nullptr : *found;
}

} // namespace

bool RunTreeMenuItem(OrvikCore::ASession& session, const std::wstring& item,
                     const TambVizCore::EntityId& entity, std::wstring& errorText)
{
    OrvikCore::ARendererTree* const tree = session.GetTreeRenderer();
    TambVizCore::RenderId row;
    TreeBuilder::TreeItemStyles style{};
    if (tree == nullptr || !tree->ConvertToRenderId(entity, row) ||
        !tree->GetNodeStyle(row, style)) {
        errorText = L"The model tree has no row for this entity.";
        return false;
    }
    const MenuItem* const found = findItem(item, style);
    if (found == nullptr || found->Action() == nullptr) {
        errorText = L"The menu of this row has no item \"" + item + L"\".";
        return false;
    }
    if (found->Action()->Run(row))
        return true;
    errorText = L"The menu item \"" + item + L"\" failed.";
    return false;
}

} // namespace Pellux
