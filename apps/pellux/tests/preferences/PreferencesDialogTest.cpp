#include "WindowFixture.h"

#include <preferences/Preferences.h>
#include <preferences/PreferencesDialog.h>

#include <QAbstractButton>
#include <QDialogButtonBox>
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

TEST_F(PreferencesWindow, BindShortcutsAtOnce)
{
    Open();
    auto& table = *dialog().findChild<QTableWidget*>();
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
    auto& table = *dialog().findChild<QTableWidget*>();
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
