#include "actions/WindowState.h"
#include "help/HelpPanels.h"
#include "runtime/QtText.h"

#include <OrvikCore/MouseGesture.h>

#include <NavigationTable.h>

#include <QAction>
#include <QCoreApplication>
#include <QHeaderView>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>

namespace Pellux {
namespace {

using OrvikCore::ModifierKey;
using OrvikCore::MouseButton;
using OrvikCore::MouseGesture;

QString tr(const char* text)
{
    return QCoreApplication::translate("KeysPanel", text);
}

QString nameOf(NavigationAction action)
{
    switch (action) {
    case NavigationAction::Rotate:
        return tr("rotate");
    case NavigationAction::Pan:
        return tr("pan");
    case NavigationAction::Zoom:
        return tr("zoom");
    case NavigationAction::WindowZoom:
        return tr("zoom to a window");
    case NavigationAction::Select:
        return tr("select");
    case NavigationAction::Add:
        return tr("select more");
    case NavigationAction::None:
        break;
    }
    return {};
}

/// The core's own way, which is no table.
QString defaultDrags()
{
    return QStringLiteral("left\t%1\nleft+middle\t%2\nmiddle\t%3\nShift-left\t%4\n")
        .arg(tr("rotate"), tr("pan"), tr("zoom"), tr("select"));
}

QString dragsOfTable(const NavigationTable& table)
{
    QString lines;
    for (const int buttons : {1, 4, 2, 5, 3, 6}) {
        for (const ModifierKey keys : {ModifierKey::None, ModifierKey::Ctrl, ModifierKey::Shift,
                                       ModifierKey::Ctrl | ModifierKey::Shift, ModifierKey::Alt}) {
            const MouseGesture gesture{keys, static_cast<MouseButton>(buttons)};
            const QString action = nameOf(table.Find(gesture));
            if (!action.isEmpty())
                lines += ToQt(gesture.ToText()) + u'\t' + action + u'\n';
        }
    }
    return lines;
}

void addRow(QTableWidget& table, const QString& keys, const QString& what)
{
    const int row = table.rowCount();
    table.insertRow(row);
    table.setItem(row, 0, new QTableWidgetItem(keys));
    table.setItem(row, 1, new QTableWidgetItem(what));
}

void addMouse(QTableWidget& table)
{
    const QString navigation = WindowState::Navigation();
    const QString drags = DragsOf(navigation);
    for (const QString& line : drags.split(u'\n', Qt::SkipEmptyParts))
        addRow(table, tr("drag %1").arg(line.section(u'\t', 0, 0)), line.section(u'\t', 1));
    if (drags.isEmpty())
        addRow(table, tr("drag"),
               tr("as the section [navigation] of the configuration says (%1)").arg(navigation));
    addRow(table, tr("wheel"), tr("zoom"));
    addRow(table, tr("click left"), tr("pick"));
    addRow(table, tr("Ctrl + click left"), tr("pick more"));
    addRow(table, tr("Shift + move"), tr("highlight what lies under the pointer"));
    addRow(table, tr("click right"), tr("menu of what lies under the pointer"));
    addRow(table, tr("Escape"), tr("end a rubber band, select nothing, cancel what runs"));
}

} // namespace

QString DragsOf(const QString& navigation)
{
    if (navigation == QStringLiteral("default"))
        return defaultDrags();
    for (const NavigationPreset& preset : NavigationPresets())
        if (ToQt(preset.name) == navigation)
            return dragsOfTable(preset.table);
    return {};
}

QWidget* MakeKeysPanel(const QWidget& window, QWidget* parent)
{
    auto* const panel = new QWidget(parent, Qt::Window);
    panel->setWindowTitle(tr("Mouse and keys"));
    panel->setObjectName(QStringLiteral("keys"));
    auto* const table = new QTableWidget(0, 2, panel);
    table->setHorizontalHeaderLabels({tr("Mouse or key"), tr("Does")});
    table->setAccessibleName(tr("What mouse and keys do"));
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->verticalHeader()->setVisible(false);
    table->horizontalHeader()->setStretchLastSection(true);
    addMouse(*table);
    for (const QAction* const action :
         window.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!action->shortcut().isEmpty())
            addRow(*table, action->shortcut().toString(QKeySequence::NativeText),
                   action->toolTip());
    }
    for (const QShortcut* const key :
         window.findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly))
        addRow(*table, key->key().toString(QKeySequence::NativeText), key->whatsThis());
    table->resizeColumnToContents(0);
    auto* const layout = new QVBoxLayout(panel);
    layout->addWidget(table);
    panel->setFocusProxy(table);
    panel->resize(560, 560);
    return panel;
}

} // namespace Pellux
