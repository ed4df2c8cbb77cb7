#ifndef PELLUX_CONSOLE_CONSOLEHISTORY_H
#define PELLUX_CONSOLE_CONSOLEHISTORY_H

#include <QString>
#include <QStringList>

namespace Pellux {

/// The commands that were typed, kept over runs in one file that several windows may share: each
/// adds at its end, under a lock, and takes away the oldest beyond the limit.
///
/// One command a line; "\\n" stands for a line end in it and "\\\\" for a backslash.
/// @thread Main thread.
class ConsoleHistory
{
public:
    /// How many commands are kept.
    static constexpr int kKept = 1000;

    /// Longest command that is kept, characters.
    static constexpr int kLongest = 20000;

    /// @param file  Path of the file; its folder is made where it is missing. Empty keeps the
    ///              commands of this run only.
    explicit ConsoleHistory(QString file);

    /// Adds a command, unless it is empty or the same as the last one.
    ///
    /// @return false when the file cannot be written; ErrorText() then says why.
    bool Add(const QString& command);

    /// The command before (older) or after (newer) the one shown last.
    ///
    /// @param shown  What stands in the input now; it is given back behind the newest command.
    /// @return a null text at the end of the history.
    QString Older(const QString& shown);
    QString Newer();

    const QStringList& Commands() const { return m_commands; }
    const QString& ErrorText() const { return m_errorText; }

private:
    QStringList read() const;
    bool append(const QString& command);

    QString m_file;
    QStringList m_commands; ///< Oldest first.
    QString m_errorText;
    QString m_unfinished;  ///< What stood in the input before the history was gone through.
    qsizetype m_index = 0; ///< Into m_commands; its size while none is shown.
};

} // namespace Pellux

#endif
