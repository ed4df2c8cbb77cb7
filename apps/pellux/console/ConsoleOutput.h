#ifndef PELLUX_CONSOLE_CONSOLEOUTPUT_H
#define PELLUX_CONSOLE_CONSOLEOUTPUT_H

#include <QPlainTextEdit>
#include <QTimer>
#include <deque>

namespace Pellux {

/// What a line of the console is.
enum class LineKind
{
    Output,
    Warning,
    Error,
    Echo, ///< A form that was run.
};

/// The text of the console: told apart by colour and by a mark at the start ("> ", "warning: ",
/// "error: "), in light and dark palettes.
///
/// Text is shown in batches. The last kMostLines lines are kept, lines longer than kLongestLine are
/// cut; how many lines went is told. @thread Main thread.
class ConsoleOutput final : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// How many lines are kept.
    static constexpr int kMostLines = 20000;

    /// Characters of a line that are shown.
    static constexpr int kLongestLine = 4000;

    explicit ConsoleOutput(QWidget* parent = nullptr);
    ~ConsoleOutput() override;

    /// Room for two lines; where the screen is small the view is to have the rest.
    QSize minimumSizeHint() const override;

    ConsoleOutput(const ConsoleOutput&) = delete;
    ConsoleOutput& operator=(const ConsoleOutput&) = delete;

    /// Adds a text of one or more lines; shown soon.
    void Append(const QString& text, LineKind kind);

    /// Shows what waits now.
    void Flush();

    /// Forgets every line, and those that wait.
    void Clear();

    /// @return the forms that were run, as a script: those that are marked, else all that are
    ///         kept.
    QString ScriptText();

    /// @return how many lines were dropped since Clear().
    qint64 DroppedLines() const { return m_dropped; }

Q_SIGNALS:
    /// Lines were dropped, or none are dropped any more.
    void DroppedChanged(qint64 lines);

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Line
    {
        QString text;
        LineKind kind;
    };

    void addLine(QStringView line, LineKind kind, bool isFirst);
    void insertPending();
    void drop(qint64 lines);
    QTextCharFormat formatOf(LineKind kind) const;

    std::deque<Line> m_pending;
    QTimer m_timer;
    qint64 m_dropped = 0;
};

} // namespace Pellux

#endif
