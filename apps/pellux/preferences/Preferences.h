#ifndef PELLUX_PREFERENCES_PREFERENCES_H
#define PELLUX_PREFERENCES_PREFERENCES_H

#include "preferences/PreferenceFile.h"

#include <QObject>
#include <QTimer>

namespace Pellux {

class CommandRunner;
class HostRuntime;

/// The preferences of the user: read from their file, applied by script commands, written back.
/// @thread Main thread.
class Preferences final : public QObject
{
    Q_OBJECT

public:
    /// @param path          Of the file; empty when there is none and nothing is to be kept.
    /// @param runner, host  Not owned; outlive this object.
    Preferences(const QString& path, CommandRunner& runner, HostRuntime& host,
                QObject* parent = nullptr);
    ~Preferences() override;

    Preferences(const Preferences&) = delete;
    Preferences& operator=(const Preferences&) = delete;

    /// What holds now.
    const PreferenceContents& Contents() const { return m_contents; }

    /// The same, but with what scripts have made of preferences that can be asked for.
    PreferenceContents Present() const;

    /// Reads the file and runs the commands that lead there from what holds; at once, or when what
    /// runs has ended. Mistakes in the file are printed as errors.
    void Read();

    /// Makes other preferences hold: keeps them in the file and runs the commands.
    ///
    /// @param errorText  Receives the reason when the file cannot be written; they hold for this
    ///                   run all the same.
    bool Change(const PreferenceContents& contents, QString& errorText);

private:
    void apply(const PreferenceContents& contents);
    void keepBrokenFile();

    QString m_path;
    CommandRunner& m_runner;
    HostRuntime& m_host;
    PreferenceContents m_contents;
    bool m_isBroken = false; ///< The file has mistakes; it is kept when it is written.
    QTimer m_again;          ///< Reading waits for what runs.
};

} // namespace Pellux

#endif
