#include "WindowFixture.h"

#include <files/FileWatch.h>

#include <QFile>
#include <QSignalSpy>

namespace {

class FileWatch : public WindowFixture
{
protected:
    FileWatch() { m_file = write("a"); }

    QString write(const char* text)
    {
        return QString::fromStdWString(Dir().Write("watched.stl", text));
    }

    void append(const char* text)
    {
        QFile file(m_file);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(text);
    }

    QString m_file;
    Pellux::FileWatch m_watch;
};

TEST_F(FileWatch, TellsOfAFileThatRests)
{
    const QSignalSpy changed(&m_watch, &Pellux::FileWatch::Changed);
    m_watch.SetOn(true);
    m_watch.SetFiles({m_file});
    append("b");
    EXPECT_TRUE(Until([&] { return changed.count() > 0; }));
}

TEST_F(FileWatch, TellsOfAFileThatWasPutInItsPlace)
{
    const QSignalSpy changed(&m_watch, &Pellux::FileWatch::Changed);
    m_watch.SetOn(true);
    m_watch.SetFiles({m_file});
    const QString other = QString::fromStdWString(Dir().Write("other.stl", "longer"));
    ASSERT_TRUE(QFile::remove(m_file));
    ASSERT_TRUE(QFile::rename(other, m_file));
    EXPECT_TRUE(Until([&] { return changed.count() > 0; }));
}

TEST_F(FileWatch, WaitsWhileAFileIsWrittenInPieces)
{
    const QSignalSpy changed(&m_watch, &Pellux::FileWatch::Changed);
    m_watch.SetOn(true);
    m_watch.SetFiles({m_file});
    int pieces = 0;
    QTimer writer;
    QObject::connect(&writer, &QTimer::timeout, [&] {
        EXPECT_EQ(changed.count(), 0);
        append("more");
        if (++pieces == 12)
            writer.stop();
    });
    writer.start(Pellux::FileWatch::kRestMs / 5);
    EXPECT_TRUE(Until([&] { return changed.count() > 0; }));
    EXPECT_EQ(pieces, 12);
}

TEST_F(FileWatch, TellsAgainUntilSomebodyHasRead)
{
    const QSignalSpy changed(&m_watch, &Pellux::FileWatch::Changed);
    m_watch.SetOn(true);
    m_watch.SetFiles({m_file});
    append("b");
    EXPECT_TRUE(Until([&] { return changed.count() > 1; }));
}

} // namespace
