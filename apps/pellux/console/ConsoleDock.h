#ifndef PELLUX_CONSOLE_CONSOLEDOCK_H
#define PELLUX_CONSOLE_CONSOLEDOCK_H

#include <QDockWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
class QToolButton;
QT_END_NAMESPACE

namespace Pellux {

class CommandRunner;
class ConsoleInput;
class ConsoleOutput;

/// The console: what was run and printed, and a place to type. @thread Main thread.
class ConsoleDock final : public QDockWidget
{
    Q_OBJECT

public:
    /// @param runner       Not owned; outlives the dock.
    /// @param historyFile  Where typed commands are kept; empty for nowhere.
    ConsoleDock(CommandRunner& runner, const QString& historyFile, QWidget* parent = nullptr);
    ~ConsoleDock() override;

    ConsoleDock(const ConsoleDock&) = delete;
    ConsoleDock& operator=(const ConsoleDock&) = delete;

    ConsoleOutput& Output() { return *m_output; }
    ConsoleInput& Input() { return *m_input; }

    /// Shows the line in which text is searched for.
    void OpenFind();

    /// Puts the forms that were run into the clipboard.
    void CopyAsScript();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeButtons();
    QWidget* makeFindBar();
    QToolButton* addButton(QWidget& bar, const QString& text, const QString& tip);
    void listen();
    void find(bool backward);

    CommandRunner& m_runner;
    ConsoleOutput* m_output; ///< This and what follows: owned by the dock.
    ConsoleInput* m_input;
    QLabel* m_dropped;
    QLabel* m_signature;
    QWidget* m_findBar = nullptr;
    QLineEdit* m_findText = nullptr;
    QLabel* m_findResult = nullptr;
    QToolButton* m_cancel = nullptr;
};

} // namespace Pellux

#endif
