#include "files/FileFilters.h"

#include "runtime/QtText.h"

#include <OrvikCore/AContentLoader.h>
#include <OrvikCore/AContentSaver.h>
#include <OrvikCore/AScriptEngine.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/Shell.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QMap>
#include <QStringList>

namespace Pellux {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("FileFilters", text);
}

using Formats = QMap<QString, QStringList>; ///< Patterns by description.

template <typename Providers> Formats formatsOf(const Providers& providers)
{
    Formats formats;
    for (const auto* const provider : providers) {
        if (provider == nullptr)
            continue;
        for (const auto& [extension, description] : provider->ValidExtensions()) {
            QString bare = ToQt(extension).toLower();
            while (bare.startsWith(u'.') || bare.startsWith(u'*'))
                bare.remove(0, 1);
            QStringList& patterns = formats[ToQt(description)];
            // Names in capitals are as usual as others, and dialogs tell them apart.
            for (const QString& pattern :
                 {QStringLiteral("*.") + bare, QStringLiteral("*.") + bare.toUpper()})
                if (!patterns.contains(pattern))
                    patterns.append(pattern);
        }
    }
    return formats;
}

QStringList filtersOf(const Formats& formats)
{
    QStringList filters;
    for (auto format = formats.begin(); format != formats.end(); ++format) {
        // A parenthesis in a description would be taken for the patterns.
        QString description = format.key();
        description.remove(u'(').remove(u')');
        filters.append(description + QStringLiteral(" (") + format->join(u' ') + u')');
    }
    return filters;
}

QStringList patternsOf(const Formats& formats)
{
    QStringList patterns;
    for (const QStringList& some : formats)
        patterns += some;
    patterns.removeDuplicates();
    return patterns;
}

} // namespace

QString OpenFilter()
{
    const Formats formats = formatsOf(OrvikCore::SessionMgr::Instance().GetContentLoaderList());
    QStringList filters{tr("All models") + QStringLiteral(" (") + patternsOf(formats).join(u' ') +
                        u')'};
    filters += filtersOf(formats);
    filters += tr("All files") + QStringLiteral(" (*)");
    return filters.join(QStringLiteral(";;"));
}

QString SaveFilter()
{
    return filtersOf(formatsOf(OrvikCore::SessionMgr::Instance().GetContentSaverList()))
        .join(QStringLiteral(";;"));
}

bool CanRead(const QString& path)
{
    const Formats formats = formatsOf(OrvikCore::SessionMgr::Instance().GetContentLoaderList());
    return patternsOf(formats).contains(QStringLiteral("*.") + QFileInfo(path).suffix().toLower());
}

bool IsScript(const QString& path)
{
    const OrvikCore::Shell* const shell = OrvikCore::SessionMgr::Instance().GetShell();
    const OrvikCore::AScriptEngine* const engine =
        shell == nullptr ? nullptr : shell->GetScriptEngine();
    return engine != nullptr &&
           QFileInfo(path).suffix().toLower() == ToQt(engine->GetScriptExtension());
}

} // namespace Pellux
