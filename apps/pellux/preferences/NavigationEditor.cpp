#include "preferences/NavigationEditor.h"

#include "runtime/Guarded.h"
#include "runtime/QtText.h"

#include <NavigationTable.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <vector>

namespace Pellux {
namespace {

/// The columns: a check box for each modifier key, then two choices.
constexpr const char* kModifiers[] = {"Ctrl", "Shift", "Alt"};
constexpr int kButtons = 3;
constexpr int kAction = 4;
constexpr int kColumns = 5;

QStringList buttonTexts()
{
    const QString left = QStringLiteral("left");
    const QString middle = QStringLiteral("middle");
    const QString right = QStringLiteral("right");
    const QString plus = QStringLiteral("+");
    return {left,
            middle,
            right,
            left + plus + middle,
            left + plus + right,
            middle + plus + right,
            left + plus + middle + plus + right};
}

QStringList actionNames()
{
    QStringList names;
    for (const std::wstring& name : NavigationActionNames())
        names << ToQt(name);
    return names;
}

const QComboBox* choiceAt(const QTableWidget& table, int row, int column)
{
    return qobject_cast<const QComboBox*>(table.cellWidget(row, column));
}

} // namespace

NavigationEditor::NavigationEditor(QWidget* parent)
    : QWidget(parent), m_table(new QTableWidget(0, kColumns, this)), m_errors(new QLabel(this))
{
    setObjectName(QStringLiteral("navigation.rows"));
    m_table->setHorizontalHeaderLabels(
        {tr("Ctrl"), tr("Shift"), tr("Alt"), tr("Mouse buttons"), tr("Action")});
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setSectionResizeMode(kButtons, QHeaderView::Stretch);
    m_table->horizontalHeader()->setSectionResizeMode(kAction, QHeaderView::Stretch);
    m_table->verticalHeader()->setVisible(false);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setAccessibleName(tr("Own rows of what the mouse does"));
    m_errors->setTextFormat(Qt::PlainText);
    m_errors->setWordWrap(true);
    m_errors->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_errors->setObjectName(QStringLiteral("navigation.errors"));
    layOut();
    connect(m_table, &QTableWidget::cellChanged, this, [this] { Guarded([this] { check(); }); });
}

NavigationEditor::~NavigationEditor() = default;

void NavigationEditor::layOut()
{
    auto* const add = new QPushButton(tr("&Add"), this);
    auto* const remove = new QPushButton(tr("&Remove"), this);
    auto* const explanation =
        new QLabel(tr("Rows of your own lie over what is chosen above; over \"default\" they stand "
                      "alone."),
                   this);
    explanation->setWordWrap(true);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addStretch(1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(explanation);
    column->addWidget(m_table, 1);
    column->addLayout(buttons);
    column->addWidget(m_errors);
    connect(add, &QPushButton::clicked, this,
            [this] { Guarded([this] { Add(QStringLiteral("left"), QStringLiteral("rotate")); }); });
    connect(remove, &QPushButton::clicked, this, [this] { Guarded([this] { removeRows(); }); });
}

void NavigationEditor::Set(const NavigationRows& rows)
{
    m_table->setRowCount(0);
    for (const auto& [buttons, action] : rows)
        Add(buttons, action);
    check();
}

void NavigationEditor::Add(const QString& buttons, const QString& action)
{
    const int row = m_table->rowCount();
    const QStringList words = buttons.split(QLatin1Char('-'));
    {
        const QSignalBlocker blocker(m_table);
        m_table->insertRow(row);
        for (int i = 0; i < kButtons; ++i) {
            auto* const box = new QTableWidgetItem;
            box->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            box->setCheckState(words.contains(QLatin1String(kModifiers[i])) ? Qt::Checked
                                                                            : Qt::Unchecked);
            m_table->setItem(row, i, box);
        }
        addChoice(row, kButtons, buttonTexts(), words.last())
            ->setAccessibleName(tr("Mouse buttons"));
        addChoice(row, kAction, actionNames(), action)->setAccessibleName(tr("Action"));
    }
    check();
}

QComboBox* NavigationEditor::addChoice(int row, int column, const QStringList& choices,
                                       const QString& chosen)
{
    auto* const box = new QComboBox(m_table);
    box->addItems(choices);
    // A file may name buttons in another order.
    if (box->findText(chosen) < 0)
        box->addItem(chosen);
    box->setCurrentText(chosen);
    connect(box, &QComboBox::currentTextChanged, this, [this] { Guarded([this] { check(); }); });
    m_table->setCellWidget(row, column, box);
    return box;
}

NavigationRows NavigationEditor::Get() const
{
    NavigationRows rows;
    for (int row = 0; row < m_table->rowCount(); ++row) {
        QString buttons;
        for (int i = 0; i < kButtons; ++i)
            if (m_table->item(row, i)->checkState() == Qt::Checked)
                buttons += QLatin1String(kModifiers[i]) + QLatin1Char('-');
        rows.emplace_back(buttons + choiceAt(*m_table, row, kButtons)->currentText(),
                          choiceAt(*m_table, row, kAction)->currentText());
    }
    return rows;
}

void NavigationEditor::removeRows()
{
    std::vector<int> rows;
    for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
        rows.push_back(index.row());
    // Where a choice has the focus the row is the current one only.
    if (rows.empty() && m_table->currentRow() >= 0)
        rows.push_back(m_table->currentRow());
    std::sort(rows.begin(), rows.end(), std::greater<>());
    for (const int row : rows)
        m_table->removeRow(row);
    check();
}

void NavigationEditor::check()
{
    const QString errors = CheckNavigation(Get());
    m_isGood = errors.isEmpty();
    m_errors->setText(errors);
    Q_EMIT Checked(m_isGood);
}

} // namespace Pellux
