#include "actions/ActionTable.h"

#include "actions/LineIcon.h"
#include "actions/WindowState.h"
#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "view/EventTranslation.h"

#include <HotkeyTable.h>

#include <QAction>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace Pellux {
namespace {

bool isMet(Needs needs)
{
    switch (needs) {
    case Needs::Model:
        return WindowState::HasModel();
    case Needs::Selection:
        return WindowState::SelectedCount() > 0;
    case Needs::OneSelected:
        return WindowState::SelectedCount() == 1;
    case Needs::TwoSelected:
        return WindowState::SelectedCount() == 2;
    case Needs::Nothing:
        break;
    }
    return true;
}

bool isBound(const HotkeyTable& hotkeys, const QKeySequence& keys)
{
    if (keys.isEmpty())
        return false;
    const QKeyCombination combination = keys[0];
    OrvikCore::KeyEventArgs event(static_cast<int>(combination.key()), /*isUp=*/false,
                                  ToModifiers(combination.keyboardModifiers()));
    return hotkeys.Find(event) != nullptr;
}

QString plain(QString text)
{
    return text.remove(u'&').remove(QStringLiteral("..."));
}

} // namespace

ActionTable::ActionTable(QMainWindow& window, CommandRunner& runner, const HotkeyTable& hotkeys)
    : m_window(window),
      m_runner(runner),
      m_hotkeys(hotkeys),
      m_asker(std::make_unique<DialogAsker>(window)),
      m_bar(window.addToolBar(tr("Main tool bar")))
{
    m_bar->setObjectName(QStringLiteral("main-tool-bar"));
    m_bar->setAccessibleName(tr("Main tool bar"));
    connect(&m_runner, &CommandRunner::StateChanged, this,
            [this] { Guarded([this] { Refresh(); }); });
    connect(&m_runner, &CommandRunner::BusyChanged, this, [this](bool isBusy) {
        Guarded([&] {
            if (isBusy)
                for (const Entry& entry : m_entries)
                    entry.action->setEnabled(false);
        });
    });
}

ActionTable::~ActionTable() = default;

void ActionTable::SetAsker(std::unique_ptr<IAsker> asker)
{
    m_asker = std::move(asker);
}

QMenu* ActionTable::Menu(const QString& path)
{
    QMenu*& menu = m_menus[path];
    if (menu != nullptr)
        return menu;
    const qsizetype slash = path.lastIndexOf(u'/');
    const QString title = path.mid(slash + 1);
    QMenu* const made =
        slash < 0 ? m_window.menuBar()->addMenu(title) : Menu(path.left(slash))->addMenu(title);
    made->setToolTipsVisible(true);
    made->setAccessibleName(plain(title));
    // Making the menus above may have moved the entry.
    m_menus[path] = made;
    return made;
}

void ActionTable::Add(const ActionDefinitions& definitions)
{
    for (const ActionDefinition& definition : definitions) {
        auto* const action = new QAction(definition.text, &m_window);
        action->setObjectName(QString::fromLatin1(definition.id));
        action->setToolTip(definition.tip);
        action->setStatusTip(definition.tip);
        action->setIcon(LineIcon(QString::fromLatin1(definition.icon)));
        action->setShortcut(QKeySequence(QString::fromLatin1(definition.shortcut)));
        action->setCheckable(static_cast<bool>(definition.isOn));
        connect(action, &QAction::triggered, this,
                [this, definition](bool isOn) { Guarded([&] { run(definition, isOn); }); });
        QMenu* const menu = Menu(definition.menu);
        if (definition.beginsGroup)
            menu->addSeparator();
        menu->addAction(action);
        if (definition.isOnToolBar)
            m_bar->addAction(action);
        m_entries.push_back({definition, action});
    }
}

void ActionTable::run(const ActionDefinition& definition, bool isOn)
{
    if (!m_runner.IsRunning()) {
        const ActionScript script = definition.script(*m_asker, isOn);
        if (!script.text.isEmpty())
            m_runner.Run(script.text, script.source);
    }
    // A switch that was not run shows what holds all the same.
    Refresh();
}

void ActionTable::Refresh()
{
    for (const Entry& entry : m_entries) {
        entry.action->setEnabled(isMet(entry.definition.needs));
        if (entry.definition.isOn)
            entry.action->setChecked(entry.definition.isOn());
    }
}

void ActionTable::YieldToHotkeys()
{
    for (const Entry& entry : m_entries)
        if (isBound(m_hotkeys, entry.action->shortcut()))
            entry.action->setShortcut(QKeySequence());
}

QAction* ActionTable::Find(const QByteArray& id) const
{
    for (const Entry& entry : m_entries)
        if (entry.definition.id == id)
            return entry.action;
    return nullptr;
}

std::vector<QByteArray> ActionTable::Ids() const
{
    std::vector<QByteArray> ids;
    for (const Entry& entry : m_entries)
        ids.push_back(entry.definition.id);
    return ids;
}

} // namespace Pellux
