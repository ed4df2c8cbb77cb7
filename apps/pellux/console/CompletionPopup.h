#ifndef PELLUX_CONSOLE_COMPLETIONPOPUP_H
#define PELLUX_CONSOLE_COMPLETIONPOPUP_H

#include <QFrame>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QLabel;
class QListWidget;
QT_END_NAMESPACE

namespace Pellux {

/// The names that a word may become, with signature and help of the one that is marked. Never has
/// the focus: the input hands it keys. @thread Main thread.
class CompletionPopup final : public QFrame
{
    Q_OBJECT

public:
    explicit CompletionPopup(QWidget* parent);
    ~CompletionPopup() override;

    CompletionPopup(const CompletionPopup&) = delete;
    CompletionPopup& operator=(const CompletionPopup&) = delete;

    /// Shows what the word may become; hides when there is nothing but the word itself.
    ///
    /// @param place   Where the word stands, in global coordinates; the list opens above it.
    /// @param asked   Whether the user has asked for it: Return then takes the marked name.
    void Open(const QString& word, const QPoint& place, bool asked);

    /// Does what a key of the list does: arrows, page keys, Tab, Return, Escape.
    /// @return false when the key is none of the list's.
    bool TakeKey(const QKeyEvent& event);

    /// @return the marked name; empty when the list is hidden.
    QString Marked() const;

Q_SIGNALS:
    /// A name was taken.
    void Chosen(const QString& name);

private:
    void move(int steps);
    void choose();
    void showHelp();

    QListWidget* m_list; ///< Owned by the frame, as is the label.
    QLabel* m_help;
    bool m_takesReturn = false; ///< Return takes the marked name instead of running the command.
};

/// What is known of an extension of the script language.
/// @return an empty text for a name that nobody has described.
QString ExtensionHelp(const QString& name);

} // namespace Pellux

#endif
