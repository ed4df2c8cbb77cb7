#include "WindowFixture.h"

#include <actions/WindowState.h>
#include <preferences/NavigationEditor.h>
#include <preferences/Preferences.h>
#include <preferences/PreferencesDialog.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>

namespace {

class PreferencesWindow : public WindowFixture
{
protected:
    void writeFile(const char* text) { Dir().Write("config/pellux/window.toml", text); }

    /// Opens the window and waits until its file was read.
    void openAndRead()
    {
        Open();
        EXPECT_TRUE(Until([this] { return !echoed.isEmpty() || !errors.isEmpty(); }));
    }

    Pellux::Preferences& preferences() { return Window().UserPreferences(); }

    Pellux::PreferencesDialog& dialog()
    {
        if (!m_dialog)
            m_dialog = std::make_unique<Pellux::PreferencesDialog>(preferences());
        return *m_dialog;
    }

    template <typename Widget> Widget& editor(const char* name)
    {
        return *dialog().findChild<Widget*>(QLatin1String(name));
    }

    void TearDown() override { m_dialog.reset(); }

private:
    std::unique_ptr<Pellux::PreferencesDialog> m_dialog;
};

TEST_F(PreferencesWindow, HoldFromTheStartByCommands)
{
    writeFile("[display]\nantialiasing = 4\n[colors]\nhighlight = \"#00ff00\"\n");

    openAndRead();

    EXPECT_EQ(echoed, (QStringList{QStringLiteral("(app:set-highlight-color! '(0 255 0))"),
                                   QStringLiteral("(app:antialiasing 4)")}))
        << qPrintable(errors.join(u'\n'));
    printed.clear();
    EXPECT_TRUE(Do("(app:print (app:highlight-color))"));
    EXPECT_TRUE(printed.join(u'\n').contains(QStringLiteral("0 255 0")))
        << qPrintable(printed.join(u'\n'));
}

TEST_F(PreferencesWindow, RunNoCommandWithoutAFile)
{
    Open();

    EXPECT_TRUE(echoed.isEmpty());
}

TEST_F(PreferencesWindow, ThatAreBrokenAreReportedAndDoNotStopTheStart)
{
    writeFile("[colors\n");

    openAndRead();

    ASSERT_FALSE(errors.isEmpty());
    EXPECT_TRUE(errors[0].contains(QStringLiteral("window.toml:1:")));
}

TEST_F(PreferencesWindow, ThatAreBrokenAreKeptBesideTheNewOnes)
{
    writeFile("[colors\n");
    openAndRead();

    EXPECT_TRUE(dialog().Apply());

    EXPECT_TRUE(std::filesystem::exists(Dir().Path() / "config/pellux/window.toml.broken"));
}

TEST_F(PreferencesWindow, AreSetByTheDialogAndKept)
{
    Open();
    editor<QSpinBox>("display.antialiasing").setValue(2);

    EXPECT_TRUE(dialog().Apply());

    EXPECT_EQ(echoed, QStringList{QStringLiteral("(app:antialiasing 2)")});
    QString reason;
    const QString file =
        QString::fromStdString((Dir().Path() / "config/pellux/window.toml").string());
    EXPECT_EQ(Pellux::ReadPreferences(file, reason), preferences().Contents());
    EXPECT_EQ(preferences().Contents().values.size(), 1);
}

TEST_F(PreferencesWindow, GoBackToTheDefaults)
{
    writeFile("[display]\nedges = false\n");
    openAndRead();
    echoed.clear();

    dialog().RestoreDefaults();
    EXPECT_TRUE(dialog().Apply());

    EXPECT_EQ(echoed, QStringList{QStringLiteral("(view:display-edges #t)")});
    EXPECT_TRUE(preferences().Contents().values.isEmpty());
}

TEST_F(PreferencesWindow, AreReadAgainWhenAScriptAsksForIt)
{
    Open();
    writeFile("[display]\nantialiasing = 8\n");

    EXPECT_TRUE(Do("(app:update-preferences)"));

    EXPECT_TRUE(Until([this] { return echoed.size() == 2; }));
    EXPECT_EQ(echoed.back(), QStringLiteral("(app:antialiasing 8)"));
}

TEST_F(PreferencesWindow, MakeEdgesWiderAndMovesShorter)
{
    Open();
    editor<QDoubleSpinBox>("display.line-width").setValue(3.0);
    editor<QSpinBox>("display.animation-steps").setValue(5);

    EXPECT_TRUE(dialog().Apply());

    EXPECT_EQ(echoed, (QStringList{QStringLiteral("(app:line-width 3)"),
                                   QStringLiteral("(app:animation-steps 5)")}));
    printed.clear();
    EXPECT_TRUE(Do("(app:print (list (app:line-width) (app:animation-steps)))"));
    EXPECT_TRUE(printed.join(u'\n').contains(QStringLiteral("(3 5)")))
        << qPrintable(printed.join(u'\n'));
}

TEST_F(PreferencesWindow, LayOwnRowsOfTheMouseOverAPreset)
{
    Open();
    editor<QComboBox>("navigation.preset").setCurrentText(QStringLiteral("middle-rotates"));
    editor<Pellux::NavigationEditor>("navigation.rows")
        .Add(QStringLiteral("Ctrl-Alt-left"), QStringLiteral("pan"));

    EXPECT_TRUE(dialog().Apply());

    EXPECT_EQ(echoed, QStringList{QStringLiteral("(app:navigation-table '((\"Ctrl-Alt-left\" "
                                                 "\"pan\")) \"middle-rotates\")")});
    EXPECT_EQ(Pellux::WindowState::Navigation(), QStringLiteral("custom"));

    dialog().RestoreDefaults();
    EXPECT_TRUE(dialog().Apply());

    EXPECT_EQ(echoed.back(), QStringLiteral("(app:navigation-table '() \"default\")"));
    EXPECT_EQ(Pellux::WindowState::Navigation(), QStringLiteral("default"));
}

TEST_F(PreferencesWindow, KeepOwnRowsOfTheMouseFromOneRunToTheNext)
{
    writeFile("[navigation]\n\"Ctrl-right\" = \"zoom\"\n");

    openAndRead();

    EXPECT_EQ(Pellux::WindowState::Navigation(), QStringLiteral("custom"));
    EXPECT_EQ(editor<Pellux::NavigationEditor>("navigation.rows").Get(),
              (Pellux::NavigationRows{{QStringLiteral("Ctrl-right"), QStringLiteral("zoom")}}));
}

TEST_F(PreferencesWindow, RefuseTwoRowsForTheSameButtons)
{
    Open();
    auto& rows = editor<Pellux::NavigationEditor>("navigation.rows");
    rows.Add(QStringLiteral("Ctrl-left"), QStringLiteral("pan"));
    rows.Add(QStringLiteral("Ctrl-left"), QStringLiteral("zoom"));

    EXPECT_EQ(editor<QLabel>("navigation.errors").text(),
              QStringLiteral("\"Ctrl-left\" stands twice"));
    EXPECT_FALSE(
        dialog().findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());
}

TEST_F(PreferencesWindow, SetColoursFinenessAndFolders)
{
    Open();
    editor<QPushButton>("colors.edge").setText(QStringLiteral("#0000ff"));
    editor<QDoubleSpinBox>("tessellation.max-angle").setValue(10.0);
    editor<QWidget>("directories.input").findChild<QLineEdit*>()->setText(QStringLiteral("/tmp"));

    EXPECT_TRUE(dialog().Apply());

    EXPECT_EQ(echoed, (QStringList{QStringLiteral("(app:set-default-edge-color! '(0 0 255))"),
                                   QStringLiteral("(app:set-default-input-directory! \"/tmp\")"),
                                   QStringLiteral("(view:tessellation 0 10)")}))
        << qPrintable(errors.join(u'\n'));
    EXPECT_TRUE(errors.isEmpty()) << qPrintable(errors.join(u'\n'));
}

TEST_F(PreferencesWindow, ForceTheModesOfLoaders)
{
    Open();
    ASSERT_TRUE(Do("(WEND.setForceProductStructureMode #t)"));
    echoed.clear();
    auto& graphical = editor<QCheckBox>("loading.force-graphical");
    auto& structure = editor<QCheckBox>("loading.force-product-structure");
    EXPECT_FALSE(graphical.isChecked());
    EXPECT_TRUE(structure.isChecked());

    graphical.setChecked(true);
    structure.setChecked(false);
    EXPECT_TRUE(dialog().Apply());

    EXPECT_EQ(echoed, (QStringList{QStringLiteral("(WEND.setForceGraphicalMode #t)"),
                                   QStringLiteral("(WEND.setForceProductStructureMode #f)")}));
    dialog().RestoreDefaults();
    EXPECT_TRUE(dialog().Apply());
    EXPECT_EQ(echoed.last(), QStringLiteral("(WEND.setForceGraphicalMode #f)"));
}

TEST_F(PreferencesWindow, BindShortcutsAtOnce)
{
    Open();
    auto& table = *dialog().findChild<QTableWidget*>(QStringLiteral("shortcuts.rows"));
    table.insertRow(0);
    table.setItem(0, 0, new QTableWidgetItem(QStringLiteral("Ctrl-q")));
    table.setItem(0, 1, new QTableWidgetItem(QStringLiteral("(view:iso)")));

    EXPECT_TRUE(dialog().Apply());
    EXPECT_TRUE(Do("(input:key \"Ctrl-q\")"));

    EXPECT_TRUE(echoed.contains(QStringLiteral("(view:iso)"))) << qPrintable(echoed.join(u'\n'));
}

TEST_F(PreferencesWindow, RefuseWhatIsNoShortcut)
{
    Open();
    auto& table = *dialog().findChild<QTableWidget*>(QStringLiteral("shortcuts.rows"));
    table.insertRow(0);
    table.setItem(0, 0, new QTableWidgetItem(QStringLiteral("F5")));
    table.setItem(0, 1, new QTableWidgetItem(QStringLiteral("(view:iso)")));

    EXPECT_FALSE(
        dialog().findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());
}

TEST_F(PreferencesWindow, NameTheirEditorsForThoseWhoListen)
{
    Open();

    for (const Pellux::Preference& preference : Pellux::PreferenceTable()) {
        const QString name = preference.section + QLatin1Char('.') + preference.key;
        const QWidget* const widget = dialog().findChild<QWidget*>(name);
        ASSERT_NE(widget, nullptr) << qPrintable(name);
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << qPrintable(name);
    }
}

} // namespace
