#include "WindowFixture.h"

#include <actions/WindowMenus.h>
#include <actions/WindowState.h>
#include <files/FileFilters.h>
#include <files/FileNotice.h>

#include <QClipboard>
#include <QDropEvent>
#include <QFile>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

namespace {

class FileDesk : public WindowFixture
{
protected:
    FileDesk() { Open(); }

    Pellux::FileDesk& desk() { return Window().Menus().Files(); }

    bool drop(const QStringList& paths, Qt::KeyboardModifiers modifiers = {})
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(&Window(), &enter);
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(&Window(), &event);
        return enter.isAccepted();
    }
};

TEST_F(FileDesk, LoadsTheFirstModelThatIsDroppedAndAddsTheOthers)
{
    const QString one = WriteCube("one.stl");
    const QString two = WriteCube("two.stl");
    EXPECT_TRUE(drop({one, two}));
    ASSERT_TRUE(Until([this] { return echoed.size() == 2; }));
    EXPECT_EQ(echoed[0], QStringLiteral("(doc:load \"%1\")").arg(one));
    EXPECT_EQ(echoed[1], QStringLiteral("(doc:import \"%1\")").arg(two));
    EXPECT_EQ(Pellux::WindowState::LoadedFiles(), QStringList({one, two}));
}

TEST_F(FileDesk, AddsWhatIsDroppedWithAModifier)
{
    const QString one = WriteCube("one.stl");
    drop({one}, Qt::ControlModifier);
    ASSERT_TRUE(Until([this] { return !echoed.isEmpty(); }));
    EXPECT_EQ(echoed[0], QStringLiteral("(doc:import \"%1\")").arg(one));
}

TEST_F(FileDesk, RunsAScriptThatIsDropped)
{
    drop({QString::fromStdWString(Dir().Write("a.scm", "(+ 1 2)\n(+ 3 4)\n"))});
    ASSERT_TRUE(Until([this] { return echoed.size() == 2; }));
    EXPECT_EQ(echoed[1], QStringLiteral("(+ 3 4)"));
}

TEST_F(FileDesk, SaysInTheWindowWhyAFileCannotBeRead)
{
    Pellux::FileNotice& notice = desk().Notice();
    const QString broken = QString::fromStdWString(Dir().Write("broken.obj", "v 1 2 x\n"));
    EXPECT_FALSE(Runner().Run(QStringLiteral("(doc:load \"%1\")").arg(broken)));
    ASSERT_TRUE(notice.isVisible());
    EXPECT_TRUE(notice.Text().contains(QStringLiteral("broken.obj")));
    notice.findChild<QPushButton*>()->click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), notice.Text());

    EXPECT_TRUE(Runner().Run(QStringLiteral("(doc:load \"%1\")").arg(WriteCube())));
    EXPECT_FALSE(notice.isVisible());
}

TEST_F(FileDesk, SaysNothingOfErrorsThatAreNotAboutFiles)
{
    EXPECT_FALSE(Do("(car 5)"));
    EXPECT_FALSE(desk().Notice().isVisible());
}

TEST_F(FileDesk, OffersRecentFilesAndGreysThoseThatAreMissing)
{
    const QString one = WriteCube("one.stl");
    const QString two = WriteCube("two.stl");
    Runner().Run(QStringLiteral("(doc:load \"%1\")").arg(one));
    Runner().Run(QStringLiteral("(doc:load \"%1\")").arg(two));
    QFile::remove(one);
    QMenu menu;
    desk().FillRecent(menu);
    Q_EMIT menu.aboutToShow();
    ASSERT_EQ(menu.actions().size(), 2);
    EXPECT_EQ(menu.actions()[0]->toolTip(), two);
    EXPECT_TRUE(menu.actions()[0]->isEnabled());
    EXPECT_FALSE(menu.actions()[1]->isEnabled());
    echoed.clear();
    menu.actions()[0]->trigger();
    EXPECT_EQ(echoed, QStringList(QStringLiteral("(doc:load \"%1\")").arg(two)));
}

TEST_F(FileDesk, ReadsAgainWhatHasChangedWhenWatching)
{
    const QString one = WriteCube("one.stl");
    Runner().Run(QStringLiteral("(doc:load \"%1\") (app:watch #t)").arg(one));
    echoed.clear();
    QFile file(one);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("solid more\nendsolid more\n");
    file.close();
    EXPECT_TRUE(Until([this] { return echoed.contains(QStringLiteral("(doc:reload)")); }));
    EXPECT_TRUE(Do("(app:watch #f)"));
}

TEST_F(FileDesk, ReadingAgainKeepsCameraAndSections)
{
    const QString one = WriteCube("one.stl");
    ASSERT_TRUE(Do("(view:animate #f)"));
    ASSERT_TRUE(Runner().Run(QStringLiteral("(doc:load \"%1\")").arg(one)));
    ASSERT_TRUE(
        Do("(view:set-camera! '(40 50 60) '(5 5 5) '(0 1 0)) (view:section '(4 0 0) '(1 0 0))"));
    printed.clear();
    ASSERT_TRUE(Do("(app:print (view:camera)) (app:print (view:sections)) (app:watch #t)"));
    const QStringList before = printed;
    echoed.clear();
    QFile file(one);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("solid more\nendsolid more\n");
    file.close();
    ASSERT_TRUE(Until([this] { return echoed.contains(QStringLiteral("(doc:reload)")); }));
    ASSERT_TRUE(Until([this] { return !Runner().IsBusy(); }));
    printed.clear();
    ASSERT_TRUE(Do("(app:watch #f) (app:print (view:camera)) (app:print (view:sections))"));

    EXPECT_EQ(before.size(), 2);
    EXPECT_EQ(printed, before);
}

TEST_F(FileDesk, AFileThatBecomesUnreadableIsToldAndReadWhenItIsWholeAgain)
{
    const QString one = WriteCube("one.stl");
    ASSERT_TRUE(Runner().Run(QStringLiteral("(doc:load \"%1\") (app:watch #t)").arg(one)));
    Dir().Write("one.stl", "solid broken\nfacet normal 0 0 x\n");
    ASSERT_TRUE(Until([this] { return desk().Notice().isVisible(); }));
    EXPECT_TRUE(desk().Notice().Text().contains(QStringLiteral("one.stl")));

    WriteCube("one.stl");
    EXPECT_TRUE(Until([&] {
        return !desk().Notice().isVisible() &&
               Pellux::WindowState::LoadedFiles() == QStringList{one};
    }));
    EXPECT_TRUE(Do("(app:watch #f)"));
}

TEST_F(FileDesk, DialogsKnowEveryFormatByItsLoader)
{
    const QString filter = Pellux::OpenFilter();
    EXPECT_TRUE(filter.startsWith(QStringLiteral("All models (")));
    EXPECT_TRUE(filter.section(QStringLiteral(";;"), 0, 0).contains(QStringLiteral("*.stl ")));
    EXPECT_TRUE(filter.section(QStringLiteral(";;"), 0, 0).contains(QStringLiteral("*.STL")));
    EXPECT_TRUE(Pellux::SaveFilter().contains(QStringLiteral("*.ply")));
    EXPECT_TRUE(Pellux::IsScript(QStringLiteral("/a/b.scm")));
    EXPECT_FALSE(Pellux::IsScript(QStringLiteral("/a/b.stl")));
    EXPECT_TRUE(Pellux::CanRead(QStringLiteral("/a/b.STL")));
}

} // namespace
