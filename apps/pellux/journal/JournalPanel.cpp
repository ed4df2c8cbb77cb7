#include "journal/JournalPanel.h"

#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"

#include <OrvikCore/SessionMgr.h>
#include <OrvikOs/Directory.h>
#include <OrvikOs/FileWriting.h>
#include <TambCommandsInfra/ICommandJournal.h>
#include <TambVizCore/Utils.h>

#include <HostRuntime.h>
#include <Replay.h>

#include <QFileDialog>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

namespace Pellux {
namespace {

enum Column
{
    kLine,
    kResult,
    kExpected,
    kFound,
    kForm,
    kColumns
};

QString currentPath()
{
    const TambCommandsInfra::ICommandJournal* const journal =
        TambCommandsInfra::GetCommandJournal();
    return journal == nullptr ? QString() : ToQt(journal->GetPath());
}

QString nameOf(const PickNote& note)
{
    return note.isFound ? ToQt(DescribeEntity(note.entity)) : JournalPanel::tr("nothing");
}

/// What a replay begins with: nothing loaded, nothing cut, the axis of the journal up.
QString prelude(const JournalStart& start)
{
    return QStringLiteral("(doc:clear)\n(view:section-off)\n(view:up-axis \"%1\")")
        .arg(QLatin1Char(start.isZUp ? 'z' : 'y'));
}

} // namespace

JournalPanel::JournalPanel(CommandRunner& runner, HostRuntime& host, QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_runner(runner),
      m_host(host),
      m_path(new QLabel(this)),
      m_text(new QPlainTextEdit(this)),
      m_table(new QTableWidget(0, kColumns, this)),
      m_summary(new QLabel(this)),
      m_buttons(new QWidget(this))
{
    setWindowTitle(tr("Journal"));
    setObjectName(QStringLiteral("journal"));
    m_path->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_path->setTextFormat(Qt::PlainText);
    m_path->setAccessibleName(tr("File of the journal"));
    m_text->setReadOnly(true);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setAccessibleName(tr("Text of the journal"));
    m_table->setAccessibleName(tr("Picks of the replay"));
    m_table->setHorizontalHeaderLabels(
        {tr("Line"), tr("Result"), tr("Expected"), tr("Found"), tr("Command")});
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->verticalHeader()->setVisible(false);
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setWordWrap(true);
    m_summary->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_summary->setAccessibleName(tr("Result of the replay"));
    auto* const both = new QSplitter(Qt::Vertical, this);
    both->addWidget(m_text);
    both->addWidget(m_table);
    both->setStretchFactor(0, 2);
    both->setStretchFactor(1, 1);
    m_table->hide();
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_path);
    layout->addWidget(both, 1);
    layout->addWidget(m_summary);
    layout->addWidget(m_buttons);
    makeButtons();
    resize(760, 560);
    connect(&m_runner, &CommandRunner::StateChanged, this, [this] {
        Guarded([this] {
            if (m_opened.isEmpty())
                refresh();
        });
    });
    connect(&m_runner, &CommandRunner::BusyChanged, m_buttons,
            [this](bool isBusy) { m_buttons->setEnabled(!isBusy); });
    refresh();
}

JournalPanel::~JournalPanel() = default;

QPushButton* JournalPanel::addButton(const QString& text, const QString& tip)
{
    auto* const button = new QPushButton(text, m_buttons);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    m_buttons->layout()->addWidget(button);
    return button;
}

void JournalPanel::makeButtons()
{
    auto* const layout = new QHBoxLayout(m_buttons);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch(1);
    const QString filter = tr("Journals (*.scm);;All files (*)");
    connect(addButton(tr("&Open..."), tr("Open the journal of an earlier run")),
            &QPushButton::clicked, this, [this, filter] {
                Guarded([&] {
                    const QString path = QFileDialog::getOpenFileName(this, tr("Open a journal"),
                                                                      currentPath(), filter);
                    if (!path.isEmpty())
                        Open(path);
                });
            });
    connect(addButton(tr("&This run"), tr("Show the journal of this run")), &QPushButton::clicked,
            this, [this] { Guarded([this] { ShowCurrent(); }); });
    connect(addButton(tr("&Save as..."), tr("Save the journal")), &QPushButton::clicked, this,
            [this, filter] {
                Guarded([&] {
                    const QString path =
                        QFileDialog::getSaveFileName(this, tr("Save the journal"),
                                                     QStringLiteral("session.journal.scm"), filter);
                    if (!path.isEmpty())
                        Save(path);
                });
            });
    connect(addButton(tr("&Replay"), tr("Close what is loaded and do all of it again")),
            &QPushButton::clicked, this, [this] { Guarded([this] { Replay(); }); });
}

bool JournalPanel::Open(const QString& path)
{
    std::wstring text;
    JournalStart start;
    std::wstring reason;
    if (!TambVizCore::Utils::GetFileContents(FromQt(path), text))
        reason = L"the journal cannot be read";
    else
        ParseJournalHead(text, start, reason);
    if (!reason.empty()) {
        m_summary->setText(path + QStringLiteral(": ") + ToQt(reason));
        return false;
    }
    m_opened = path;
    m_summary->clear();
    m_table->hide();
    refresh();
    return true;
}

void JournalPanel::ShowCurrent()
{
    m_opened.clear();
    m_table->hide();
    m_summary->clear();
    refresh();
}

void JournalPanel::refresh()
{
    const QString path = m_opened.isEmpty() ? currentPath() : m_opened;
    std::wstring text;
    if (path.isEmpty())
        m_path->setText(tr("This run keeps no journal."));
    else
        m_path->setText(path);
    if (!path.isEmpty())
        TambVizCore::Utils::GetFileContents(FromQt(path), text);
    const QString shown = ToQt(text);
    const QString before = m_text->toPlainText();
    if (shown.startsWith(before) && !before.isEmpty()) {
        // Grown: the place that is read stays.
        QTextCursor cursor(m_text->document());
        cursor.movePosition(QTextCursor::End);
        const bool isAtEnd =
            m_text->verticalScrollBar()->value() >= m_text->verticalScrollBar()->maximum();
        cursor.insertText(shown.mid(before.size()));
        if (isAtEnd)
            m_text->verticalScrollBar()->setValue(m_text->verticalScrollBar()->maximum());
    } else if (shown != before) {
        m_text->setPlainText(shown);
    }
}

bool JournalPanel::Save(const QString& path)
{
    const std::string text = Text().toStdString();
    std::wstring reason;
    if (OrvikOs::WriteFileAtomically(FromQt(path), text.data(), text.size(), &reason)) {
        m_summary->setText(tr("Saved: %1").arg(path));
        return true;
    }
    m_summary->setText(path + QStringLiteral(": ") + ToQt(reason));
    return false;
}

void JournalPanel::Replay()
{
    if (m_runner.IsRunning())
        return;
    // The journal of this run grows while it is replayed: what it holds now counts.
    const std::wstring text = FromQt(Text());
    const QString path = m_path->text();
    JournalStart start;
    std::wstring reason;
    if (!ParseJournalHead(text, start, reason)) {
        m_summary->setText(path + QStringLiteral(": ") + ToQt(reason));
        return;
    }
    m_table->setRowCount(0);
    m_table->show();
    m_summary->setText(tr("Replaying..."));
    const QString folder = ToQt(OrvikOs::CurrentDirectory());
    m_runner.Run(prelude(start), QStringLiteral("journal"));
    m_runner.RunOther([&] { runReplay(text, path); });
    // A replay works in the folder of its journal.
    if (ToQt(OrvikOs::CurrentDirectory()) != folder)
        m_runner.Run(QStringLiteral("(chdir ") + Quoted(folder) + u')', QStringLiteral("journal"));
}

void JournalPanel::runReplay(const std::wstring& text, const QString& path)
{
    Pellux::Replay replay(
        m_host.GetShell(), OrvikCore::SessionMgr::Instance().CurrentSession(),
        [this](const std::wstring& form) {
            m_host.BeginForm(form);
            m_host.DrainOutput();
            if (m_runner.IsCancelled())
                return false;
            Q_EMIT m_runner.Echoed(ToQt(form));
            return true;
        },
        [this](const ReplayedPick& pick) { addPick(pick); });
    tell(replay.Run(text, FromQt(path)));
}

void JournalPanel::addPick(const ReplayedPick& pick)
{
    const int row = m_table->rowCount();
    m_table->insertRow(row);
    const auto set = [&](Column column, const QString& text) {
        auto* const item = new QTableWidgetItem(text);
        item->setToolTip(PlainToolTip(text));
        m_table->setItem(row, column, item);
        return item;
    };
    set(kLine, QString::number(pick.line));
    QTableWidgetItem* const result = set(kResult, QString::fromLatin1(PickResultName(pick.result)));
    if (pick.result != PickResult::Same) {
        QFont font = m_table->font();
        font.setBold(true);
        result->setFont(font);
    }
    set(kExpected, nameOf(pick.expected));
    set(kFound, nameOf(pick.found));
    set(kForm, ToQt(pick.form));
}

void JournalPanel::tell(const ReplayOutcome& outcome)
{
    QString text = tr("%1 of %2 commands ran; %3 picks:")
                       .arg(outcome.formsRun)
                       .arg(outcome.formCount)
                       .arg(outcome.picks.size());
    for (std::size_t i = 0; i < kPickResults; ++i) {
        const auto result = static_cast<PickResult>(i);
        text += QStringLiteral(" %1 %2%3")
                    .arg(outcome.Count(result))
                    .arg(QString::fromLatin1(PickResultName(result)))
                    .arg(i + 1 < kPickResults ? QStringLiteral(",") : QString());
    }
    if (!outcome.cutText.empty())
        text += u'\n' + ToQt(outcome.cutText);
    if (outcome.stoppedLine != 0)
        text += u'\n' + tr("The command in line %1 failed.").arg(outcome.stoppedLine);
    if (!outcome.errorText.empty())
        text += u'\n' + ToQt(outcome.errorText);
    m_summary->setText(text);
}

QString JournalPanel::Summary() const
{
    return m_summary->text();
}

QString JournalPanel::Text() const
{
    return m_text->toPlainText();
}

} // namespace Pellux
