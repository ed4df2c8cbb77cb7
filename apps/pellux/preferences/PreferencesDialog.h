#ifndef PELLUX_PREFERENCES_PREFERENCESDIALOG_H
#define PELLUX_PREFERENCES_PREFERENCESDIALOG_H

#include "preferences/PreferenceEditor.h"
#include "preferences/PreferenceFile.h"

#include <QDialog>
#include <vector>

QT_BEGIN_NAMESPACE
class QDialogButtonBox;
class QTabWidget;
QT_END_NAMESPACE

namespace Pellux {

class NavigationEditor;
class Preferences;
class ShortcutEditor;

/// Shows the preferences and changes them on OK or Apply. @thread Main thread.
class PreferencesDialog final : public QDialog
{
    Q_OBJECT

public:
    /// @param preferences  Not owned; outlive the dialog.
    explicit PreferencesDialog(Preferences& preferences, QWidget* parent = nullptr);
    ~PreferencesDialog() override;

    PreferencesDialog(const PreferencesDialog&) = delete;
    PreferencesDialog& operator=(const PreferencesDialog&) = delete;

    /// Makes what is shown hold. @return false when it cannot be kept.
    bool Apply();

    /// Shows the defaults; they hold on OK or Apply.
    void RestoreDefaults();

    void accept() override;

protected:
    /// What holds now is shown each time.
    void showEvent(QShowEvent* event) override;

private:
    void makePages();
    void makeButtons();
    void show(const PreferenceContents& contents);

    Preferences& m_preferences;
    QTabWidget* m_pages; ///< These four are owned as children.
    NavigationEditor* m_navigation;
    ShortcutEditor* m_shortcuts;
    QDialogButtonBox* m_buttons = nullptr;
    std::vector<PreferenceEditor> m_editors; ///< As many as PreferenceTable() has, in its order.
};

} // namespace Pellux

#endif
