#include "crash/CrashNotice.h"

#include "runtime/Guarded.h"
#include "runtime/QtText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace Pellux {
namespace {

constexpr int kMargin = 4;

QPushButton* addButton(QHBoxLayout& row, const char* name, const QString& text)
{
    auto* const button = new QPushButton(text);
    button->setObjectName(QString::fromLatin1(name));
    row.addWidget(button);
    return button;
}

} // namespace

CrashNotice::CrashNotice(QWidget* parent) : QFrame(parent), m_text(new QLabel)
{
    setObjectName(QStringLiteral("crashNotice"));
    setAccessibleName(tr("An earlier run ended unexpectedly"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    rows->setSpacing(kMargin);
    auto* const textRow = new QHBoxLayout;
    // In a row of their own: beside the text they would make a narrow window wide.
    auto* const buttonRow = new QHBoxLayout;
    rows->addLayout(textRow);
    rows->addLayout(buttonRow);
    auto* const icon = new QLabel;
    icon->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(24, 24));
    m_text->setObjectName(QStringLiteral("crashText"));
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setForegroundRole(QPalette::ToolTipText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    textRow->addWidget(icon, 0, Qt::AlignTop);
    textRow->addWidget(m_text, 1);
    buttonRow->addStretch(1);
    m_open = addButton(*buttonRow, "crashOpen", tr("Show &journal"));
    m_open->setToolTip(tr("Shows the journal of that run"));
    m_replay = addButton(*buttonRow, "crashReplay", tr("&Repeat it"));
    m_replay->setToolTip(tr("Does again what that run did"));
    QPushButton* const done = addButton(*buttonRow, "crashDismiss", tr("&Dismiss"));
    connect(m_open, &QPushButton::clicked, this, [this] {
        Guarded([this] { Q_EMIT OpenWanted(ToQt(m_runs.front().record.journal)); });
    });
    connect(m_replay, &QPushButton::clicked, this, [this] {
        Guarded([this] {
            const QString journal = ToQt(m_runs.front().record.journal);
            dismiss();
            Q_EMIT ReplayWanted(journal);
        });
    });
    connect(done, &QPushButton::clicked, this, [this] { Guarded([this] { dismiss(); }); });
    hide();
}

void CrashNotice::ShowRuns(std::vector<CrashedRun> runs)
{
    m_runs = std::move(runs);
    showFirst();
}

void CrashNotice::showFirst()
{
    setVisible(!m_runs.empty());
    if (m_runs.empty())
        return;
    const CrashedRun& run = m_runs.front();
    QString text = tr("An earlier run ended unexpectedly (process %1).").arg(run.record.processId);
    if (run.hasReport)
        text += u' ' + tr("Its report is in %1.").arg(ToQt(run.record.report));
    text += u' ' + (run.hasJournal ? tr("Its journal holds what it did, up to the last command.")
                                   : tr("It has left no journal."));
    m_text->setText(text);
    m_open->setVisible(run.hasJournal);
    m_replay->setVisible(run.hasJournal);
}

void CrashNotice::dismiss()
{
    ForgetCrashedRun(m_runs.front());
    m_runs.erase(m_runs.begin());
    showFirst();
}

/// The layout of a window gives no room to what gets higher when it is narrow, unless it must.
void CrashNotice::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    setMinimumHeight(std::max(heightForWidth(width()), 0));
}

void CrashNotice::SetBusy(bool isBusy)
{
    m_replay->setEnabled(!isBusy);
}

} // namespace Pellux
