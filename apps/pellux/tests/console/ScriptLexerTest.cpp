#include <console/ScriptLexer.h>
#include <gtest/gtest.h>

namespace {

using Pellux::Bracket;

QVector<Bracket> bracketsOf(const char* text)
{
    return Pellux::FindBrackets(QString::fromUtf8(text));
}

TEST(ScriptLexer, PairsBracketsOfEitherForm)
{
    const QVector<Bracket> brackets = bracketsOf("(a [b])");
    ASSERT_EQ(brackets.size(), 4);
    EXPECT_EQ(brackets[0].partner, 6);
    EXPECT_EQ(brackets[1].partner, 5);
}

TEST(ScriptLexer, LeavesABracketOfTheOtherFormAlone)
{
    const QVector<Bracket> brackets = bracketsOf("(a]");
    ASSERT_EQ(brackets.size(), 2);
    EXPECT_EQ(brackets[0].partner, -1);
    EXPECT_EQ(brackets[1].partner, -1);
}

TEST(ScriptLexer, PassesOverStringsCommentsAndCharacters)
{
    EXPECT_TRUE(bracketsOf("\"(\\\"(\" ; (\n#\\( #| ( #| ( |# |# |(|").isEmpty());
}

TEST(ScriptLexer, EndsWithTheTextInsideAString)
{
    EXPECT_EQ(bracketsOf("(print \"(").size(), 1);
    EXPECT_EQ(bracketsOf("(a #\\").size(), 1);
    EXPECT_EQ(bracketsOf("(a \"\\").size(), 1);
    EXPECT_EQ(bracketsOf("(a #| (").size(), 1);
}

TEST(ScriptLexer, PrefersTheBracketBeforeTheCursor)
{
    const QVector<Bracket> brackets = bracketsOf("(a)(b)");
    ASSERT_NE(Pellux::BracketAt(brackets, 3), nullptr);
    EXPECT_EQ(Pellux::BracketAt(brackets, 3)->position, 2);
    EXPECT_EQ(Pellux::BracketAt(brackets, 0)->position, 0);
}

TEST(ScriptLexer, CountsTheFormsThatAreOpen)
{
    const QString text = QStringLiteral("(a (b) [c");
    EXPECT_EQ(Pellux::DepthAt(Pellux::FindBrackets(text), text, 9), 2);
    EXPECT_EQ(Pellux::DepthAt(Pellux::FindBrackets(text), text, 3), 1);
}

TEST(ScriptLexer, NamesTheInnermostFormThatIsOpen)
{
    const QString text = QStringLiteral("(view:hide (sel:get) ");
    EXPECT_EQ(Pellux::OpenFormName(Pellux::FindBrackets(text), text, 21),
              QStringLiteral("view:hide"));
    EXPECT_EQ(Pellux::OpenFormName(Pellux::FindBrackets(text), text, 19),
              QStringLiteral("sel:get"));
}

TEST(ScriptLexer, FindsTheNameBeforeTheCursor)
{
    EXPECT_EQ(Pellux::NameBegin(QStringLiteral("(view:zo"), 8), 1);
    EXPECT_EQ(Pellux::NameBegin(QStringLiteral("(a "), 3), 3);
}

} // namespace
