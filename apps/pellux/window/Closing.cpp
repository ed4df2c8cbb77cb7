#include "window/Closing.h"

#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "runtime/HeldInput.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>
#include <QWindow>
#include <utility>

namespace Pellux {

Closing::Closing(CommandRunner& runner, HeldInput& held, QWidget& window,
                 std::function<void()> force)
    : m_runner(runner), m_held(held), m_window(window), m_force(std::move(force))
{
    connect(&held, &HeldInput::CloseAsked, this,
            [this](const QObject* asked) { Guarded([&] { onAsked(asked); }); });
    connect(&runner, &CommandRunner::BusyChanged, this, [this](bool isBusy) {
        if (isBusy)
            return;
        m_isWaiting = false;
        delete m_question;
    });
}

Closing::~Closing()
{
    delete m_question;
}

void Closing::onAsked(const QObject* window)
{
    if (window != &m_window && window != m_window.windowHandle())
        return;
    if (std::exchange(m_isWaiting, true))
        offerForce();
    else
        Q_EMIT Waits();
}

void Closing::offerForce()
{
    if (m_question != nullptr) {
        m_question->raise();
        return;
    }
    m_question = new QMessageBox(
        QMessageBox::Question, tr("Something still runs"),
        tr("The window closes when what runs has ended. Cancel asks it to end soon. Ending the "
           "program at once loses what was not saved; the journal is kept."),
        QMessageBox::NoButton, &m_window);
    m_question->setObjectName(QStringLiteral("forceQuestion"));
    m_question->setModal(false);
    m_question->setAttribute(Qt::WA_DeleteOnClose);
    QPushButton* const wait = m_question->addButton(tr("&Wait"), QMessageBox::RejectRole);
    QPushButton* const cancel =
        m_question->addButton(tr("&Cancel what runs"), QMessageBox::ActionRole);
    QPushButton* const force =
        m_question->addButton(tr("&End at once"), QMessageBox::DestructiveRole);
    m_question->setDefaultButton(wait);
    m_question->setEscapeButton(wait);
    connect(cancel, &QAbstractButton::clicked, &m_runner,
            [this] { Guarded([this] { m_runner.Cancel(); }); });
    connect(force, &QAbstractButton::clicked, this, [this] { Guarded(m_force); });
    m_held.LetPass(m_question);
    m_question->show();
}

} // namespace Pellux
