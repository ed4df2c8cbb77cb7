#ifndef PELLUX_WINDOW_CLOSING_H
#define PELLUX_WINDOW_CLOSING_H

#include <QObject>
#include <QPointer>
#include <functional>

QT_BEGIN_NAMESPACE
class QMessageBox;
class QWidget;
QT_END_NAMESPACE

namespace Pellux {

class CommandRunner;
class HeldInput;

/// How the window closes: at once when nothing runs. While something runs the first request waits
/// for its end; the second one offers to end the program at once. @thread Main thread.
class Closing final : public QObject
{
    Q_OBJECT

public:
    /// @param runner  Not owned, as are the others.
    /// @param window  The window that is closed.
    /// @param force   Ends the program; does not come back.
    Closing(CommandRunner& runner, HeldInput& held, QWidget& window, std::function<void()> force);
    ~Closing() override;

    Closing(const Closing&) = delete;
    Closing& operator=(const Closing&) = delete;

Q_SIGNALS:
    /// The window closes once what runs has ended.
    void Waits();

private:
    void onAsked(const QObject* window);
    void offerForce();

    CommandRunner& m_runner;
    HeldInput& m_held;
    QWidget& m_window;
    std::function<void()> m_force;
    bool m_isWaiting = false;         ///< A request waits for the end of what runs.
    QPointer<QMessageBox> m_question; ///< Owned by the window.
};

} // namespace Pellux

#endif
