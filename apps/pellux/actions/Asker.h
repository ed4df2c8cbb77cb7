#ifndef PELLUX_ACTIONS_ASKER_H
#define PELLUX_ACTIONS_ASKER_H

#include <QColor>
#include <QString>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Pellux {

/// Asks the user for what a command needs. An empty answer, or an invalid colour, means that the
/// user thought better of it. @thread Main thread.
class IAsker
{
public:
    virtual ~IAsker();

    /// @param filter  As QFileDialog takes it.
    virtual QString FileToOpen(const QString& title, const QString& filter) = 0;
    virtual QString FileToSave(const QString& title, const QString& filter) = 0;
    virtual QString Folder(const QString& title) = 0;
    virtual QString Text(const QString& title, const QString& label) = 0;
    virtual QColor Color(const QString& title, const QColor& present) = 0;
};

/// Asks by dialogs over the window.
class DialogAsker final : public IAsker
{
public:
    /// @param parent  Not owned; outlives the asker.
    explicit DialogAsker(QWidget& parent);
    ~DialogAsker() override;

    DialogAsker(const DialogAsker&) = delete;
    DialogAsker& operator=(const DialogAsker&) = delete;

    QString FileToOpen(const QString& title, const QString& filter) override;
    QString FileToSave(const QString& title, const QString& filter) override;
    QString Folder(const QString& title) override;
    QString Text(const QString& title, const QString& label) override;
    QColor Color(const QString& title, const QColor& present) override;

private:
    QWidget& m_parent;
    QString m_folder; ///< Of the last answer; the session's default before the first.
};

} // namespace Pellux

#endif
