#include <files/RecentFiles.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace {

using Pellux::RecentFiles;

TEST(RecentFiles, PutTheLatestFirstAndKeepTen)
{
    const QTemporaryDir folder;
    RecentFiles recent(folder.filePath(QStringLiteral("new/recent")));
    for (int i = 0; i < 15; ++i)
        EXPECT_TRUE(recent.Add(QStringLiteral("/a/%1.stl").arg(i)));
    recent.Add(QStringLiteral("/a/9.stl"));

    EXPECT_EQ(recent.List().size(), RecentFiles::kKept);
    EXPECT_EQ(recent.List().first(), QStringLiteral("/a/9.stl"));
    EXPECT_EQ(recent.List()[1], QStringLiteral("/a/14.stl"));
}

TEST(RecentFiles, AreSharedByWindows)
{
    const QTemporaryDir folder;
    RecentFiles one(folder.filePath(QStringLiteral("recent")));
    RecentFiles two(folder.filePath(QStringLiteral("recent")));
    one.Add(QStringLiteral("/a"));
    two.Add(QStringLiteral("/b"));
    one.Add(QStringLiteral("/c"));
    EXPECT_EQ(two.List(),
              QStringList({QStringLiteral("/c"), QStringLiteral("/b"), QStringLiteral("/a")}));
}

TEST(RecentFiles, LeaveOutWhatIsNoLine)
{
    const QTemporaryDir folder;
    RecentFiles recent(folder.filePath(QStringLiteral("recent")));
    EXPECT_FALSE(recent.Add(QStringLiteral("/a\nb")));
    EXPECT_TRUE(recent.List().isEmpty());
}

} // namespace
