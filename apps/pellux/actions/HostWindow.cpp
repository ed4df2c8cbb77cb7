#include "actions/HostWindow.h"

#include "files/FileWatch.h"
#include "runtime/FirstFocus.h"
#include "runtime/FittingScreen.h"
#include "runtime/QtText.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikOs/Utf8.h>
#include <TambVizCore/IPictureErrorProvider.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Image.h>

#include <PelluxApplication.h>

#include <QClipboard>
#include <QDockWidget>
#include <QGuiApplication>
#include <QImage>
#include <QMainWindow>
#include <QToolBar>
#include <utility>

namespace Pellux {
namespace {

PelluxApplication* application()
{
    return dynamic_cast<PelluxApplication*>(OrvikCore::SessionMgr::Instance().GetApplication());
}

} // namespace

HostWindow::HostWindow(QMainWindow& window, FileWatch& watch) : m_window(window), m_watch(watch)
{
    if (PelluxApplication* const current = application())
        current->SetHostWindow(this);
}

HostWindow::~HostWindow()
{
    if (PelluxApplication* const current = application())
        current->SetHostWindow(nullptr);
}

void HostWindow::RememberLayout()
{
    m_firstLayout = m_window.saveState();
}

void HostWindow::AddPanel(const QString& name, Make make)
{
    m_panels.push_back({name, std::move(make)});
}

std::vector<std::wstring> HostWindow::ListPanels() const
{
    std::vector<std::wstring> names;
    for (const auto* const dock :
         m_window.findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly))
        names.push_back(FromQt(dock->objectName()));
    for (const auto* const bar :
         m_window.findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
        names.push_back(FromQt(bar->objectName()));
    for (const Panel& panel : m_panels)
        names.push_back(FromQt(panel.name));
    return names;
}

QWidget* HostWindow::find(const QString& name) const
{
    for (const Panel& panel : m_panels)
        if (panel.name == name)
            return panel.widget;
    if (auto* const dock = m_window.findChild<QDockWidget*>(name, Qt::FindDirectChildrenOnly))
        return dock;
    return m_window.findChild<QToolBar*>(name, Qt::FindDirectChildrenOnly);
}

bool HostWindow::IsPanelShown(const std::wstring& name) const
{
    // A dock behind another tab is shown too.
    const QWidget* const widget = find(ToQt(name));
    return widget != nullptr && !widget->isHidden();
}

bool HostWindow::ShowPanel(const std::wstring& name, bool show)
{
    const QString wanted = ToQt(name);
    for (Panel& panel : m_panels)
        if (panel.name == wanted && panel.widget == nullptr) {
            if (!show)
                return true;
            panel.widget = panel.make(&m_window);
            panel.widget->resize(FittingScreen(m_window, panel.widget->size()));
        }
    QWidget* const widget = find(wanted);
    if (widget == nullptr)
        return false;
    widget->setVisible(show);
    if (show) {
        widget->raise();
        widget->activateWindow();
        if (QWidget* const first = FirstFocus(*widget))
            first->setFocus(Qt::OtherFocusReason);
    }
    return true;
}

bool HostWindow::CopyImage(int width, int height, std::wstring* errorText)
{
    TambVizCore::IView3D* const view = OrvikCore::SessionMgr::Instance().CurrentSession().View3D();
    int viewWidth = 0;
    int viewHeight = 0;
    TambVizCore::Image image;
    if (view != nullptr)
        view->GetWindowSize(viewWidth, viewHeight);
    if (view == nullptr ||
        !view->ReadImage(width > 0 ? width : viewWidth, height > 0 ? height : viewHeight, image)) {
        const auto* const reasons = dynamic_cast<const TambVizCore::IPictureErrorProvider*>(view);
        const std::string reason = reasons == nullptr ? std::string() : reasons->GetPictureError();
        if (errorText != nullptr)
            *errorText = reason.empty() ? L"The picture cannot be drawn."
                                        : OrvikOs::Utf8ToWide(reason) + L'.';
        return false;
    }
    const QImage picture(image.rgba.data(), image.width, image.height, image.width * 4,
                         QImage::Format_RGBX8888);
    // A copy: the pixels above end with this call.
    QGuiApplication::clipboard()->setImage(picture.copy());
    return true;
}

bool HostWindow::IsWatching() const
{
    return m_watch.IsOn();
}

void HostWindow::SetWatching(bool watch)
{
    m_watch.SetOn(watch);
}

void HostWindow::ResetLayout()
{
    m_window.restoreState(m_firstLayout);
}

} // namespace Pellux
