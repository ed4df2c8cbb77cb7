#ifndef PELLUX_CONSOLE_CONSOLEINPUT_H
#define PELLUX_CONSOLE_CONSOLEINPUT_H

#include "console/ConsoleHistory.h"

#include <QPlainTextEdit>

namespace Pellux {

class CompletionPopup;

/// Where commands are typed.
///
/// Return runs what is whole and makes a new line in what is not; Shift+Return always makes a new
/// line, Ctrl+Return always runs. Up and Down in the first and last line go through the history.
/// Tab and Ctrl+Space complete; Shift+Tab leaves the input, and Tab while it is empty. The
/// bracket that belongs to the one at the cursor is marked. @thread Main thread.
class ConsoleInput final : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// @param historyFile  See ConsoleHistory.
    explicit ConsoleInput(const QString& historyFile, QWidget* parent = nullptr);
    ~ConsoleInput() override;

    ConsoleInput(const ConsoleInput&) = delete;
    ConsoleInput& operator=(const ConsoleInput&) = delete;

    /// Takes no more text while something runs; keeps the focus, so that what is typed meanwhile
    /// arrives afterwards.
    void SetBusy(bool isBusy);

    CompletionPopup& Popup() { return *m_popup; }
    ConsoleHistory& History() { return m_history; }

Q_SIGNALS:
    /// A command is to run; the input is empty already.
    void Submitted(const QString& text);

    /// The form at the cursor may be another.
    /// @param help  Of the command whose arguments are typed; empty for none.
    void HelpChanged(const QString& help);

    /// Somebody should know.
    void Warned(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    bool takeReturn(const QKeyEvent& event);
    bool takeHistory(const QKeyEvent& event);
    void submit();
    void newLine();
    void complete(bool asked);
    void insertName(const QString& name);
    void markBrackets();
    void tellHelp();
    void show(const QString& command);
    int heightOf(int lines) const;

    ConsoleHistory m_history;
    CompletionPopup* m_popup; ///< Owned by the input.
};

/// Asks the script engine whether a text ends inside a form.
bool IsUnfinished(const QString& text);

} // namespace Pellux

#endif
