#include "WindowFixture.h"

#include <OrvikOs/Directory.h>

namespace {

class WholeWindow : public WindowFixture
{
};

TEST_F(WholeWindow, LoadsAModelAndShowsIt)
{
    Open();
    const QString cube = WriteCube();

    ASSERT_TRUE(Do(qPrintable(QStringLiteral("(doc:load \"%1\")").arg(cube))))
        << qPrintable(errors.join(u'\n'));

    EXPECT_EQ(echoed, QStringList{QStringLiteral("(doc:load \"%1\")").arg(cube)});
    EXPECT_TRUE(Window().isVisible());
    EXPECT_FALSE(Runner().IsBusy());
}

TEST_F(WholeWindow, PrintsWhatAScriptGotWrong)
{
    Open();

    EXPECT_FALSE(Do("(view:no-such-command)"));

    ASSERT_FALSE(errors.isEmpty());
    EXPECT_TRUE(errors.join(u'\n').contains(QStringLiteral("no-such-command")));
}

TEST_F(WholeWindow, KeepsItsStateInAFolderOfItsOwn)
{
    Open();

    EXPECT_TRUE(OrvikOs::IsDirectory(Dir().WidePath(L"state/pellux/journals")));
}

TEST_F(WholeWindow, EndsGoodWhenItIsClosed)
{
    Open();

    EXPECT_EQ(Close(), 0);
}

} // namespace
