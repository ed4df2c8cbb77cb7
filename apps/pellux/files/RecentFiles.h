#ifndef PELLUX_FILES_RECENTFILES_H
#define PELLUX_FILES_RECENTFILES_H

#include <QString>
#include <QStringList>

namespace Pellux {

/// The files that were loaded last, the latest first, in one file that several windows share.
/// @thread Main thread.
class RecentFiles
{
public:
    /// How many files are kept.
    static constexpr int kKept = 10;

    /// @param file  Where the list is kept; one absolute path a line.
    explicit RecentFiles(QString file);

    /// Puts a file to the front.
    /// @return false when the list cannot be written.
    bool Add(const QString& path);

    /// @return absolute paths; those of other windows too.
    QStringList List() const;

private:
    QString m_file;
};

} // namespace Pellux

#endif
