#include <OrvikOs/Utf8.h>

#include <gtest/gtest.h>

#include <random>

namespace {

TEST(Utf8, CharactersOfEveryLengthAreDecoded)
{
    EXPECT_EQ(OrvikOs::Utf8ToWide("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"),
              std::wstring(L"a\u00E4\u20AC\U0001F600"));
}

TEST(Utf8, CharactersOfEveryLengthAreEncoded)
{
    EXPECT_EQ(OrvikOs::WideToUtf8(L"a\u00E4\u20AC\U0001F600"),
              "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(Utf8, OddBytesBecomeLowSurrogates)
{
    const std::wstring text = OrvikOs::Utf8ToWide("x\xFFy\x80");
    ASSERT_EQ(text.size(), 4u);
    EXPECT_EQ(static_cast<unsigned>(text[1]), 0xDCFFu);
    EXPECT_EQ(static_cast<unsigned>(text[3]), 0xDC80u);
}

TEST(Utf8, ZeroBytesAreKept)
{
    const std::string bytes("a\0b", 3);
    EXPECT_EQ(OrvikOs::Utf8ToWide(bytes).size(), 3u);
    EXPECT_EQ(OrvikOs::WideToUtf8(OrvikOs::Utf8ToWide(bytes)), bytes);
}

TEST(Utf8, EncodedSurrogatesOverlongFormsAndHugeValuesAreNotValid)
{
    EXPECT_FALSE(OrvikOs::IsValidUtf8("\xED\xB2\x80"));
    EXPECT_FALSE(OrvikOs::IsValidUtf8("\xC0\x80"));
    EXPECT_FALSE(OrvikOs::IsValidUtf8("\xE0\x80\x80"));
    EXPECT_FALSE(OrvikOs::IsValidUtf8("\xF4\x90\x80\x80"));
    EXPECT_FALSE(OrvikOs::IsValidUtf8("\xE2\x82"));
    EXPECT_TRUE(OrvikOs::IsValidUtf8("\xF4\x8F\xBF\xBF"));
}

TEST(Utf8, EscapedBytesThatHappenToFormUtf8SurviveAsBytes)
{
    // Three encoded bytes of a surrogate are escaped one by one and must come back the same.
    const std::string bytes = "\xED\xB2\x80";
    EXPECT_EQ(OrvikOs::Utf8ToWide(bytes).size(), 3u);
    EXPECT_EQ(OrvikOs::WideToUtf8(OrvikOs::Utf8ToWide(bytes)), bytes);
}

TEST(Utf8, SurrogatePairsAreOneCharacter)
{
    const std::wstring pair{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    EXPECT_EQ(OrvikOs::WideToUtf8(pair), "\xF0\x9F\x98\x80");
}

TEST(Utf8, LoneSurrogatesBecomeTheReplacementCharacter)
{
    const std::wstring lone{static_cast<wchar_t>(0xD83D), L'x', static_cast<wchar_t>(0xDC01)};
    EXPECT_EQ(OrvikOs::WideToUtf8(lone), "\xEF\xBF\xBDx\xEF\xBF\xBD");
}

TEST(Utf8, RandomBytesSurviveTheRoundTrip)
{
    std::mt19937 random(7);
    for (int i = 0; i < 5000; ++i) {
        std::string bytes(random() % 20, '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random() % 256);
        }
        ASSERT_EQ(OrvikOs::WideToUtf8(OrvikOs::Utf8ToWide(bytes)), bytes);
    }
}

} // namespace
