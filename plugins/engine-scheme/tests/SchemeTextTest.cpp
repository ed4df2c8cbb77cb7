#include "../SchemeText.h"

#include <gtest/gtest.h>

namespace {

using OrvikScheme::TextForScheme;
using OrvikScheme::TextFromScheme;

TEST(SchemeText, TextsBecomeUtf8)
{
    EXPECT_EQ(TextForScheme(L"gr\u00FCn \U0001F600"), "gr\xC3\xBCn \xF0\x9F\x98\x80");
    EXPECT_EQ(TextFromScheme("gr\xC3\xBCn"), L"gr\u00FCn");
}

TEST(SchemeText, BytesThatAreNoUtf8TravelInAPrivatePlane)
{
    const std::wstring odd =
        L"a" + std::wstring(1, wchar_t(0xDC80)) + std::wstring(1, wchar_t(0xDCFF));

    EXPECT_EQ(TextForScheme(odd), "a\xF4\x8D\xB2\x80\xF4\x8D\xB3\xBF");
    EXPECT_EQ(TextFromScheme(TextForScheme(odd)), odd);
}

} // namespace
