#include "console/ConsoleDock.h"

#include "console/ConsoleInput.h"
#include "console/ConsoleOutput.h"
#include "runtime/CommandRunner.h"
#include "runtime/FirstFocus.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"

#include <OrvikCore/MessageType.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace Pellux {
namespace {

LineKind kindOf(int messageType)
{
    switch (static_cast<OrvikCore::MessageType>(messageType)) {
    case OrvikCore::MessageType::Warning:
        return LineKind::Warning;
    case OrvikCore::MessageType::Error:
        return LineKind::Error;
    default:
        return LineKind::Output;
    }
}

} // namespace

ConsoleDock::ConsoleDock(CommandRunner& runner, const QString& historyFile, QWidget* parent)
    : QDockWidget(tr("Console"), parent),
      m_runner(runner),
      m_output(new ConsoleOutput(this)),
      m_input(new ConsoleInput(historyFile, this)),
      m_dropped(new QLabel(this)),
      m_signature(new QLabel(this))
{
    setObjectName(QStringLiteral("console"));
    setAllowedAreas(Qt::AllDockWidgetAreas);
    m_dropped->setVisible(false);
    m_dropped->setAccessibleName(tr("Dropped lines"));
    m_signature->setVisible(false);
    m_signature->setTextFormat(Qt::PlainText);
    m_signature->setAccessibleName(tr("Signature"));
    m_signature->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* const content = new QWidget(this);
    auto* const layout = new QVBoxLayout(content);
    layout->setContentsMargins(4, 2, 4, 4);
    layout->setSpacing(2);
    layout->addWidget(makeButtons());
    layout->addWidget(m_dropped);
    layout->addWidget(m_output, 1);
    layout->addWidget(makeFindBar());
    layout->addWidget(m_signature);
    layout->addWidget(m_input);
    setWidget(content);
    // From top to bottom.
    setTabOrder(m_cancel, m_output);
    setTabOrder(m_output, m_findText);
    setTabOrder(m_findText, m_input);
    SetFirstFocus(*content, *m_input);
    content->installEventFilter(this);
    m_output->installEventFilter(this);
    m_input->installEventFilter(this);
    listen();
}

ConsoleDock::~ConsoleDock() = default;

QToolButton* ConsoleDock::addButton(QWidget& bar, const QString& text, const QString& tip)
{
    auto* const button = new QToolButton(&bar);
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    bar.layout()->addWidget(button);
    return button;
}

QWidget* ConsoleDock::makeButtons()
{
    auto* const bar = new QWidget(this);
    auto* const layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    connect(addButton(*bar, tr("Clear"), tr("Clear the console")), &QToolButton::clicked, this,
            [this] { Guarded([this] { m_output->Clear(); }); });
    connect(addButton(*bar, tr("Copy as script"),
                      tr("Copy the commands that were run, without their output")),
            &QToolButton::clicked, this, [this] { Guarded([this] { CopyAsScript(); }); });
    connect(addButton(*bar, tr("Find"), tr("Find text in the console (Ctrl+F)")),
            &QToolButton::clicked, this, [this] { Guarded([this] { OpenFind(); }); });
    m_cancel = addButton(*bar, tr("Cancel"), tr("Cancel what runs (Escape)"));
    m_cancel->setEnabled(false);
    connect(m_cancel, &QToolButton::clicked, this,
            [this] { Guarded([this] { m_runner.Cancel(); }); });
    layout->addStretch(1);
    return bar;
}

QWidget* ConsoleDock::makeFindBar()
{
    m_findBar = new QWidget(this);
    auto* const layout = new QHBoxLayout(m_findBar);
    layout->setContentsMargins(0, 0, 0, 0);
    m_findText = new QLineEdit(m_findBar);
    m_findText->setPlaceholderText(tr("Find"));
    m_findText->setAccessibleName(tr("Text to find"));
    m_findText->setClearButtonEnabled(true);
    m_findText->installEventFilter(this);
    layout->addWidget(m_findText, 1);
    connect(m_findText, &QLineEdit::returnPressed, this,
            [this] { Guarded([this] { find(/*backward=*/true); }); });
    connect(addButton(*m_findBar, tr("Previous"), tr("Find the text further up")),
            &QToolButton::clicked, this, [this] { Guarded([this] { find(/*backward=*/true); }); });
    connect(addButton(*m_findBar, tr("Next"), tr("Find the text further down")),
            &QToolButton::clicked, this, [this] { Guarded([this] { find(/*backward=*/false); }); });
    m_findResult = new QLabel(m_findBar);
    layout->addWidget(m_findResult);
    m_findBar->setVisible(false);
    return m_findBar;
}

void ConsoleDock::listen()
{
    connect(&m_runner, &CommandRunner::Echoed, this, [this](const QString& form) {
        Guarded([&] { m_output->Append(form, LineKind::Echo); });
    });
    connect(&m_runner, &CommandRunner::Printed, this, [this](const QString& text, int type) {
        Guarded([&] { m_output->Append(text, kindOf(type)); });
    });
    connect(&m_runner, &CommandRunner::BusyChanged, this, [this](bool isBusy) {
        Guarded([&] {
            m_input->SetBusy(isBusy);
            m_cancel->setEnabled(isBusy);
        });
    });
    connect(m_input, &ConsoleInput::Submitted, this, [this](const QString& text) {
        Guarded([&] { m_runner.Run(text, QStringLiteral("console")); });
    });
    connect(m_input, &ConsoleInput::Warned, this, [this](const QString& text) {
        Guarded([&] { m_output->Append(text, LineKind::Warning); });
    });
    connect(m_input, &ConsoleInput::HelpChanged, this, [this](const QString& help) {
        // The first line is the signature.
        m_signature->setText(help.section(u'\n', 0, 0));
        m_signature->setVisible(!help.isEmpty());
        m_signature->setToolTip(PlainToolTip(help));
    });
    connect(m_output, &ConsoleOutput::DroppedChanged, this, [this](qint64 lines) {
        m_dropped->setText(tr("%L1 older lines were dropped").arg(lines));
        m_dropped->setVisible(lines > 0);
    });
}

void ConsoleDock::CopyAsScript()
{
    QGuiApplication::clipboard()->setText(m_output->ScriptText());
}

void ConsoleDock::OpenFind()
{
    m_findBar->setVisible(true);
    m_findText->setFocus();
    m_findText->selectAll();
}

void ConsoleDock::find(bool backward)
{
    m_output->Flush();
    QTextDocument::FindFlags flags;
    flags.setFlag(QTextDocument::FindBackward, backward);
    bool isFound = m_output->find(m_findText->text(), flags);
    if (!isFound) {
        // From the other end once more.
        QTextCursor cursor = m_output->textCursor();
        cursor.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
        m_output->setTextCursor(cursor);
        isFound = m_output->find(m_findText->text(), flags);
    }
    m_findResult->setText(isFound ? QString() : tr("not found"));
}

bool ConsoleDock::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDockWidget::eventFilter(watched, event);
    bool isTaken = false;
    Guarded([&] {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.matches(QKeySequence::Find)) {
            OpenFind();
            isTaken = true;
        } else if (watched == m_findText && key.key() == Qt::Key_Escape) {
            m_findBar->setVisible(false);
            m_input->setFocus();
            isTaken = true;
        }
    });
    return isTaken || QDockWidget::eventFilter(watched, event);
}

} // namespace Pellux
