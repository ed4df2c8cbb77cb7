#ifndef PELLUX_RUNTIME_COMMANDRUNNER_H
#define PELLUX_RUNTIME_COMMANDRUNNER_H

#include <QObject>
#include <QString>
#include <QTimer>

namespace OrvikCore {
class KeyEventArgs;
} // namespace OrvikCore

namespace Pellux {

class HostRuntime;

/// The one way from a menu, a key, a button or the console to what happens: script text, run by the
/// shell as jobs, one top-level form after the other, each echoed before it runs.
///
/// What the script has asked of mouse and keys is played after each form. Results, output and
/// errors reach the session's listeners; see Printed(). @thread Main thread.
class CommandRunner final : public QObject
{
    Q_OBJECT

public:
    /// @param host  Not owned; started before the first Run() and stopped after the last.
    explicit CommandRunner(HostRuntime& host);
    ~CommandRunner() override;

    CommandRunner(const CommandRunner&) = delete;
    CommandRunner& operator=(const CommandRunner&) = delete;

    /// The start begins (true) or has ended: until it has, nothing can be run.
    void SetStarting(bool isStarting);

    /// Runs every form of a text until one fails. Waits for the end while windows stay alive; what
    /// is typed meanwhile is held. Nothing while something runs.
    ///
    /// @param text    Script text.
    /// @param source  Named in error messages: "console", "menu" or a file.
    /// @return true when every form ran without an error; false also while something runs.
    bool Run(const QString& text, const QString& source = QStringLiteral("menu"));

    /// Runs a script file.
    bool RunFile(const QString& path);

    /// Runs something that is no script but waits for the worker too, such as a mouse click on the
    /// view, with the same care: busy meanwhile, output shown afterwards. Nothing while something
    /// runs.
    template <typename Function> void RunOther(Function&& function)
    {
        if (m_isRunning)
            return;
        const Scope scope(*this);
        function();
    }

    /// Runs what a motion or a button does, which nobody is told of: nothing else can start
    /// meanwhile, should it wait for the worker. While something runs it runs beside that, and
    /// must start no job.
    template <typename Function> void RunQuietly(Function&& function)
    {
        const Quiet quiet(*this);
        function();
    }

    /// Hands a key to the hotkeys of the configuration or to the view. Nothing while something
    /// runs.
    void PlayKey(const OrvikCore::KeyEventArgs& key);

    /// No button is held any more: what the mouse has done goes into the journal. Nothing while
    /// something runs; the next form does it then.
    void EndGesture();

    /// Tells whether something runs: a script or a click, or a motion that waits for the worker.
    /// Work on the side does not count: it gives way, see AboutToRun().
    bool IsRunning() const { return m_isRunning; }

    /// Tells whether something runs, or the worker is not idle yet.
    bool IsBusy() const;

    /// Asks for the end of what runs; also of the forms behind it.
    void Cancel();

    /// Tells whether Cancel() was called since what runs has begun.
    bool IsCancelled() const { return m_isCancelled; }

    /// Shows what was printed so far; for the host's own output. Called by the session's listener.
    void Print(const QString& text, int messageType);

Q_SIGNALS:
    /// Something is about to run: whoever uses the worker on the side is to let go of it.
    void AboutToRun();

    /// Something begins or has ended to run. Actions that change something are off meanwhile.
    void BusyChanged(bool isBusy);

    /// A form is about to run.
    void Echoed(const QString& form);

    /// Something was printed.
    /// @param messageType  A value of OrvikCore::MessageType.
    void Printed(const QString& text, int messageType);

    /// A script or a click has ended: what is loaded, shown, picked and selected may be another.
    void StateChanged();

private:
    class Scope
    {
    public:
        explicit Scope(CommandRunner& runner);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        CommandRunner& m_runner;
    };

    class Quiet
    {
    public:
        explicit Quiet(CommandRunner& runner);
        ~Quiet();
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

    private:
        CommandRunner& m_runner;
        bool m_wasRunning;
    };

    bool runForms(const QString& text, const QString& source);
    bool playInput();

    HostRuntime& m_host;
    bool m_isRunning = false;
    bool m_isCancelled = false; ///< What runs now is not to go on.
    QTimer m_cancelAgain;       ///< A job that has not begun cannot be cancelled yet.
};

} // namespace Pellux

#endif
