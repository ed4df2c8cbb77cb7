#ifndef PELLUX_FILES_FILENOTICE_H
#define PELLUX_FILES_FILENOTICE_H

#include <QFrame>

QT_BEGIN_NAMESPACE
class QLabel;
class QMainWindow;
QT_END_NAMESPACE

namespace Pellux {

/// Says in the upper part of the view why a file could not be read or written, until it is
/// closed or the next file is tried. Its text can be marked and copied. @thread Main thread.
class FileNotice final : public QFrame
{
    Q_OBJECT

public:
    /// @param window  Has the view as a child of that name. Owns the notice.
    explicit FileNotice(QMainWindow* window);
    ~FileNotice() override;

    FileNotice(const FileNotice&) = delete;
    FileNotice& operator=(const FileNotice&) = delete;

    void Show(const QString& text);
    QString Text() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QWidget* m_window; ///< Not owned.
    QWidget* m_view;   ///< Not owned.
    QLabel* m_text;    ///< Owned by the frame.
    QString m_whole;
};

} // namespace Pellux

#endif
