#include <console/ConsoleOutput.h>
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTextBlock>
#include <iostream>
#include <set>

namespace {

using Pellux::ConsoleOutput;
using Pellux::LineKind;

std::set<QRgb> colorsOf(const ConsoleOutput& output)
{
    std::set<QRgb> colors;
    for (QTextBlock block = output.document()->begin(); block.isValid(); block = block.next())
        colors.insert(block.begin().fragment().charFormat().foreground().color().rgb());
    return colors;
}

void appendOneOfEach(ConsoleOutput& output)
{
    output.Append(QStringLiteral("(doc:load \"a\")"), LineKind::Echo);
    output.Append(QStringLiteral("done\n"), LineKind::Output);
    output.Append(QStringLiteral("odd"), LineKind::Warning);
    output.Append(QStringLiteral("bad\nworse"), LineKind::Error);
    output.Flush();
}

TEST(ConsoleOutput, TellsKindsApartByMarks)
{
    ConsoleOutput output;
    appendOneOfEach(output);
    EXPECT_EQ(output.toPlainText(), QStringLiteral("> (doc:load \"a\")\ndone\nwarning: odd\n"
                                                   "error: bad\n       worse"));
}

TEST(ConsoleOutput, TellsKindsApartByColourInLightAndDark)
{
    ConsoleOutput output;
    QPalette palette = output.palette();
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    output.setPalette(palette);
    appendOneOfEach(output);
    const std::set<QRgb> light = colorsOf(output);
    EXPECT_EQ(light.size(), 4u);

    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Text, Qt::white);
    output.setPalette(palette);
    const std::set<QRgb> dark = colorsOf(output);
    EXPECT_EQ(dark.size(), 4u);
    for (const QRgb color : light)
        EXPECT_EQ(dark.count(color), 0u);
    for (const QRgb color : dark)
        EXPECT_GT(QColor(color).lightness(), 128);
}

TEST(ConsoleOutput, CopiesTheFormsAlone)
{
    ConsoleOutput output;
    output.Append(QStringLiteral("(begin\n  \"> no\")"), LineKind::Echo);
    output.Append(QStringLiteral("> looks like one"), LineKind::Output);
    output.Append(QStringLiteral("(b)"), LineKind::Echo);
    EXPECT_EQ(output.ScriptText(), QStringLiteral("(begin\n  \"> no\")\n(b)\n"));
}

TEST(ConsoleOutput, CopiesTheMarkedFormsAlone)
{
    ConsoleOutput output;
    output.Append(QStringLiteral("(a)"), LineKind::Echo);
    output.Append(QStringLiteral("(b)"), LineKind::Echo);
    output.Flush();
    QTextCursor cursor(output.document()->lastBlock());
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    output.setTextCursor(cursor);
    EXPECT_EQ(output.ScriptText(), QStringLiteral("(b)\n"));
}

TEST(ConsoleOutput, KeepsTheLastLinesAndTellsHowManyWent)
{
    ConsoleOutput output;
    const QSignalSpy dropped(&output, &ConsoleOutput::DroppedChanged);
    for (int i = 0; i < 25000; ++i)
        output.Append(QString::number(i), LineKind::Output);
    output.Flush();
    output.Append(QStringLiteral("x\ny"), LineKind::Warning);
    output.Flush();

    EXPECT_EQ(output.DroppedLines(), 5002);
    EXPECT_EQ(output.blockCount(), ConsoleOutput::kMostLines);
    EXPECT_EQ(output.document()->firstBlock().text(), QStringLiteral("5002"));
    EXPECT_EQ(dropped.last().first().toLongLong(), 5002);
}

TEST(ConsoleOutput, CutsALineOfAHundredMegabytes)
{
    ConsoleOutput output;
    output.Append(QString(100'000'000, u'x'), LineKind::Output);
    output.Flush();
    EXPECT_LT(output.toPlainText().size(), 5000);
    EXPECT_TRUE(output.toPlainText().contains(QStringLiteral("more characters")));
}

TEST(ConsoleOutput, KeepsACutFormOutOfScripts)
{
    ConsoleOutput output;
    output.Append(QString(10000, u'x'), LineKind::Echo);
    EXPECT_TRUE(output.ScriptText().startsWith(QStringLiteral(";; ")));
}

TEST(ConsoleOutput, ClearForgetsAlsoWhatWaits)
{
    ConsoleOutput output;
    output.Append(QStringLiteral("a"), LineKind::Output);
    output.Clear();
    output.Flush();
    EXPECT_TRUE(output.toPlainText().isEmpty());
    EXPECT_EQ(output.DroppedLines(), 0);
}

TEST(ConsoleOutput, ShowsTwentyThousandLines)
{
    ConsoleOutput output;
    output.resize(800, 300);
    output.show();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 20000; ++i)
        output.Append(QStringLiteral("line %1 of the output of a long script").arg(i),
                      i % 50 == 0 ? LineKind::Warning : LineKind::Output);
    output.Flush();
    output.repaint();
    std::cout << "20,000 lines: " << timer.elapsed() << " ms" << std::endl;
    EXPECT_EQ(output.blockCount(), 20000);
}

} // namespace
