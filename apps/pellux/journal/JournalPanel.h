#ifndef PELLUX_JOURNAL_JOURNALPANEL_H
#define PELLUX_JOURNAL_JOURNALPANEL_H

#include <QString>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;
QT_END_NAMESPACE

namespace Pellux {

class CommandRunner;
class HostRuntime;
struct ReplayedPick;
struct ReplayOutcome;

/// Shows the journal of this run as it grows, or one of an earlier run; saves and replays it. A
/// replay closes what is loaded and repeats each form; a table says for each pick whether it found
/// the same, something moved, something else, or nothing. @thread Main thread.
class JournalPanel final : public QWidget
{
    Q_OBJECT

public:
    /// @param runner, host  Not owned; outlive the panel.
    JournalPanel(CommandRunner& runner, HostRuntime& host, QWidget* parent);
    ~JournalPanel() override;

    JournalPanel(const JournalPanel&) = delete;
    JournalPanel& operator=(const JournalPanel&) = delete;

    /// Shows the journal of an earlier run.
    /// @return false when it cannot be read; the panel then says so.
    bool Open(const QString& path);

    /// Shows the journal of this run.
    void ShowCurrent();

    /// Writes what is shown to a file.
    bool Save(const QString& path);

    /// Replays what is shown. Nothing while something runs.
    void Replay();

    /// @return what the last replay ended with, as the panel says it.
    QString Summary() const;

    QTableWidget& Table() { return *m_table; }
    QString Text() const;

private:
    QPushButton* addButton(const QString& text, const QString& tip);
    void makeButtons();
    void refresh();
    void runReplay(const std::wstring& text, const QString& path);
    void addPick(const ReplayedPick& pick);
    void tell(const ReplayOutcome& outcome);

    CommandRunner& m_runner;
    HostRuntime& m_host;
    QString m_opened; ///< Path of an earlier journal; empty for that of this run.
    QLabel* m_path;   ///< This and what follows: owned by the panel.
    QPlainTextEdit* m_text;
    QTableWidget* m_table;
    QLabel* m_summary;
    QWidget* m_buttons;
};

} // namespace Pellux

#endif
