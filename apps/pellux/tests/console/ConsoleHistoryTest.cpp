#include <console/ConsoleHistory.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

using Pellux::ConsoleHistory;

TEST(ConsoleHistory, KeepsCommandsOverRuns)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("new/history"));
    ConsoleHistory first(file);
    EXPECT_TRUE(first.Add(QStringLiteral("(a)")));
    EXPECT_TRUE(first.Add(QStringLiteral("(b\n  \"\\n\")")));

    const ConsoleHistory second(file);

    EXPECT_EQ(second.Commands(),
              QStringList({QStringLiteral("(a)"), QStringLiteral("(b\n  \"\\n\")")}));
}

TEST(ConsoleHistory, KeepsWhatSeveralWindowsAdd)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("history"));
    ConsoleHistory first(file);
    ConsoleHistory second(file);
    first.Add(QStringLiteral("(one)"));
    second.Add(QStringLiteral("(two)"));
    first.Add(QStringLiteral("(three)"));

    EXPECT_EQ(
        ConsoleHistory(file).Commands(),
        QStringList({QStringLiteral("(one)"), QStringLiteral("(two)"), QStringLiteral("(three)")}));
}

TEST(ConsoleHistory, DropsTheOldestBeyondItsLimit)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("history"));
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::WriteOnly));
    for (int i = 0; i < 5000; ++i)
        written.write("(old)\n");
    written.close();

    ConsoleHistory(file).Add(QStringLiteral("(new)"));

    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(written.readAll().count('\n'), ConsoleHistory::kKept);
    EXPECT_EQ(ConsoleHistory(file).Commands().last(), QStringLiteral("(new)"));
}

TEST(ConsoleHistory, GivesTheUnfinishedTextBackBehindTheNewest)
{
    ConsoleHistory history{QString()};
    history.Add(QStringLiteral("(a)"));
    history.Add(QStringLiteral("(b)"));

    EXPECT_EQ(history.Older(QStringLiteral("(unfinished")), QStringLiteral("(b)"));
    EXPECT_EQ(history.Older(QStringLiteral("(b)")), QStringLiteral("(a)"));
    EXPECT_TRUE(history.Older(QStringLiteral("(a)")).isNull());
    EXPECT_EQ(history.Newer(), QStringLiteral("(b)"));
    EXPECT_EQ(history.Newer(), QStringLiteral("(unfinished"));
    EXPECT_TRUE(history.Newer().isNull());
}

TEST(ConsoleHistory, TakesARepeatedCommandOnce)
{
    ConsoleHistory history{QString()};
    history.Add(QStringLiteral("(a)"));
    history.Add(QStringLiteral("(a)"));
    history.Add(QStringLiteral("  "));
    EXPECT_EQ(history.Commands().size(), 1);
}

TEST(ConsoleHistory, SaysWhyItIsNotKept)
{
    ConsoleHistory history(QStringLiteral("/proc/none/history"));
    EXPECT_FALSE(history.Add(QStringLiteral("(a)")));
    EXPECT_TRUE(history.ErrorText().startsWith(QStringLiteral("/proc/none/history: ")));
}

} // namespace
