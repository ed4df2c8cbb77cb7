#include "window/StatusLine.h"

#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"

#include <TambCommandsInfra/Progress.h>

#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QToolButton>
#include <cmath>

namespace Pellux {
namespace {

/// What runs shorter than this shows no busy mark, milliseconds.
constexpr int kQuietMs = 150;

constexpr int kProgressSteps = 1000;
constexpr int kProgressWidth = 220;

using TambCommandsInfra::Progress;
using TambCommandsInfra::ProgressReport;

} // namespace

StatusLine::StatusLine(CommandRunner& runner, QWidget* parent)
    : QStatusBar(parent),
      m_runner(runner),
      m_pointed(new QLabel(this)),
      m_selected(addLabel("selectionCount", tr("Selected"))),
      m_triangles(addLabel("triangleCount", tr("Triangles"))),
      m_frameTime(addLabel("frameTime", tr("Frame time"))),
      m_progress(new QProgressBar(this)),
      m_cancel(new QToolButton(this))
{
    m_pointed->setObjectName(QStringLiteral("pointed"));
    m_pointed->setAccessibleName(tr("Under the pointer"));
    m_pointed->setTextFormat(Qt::PlainText);
    m_pointed->setTextInteractionFlags(Qt::TextSelectableByMouse);
    insertWidget(0, m_pointed, 1);
    m_progress->setObjectName(QStringLiteral("progress"));
    m_progress->setAccessibleName(tr("Progress"));
    m_progress->setFixedWidth(kProgressWidth);
    m_cancel->setObjectName(QStringLiteral("cancel"));
    m_cancel->setText(tr("Cancel"));
    m_cancel->setToolTip(tr("End what runs (Escape)"));
    m_cancel->setFocusPolicy(Qt::TabFocus);
    addPermanentWidget(m_progress);
    addPermanentWidget(m_cancel);
    setBusy(false);
    m_showLater.setSingleShot(true);
    m_showLater.setInterval(kQuietMs);
    connect(&m_showLater, &QTimer::timeout, this, [this] {
        m_progress->show();
        m_cancel->show();
    });
    connect(m_cancel, &QToolButton::clicked, &runner,
            [&runner] { Guarded([&runner] { runner.Cancel(); }); });
    connect(&runner, &CommandRunner::BusyChanged, this, &StatusLine::setBusy);
    Progress::Instance().SetObserver(
        [this](const ProgressReport& report) { Guarded([&] { showProgress(report); }); });
}

StatusLine::~StatusLine()
{
    Progress::Instance().SetObserver(nullptr);
}

QLabel* StatusLine::addLabel(const char* name, const QString& accessibleName)
{
    auto* const label = new QLabel(this);
    label->setObjectName(QString::fromLatin1(name));
    label->setAccessibleName(accessibleName);
    addPermanentWidget(label);
    return label;
}

void StatusLine::ShowPointed(const QString& text)
{
    if (m_pointed->text() != text)
        m_pointed->setText(text);
}

void StatusLine::ShowSelectionCount(qsizetype count)
{
    m_selected->setText(count == 0 ? QString() : tr("%1 selected").arg(locale().toString(count)));
}

void StatusLine::ShowTriangles(std::uint64_t triangles)
{
    m_triangles->setText(triangles == 0
                             ? QString()
                             : tr("%1 triangles").arg(locale().toString(qulonglong{triangles})));
}

void StatusLine::ShowFrameTime(double milliseconds)
{
    const int decimals = milliseconds < 9.95 ? 1 : 0;
    m_frameTime->setText(tr("%1 ms").arg(locale().toString(milliseconds, 'f', decimals)));
}

void StatusLine::ShowClosing()
{
    showMessage(tr("The window closes when what runs has ended."));
}

void StatusLine::setBusy(bool isBusy)
{
    if (isBusy) {
        m_progress->setRange(0, 0);
        m_progress->setFormat(QString());
        m_showLater.start();
        return;
    }
    clearMessage();
    m_showLater.stop();
    m_progress->hide();
    m_cancel->hide();
}

void StatusLine::showProgress(const ProgressReport& report)
{
    if (report.isFinished || !m_runner.IsBusy())
        return;
    m_progress->setRange(0, kProgressSteps);
    m_progress->setValue(static_cast<int>(std::lround(report.fraction * kProgressSteps)));
    const QFontMetrics metrics = m_progress->fontMetrics();
    const int room = kProgressWidth - metrics.horizontalAdvance(QStringLiteral(" 100%")) -
                     2 * metrics.averageCharWidth();
    QString phase = metrics.elidedText(ToQt(report.phase), Qt::ElideMiddle, room);
    // A sign of no width: the bar would take "%p" in a name for its own.
    phase.replace(u'%', QStringLiteral("%\u2060"));
    m_progress->setFormat(phase + QStringLiteral(" %p%"));
}

} // namespace Pellux
