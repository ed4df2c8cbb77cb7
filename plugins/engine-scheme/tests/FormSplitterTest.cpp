#include "../FormSplitter.h"

#include <gtest/gtest.h>

namespace {

using OrvikScheme::SplitTopLevelForms;
using OrvikScheme::TopLevelForm;

std::vector<std::wstring> textsOf(const std::wstring& text)
{
    std::vector<std::wstring> texts;
    for (const TopLevelForm& form : SplitTopLevelForms(text).forms)
        texts.push_back(form.text);
    return texts;
}

using Texts = std::vector<std::wstring>;

TEST(FormSplitter, EmptyTextAndCommentsHaveNoForm)
{
    EXPECT_EQ(textsOf(L""), Texts{});
    EXPECT_EQ(textsOf(L" \n; only this\n#| and #| nested |# this |#\n#;(dropped)"), Texts{});
}

TEST(FormSplitter, EachTopLevelDatumIsOneForm)
{
    EXPECT_EQ(textsOf(L"(a (b c)) d \"e f\" 'g #(1 2) '(h)"),
              (Texts{L"(a (b c))", L"d", L"\"e f\"", L"'g", L"#(1 2)", L"'(h)"}));
}

TEST(FormSplitter, ParenthesesInStringsCharactersAndCommentsDoNotCount)
{
    EXPECT_EQ(
        textsOf(L"(a \")\\\")\") (b #\\( #\\)) (c ; )\n) (d #| ) |# e) (|f)| g)"),
        (Texts{L"(a \")\\\")\")", L"(b #\\( #\\))", L"(c ; )\n)", L"(d #| ) |# e)", L"(|f)| g)"}));
}

TEST(FormSplitter, LineAndColumnNameTheFirstCharacterOfEachForm)
{
    const auto forms = SplitTopLevelForms(L"; head\n\n(a\n b)  (c)\n   d").forms;

    ASSERT_EQ(forms.size(), 3u);
    EXPECT_EQ(forms[0].line, 3);
    EXPECT_EQ(forms[0].column, 1);
    EXPECT_EQ(forms[1].line, 4);
    EXPECT_EQ(forms[1].column, 6);
    EXPECT_EQ(forms[2].line, 5);
    EXPECT_EQ(forms[2].column, 4);
}

TEST(FormSplitter, ATextCutShortYieldsItsRestAsTheLastForm)
{
    EXPECT_EQ(textsOf(L"(a) (b (c"), (Texts{L"(a)", L"(b (c"}));
    EXPECT_EQ(textsOf(L"(a) \"open"), (Texts{L"(a)", L"\"open"}));
    EXPECT_EQ(textsOf(L"(a) #| open"), (Texts{L"(a)", L" #| open"}));
    EXPECT_FALSE(SplitTopLevelForms(L"(a) (b (c").isComplete);
    EXPECT_TRUE(SplitTopLevelForms(L"(a) (b)").isComplete);
}

TEST(FormSplitter, AClosingParenthesisTooManyIsKeptForTheReader)
{
    EXPECT_EQ(textsOf(L"(a)) (b)"), (Texts{L"(a)", L") (b)"}));
}

TEST(FormSplitter, DeepNestingNeedsNoStack)
{
    const std::wstring deep = std::wstring(1000000, L'(') + std::wstring(1000000, L')');

    EXPECT_EQ(SplitTopLevelForms(deep + L" b").forms.size(), 2u);

    std::wstring nested;
    for (int i = 0; i < 300000; ++i)
        nested += L"#;'#u8(";
    EXPECT_EQ(SplitTopLevelForms(nested).forms.size(), 1u);
}

TEST(FormSplitter, DatumCommentsHideTheDataThatFollow)
{
    EXPECT_EQ(textsOf(L"#;(a) b #; #; c d e (f #;(g) h)"), (Texts{L"b", L"e", L"(f #;(g) h)"}));
}

TEST(FormSplitter, AByteOrderMarkIsABlank)
{
    EXPECT_EQ(textsOf(std::wstring(1, wchar_t(0xFEFF)) + L"(a)"), Texts{L"(a)"});
}

} // namespace
