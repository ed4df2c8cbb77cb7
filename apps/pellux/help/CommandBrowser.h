#ifndef PELLUX_HELP_COMMANDBROWSER_H
#define PELLUX_HELP_COMMANDBROWSER_H

#include <QWidget>

QT_BEGIN_NAMESPACE
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
QT_END_NAMESPACE

namespace Pellux {

/// The reference of all commands, with a search in names and texts. @thread Main thread.
class CommandBrowser final : public QWidget
{
    Q_OBJECT

public:
    explicit CommandBrowser(QWidget* parent);
    ~CommandBrowser() override;

    CommandBrowser(const CommandBrowser&) = delete;
    CommandBrowser& operator=(const CommandBrowser&) = delete;

    /// Lists what holds a text, in its name first; everything for the empty text.
    void Search(const QString& text);

    QListWidget& List() { return *m_list; }
    QPlainTextEdit& Text() { return *m_text; }

private:
    void showHelp();

    QLineEdit* m_search; ///< This and what follows: owned by the panel.
    QListWidget* m_list;
    QPlainTextEdit* m_text;
};

} // namespace Pellux

#endif
