#include "actions/WindowState.h"

#include "runtime/QtText.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/AContent.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/AView3D.h>
#include <OrvikCore/AViewObject.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IApplication.h>
#include <OrvikCore/IHostWindow.h>
#include <OrvikCore/IInputProvider.h>
#include <OrvikCore/INavigation.h>
#include <OrvikCore/IViewObjectProvider.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/ViewObjectManager.h>
#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/RenderingOptions.h>

namespace Pellux::WindowState {
namespace {

OrvikCore::ASession& session()
{
    return OrvikCore::SessionMgr::Instance().CurrentSession();
}

OrvikCore::ACamera* camera()
{
    auto* const view = dynamic_cast<OrvikCore::AView3D*>(session().View3D());
    return view == nullptr ? nullptr : view->GetCamera();
}

const OrvikCore::INavigation* navigation()
{
    const auto* const provider = dynamic_cast<OrvikCore::IInputProvider*>(
        OrvikCore::SessionMgr::Instance().GetApplication());
    return provider == nullptr ? nullptr : provider->GetNavigationChoice();
}

} // namespace

OrvikCore::IHostWindow* Window()
{
    const auto* const provider = dynamic_cast<OrvikCore::IHostWindowProvider*>(
        OrvikCore::SessionMgr::Instance().GetApplication());
    return provider == nullptr ? nullptr : provider->GetHostWindow();
}

bool IsWatching()
{
    const OrvikCore::IHostWindow* const window = Window();
    return window != nullptr && window->IsWatching();
}

bool IsPanelShown(const QString& name)
{
    const OrvikCore::IHostWindow* const window = Window();
    return window != nullptr && window->IsPanelShown(FromQt(name));
}

const TambVizCore::RenderingOptions* Options()
{
    TambVizCore::IView3D* const view = session().View3D();
    TambVizCore::AView3DAdapter* const adapter =
        view == nullptr ? nullptr : view->GetView3DAdapter();
    return adapter == nullptr ? nullptr : adapter->GetRenderingOptions();
}

bool ShowsAxes()
{
    auto* const provider = dynamic_cast<OrvikCore::IViewObjectProvider*>(session().View3D());
    const OrvikCore::ViewObjectManager* const objects =
        provider == nullptr ? nullptr : provider->GetViewObjectManager();
    const OrvikCore::AViewObject* const axes =
        objects == nullptr ? nullptr : objects->Get("AxesViewObject");
    return axes != nullptr && axes->IsVisible();
}

bool IsPerspective()
{
    const OrvikCore::ACamera* const current = camera();
    return current != nullptr && !current->IsOrthographic();
}

bool IsZUp()
{
    OrvikCore::ACamera* const current = camera();
    return current != nullptr && QByteArray(current->GetName()).startsWith("CameraZUp");
}

bool IsAnimated()
{
    OrvikCore::ACamera* const current = camera();
    return current != nullptr && current->GetAnimate();
}

QColor Background(int number)
{
    TambVizCore::RGBAColor color;
    const TambVizCore::IView3D* const view = session().View3D();
    if (view == nullptr || !view->GetBackgroundColor(number, color))
        return {};
    return QColor(color.r, color.g, color.b);
}

QString Navigation()
{
    const OrvikCore::INavigation* const current = navigation();
    return current == nullptr ? QString() : ToQt(current->GetNavigation());
}

QStringList Navigations()
{
    QStringList names;
    if (const OrvikCore::INavigation* const current = navigation())
        for (const std::wstring& name : current->ListNavigations())
            names.append(ToQt(name));
    return names;
}

bool HasModel()
{
    return session().Document().HasContent();
}

int SelectedCount()
{
    return static_cast<int>(session().GetPickedEntities().size());
}

QStringList LoadedFiles()
{
    QStringList files;
    for (OrvikCore::AContent* const content : session().Document().GetContentList())
        if (content != nullptr)
            files.append(ToQt(content->GetLongId()));
    files.removeDuplicates();
    return files;
}

} // namespace Pellux::WindowState
