#include "properties/PropertiesPanel.h"

#include "properties/WrappedValues.h"
#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IEntityProperties.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

namespace Pellux {
namespace {

/// How soon to ask again what was cut short, milliseconds.
constexpr int kAskAgainMs = 200;

/// What contents call themselves whose lengths are millimetres.
const char kCadTypeName[] = "Cad";

} // namespace

PropertiesPanel::PropertiesPanel(CommandRunner& runner, OrvikCore::ASession& session,
                                 QWidget* parent)
    : QWidget(parent), m_runner(runner), m_session(session)
{
    layOut();
    addActions();
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] { Guarded([this] { refresh(); }); });
    connect(&runner, &CommandRunner::StateChanged, this, [this] { m_timer.start(0); });
    connect(&runner, &CommandRunner::AboutToRun, this, [this] {
        if (m_job != nullptr)
            m_timer.start(kAskAgainMs);
        Guarded([this] { drop(); });
    });
    showState();
}

PropertiesPanel::~PropertiesPanel()
{
    drop();
    m_view->setModel(nullptr);
}

void PropertiesPanel::layOut()
{
    m_view = new QTreeView(this);
    m_view->setModel(&m_list);
    m_view->setRootIsDecorated(false);
    m_view->setWordWrap(true);
    m_view->setItemDelegateForColumn(PropertyList::Value, new WrappedValues(*m_view));
    m_view->setAlternatingRowColors(true);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setTextElideMode(Qt::ElideRight);
    m_view->setAccessibleName(tr("Properties"));
    m_view->header()->setStretchLastSection(false);
    m_view->header()->setSectionResizeMode(PropertyList::Label, QHeaderView::ResizeToContents);
    m_view->header()->setSectionResizeMode(PropertyList::Value, QHeaderView::Stretch);
    m_view->header()->setSectionResizeMode(PropertyList::How, QHeaderView::ResizeToContents);
    m_state = new QLabel(this);
    m_state->setWordWrap(true);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->addWidget(m_state);
    column->addWidget(m_view, 1);
    setFocusProxy(m_view);
}

void PropertiesPanel::addActions()
{
    const auto add = [this](const QString& text, const QKeySequence& key, auto operation) {
        auto* const action = new QAction(text, this);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this,
                [this, operation] { Guarded([this, operation] { (this->*operation)(); }); });
        m_view->addAction(action);
    };
    add(tr("&Copy"), QKeySequence::Copy, &PropertiesPanel::copyRows);
    add(tr("Copy as &script"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
        &PropertiesPanel::copyScripts);
    add(tr("&Run as script"), QKeySequence(Qt::CTRL | Qt::Key_Return), &PropertiesPanel::runScript);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void PropertiesPanel::refresh()
{
    if (m_runner.IsRunning()) {
        m_timer.start(kAskAgainMs);
        return;
    }
    const std::vector<TambVizCore::EntityId> entities = m_session.GetPickedEntities();
    const std::vector<OrvikCore::AContent*>& contents = m_session.Document().GetContentList();
    const bool isSame = entities == m_entities && contents == m_contents;
    if (isSame && (m_isComplete || m_job != nullptr))
        return;
    drop();
    m_entities = entities;
    m_contents = contents;
    ask();
}

void PropertiesPanel::ask()
{
    m_list.Clear();
    m_questions = PropertyQuestionsFor(m_entities, lengthUnit());
    m_isComplete = m_questions.empty();
    if (!m_isComplete) {
        const PropertyJob::Receiver receiver{
            [this](std::size_t question, const PropertyAnswer& answer) {
                Guarded([&] { m_list.Append(m_questions[question], answer); });
            },
            [this] {
                Guarded([this] {
                    m_job.reset();
                    m_isComplete = true;
                    showState();
                });
            }};
        m_job = std::make_shared<PropertyJob>(m_questions, receiver);
        m_job->Submit();
    }
    showState();
}

/// @return the unit that all files of what is shown have in common.
LengthUnit PropertiesPanel::lengthUnit() const
{
    const auto isCad = [this](const TambVizCore::EntityId& entity) {
        return std::any_of(m_contents.begin(), m_contents.end(), [&](OrvikCore::AContent* content) {
            const auto* const properties =
                dynamic_cast<const OrvikCore::IEntityProperties*>(content);
            return properties != nullptr && properties->GetContentNumber() == entity.Owner() &&
                   content->GetTypeName() == kCadTypeName;
        });
    };
    return std::all_of(m_entities.begin(), m_entities.end(), isCad) ? LengthUnit::Millimetre
                                                                    : LengthUnit::Unknown;
}

void PropertiesPanel::drop()
{
    if (m_job == nullptr)
        return;
    m_job->Drop();
    m_job.reset();
}

void PropertiesPanel::showState()
{
    m_state->setVisible(!m_isComplete || m_list.rowCount() == 0);
    m_state->setText(m_job != nullptr ? tr("Measuring\u2026")
                                      : tr("Nothing is picked or selected."));
}

std::vector<int> PropertiesPanel::selectedRows() const
{
    std::vector<int> rows;
    for (const QModelIndex& index : m_view->selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void PropertiesPanel::copyRows()
{
    QStringList texts;
    for (const int row : selectedRows())
        texts << m_list.RowText(row);
    if (!texts.isEmpty())
        QGuiApplication::clipboard()->setText(texts.join(QLatin1Char('\n')));
}

void PropertiesPanel::copyScripts()
{
    QStringList texts;
    for (const int row : selectedRows())
        texts << m_list.Script(row);
    if (!texts.isEmpty())
        QGuiApplication::clipboard()->setText(texts.join(QLatin1Char('\n')));
}

void PropertiesPanel::runScript()
{
    QStringList texts;
    for (const int row : selectedRows())
        texts << m_list.Script(row);
    if (!texts.isEmpty())
        m_runner.Run(texts.join(QLatin1Char('\n')), QStringLiteral("properties"));
}

} // namespace Pellux
