#include "help/HelpPanels.h"
#include "runtime/QtText.h"

#include <OrvikCore/AScriptEngine.h>
#include <OrvikCore/PluginManager.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/Shell.h>

#include <PelluxApplication.h>

#include <QCoreApplication>
#include <QLabel>
#include <QSysInfo>
#include <QVBoxLayout>

namespace Pellux {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("AboutPanel", text);
}

QString aboutText()
{
    QString text = tr("Pellux %1").arg(ToQt(ProgramVersion())) + QStringLiteral("\n") +
                   tr("Looks at 3D models and tests them.") + QStringLiteral("\n\n");
    text +=
        tr("Qt %1 (built with %2)").arg(QLatin1String(qVersion()), QLatin1String(QT_VERSION_STR)) +
        u'\n';
    const OrvikCore::Shell* const shell = OrvikCore::SessionMgr::Instance().GetShell();
    if (const OrvikCore::AScriptEngine* const engine =
            shell == nullptr ? nullptr : shell->GetScriptEngine())
        text += ToQt(engine->GetName() + L" " + engine->GetVersion()) + u'\n';
    text += QSysInfo::prettyProductName() + QStringLiteral(", ") +
            QSysInfo::currentCpuArchitecture() + QStringLiteral("\n\n") + tr("Plugins:");
    auto& plugins = OrvikCore::PluginManager::Instance();
    for (int i = 0; i < plugins.GetPluginsCount(); ++i)
        if (const wchar_t* const name = plugins.GetPluginName(i))
            text += QStringLiteral("\n    ") + ToQt(name);
    return text;
}

} // namespace

QWidget* MakeAboutPanel(QWidget* parent)
{
    auto* const panel = new QWidget(parent, Qt::Window);
    panel->setWindowTitle(tr("About Pellux"));
    panel->setObjectName(QStringLiteral("about"));
    auto* const text = new QLabel(aboutText(), panel);
    text->setTextFormat(Qt::PlainText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setAccessibleName(tr("Version and libraries"));
    text->setMargin(12);
    auto* const layout = new QVBoxLayout(panel);
    layout->addWidget(text);
    return panel;
}

} // namespace Pellux
