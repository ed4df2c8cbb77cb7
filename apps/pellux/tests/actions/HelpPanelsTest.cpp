#include "WindowFixture.h"

#include <help/CommandBrowser.h>
#include <help/HelpPanels.h>

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTableWidget>

namespace {

using HelpPanels = WindowFixture;

TEST_F(HelpPanels, ListEveryCommandAndFindByText)
{
    Open();
    Pellux::CommandBrowser browser(nullptr);
    EXPECT_GT(browser.List().count(), 100);
    browser.Search(QStringLiteral("frosted glass"));
    ASSERT_EQ(browser.List().count(), 1);
    EXPECT_TRUE(browser.Text().toPlainText().startsWith(QStringLiteral("view:xray [on]")));
    browser.Search(QStringLiteral("no such text"));
    EXPECT_EQ(browser.Text().toPlainText(), QStringLiteral("No command has this text."));
}

TEST_F(HelpPanels, TellWhatTheMouseDoesInTheNavigationThatHolds)
{
    EXPECT_TRUE(
        Pellux::DragsOf(QStringLiteral("default")).contains(QStringLiteral("left\trotate\n")));
    const QString drags = Pellux::DragsOf(QStringLiteral("middle-rotates"));
    EXPECT_TRUE(drags.contains(QStringLiteral("middle\trotate\n")));
    EXPECT_TRUE(drags.contains(QStringLiteral("Ctrl-left\tselect more\n")));
}

TEST_F(HelpPanels, ListTheKeysOfMenus)
{
    Open();
    ASSERT_TRUE(Do("(app:show-panel \"keys\")"));
    const auto* const table =
        Window().findChild<QWidget*>(QStringLiteral("keys"))->findChild<QTableWidget*>();
    EXPECT_FALSE(table->findItems(QStringLiteral("Ctrl+O"), Qt::MatchExactly).isEmpty());
}

TEST_F(HelpPanels, NameVersionEngineAndPlugins)
{
    Open();
    ASSERT_TRUE(Do("(app:show-panel \"about\")"));
    const QString text =
        Window().findChild<QWidget*>(QStringLiteral("about"))->findChild<QLabel*>()->text();
    EXPECT_TRUE(text.startsWith(QStringLiteral("Pellux ")));
    EXPECT_TRUE(text.contains(QStringLiteral("Guile")));
    EXPECT_TRUE(text.contains(QLatin1String(qVersion())));
}

} // namespace
