#ifndef PELLUX_PREFERENCES_SHORTCUTEDITOR_H
#define PELLUX_PREFERENCES_SHORTCUTEDITOR_H

#include "preferences/PreferenceFile.h"

#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QTableWidget;
QT_END_NAMESPACE

namespace Pellux {

/// Edits shortcuts and the scripts they run, and says what is wrong with them while that is typed.
/// @thread Main thread.
class ShortcutEditor final : public QWidget
{
    Q_OBJECT

public:
    explicit ShortcutEditor(QWidget* parent = nullptr);
    ~ShortcutEditor() override;

    ShortcutEditor(const ShortcutEditor&) = delete;
    ShortcutEditor& operator=(const ShortcutEditor&) = delete;

    void Set(const Shortcuts& shortcuts);
    /// @return the rows; empty ones are left out.
    Shortcuts Get() const;
    bool IsGood() const { return m_isGood; }

Q_SIGNALS:
    void Checked(bool isGood);

private:
    void addRow(const QString& keys, const QString& script);
    void removeRows();
    void check();

    QTableWidget* m_table; ///< Owned as a child, as the label.
    QLabel* m_errors;
    bool m_isGood = true;
};

} // namespace Pellux

#endif
