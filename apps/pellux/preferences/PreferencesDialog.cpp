#include "preferences/PreferencesDialog.h"

#include "preferences/NavigationEditor.h"
#include "preferences/Preferences.h"
#include "preferences/ShortcutEditor.h"
#include "runtime/Guarded.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QMap>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace Pellux {
namespace {

QString pageTitle(const QString& section)
{
    static const QMap<QString, QString>& titles = *new QMap<QString, QString>{
        {QStringLiteral("colors"), PreferencesDialog::tr("Colours")},
        {QStringLiteral("display"), PreferencesDialog::tr("Display")},
        {QStringLiteral("tessellation"), PreferencesDialog::tr("Tessellation")},
        {QStringLiteral("loading"), PreferencesDialog::tr("Loading")},
        {QStringLiteral("navigation"), PreferencesDialog::tr("Navigation")},
        {QStringLiteral("directories"), PreferencesDialog::tr("Folders")},
    };
    return titles.value(section);
}

} // namespace

PreferencesDialog::PreferencesDialog(Preferences& preferences, QWidget* parent)
    : QDialog(parent),
      m_preferences(preferences),
      m_pages(new QTabWidget(this)),
      m_navigation(new NavigationEditor(this)),
      m_shortcuts(new ShortcutEditor(this))
{
    setWindowTitle(tr("Preferences"));
    setModal(true);
    // Every page is to be seen from the start.
    m_pages->setUsesScrollButtons(false);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(m_pages, 1);
    makePages();
    makeButtons();
    column->addWidget(m_buttons);
    show(preferences.Present());
}

void PreferencesDialog::showEvent(QShowEvent* event)
{
    Guarded([this] { show(m_preferences.Present()); });
    QDialog::showEvent(event);
}

PreferencesDialog::~PreferencesDialog() = default;

void PreferencesDialog::makePages()
{
    QFormLayout* page = nullptr;
    QString section;
    for (const Preference& preference : PreferenceTable()) {
        if (page == nullptr || preference.section != section) {
            auto* const content = new QWidget(m_pages);
            page = new QFormLayout(content);
            section = preference.section;
            m_pages->addTab(content, pageTitle(section));
        }
        m_editors.push_back(MakePreferenceEditor(preference, page->parentWidget()));
        page->addRow(preference.label, m_editors.back().widget);
        if (section == QStringLiteral("navigation"))
            page->addRow(m_navigation);
        else if (section == QStringLiteral("loading") && page->rowCount() == 1)
            page->insertRow(0, new QLabel(tr("Both act on the next file that is loaded.")));
    }
    m_pages->addTab(m_shortcuts, tr("Shortcuts"));
}

void PreferencesDialog::makeButtons()
{
    using Box = QDialogButtonBox;
    m_buttons = new Box(Box::Ok | Box::Apply | Box::Cancel | Box::RestoreDefaults, this);
    connect(m_buttons, &Box::accepted, this, &PreferencesDialog::accept);
    connect(m_buttons, &Box::rejected, this, &PreferencesDialog::reject);
    connect(m_buttons->button(Box::Apply), &QPushButton::clicked, this,
            [this] { Guarded([this] { Apply(); }); });
    connect(m_buttons->button(Box::RestoreDefaults), &QPushButton::clicked, this,
            [this] { Guarded([this] { RestoreDefaults(); }); });
    const auto enable = [this] {
        const bool isGood = m_shortcuts->IsGood() && m_navigation->IsGood();
        m_buttons->button(Box::Ok)->setEnabled(isGood);
        m_buttons->button(Box::Apply)->setEnabled(isGood);
    };
    connect(m_shortcuts, &ShortcutEditor::Checked, this, enable);
    connect(m_navigation, &NavigationEditor::Checked, this, enable);
}

void PreferencesDialog::show(const PreferenceContents& contents)
{
    for (std::size_t i = 0; i < m_editors.size(); ++i)
        m_editors[i].set(ValueOf(contents.values, PreferenceTable()[i]));
    m_navigation->Set(contents.navigation);
    m_shortcuts->Set(contents.shortcuts);
}

void PreferencesDialog::RestoreDefaults()
{
    show({});
}

bool PreferencesDialog::Apply()
{
    PreferenceContents contents;
    contents.shortcuts = m_shortcuts->Get();
    contents.navigation = m_navigation->Get();
    for (std::size_t i = 0; i < m_editors.size(); ++i) {
        const Preference& preference = PreferenceTable()[i];
        const QString text = m_editors[i].get();
        if (text != preference.defaultText && preference.IsValid(text))
            contents.values[{preference.section, preference.key}] = text;
    }
    QString errorText;
    if (m_preferences.Change(contents, errorText))
        return true;
    QMessageBox::warning(this, windowTitle(), errorText);
    return false;
}

void PreferencesDialog::accept()
{
    Guarded([this] {
        if (Apply())
            QDialog::accept();
    });
}

} // namespace Pellux
