#ifndef PELLUX_PREFERENCES_NAVIGATIONEDITOR_H
#define PELLUX_PREFERENCES_NAVIGATIONEDITOR_H

#include "preferences/PreferenceFile.h"

#include <QWidget>

QT_BEGIN_NAMESPACE
class QComboBox;
class QLabel;
class QTableWidget;
QT_END_NAMESPACE

namespace Pellux {

/// Edits the user's own rows of what the mouse does: buttons, modifier keys and an action each.
/// @thread Main thread.
class NavigationEditor final : public QWidget
{
    Q_OBJECT

public:
    explicit NavigationEditor(QWidget* parent = nullptr);
    ~NavigationEditor() override;

    NavigationEditor(const NavigationEditor&) = delete;
    NavigationEditor& operator=(const NavigationEditor&) = delete;

    /// @param rows  Good ones; see CheckNavigation().
    void Set(const NavigationRows& rows);
    NavigationRows Get() const;
    bool IsGood() const { return m_isGood; }

    /// Adds a row, as the button does.
    void Add(const QString& buttons, const QString& action);

Q_SIGNALS:
    void Checked(bool isGood);

private:
    void layOut();
    QComboBox* addChoice(int row, int column, const QStringList& choices, const QString& chosen);
    void removeRows();
    void check();

    QTableWidget* m_table; ///< Owned as a child, as the label.
    QLabel* m_errors;
    bool m_isGood = true;
};

} // namespace Pellux

#endif
