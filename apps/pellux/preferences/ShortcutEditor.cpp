#include "preferences/ShortcutEditor.h"

#include "runtime/Guarded.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

namespace Pellux {

ShortcutEditor::ShortcutEditor(QWidget* parent)
    : QWidget(parent), m_table(new QTableWidget(0, 2, this)), m_errors(new QLabel(this))
{
    m_table->setObjectName(QStringLiteral("shortcuts.rows"));
    m_table->setHorizontalHeaderLabels({tr("Shortcut"), tr("Script")});
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->verticalHeader()->setVisible(false);
    m_table->setAccessibleName(tr("Shortcuts"));
    m_errors->setTextFormat(Qt::PlainText);
    m_errors->setWordWrap(true);
    m_errors->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* const add = new QPushButton(tr("Add"), this);
    auto* const remove = new QPushButton(tr("Remove"), this);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addStretch(1);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(new QLabel(tr("Such as Ctrl-f: modifiers and one character."), this));
    column->addWidget(m_table, 1);
    column->addLayout(buttons);
    column->addWidget(m_errors);
    connect(add, &QPushButton::clicked, this, [this] {
        Guarded([this] {
            addRow(QString(), QString());
            m_table->editItem(m_table->item(m_table->rowCount() - 1, 0));
        });
    });
    connect(remove, &QPushButton::clicked, this, [this] { Guarded([this] { removeRows(); }); });
    connect(m_table, &QTableWidget::cellChanged, this, [this] { Guarded([this] { check(); }); });
}

ShortcutEditor::~ShortcutEditor() = default;

void ShortcutEditor::Set(const Shortcuts& shortcuts)
{
    {
        const QSignalBlocker blocker(m_table);
        m_table->setRowCount(0);
        for (const auto& [keys, script] : shortcuts)
            addRow(keys, script);
    }
    check();
}

Shortcuts ShortcutEditor::Get() const
{
    Shortcuts shortcuts;
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const QTableWidgetItem* const keys = m_table->item(row, 0);
        const QTableWidgetItem* const script = m_table->item(row, 1);
        if (keys != nullptr && script != nullptr && !keys->text().isEmpty())
            shortcuts.emplace_back(keys->text(), script->text());
    }
    return shortcuts;
}

void ShortcutEditor::addRow(const QString& keys, const QString& script)
{
    const int row = m_table->rowCount();
    m_table->insertRow(row);
    m_table->setItem(row, 0, new QTableWidgetItem(keys));
    m_table->setItem(row, 1, new QTableWidgetItem(script));
}

void ShortcutEditor::removeRows()
{
    std::vector<int> rows;
    for (const QTableWidgetItem* const item : m_table->selectedItems())
        rows.push_back(item->row());
    std::sort(rows.begin(), rows.end(), std::greater<>());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    for (const int row : rows)
        m_table->removeRow(row);
    check();
}

void ShortcutEditor::check()
{
    const QString errors = CheckShortcuts(Get());
    m_isGood = errors.isEmpty();
    m_errors->setText(errors);
    Q_EMIT Checked(m_isGood);
}

} // namespace Pellux
