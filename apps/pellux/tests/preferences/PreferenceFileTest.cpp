#include <ScopedTempDir.h>
#include <gtest/gtest.h>
#include <preferences/PreferenceFile.h>
#include <runtime/QtText.h>

#include <QDir>
#include <QFile>

namespace {

using Pellux::PreferenceContents;

class PreferenceFile : public ::testing::Test
{
protected:
    QString path() const
    {
        return QString::fromStdString((m_dir.Path() / "below" / "window.toml").string());
    }

    PreferenceContents read()
    {
        errors.clear();
        return Pellux::ReadPreferences(path(), errors);
    }

    void write(const char* text)
    {
        QDir().mkpath(QFileInfo(path()).absolutePath());
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QString errors;

private:
    ScopedTempDir m_dir;
};

TEST_F(PreferenceFile, GivesBackWhatWasWritten)
{
    PreferenceContents contents;
    contents.values[{QStringLiteral("colors"), QStringLiteral("highlight")}] =
        QStringLiteral("#00ff00");
    contents.values[{QStringLiteral("directories"), QStringLiteral("input")}] =
        QString::fromUtf8("/a \"b\"\\\xC3\xA4");
    contents.shortcuts = {
        {QStringLiteral("Ctrl-f"), QStringLiteral("(view:zoom-all)\n(view:iso)")}};

    contents.values[{QStringLiteral("navigation"), QStringLiteral("preset")}] =
        QStringLiteral("left-rotates");
    contents.navigation = {{QStringLiteral("Ctrl-left+right"), QStringLiteral("pan")}};

    EXPECT_TRUE(Pellux::WritePreferences(path(), contents, errors)) << qPrintable(errors);

    EXPECT_EQ(read(), contents) << qPrintable(errors);
    EXPECT_TRUE(errors.isEmpty());
}

TEST_F(PreferenceFile, IsEmptyWhereThereIsNone)
{
    EXPECT_EQ(read(), PreferenceContents());
    EXPECT_TRUE(errors.isEmpty());
}

TEST_F(PreferenceFile, NamesThePlaceOfAMistakeAndTakesTheRest)
{
    write("[colors]\nhighlight = \"red\"\nface = \"#010203\"\n");

    const PreferenceContents contents = read();

    EXPECT_EQ(errors, path() + QStringLiteral(":2:13: \"red\" is no value of highlight"));
    EXPECT_EQ(contents.values.size(), 1);
}

TEST_F(PreferenceFile, IsOfNoUseWhenItIsNoToml)
{
    write("[colors\n");

    EXPECT_EQ(read(), PreferenceContents());
    EXPECT_TRUE(errors.startsWith(path() + QStringLiteral(":1:"))) << qPrintable(errors);
}

TEST_F(PreferenceFile, SaysThatTheDiskIsFull)
{
    PreferenceContents contents;
    contents.values[{QStringLiteral("display"), QStringLiteral("edges")}] = QStringLiteral("false");
    const QString full = QStringLiteral("/dev/full");

    EXPECT_FALSE(Pellux::WritePreferences(full, contents, errors));
    EXPECT_TRUE(errors.startsWith(full + QStringLiteral(" cannot be written: ")))
        << qPrintable(errors);
}

TEST_F(PreferenceFile, LeavesDefaultsOut)
{
    write("[display]\nfaces = true\nvertices = true\n");

    EXPECT_EQ(read().values.size(), 1);
}

TEST_F(PreferenceFile, NamesThePlaceOfABadRowOfTheMouse)
{
    write("[navigation]\n\"Shift\" = \"pan\"\n\"Ctrl-Alt-left\" = \"pan\"\n"
          "\"Alt-Ctrl-left\" = \"zoom\"\n");

    EXPECT_EQ(read().navigation,
              (Pellux::NavigationRows{{QStringLiteral("Ctrl-Alt-left"), QStringLiteral("pan")}}));

    const QString none = QStringLiteral(":2:11: \"Shift\" names no buttons; examples are left, "
                                        "Ctrl-left and Ctrl-Shift-left+middle\n");
    const QString buttons = QStringLiteral(":4:19: \"Alt-Ctrl-left\" are the same buttons as "
                                           "\"Ctrl-Alt-left\"");
    EXPECT_EQ(errors, path() + none + path() + buttons) << qPrintable(errors);
}

TEST(Shortcuts, AreCheckedByTheRulesOfTheConfiguration)
{
    EXPECT_EQ(Pellux::CheckShortcuts({{QStringLiteral("Ctrl-f"), QStringLiteral("(view:iso)")}}),
              QString());
    EXPECT_TRUE(Pellux::CheckShortcuts({{QStringLiteral("f"), QStringLiteral("(view:iso)")}})
                    .startsWith(QStringLiteral("\"f\" is no shortcut")));
}

TEST(PreferenceTable, HasValidDefaults)
{
    for (const Pellux::Preference& preference : Pellux::PreferenceTable())
        EXPECT_TRUE(preference.IsValid(preference.defaultText)) << qPrintable(preference.key);
}

TEST(PreferenceTable, SetsOnlyWhatIsAnother)
{
    Pellux::PreferenceValues before;
    before[{QStringLiteral("colors"), QStringLiteral("edge")}] = QStringLiteral("#010203");
    Pellux::PreferenceValues after = before;
    after[{QStringLiteral("display"), QStringLiteral("faces")}] = QStringLiteral("false");
    after[{QStringLiteral("tessellation"), QStringLiteral("sag")}] = QStringLiteral("0.5");

    EXPECT_EQ(Pellux::FormsBetween(before, after),
              (QStringList{QStringLiteral("(view:display-faces #f)"),
                           QStringLiteral("(view:tessellation 0.5 0)")}));
    EXPECT_EQ(Pellux::FormsBetween(before, {}),
              QStringList{QStringLiteral("(app:set-default-edge-color! '(32 32 32))")});
}

} // namespace
