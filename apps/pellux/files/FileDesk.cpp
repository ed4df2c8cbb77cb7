#include "files/FileDesk.h"

#include "actions/WindowState.h"
#include "files/FileFilters.h"
#include "files/FileNotice.h"
#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/ICameraProvider.h>
#include <OrvikCore/MessageType.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/IView3D.h>

#include <JournalText.h>

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

namespace Pellux {
namespace {

/// How often to look whether files that were dropped can be read, milliseconds.
constexpr int kLookAgainMs = 20;

QString pathForm(const char* command, const QString& path)
{
    return u'(' + QLatin1String(command) + u' ' + Quoted(path) + u')';
}

QStringList localPaths(const QMimeData& data)
{
    QStringList paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    return paths;
}

bool touchesFiles(const QString& form)
{
    for (const char* const command : {"(doc:load ", "(doc:import ", "(doc:save ", "(doc:reload"})
        if (form.startsWith(QLatin1String(command)))
            return true;
    return false;
}

/// @return what loads files in place of a document that could not be read, seen from where it was.
QString loadForms(const QStringList& paths)
{
    QStringList forms;
    for (const QString& path : paths)
        forms << pathForm(forms.isEmpty() ? "doc:load" : "doc:import", path);
    auto* const provider = dynamic_cast<OrvikCore::ICameraProvider*>(
        OrvikCore::SessionMgr::Instance().CurrentSession().View3D());
    if (provider != nullptr && provider->GetCamera() != nullptr) {
        float eye[3];
        float target[3];
        float up[3];
        provider->GetCamera()->GetCamera(eye, target, up);
        forms << ToQt(CameraForm(eye, target, up));
    }
    return forms.join(u'\n');
}

} // namespace

FileDesk::FileDesk(QMainWindow& window, CommandRunner& runner, const QString& recentFile)
    : m_window(window), m_runner(runner), m_recent(recentFile), m_notice(new FileNotice(&window))
{
    window.setAcceptDrops(true);
    window.installEventFilter(this);
    connect(&m_watch, &FileWatch::Changed, this, [this] { Guarded([this] { readAgain(); }); });
    connect(&m_runner, &CommandRunner::Echoed, this, [this](const QString& form) {
        Guarded([&] {
            m_isLoading = touchesFiles(form);
            if (!m_isReadingAgain && form.startsWith(QLatin1String("(doc:")))
                m_lost.clear();
            m_lastError.clear();
            if (m_isLoading)
                m_notice->hide();
        });
    });
    connect(&m_runner, &CommandRunner::Printed, this, [this](const QString& text, int type) {
        if (m_isLoading && type == static_cast<int>(OrvikCore::MessageType::Error))
            m_lastError += text;
    });
    connect(&m_runner, &CommandRunner::StateChanged, this,
            [this] { Guarded([this] { noteLoaded(); }); });
}

FileDesk::~FileDesk() = default;

void FileDesk::noteLoaded()
{
    if (m_isLoading && !m_lastError.isEmpty())
        m_notice->Show(m_lastError);
    const bool hasRead = std::exchange(m_isLoading, false) && m_lastError.isEmpty();
    m_lastError.clear();
    const QStringList loaded = WindowState::LoadedFiles();
    if (loaded == m_loaded && !hasRead)
        return;
    for (const QString& file : loaded)
        if (!m_loaded.contains(file))
            m_recent.Add(file);
    m_loaded = loaded;
    m_watch.SetFiles(m_loaded);
}

void FileDesk::readAgain()
{
    const QStringList files = m_lost.isEmpty() ? m_loaded : m_lost;
    const QString forms = m_lost.isEmpty() ? QStringLiteral("(doc:reload)") : loadForms(m_lost);
    m_isReadingAgain = true;
    const bool isGood = m_runner.Run(forms, QStringLiteral("watch"));
    m_isReadingAgain = false;
    // While something runs the watch comes again.
    if (!isGood && m_runner.IsRunning())
        return;
    // A file that is damaged now may be whole when it changes next.
    m_lost = isGood ? QStringList() : files;
    m_watch.SetFiles(files);
}

void FileDesk::FillRecent(QMenu& menu)
{
    menu.setToolTipsVisible(true);
    connect(&menu, &QMenu::aboutToShow, this,
            [this, &menu] { Guarded([&] { showRecent(menu); }); });
}

void FileDesk::showRecent(QMenu& menu)
{
    menu.clear();
    const QStringList files = m_recent.List();
    for (int i = 0; i < files.size(); ++i) {
        const QString& path = files[i];
        QString name = QFileInfo(path).fileName();
        name.replace(u'&', QStringLiteral("&&"));
        QAction* const action =
            menu.addAction(i < 9 ? QStringLiteral("&%1 %2").arg(i + 1).arg(name) : name);
        action->setToolTip(PlainToolTip(path));
        action->setEnabled(QFileInfo::exists(path) && !m_runner.IsRunning());
        connect(action, &QAction::triggered, this,
                [this, path] { Guarded([&] { m_runner.Run(pathForm("doc:load", path)); }); });
    }
    if (files.isEmpty())
        menu.addAction(tr("No files yet"))->setEnabled(false);
}

void FileDesk::Take(const QStringList& paths, bool add)
{
    if (m_runner.IsRunning()) {
        QTimer::singleShot(kLookAgainMs, this,
                           [this, paths, add] { Guarded([&] { Take(paths, add); }); });
        return;
    }
    const char* command = add ? "doc:import" : "doc:load";
    for (const QString& path : paths) {
        if (IsScript(path)) {
            m_runner.RunFile(path);
            continue;
        }
        m_runner.Run(pathForm(command, path), QStringLiteral("drop"));
        command = "doc:import";
    }
}

bool FileDesk::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &m_window)
        return false;
    bool isTaken = false;
    Guarded([&] {
        if (event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove) {
            auto& drag = static_cast<QDragMoveEvent&>(*event);
            isTaken = !localPaths(*drag.mimeData()).isEmpty();
            if (isTaken)
                drag.acceptProposedAction();
        } else if (event->type() == QEvent::Drop) {
            auto& drop = static_cast<QDropEvent&>(*event);
            const QStringList paths = localPaths(*drop.mimeData());
            const bool add = drop.modifiers().testFlag(Qt::ControlModifier) ||
                             drop.modifiers().testFlag(Qt::ShiftModifier);
            isTaken = !paths.isEmpty();
            if (isTaken)
                drop.acceptProposedAction();
            // Whoever drags waits for the answer: reading comes after it.
            QMetaObject::invokeMethod(
                this, [this, paths, add] { Guarded([&] { Take(paths, add); }); },
                Qt::QueuedConnection);
        }
    });
    return isTaken;
}

} // namespace Pellux
